#include "tools/SampleCollection.h"

#include <gmock/gmock.h>

#include <fstream>
#include <regex>

using namespace Qt::StringLiterals;

namespace {

/// A mistake in a sample, made by a shell's command, and all that is then found.
struct Mistake {
    std::string command;
    std::string findings;
};

/// Reads a file of mistakes: each is a command behind "$ ", the findings below it without digests, and an
/// empty line.
std::vector<Mistake> readMistakes(const std::string& name)
{
    std::vector<Mistake> mistakes;
    std::ifstream file(PROJECT_SOURCE "/tests/tools/" + name);
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with("$ "))
            mistakes.push_back({line.substr(2), {}});
        else if (!line.empty())
            mistakes.back().findings += line + '\n';
    }
    return mistakes;
}

/// Makes each mistake in a copy of one sample and checks `subject` of it.
void expectFindings(const std::string& mistakes, const QString& subject)
{
    const SampleCollection sample;
    ASSERT_EQ(sample.pack(u"s.app"_s).status, 0);
    ASSERT_EQ(sample.shell(u"mkdir good && mv c s.app good"_s).status, 0);
    for (const auto& [command, findings] : readMistakes(mistakes)) {
        SCOPED_TRACE(command);
        const QString script =
            u"set -e; rm -rf c s.app b; cp -a good/. .; "_s + QString::fromStdString(command);
        ASSERT_EQ(sample.shell(script).status, 0);

        Ending ending = sample.tool({u"check"_s, subject});

        ending.output.erase(ending.output.rfind('\n', ending.output.size() - 2) + 1);
        EXPECT_EQ(std::regex_replace(ending.output, std::regex(" [0-9a-f]{64}"), " …"), findings)
            << ending.errors;
        EXPECT_EQ(ending.status, findings.find(": error: ") == std::string::npos ? 0 : 2);
    }
}

TEST(Findings, NameEveryMistakeInACollection)
{
    expectFindings("collection.mistakes", u"c"_s);
}

TEST(Findings, NameEveryMistakeInAStore)
{
    expectFindings("store.mistakes", u"s.app"_s);
}

} // namespace

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

/// What stands in each line of a catalog file, by names that outlive a new field: of the entry and its key,
/// or else the line itself.
std::vector<std::string> namesOfLines(const QByteArray& json)
{
    std::vector<std::string> names;
    std::smatch key;
    int entry = 0;
    for (const QByteArray& bytes : json.split('\n')) {
        const std::string line = bytes.trimmed().toStdString();
        entry += line == "{" ? 1 : 0;
        const bool hasKey = std::regex_search(line, key, std::regex("^\"(\\w+)\""));
        names.push_back(
            line == "{" || hasKey ? std::to_string(entry) + (hasKey ? '.' + key.str(1) : "") : line);
    }
    return names;
}

/// The output with the names of lines in place of their numbers, and without digests, sizes of archives and
/// a library's own words, which its next version changes.
std::string readable(std::string output, const std::vector<std::string>& names)
{
    output = std::regex_replace(output, std::regex("says [-0-9]+ bytes, and the archive has [0-9]+"),
        "says … bytes, and the archive has …");
    output = std::regex_replace(output, std::regex("(not unpack:) (?!Bemmo)[^\\[]*"), "$1 … ");
    std::string text;
    std::size_t done = 0;
    static const std::regex number("(\\.json:|in line )([0-9]+)|( )[0-9a-f]{64}");
    for (std::sregex_iterator found(output.begin(), output.end(), number), end; found != end; ++found) {
        text += output.substr(done, std::size_t(found->position()) - done) + found->str(1) + found->str(3);
        text += found->length(2) > 0 ? '<' + names.at(std::stoul(found->str(2)) - 1) + '>' : "…";
        done = std::size_t(found->position() + found->length());
    }
    return text + output.substr(done);
}

/// Makes each mistake in a copy of one sample and checks `subject` of it. `edit ENTRY KEY SCRIPT` changes a
/// line of the catalog file.
void expectFindings(const std::string& mistakes, const QString& subject, const Path& catalog)
{
    const SampleCollection sample;
    ASSERT_EQ(sample.pack(u"s.app"_s).status, 0);
    ASSERT_EQ(sample.shell(u"mkdir good && mv c s.app good"_s).status, 0);
    for (const auto& [command, findings] : readMistakes(mistakes)) {
        SCOPED_TRACE(command);
        const QString script =
            u"set -e; rm -rf c s.app b; cp -a good/. .; edit() { sed -i \"/\\\"id\\\": \\\"$1\\\"/,/}/{/\\\"$2\\\":/$3\n}\" %1; }; "_s
                .arg(toText(catalog))
            + QString::fromStdString(command);
        ASSERT_EQ(sample.shell(script).status, 0);

        Ending ending = sample.tool({u"check"_s, subject});

        ending.output.erase(ending.output.rfind('\n', ending.output.size() - 2) + 1);
        EXPECT_EQ(readable(ending.output, namesOfLines(sample.read(catalog))), findings) << ending.errors;
        EXPECT_EQ(ending.status, findings.find(": error: ") == std::string::npos ? 0 : 2);
    }
}

TEST(Findings, NameEveryMistakeInACollection)
{
    expectFindings("collection.mistakes", u"c"_s, "c/collection.json");
}

TEST(Findings, NameEveryMistakeInAStore)
{
    expectFindings("store.mistakes", u"s.app"_s, "s.app/Contents/Resources/catalog.json");
}

} // namespace

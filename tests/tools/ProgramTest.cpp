#include "tools/SampleCollection.h"

#include <QCoreApplication>
#include <QProcess>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

struct Ending {
    int status;
    std::string output;
    std::string errors;
};

Ending run(const QStringList& arguments)
{
    int argc = 0;
    const QCoreApplication application(argc, nullptr);
    QProcess program;
    program.start(QStringLiteral(PACK_PROGRAM), arguments);
    program.waitForFinished(-1);
    return {program.exitStatus() == QProcess::NormalExit ? program.exitCode() : -1,
        program.readAllStandardOutput().toStdString(), program.readAllStandardError().toStdString()};
}

QStringList arguments(const PackOrder& order)
{
    return {u"--collection"_s, toText(order.collection), u"--apps"_s, toText(order.apps), u"--output"_s,
        toText(order.output)};
}

} // namespace

TEST(Program, AFailureIsOneLineAndStatusOne)
{
    const SampleCollection sample;
    sample.write("collection/icons/Bemmo.svg", "no drawing");

    const std::pair<QStringList, std::string> cases[]{
        {arguments(sample.order()),
            "cannot draw " + sample.path("collection/icons/Bemmo.svg").string() + ": it is no SVG drawing"},
        {arguments(sample.order()).first(4), "--output is missing; --help shows the options"},
        {{u"--colour"_s}, "Unknown option 'colour'."},
        {arguments(sample.order()) << u"more"_s, "unexpected argument \"more\""},
    };
    for (const auto& [given, line] : cases) {
        const auto ending = run(given);

        EXPECT_EQ(ending.status, 1);
        EXPECT_EQ(ending.output, "");
        EXPECT_EQ(ending.errors, "plovistore-pack: " + line + "\n");
    }
}

#include "app/SelfTest.h"

#include "support/FakePlatform.h"
#include "support/Samples.h"

#include <gtest/gtest.h>

#include <cerrno>

using namespace Qt::StringLiterals;

namespace {

/// A PNG of one pixel.
const QByteArray picture = QByteArray::fromBase64(
    "iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAIAAACQd1PeAAAADElEQVR42mP4z8AAAAMBAQD3A0FDAAAAAElFTkSuQmCC");

struct Outcome {
    int status;
    QString report;
    QString errors;
};

QString textOf(std::FILE* file)
{
    QByteArray text(4096, '\0');
    std::rewind(file);
    text.truncate(qsizetype(std::fread(text.data(), 1, std::size_t(text.size()), file)));
    std::fclose(file);
    return QString::fromUtf8(text);
}

/// A bundle of four entries that passes.
struct GoodBundle {
    GoodBundle()
    {
        for (const QString& name : {u"A"_s, u"B"_s, u"C"_s, u"D"_s}) {
            StoreApp app = sample::brisko();
            app.id = app.name = name;
            app.archive = name + u".zip"_s;
            app.bytes = 17;
            files.content[app.packageURL()] = "archive of Brisko";
            files.content[icon(name)] = picture;
            apps.push_back(app);
        }
    }

    Path icon(const QString& name) const { return platform.resource(toPath(name + u".icns"_s)); }

    /// Runs over the bundle as it is now; reads and closes the output.
    Outcome run(const SelfTestOutput& output = {std::tmpfile(), std::tmpfile()})
    {
        files.content[catalog] = sample::catalogFile(apps);
        const int status = runSelfTest(platform.bundles.mainBundle(), files, output);
        return {status, textOf(output.report), textOf(output.errors)};
    }

    FakePlatform platform;
    FakePlatform::FakeFiles& files = platform.files;
    Path catalog = platform.resource("catalog.json");
    Catalog apps;
};

TEST(SelfTest, PrintsALineForEachEntryUntilOneIsWrong)
{
    using Case = std::tuple<const char*, std::function<void(GoodBundle&)>, int, qsizetype, QString>;
    const QString unreadable = systemFailure(EACCES).localizedDescription + u'\n';
    for (const auto& [situation, arrange, status, passed, lastLine] : {
             Case{"good", [](auto&) {}, 0, 4, {}},
             Case{"three entries", [](auto& b) { b.apps.pop_back(); }, 2, 0, u"Catalog invalid"_s},
             Case{"five entries", [](auto& b) { b.apps.push_back(b.apps[0]); }, 2, 0, u"Catalog invalid"_s},
             Case{"the same id in two spellings",
                 [](auto& b) { b.apps[0].id = u"й"_s, b.apps[3].id = u"и\u0306"_s; }, 2, 0,
                 u"Catalog invalid"_s},
             Case{"a NUL in a text", [](auto& b) { b.apps[1].name += QChar(0) + u"x"_s; }, 2, 1,
                 u"Invalid resource: B\0x"_s},
             Case{"digest in capitals", [](auto& b) { b.apps[1].sha256 = b.apps[1].sha256.toUpper(); }, 2, 1,
                 u"Invalid resource: B"_s},
             Case{"one byte less", [](auto& b) { b.apps[2].bytes = 16; }, 2, 2, u"Invalid resource: C"_s},
             Case{"a large one without its end", [](auto& b) { b.apps[2].bytes = 1 << 30; }, 2, 2,
                 u"Invalid resource: C"_s},
             Case{"no icon", [](auto& b) { b.files.content.erase(b.icon(u"D"_s)); }, 2, 3,
                 u"Invalid resource: D"_s},
             Case{"an icon outside the bundle",
                 [](auto& b) { b.files.content["/etc/D.icns"] = picture, b.apps[3].name = u"/etc/D"_s; }, 2,
                 3, u"Invalid resource: /etc/D"_s},
             Case{"unreadable icon", [](auto& b) { b.files.content[b.icon(u"A"_s)] = "x"; }, 2, 0,
                 u"Invalid resource: A"_s},
             Case{"unreadable archive", [](auto& b) { b.files.readErrors[b.apps[1].packageURL()] = EACCES; },
                 1, 1, unreadable},
             Case{"unreadable catalog", [](auto& b) { b.files.readErrors[b.catalog] = EACCES; }, 1, 0,
                 unreadable},
         }) {
        SCOPED_TRACE(situation);
        GoodBundle bundle;
        QString report;
        for (const StoreApp& app : Catalog(bundle.apps.begin(), bundle.apps.begin() + passed))
            report += u"PASS "_s + app.name + u" 2.4 SHA256 "_s + app.sha256 + u'\n';
        arrange(bundle);

        const Outcome outcome = bundle.run();

        EXPECT_EQ(outcome.status, status);
        EXPECT_EQ(outcome.report, status == 1 ? report + lastLine : report);
        EXPECT_EQ(outcome.errors, status == 2 ? u"Fatal error: "_s + lastLine + u'\n' : QString());
    }
}

TEST(SelfTest, AReportThatCannotBeWrittenIsNoSuccess)
{
    const auto [status, report, errors] = GoodBundle().run({std::fopen("/dev/full", "w"), std::tmpfile()});

    EXPECT_EQ(status, 1);
    EXPECT_EQ(errors, systemFailure(ENOSPC).localizedDescription + u'\n');
}

} // namespace

#include "app/SelfTest.h"

#include "support/FakePlatform.h"
#include "support/Samples.h"

#include <gmock/gmock.h>

#include <png.h>

using namespace Qt::StringLiterals;

namespace {

/// A picture of one pixel.
QByteArray png()
{
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = image.height = 1;
    image.format = PNG_FORMAT_RGB;
    const std::array<std::uint8_t, 3> pixel{255, 0, 0};
    png_alloc_size_t size = 0;
    png_image_write_to_memory(&image, nullptr, &size, 0, pixel.data(), 0, nullptr);
    QByteArray file(qsizetype(size), '\0');
    png_image_write_to_memory(&image, file.data(), &size, 0, pixel.data(), 0, nullptr);
    return file;
}

QString pass(const StoreApp& app)
{
    return u"PASS "_s + app.name + u' ' + app.version + u" SHA256 "_s + app.sha256 + u'\n';
}

struct Outcome {
    int status;
    std::string report;
    std::string errors;
};

/// A bundle of four entries that passes.
struct GoodBundle {
    GoodBundle()
    {
        for (const char* name : {"A", "B", "C", "D"}) {
            StoreApp app = sample::brisko();
            app.id = app.name = QString::fromUtf8(name);
            app.archive = app.name + u".zip"_s;
            app.bytes = 17;
            platform.files.content[app.packageURL()] = "archive of Brisko";
            platform.files.content[icon(app)] = png();
            apps.push_back(app);
        }
    }

    Path icon(const StoreApp& app) const { return platform.resource(toPath(app.name + u".icns"_s)); }

    /// Runs over the bundle as it is now; reads and closes the output.
    Outcome run(const SelfTestOutput& output = {std::tmpfile(), std::tmpfile()})
    {
        platform.files.content[platform.resource("catalog.json")] = sample::catalogFile(apps);
        const int status = runSelfTest(output);
        return {status, textOf(output.report), textOf(output.errors)};
    }

    static std::string textOf(std::FILE* file)
    {
        std::string text(4096, '\0');
        std::rewind(file);
        text.resize(std::fread(text.data(), 1, text.size(), file));
        std::fclose(file);
        return text;
    }

    /// The lines of the first `count` entries.
    std::string passed(std::size_t count) const
    {
        QString lines;
        for (std::size_t index = 0; index < count; ++index)
            lines += pass(apps.at(index));
        return lines.toStdString();
    }

    FakePlatform platform;
    Catalog apps;
};

TEST(SelfTest, PrintsALineForEveryEntryOfAGoodBundle)
{
    const auto [status, report, errors] = GoodBundle().run();

    EXPECT_EQ(status, 0);
    EXPECT_EQ(report, GoodBundle().passed(4));
    EXPECT_EQ(errors, "");
}

TEST(SelfTest, StopsWhenTheBundleIsNotWhatTheCatalogSays)
{
    struct Case {
        const char* situation;
        std::function<void(GoodBundle&)> arrange;
        std::size_t passed;
        const char* message;
    };
    const std::vector<Case> cases = {
        {"three entries", [](auto& b) { b.apps.pop_back(); }, 0, "Catalog invalid"},
        {"five entries", [](auto& b) { b.apps.push_back(b.apps[0]); }, 0, "Catalog invalid"},
        {"the same id in two spellings",
            [](auto& b) {
                b.apps[0].id = u"й"_s;
                b.apps[3].id = u"и\u0306"_s;
            },
            0, "Catalog invalid"},
        {"digest in capitals", [](auto& b) { b.apps[1].sha256 = b.apps[1].sha256.toUpper(); }, 1,
            "Invalid resource: B"},
        {"one byte less", [](auto& b) { b.apps[2].bytes = 16; }, 2, "Invalid resource: C"},
        {"no icon", [](auto& b) { b.platform.files.content.erase(b.icon(b.apps[3])); }, 3,
            "Invalid resource: D"},
        {"an icon outside the bundle",
            [](auto& b) {
                b.platform.files.content["/etc/D.icns"] = png();
                b.apps[3].name = u"/etc/D"_s;
            },
            3, "Invalid resource: /etc/D"},
        {"unreadable icon", [](auto& b) { b.platform.files.content[b.icon(b.apps[0])] = "x"; }, 0,
            "Invalid resource: A"},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.situation);
        GoodBundle bundle;
        const std::string expectedReport = bundle.passed(test.passed);
        test.arrange(bundle);

        const auto [status, report, errors] = bundle.run();

        EXPECT_EQ(status, 2);
        EXPECT_EQ(report, expectedReport);
        EXPECT_EQ(errors, std::string("Fatal error: ") + test.message + '\n');
    }
}

TEST(SelfTest, EndsWithTheReasonWhenSomethingCannotBeRead)
{
    GoodBundle bundle;
    bundle.platform.files.readErrors[bundle.apps[1].packageURL()] = EACCES;
    const auto archive = bundle.run();

    EXPECT_EQ(archive.status, 1);
    EXPECT_EQ(
        archive.report, bundle.passed(1) + systemFailure(EACCES).localizedDescription.toStdString() + '\n');

    bundle.platform.files.readErrors[bundle.platform.resource("catalog.json")] = ENOENT;
    const auto catalog = bundle.run();

    EXPECT_EQ(catalog.status, 1);
    EXPECT_EQ(catalog.report, systemFailure(ENOENT).localizedDescription.toStdString() + '\n');
}

TEST(SelfTest, AReportThatCannotBeWrittenIsNoSuccess)
{
    const auto [status, report, errors] = GoodBundle().run({std::fopen("/dev/full", "w"), std::tmpfile()});

    EXPECT_EQ(status, 1);
    EXPECT_EQ(errors, systemFailure(ENOSPC).localizedDescription.toStdString() + '\n');
}

} // namespace

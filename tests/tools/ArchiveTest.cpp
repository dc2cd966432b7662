#include "pack/Archive.h"

#include "pack/Files.h"
#include "tools/SampleCollection.h"

#include <QCryptographicHash>

#include <archive.h>
#include <archive_entry.h>
#include <gmock/gmock.h>

#include <clocale>
#include <memory>

namespace fs = std::filesystem;
using testing::ElementsAre;

namespace {

/// What an archive says of one place: "drwxr-xr-x X.app/", with a file's content or a link's target behind
/// it.
std::vector<std::string> listing(const Path& file)
{
    std::setlocale(LC_CTYPE, "C.UTF-8"); // the reader wants to spell names in the locale's encoding
    const std::unique_ptr<archive, decltype(&archive_read_free)> zip(archive_read_new(), &archive_read_free);
    archive_read_support_format_zip_seekable(zip.get());
    EXPECT_EQ(archive_read_open_filename(zip.get(), file.c_str(), 4096), ARCHIVE_OK);

    std::vector<std::string> lines;
    archive_entry* entry = nullptr;
    while (archive_read_next_header(zip.get(), &entry) == ARCHIVE_OK) {
        std::string content(64, '\0');
        content.resize(
            static_cast<std::size_t>(archive_read_data(zip.get(), content.data(), content.size())));

        auto& line = lines.emplace_back(archive_entry_strmode(entry));
        line += archive_entry_pathname_utf8(entry);
        if (archive_entry_filetype(entry) == AE_IFLNK)
            line.append(" -> ").append(archive_entry_symlink_utf8(entry));
        if (!content.empty())
            line.append(" = ").append(content);
    }
    return lines;
}

} // namespace

TEST(Archive, HoldsTheFolderSortedWithItsModesAndLinks)
{
    const SampleCollection sample;
    const auto app = sample.path("apps/Alvi.app");
    sample.write("apps/Alvi.app/Contents/Resources/Ёлка.txt", "ёлка");
    fs::permissions(app / "Contents/Resources/Ёлка.txt", fs::perms(0660));
    fs::create_symlink("MacOS/Alvi", app / "Contents/Запуск");

    ASSERT_TRUE(packFolder(app, sample.path("a.zip")));

    EXPECT_THAT(listing(sample.path("a.zip")),
        ElementsAre("drwxr-xr-x Alvi.app/", "drwxr-xr-x Alvi.app/Contents/",
            "-rw-r--r-- Alvi.app/Contents/Info.plist = <plist/>", "drwxr-xr-x Alvi.app/Contents/MacOS/",
            "-rwxr-xr-x Alvi.app/Contents/MacOS/Alvi = program", "drwxr-xr-x Alvi.app/Contents/Resources/",
            "-rw-r--r-- Alvi.app/Contents/Resources/Ёлка.txt = ёлка",
            "lrwxrwxrwx Alvi.app/Contents/Запуск -> MacOS/Alvi"));
}

TEST(Archive, SaysItsSizeAndDigest)
{
    const SampleCollection sample;

    const auto packed = packFolder(sample.path("apps/Alvi.app"), sample.path("a.zip"));

    const auto content = readFile(sample.path("a.zip")).value();
    const auto digest = QCryptographicHash::hash(content, QCryptographicHash::Sha256).toHex();
    EXPECT_EQ(packed, (PackedArchive{.bytes = content.size(), .sha256 = QString::fromLatin1(digest)}));
}

TEST(Archive, AFolderThatCannotBePackedLeavesTheOldArchive)
{
    const SampleCollection sample;
    sample.write("a.zip", "old");

    EXPECT_FALSE(packFolder(sample.path("apps/Missing.app"), sample.path("a.zip")));

    EXPECT_EQ(readFile(sample.path("a.zip")), QByteArray("old"));
}

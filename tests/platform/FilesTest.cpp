#include "platform/posix/PosixFiles.h"
#include "support/FakePlatform.h"

#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <fcntl.h>
#include <fstream>

using namespace Qt::StringLiterals;

namespace {

int errorOf(const auto& result)
{
    return result ? 0 : result.error().code;
}

Result<void> resultOf(int error)
{
    return error == 0 ? Result<void>() : tl::unexpected(systemFailure(error));
}

class FilesTest : public testing::Test {
protected:
    /// On the disk, and in the machine in memory.
    void put(const Path& place, const QByteArray& content)
    {
        std::ofstream(place, std::ios::binary) << content.toStdString();
        machine.files.content[place] = content;
    }

    int copy(const Files& files, const Path& from, const Path& to, int verdict = 0)
    {
        return errorOf(files.copy(from, to, look, [&] { return resultOf(verdict); }));
    }

    QTemporaryDir temporary;
    Path folder = toPath(temporary.path());
    Path source = folder / "source";
    Path file = folder / "file";
    PosixFiles posix;
    FakePlatform machine;
    QByteArray seen;
    Files::Sink look = [this](Files::Bytes bytes) {
        seen.append(reinterpret_cast<const char*>(bytes.data()), qsizetype(bytes.size()));
        return Result<void>();
    };
};

TEST_F(FilesTest, WhatIsCopiedIsShownFirstAndReadAfterwards)
{
    QByteArray numbers;
    while (numbers.size() < 9'000'001)
        numbers += QByteArray::number(numbers.size());
    for (const QByteArray& text : {QByteArray("first"), numbers, QByteArray()}) {
        put(source, text);
        for (const Files* files : std::initializer_list<const Files*>{&posix, &machine.files}) {
            seen.clear();
            const auto before = files->stamp(file);
            EXPECT_EQ(before, files->stamp(file));
            EXPECT_EQ(errorOf(files->copy(source, file, look, [&] { return resultOf(seen != text); })), 0);
            EXPECT_NE(before, files->stamp(file));
            EXPECT_EQ(errorOf(files->readInBlocks(file, look)), 0);
            EXPECT_TRUE(seen == text + text);
            EXPECT_TRUE(files->read(file) == text);
        }
    }
}

TEST_F(FilesTest, AFailureIsToldAndKeepsTheOldContent)
{
    put(source, "new");
    put(file, "old");
    const auto refuse = [](auto...) { return resultOf(ECANCELED); };
    const auto agree = [] { return Result<void>(); };
    for (const Files* files : std::initializer_list<const Files*>{&posix, &machine.files}) {
        for (const QString& name : {u"missing"_s, u"file\0cut"_s}) {
            EXPECT_EQ(errorOf(files->read(below(folder, name))), ENOENT);
            EXPECT_EQ(errorOf(files->readInBlocks(below(folder, name), look)), ENOENT);
            EXPECT_EQ(copy(*files, below(folder, name), file), ENOENT);
        }
        EXPECT_EQ(errorOf(files->readInBlocks(source, refuse)), ECANCELED);
        EXPECT_EQ(errorOf(files->copy(source, file, refuse, agree)), ECANCELED);
        EXPECT_EQ(errorOf(files->copy(source, file, look, refuse)), ECANCELED);
        EXPECT_EQ(files->read(file), "old");
    }
}

TEST_F(FilesTest, OnlyARegularFileIsReadOrReplaced)
{
    put(source, "content");
    mkfifo((folder / "pipe").c_str(), 0600);
    std::filesystem::create_symlink("loop", folder / "loop");

    for (const auto& [place, error] : {std::pair{folder, EISDIR}, {folder / "pipe", EOPNOTSUPP},
             {Path("/dev/zero"), EOPNOTSUPP}, {source / "below", ENOTDIR}, {folder / "loop", ELOOP}}) {
        SCOPED_TRACE(place);
        EXPECT_EQ(errorOf(posix.read(place)), error);
        EXPECT_EQ(errorOf(posix.readInBlocks(place, look)), error);
        EXPECT_EQ(copy(posix, place, file), error);
        EXPECT_EQ(copy(posix, source, place), error);
    }
}

TEST_F(FilesTest, WhatIsWrittenIsWhatWasShownThoughTheSourceChanges)
{
    const auto resize = [this](std::uintmax_t size) { std::filesystem::resize_file(source, size); };
    const auto overwrite = [this] { std::fstream(source) << QByteArray(20'000'000, 'y').toStdString(); };
    const auto replace = [this] {
        put(folder / "other", QByteArray(30'000'000, 'z'));
        std::filesystem::rename(folder / "other", source);
    };
    std::function<void()> change;
    const auto lookAndChange = [&](Files::Bytes bytes) {
        std::exchange(change, [] {})();
        return look(bytes);
    };
    for (const auto& [happens, size, last] :
        {std::tuple(std::function([&] { resize(10'000'000); }), 10'000'000, 'x'),
            {overwrite, 20'000'000, 'y'}, {replace, 20'000'000, 'x'}}) {
        put(source, QByteArray(20'000'000, 'x'));
        seen.clear();
        change = happens;
        EXPECT_TRUE(posix.copy(source, file, lookAndChange, [] { return Result<void>(); }));
        EXPECT_EQ(std::pair(seen.size(), seen.back()), std::pair(qsizetype(size), last));
        EXPECT_TRUE(posix.read(file) == seen);
    }

    seen.clear();
    change = [&] { resize(30'100'000); };
    EXPECT_TRUE(posix.readInBlocks(source, lookAndChange));
    EXPECT_EQ(seen.size(), 30'100'000);
}

TEST_F(FilesTest, AReplacedFileHandsOnWhoseItIsAndItsLink)
{
    put(source, "new");
    put(file, "old");
    const bool mayGiveAway = chown(file.c_str(), 7, 8) == 0;
    setxattr(file.c_str(), "user.note", "mine", 4, 0);
    std::filesystem::permissions(file, std::filesystem::perms(0440));
    std::filesystem::create_symlink("file", folder / "link");

    ASSERT_EQ(copy(posix, source, folder / "link"), 0);

    struct stat status { };
    ASSERT_EQ(lstat(file.c_str(), &status), 0);
    EXPECT_EQ(posix.read(file), "new");
    EXPECT_EQ(status.st_mode, S_IFREG | 0440U);
    EXPECT_EQ(std::pair(status.st_uid, status.st_gid),
        mayGiveAway ? std::pair(uid_t(7), gid_t(8)) : std::pair(geteuid(), getegid()));
    EXPECT_EQ(getxattr(file.c_str(), "user.note", nullptr, 0), 4);
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "link"));

    std::filesystem::create_symlink("link to what is yet to come", folder / "chain");
    std::filesystem::create_symlink("yet to come", folder / "link to what is yet to come");
    ASSERT_EQ(copy(posix, source, folder / "chain"), 0);
    EXPECT_EQ(posix.read(folder / "yet to come"), "new");
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "chain"));
}

TEST_F(FilesTest, AFailureLeavesNothingBehindAndClearsWhatOthersLeft)
{
    put(source, QByteArray(20'000'000, 'x'));
    for (const char* name : {"file", ".plovistore-1", ".plovistore-held", ".plovistore-2"})
        put(folder / name, "old");
    const int held = open((folder / ".plovistore-2").c_str(), O_RDONLY);
    flock(held, LOCK_EX);
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);

    for (const rlim_t room : {0, 100'000, 10'000'000}) {
        const rlimit limit{room, before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
        EXPECT_EQ(copy(posix, source, file), EFBIG);
        EXPECT_EQ(copy(posix, source, file, ECANCELED), ECANCELED) << "the verdict is told first";
        setrlimit(RLIMIT_FSIZE, &before);
    }
    close(held);

    EXPECT_EQ(posix.read(file), "old");
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        names.push_back(entry.path().filename());
    EXPECT_THAT(names, testing::UnorderedElementsAre("source", "file", ".plovistore-held", ".plovistore-2"));
}

} // namespace

#include "platform/posix/PosixFiles.h"

#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <fstream>

using testing::ElementsAre;

namespace {

class PosixFilesTest : public testing::Test {
protected:
    Path place(const Path& name) const { return toPath(m_folder.path()) / name; }

    Path fileWith(const Path& name, const std::string& content) const
    {
        std::ofstream(place(name), std::ios::binary) << content;
        return place(name);
    }

    static std::string contentOf(const Path& file)
    {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    std::vector<Path> names() const
    {
        std::vector<Path> names;
        for (const auto& entry : std::filesystem::directory_iterator(place("")))
            names.push_back(entry.path().filename());
        return names;
    }

    Result<void> write(const Path& file, const std::string& content) const
    {
        return files.writeAtomically(file, std::as_bytes(std::span(content)));
    }

    PosixFiles files;

private:
    QTemporaryDir m_folder;
};

TEST_F(PosixFilesTest, OnlyARegularFileIsReadOrReplaced)
{
    mkfifo(place("pipe").c_str(), 0600);
    std::filesystem::create_directory(place("folder"));

    for (const auto& [file, error] : {std::pair{place("folder"), EISDIR}, {place("pipe"), EOPNOTSUPP},
             {Path("/dev/zero"), EOPNOTSUPP}, {fileWith("file", "") / "below", ENOTDIR}}) {
        SCOPED_TRACE(file);
        EXPECT_EQ(files.read(file).error(), systemFailure(error));
        EXPECT_EQ(files.readInBlocks(file, [](auto) { FAIL(); }).error(), systemFailure(error));
        EXPECT_EQ(write(file, "content").error(), systemFailure(error));
    }
}

TEST_F(PosixFilesTest, WhatIsAppendedWhileReadingIsReadToo)
{
    const Path file = fileWith("file", std::string(300'000, 'x'));
    std::size_t size = 0;

    ASSERT_TRUE(files.readInBlocks(file, [&](auto block) {
        if (size == 0)
            std::ofstream(file, std::ios::app) << std::string(300'000, 'x');
        size += block.size();
    }));

    EXPECT_EQ(size, 600'000U);
}

TEST_F(PosixFilesTest, AReplacedFileKeepsItsPermissionsAndItsLink)
{
    const Path file = fileWith("file", "old");
    std::filesystem::permissions(file, std::filesystem::perms(0440));
    std::filesystem::create_symlink("file", place("link"));

    ASSERT_TRUE(write(place("link"), "new"));

    EXPECT_EQ(contentOf(file), "new");
    EXPECT_EQ(std::filesystem::status(file).permissions(), std::filesystem::perms(0440));
    EXPECT_TRUE(std::filesystem::is_symlink(place("link")));
}

/// No file of the process may grow beyond a size, as on a disk without room, for as long as this lives.
class SizeLimit {
public:
    explicit SizeLimit(rlim_t size)
    {
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{size, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~SizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }
    SizeLimit(const SizeLimit&) = delete;
    SizeLimit& operator=(const SizeLimit&) = delete;

private:
    sighandler_t m_handler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit m_before{};
};

TEST_F(PosixFilesTest, AFailureKeepsTheOldContentAndLeavesNothingBehind)
{
    const Path file = fileWith("file", "old");
    const auto content = Buffer::allocate(20'000'000);

    for (const rlim_t room : {0, 100'000, 10'000'000}) {
        SCOPED_TRACE(room);
        const SizeLimit limit(room);

        EXPECT_EQ(files.writeAtomically(file, content->bytes()).error(), systemFailure(EFBIG));
        EXPECT_EQ(contentOf(file), "old");
        EXPECT_THAT(names(), ElementsAre("file"));
    }
}

} // namespace

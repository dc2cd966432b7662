#include "platform/posix/PosixFiles.h"
#include "support/FakePlatform.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cerrno>

using namespace Qt::StringLiterals;

namespace {

struct DesktopMachine {
    QTemporaryDir folder;
    PosixFiles files;

    Path place(const char* name) const { return toPath(folder.path()) / name; }
};

struct FakeMachine {
    FakePlatform platform;
    const Files& files = platform.files;

    Path place(const char* name) const { return Path("/") / name; }
};

/// What every machine's files do.
template <class Machine>
class FilesContract : public testing::Test {
protected:
    Machine machine;
    Path file = machine.place("file");
};

using Machines = testing::Types<DesktopMachine, FakeMachine>;
TYPED_TEST_SUITE(FilesContract, Machines);

std::span<const std::byte> bytesOf(const QByteArray& text)
{
    return std::as_bytes(std::span(text.data(), static_cast<std::size_t>(text.size())));
}

QByteArray textOf(std::span<const std::byte> bytes)
{
    return {reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size())};
}

QByteArray contentOf(const Files& files, const Path& file)
{
    const auto content = files.read(file);
    return content ? textOf(content->bytes()) : QByteArray("unreadable");
}

TYPED_TEST(FilesContract, WhatIsWrittenIsRead)
{
    const Files& files = this->machine.files;
    const QByteArray large(9'000'001, 'x');

    for (const QByteArray& text : {QByteArray("first"), large, QByteArray()}) {
        ASSERT_TRUE(files.writeAtomically(this->file, bytesOf(text)));

        QByteArray inBlocks;
        EXPECT_TRUE(files.readInBlocks(this->file, [&](auto block) { inBlocks += textOf(block); }));
        EXPECT_TRUE(inBlocks == text);
        EXPECT_TRUE(contentOf(files, this->file) == text);
    }
}

TYPED_TEST(FilesContract, AMissingFileIsAFailure)
{
    const Files& files = this->machine.files;

    ASSERT_TRUE(files.writeAtomically(this->file, {}));

    for (const QString& name : {u"missing"_s, u"file\0cut"_s}) {
        const Path missing = below(this->file.parent_path(), name);
        EXPECT_EQ(files.read(missing).error(), systemFailure(ENOENT));
        EXPECT_EQ(files.readInBlocks(missing, [](auto) { FAIL(); }).error(), systemFailure(ENOENT));
    }
}

} // namespace

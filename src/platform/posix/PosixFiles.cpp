#include "platform/posix/PosixFiles.h"

#include "platform/posix/AtomicWrite.h"
#include "platform/posix/FileDescriptor.h"

#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <future>
#include <memory>
#include <vector>

namespace {

// What is read at once is still in the processor's cache when it is hashed; what is written at once keeps a
// disk busy.
constexpr std::size_t readBlock = std::size_t{64} << 10;
constexpr std::size_t writeBlock = std::size_t{8} << 20;

/// Memory straight from the system, which has it back at once: the allocator keeps some.
class Memory {
public:
    explicit Memory(std::size_t size)
        : m_size(size)
        , m_start(mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0))
    {
    }
    // The pages go a few at a time: no other thread gets memory while the system takes some back.
    ~Memory()
    {
        if (!isThere())
            return;
        for (std::span<std::byte> left = bytes(); !left.empty();) {
            const std::size_t piece = std::min(left.size(), writeBlock);
            madvise(left.data(), piece, MADV_DONTNEED);
            left = left.subspan(piece);
        }
        munmap(m_start, m_size);
    }
    Memory(const Memory&) = delete;
    Memory& operator=(const Memory&) = delete;

    bool isThere() const { return m_start != MAP_FAILED; }
    std::span<std::byte> bytes() const { return {static_cast<std::byte*>(m_start), m_size}; }

private:
    std::size_t m_size;
    void* m_start;
};

// The system makes pages that are about to be filled for less in one go than one by one, but no other thread
// gets memory meanwhile: while others run, ask for a little at a time. Older systems know no such wish.
void makePages(std::span<std::byte> memory)
{
    void* start = memory.data();
    std::size_t size = memory.size();
    if (std::align(std::size_t(sysconf(_SC_PAGESIZE)), 1, start, size))
        madvise(start, size, MADV_POPULATE_WRITE);
}

/// Fills `room` as far as the file reaches, and hands each piece to `sink` while it is fresh.
Result<std::size_t> readThrough(
    const FileDescriptor& file, std::span<std::byte> room, const Files::Sink& sink)
{
    std::size_t filled = 0;
    while (filled < room.size()) {
        const auto piece = room.subspan(filled, std::min(room.size() - filled, readBlock));
        makePages(piece);
        const auto count = file.read(piece);
        if (!count)
            return tl::unexpected(count.error());
        if (const auto taken = sink(piece.first(*count)); !taken)
            return tl::unexpected(taken.error());
        filled += *count;
        if (*count < piece.size())
            break;
    }
    return filled;
}

std::future<void> writeInBackground(AtomicWrite& output, Files::Bytes bytes)
{
    return std::async(std::launch::async | std::launch::deferred, [&output, bytes] {
        // A limit on the size of files is a failure to be told: its signal, sent to the thread that writes,
        // would end the program.
        sigset_t signals{};
        sigemptyset(&signals);
        sigaddset(&signals, SIGXFSZ);
        pthread_sigmask(SIG_BLOCK, &signals, nullptr);
        output.write(bytes);
    });
}

} // namespace

std::optional<FileStamp> PosixFiles::stamp(const Path& file) const
{
    struct stat status { };
    if (::stat(file.c_str(), &status) != 0)
        return std::nullopt;
    return FileStamp{status.st_dev, status.st_ino, static_cast<std::uint64_t>(status.st_size),
        std::int64_t{status.st_ctim.tv_sec} * 1'000'000'000 + status.st_ctim.tv_nsec};
}

Result<QByteArray> PosixFiles::read(const Path& file) const
try {
    const auto opened = openForReading(file);
    if (!opened)
        return tl::unexpected(opened.error());
    QByteArray content(qsizetype(opened->size), Qt::Uninitialized);
    return opened->descriptor.read(std::as_writable_bytes(std::span(content))).map([&](std::size_t count) {
        content.truncate(qsizetype(count));
        return std::move(content);
    });
} catch (const std::bad_alloc&) {
    return tl::unexpected(systemFailure(ENOMEM));
}

Result<void> PosixFiles::readInBlocks(const Path& file, const Sink& sink) const
try {
    const auto opened = openForReading(file);
    if (!opened)
        return tl::unexpected(opened.error());

    std::vector<std::byte> block(std::min(opened->size + 1, readBlock));
    for (;;) {
        const auto count = opened->descriptor.read(block);
        if (!count)
            return tl::unexpected(count.error());
        auto taken = sink(std::span(block).first(*count));
        if (!taken || *count < block.size())
            return taken;
    }
} catch (const std::bad_alloc&) {
    return tl::unexpected(systemFailure(ENOMEM));
}

Result<void> PosixFiles::copy(
    const Path& source, const Path& destination, const Sink& sink, const Verdict& verdict) const
try {
    const auto opened = openForReading(source);
    if (!opened)
        return tl::unexpected(opened.error());
    // The system has no blocks of no bytes.
    const Memory memory(std::max<std::size_t>(opened->size, 1));
    if (!memory.isThere())
        return tl::unexpected(systemFailure(ENOMEM));

    AtomicWrite output(destination);
    // One block is on its way to the disk while the next is read.
    std::future<void> writing;
    std::span<std::byte> room = memory.bytes().first(opened->size);
    while (!room.empty()) {
        const auto block = room.first(std::min(room.size(), writeBlock));
        const auto count = readThrough(opened->descriptor, block, sink);
        if (!count)
            return tl::unexpected(count.error());
        if (writing.valid())
            writing.get();
        writing = writeInBackground(output, block.first(*count));
        room = *count < block.size() ? std::span<std::byte>() : room.subspan(*count);
    }
    if (writing.valid())
        writing.get();
    return verdict().and_then([&] { return output.commit(); });
} catch (const std::bad_alloc&) {
    return tl::unexpected(systemFailure(ENOMEM));
}

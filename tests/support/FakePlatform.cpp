#include "support/FakePlatform.h"

#include <cerrno>

namespace {

template <class Map, class Key>
auto lookUp(const Map& map, const Key& key) -> std::optional<typename Map::mapped_type>
{
    const auto found = map.find(key);
    if (found == map.end())
        return std::nullopt;
    return found->second;
}

} // namespace

std::optional<FileStamp> FakePlatform::FakeFiles::stamp(const Path& file) const
{
    const auto bytes = lookUp(content, file);
    return bytes ? std::optional(FileStamp{.number = qHash(*bytes)}) : std::nullopt;
}

Result<QByteArray> FakePlatform::FakeFiles::read(const Path& file) const
{
    if (const auto error = lookUp(readErrors, file))
        return tl::unexpected(systemFailure(*error));
    const auto bytes = lookUp(content, file);
    return bytes ? Result<QByteArray>(*bytes) : tl::unexpected(systemFailure(ENOENT));
}

Result<void> FakePlatform::FakeFiles::readInBlocks(const Path& file, const Sink& sink) const
{
    return read(file).and_then([&](const QByteArray& bytes) {
        Result<void> taken;
        for (qsizetype at = 0; at < bytes.size() && taken; at += 64) {
            const QByteArray block = bytes.mid(at, 64);
            taken = sink(std::as_bytes(std::span(block)));
        }
        return taken;
    });
}

Result<void> FakePlatform::FakeFiles::copy(
    const Path& source, const Path& destination, const Sink& sink, const Verdict& verdict) const
{
    auto outcome = readInBlocks(source, sink).and_then(verdict);
    if (!outcome)
        return outcome;
    if (const auto error = lookUp(writeErrors, destination))
        return tl::unexpected(systemFailure(*error));
    content[destination] = content[source];
    return {};
}

std::optional<QString> FakePlatform::FakeBundles::bundleIdentifier(const Path& place) const
{
    return lookUp(installed, place);
}

std::optional<Path> FakePlatform::FakeWorkspace::urlForApplication(const QString& bundleID)
{
    return lookUp(registry, bundleID);
}

void FakePlatform::FakeWorkspace::openApplication(const Path& place, std::function<void(Result<void>)> done)
{
    opened.push_back(place);
    done(outcome);
}

std::optional<Path> FakePlatform::FakeSavePanel::runModal(const SavePanelSetup& setup)
{
    shown.push_back(setup);
    if (whileOpen)
        whileOpen();
    return answer;
}

void FakePlatform::FakeJobs::runAll()
{
    while (!background.empty()) {
        const auto work = std::move(background.front());
        background.pop_front();
        main.push_back(work());
    }
    while (!main.empty()) {
        const auto task = std::move(main.front());
        main.pop_front();
        task();
    }
}

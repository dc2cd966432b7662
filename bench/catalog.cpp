// Decoding, searching and looking up at 4, 1,000 and 20,000 entries.

#include "SampleBundle.h"
#include "catalog/Fields.h"
#include "platform/desktop/ApplicationRegistry.h"
#include "platform/desktop/DesktopPlatform.h"
#include "store/Store.h"
#include "ui/model/ViewState.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

#include <benchmark/benchmark.h>

#include <chrono>
#include <span>

using namespace Qt::StringLiterals;

namespace {

using Clock = std::chrono::steady_clock;

/// What was made is destroyed outside of the time, as it is at the program's end.
void setTime(benchmark::State& state, Clock::time_point start)
{
    state.SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count());
}

void decode(benchmark::State& state)
{
    const QByteArray json = sampleCatalog(int(state.range()));
    while (state.KeepRunning()) {
        const auto start = Clock::now();
        auto catalog = decodeCatalog(std::as_bytes(std::span(json)));
        benchmark::DoNotOptimize(catalog);
        setTime(state, start);
        if (!catalog)
            state.SkipWithError("not decoded");
    }
}

/// The reference: the same texts through Qt's parser.
void parse(benchmark::State& state)
{
    const QByteArray json = sampleCatalog(int(state.range()));
    while (state.KeepRunning()) {
        const auto start = Clock::now();
        QStringList texts;
        for (const QJsonValue entry : QJsonDocument::fromJson(json).array()) {
            for (const std::string_view key : codingKeyTexts)
                texts.append(entry[QLatin1StringView(key.data(), qsizetype(key.size()))].toString());
        }
        benchmark::DoNotOptimize(texts);
        setTime(state, start);
    }
}

/// A store over a sample bundle.
struct SampleStore {
    explicit SampleStore(int entries) : bundle(entries, {}), platform(bundle.executable()) { }

    SampleBundle bundle;
    DesktopPlatform platform;
};

ViewState searching()
{
    ViewState view;
    view.search = u"номером 77"_s;
    return view;
}

/// A search in a catalog that was searched before.
void search(benchmark::State& state)
{
    const SampleStore sample(int(state.range()));
    const Store store;
    const ViewState view = searching();
    benchmark::DoNotOptimize(filtered(view, store));
    while (state.KeepRunning())
        benchmark::DoNotOptimize(filtered(view, store));
}

void firstSearch(benchmark::State& state)
{
    const SampleStore sample(int(state.range()));
    const ViewState view = searching();
    while (state.KeepRunning()) {
        state.PauseTiming();
        {
            const Store store;
            state.ResumeTiming();
            benchmark::DoNotOptimize(filtered(view, store));
            state.PauseTiming();
        }
        state.ResumeTiming();
    }
}

/// The list of installed applications, of which there is none.
void installed(benchmark::State& state)
{
    const SampleStore sample(int(state.range()));
    const Store store;
    ViewState view;
    view.section = section_title::installed.toString();
    while (state.KeepRunning())
        benchmark::DoNotOptimize(filtered(view, store));
}

/// A folder with so many applications.
QByteArray propertyList(int index)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">\n<dict>\n"
           "<key>CFBundleExecutable</key><string>App</string>\n"
           "<key>CFBundleIdentifier</key><string>org.orbanel.app"
        + QByteArray::number(index)
        + "</string>\n<key>CFBundleName</key><string>App</string>\n"
          "<key>CFBundleVersion</key><string>1</string>\n</dict>\n</plist>\n";
}

Path installedApplications(const QTemporaryDir& folder, int count)
{
    Path applications = toPath(folder.path()) / "Applications";
    for (int index = 0; index < count; ++index) {
        const Path contents = applications / ("App" + std::to_string(index) + ".app") / "Contents";
        std::filesystem::create_directories(contents);
        QFile list(contents / "Info.plist");
        if (!list.open(QFile::WriteOnly) || list.write(propertyList(index)) < 0)
            qFatal("A sample application cannot be written.");
    }
    return applications;
}

void lookUp(benchmark::State& state, const QString& identifier)
{
    static const QTemporaryDir folder;
    static ApplicationRegistry registry({"/Applications", installedApplications(folder, 1000)});
    while (state.KeepRunning())
        benchmark::DoNotOptimize(registry.applicationWithIdentifier(identifier));
}

void lookUpHit(benchmark::State& state)
{
    lookUp(state, u"org.orbanel.app500"_s);
}

void lookUpMiss(benchmark::State& state)
{
    lookUp(state, u"org.orbanel.absent"_s);
}

} // namespace

BENCHMARK(decode)->Arg(4)->Arg(1000)->Arg(20000)->UseManualTime();
BENCHMARK(parse)->Arg(4)->Arg(1000)->Arg(20000)->UseManualTime();
BENCHMARK(search)->Arg(4)->Arg(1000)->Arg(20000);
BENCHMARK(firstSearch)->Arg(4)->Arg(1000)->Arg(20000);
BENCHMARK(installed)->Arg(4)->Arg(1000)->Arg(20000);
BENCHMARK(lookUpHit);
BENCHMARK(lookUpMiss);
BENCHMARK_MAIN();

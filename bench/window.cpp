// What a user does in the window, painting included: window BUNDLE, the bundle being the one whose icons are
// shown.

#include "SampleBundle.h"
#include "platform/desktop/DesktopPlatform.h"
#include "ui/StoreView.h"
#include "ui/kit/Style.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScrollArea>
#include <QScrollBar>

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {

Path iconFolder;

/// The store's view of a sample catalog, shown.
struct SampleWindow {
    explicit SampleWindow(int entries) : bundle(entries, iconFolder), platform(bundle.executable())
    {
        view.resize(1180, 800);
        view.show();
        QCoreApplication::processEvents();
    }

    SampleBundle bundle;
    DesktopPlatform platform;
    Store store;
    StoreView view{store};
};

void rebuild(benchmark::State& state)
{
    SampleWindow window(int(state.range()));
    while (state.KeepRunning()) {
        window.view.answer(request::Refresh());
        QCoreApplication::processEvents();
    }
}

void press(QWidget& window, int key, const QString& text)
{
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier, text);
        QCoreApplication::sendEvent(window.focusWidget(), &event);
    }
    QCoreApplication::processEvents();
}

/// Letters typed and taken back in turn, in a catalog that was searched before.
void keystroke(benchmark::State& state)
{
    SampleWindow window(int(state.range()));
    window.view.focusSearch();
    press(window.view, Qt::Key_unknown, u"п"_s);
    bool typing = true;
    while (state.KeepRunning()) {
        if (typing)
            press(window.view, Qt::Key_unknown, u"р"_s);
        else
            press(window.view, Qt::Key_Backspace, {});
        typing = !typing;
    }
}

/// The list moved on by 40 pixels, and back again after a thousand frames.
void scroll(benchmark::State& state)
{
    SampleWindow window(int(state.range()));
    QScrollBar& bar = *window.view.findChild<QScrollArea*>()->verticalScrollBar();
    int step = 40;
    while (state.KeepRunning()) {
        const int next = bar.value() + step;
        if (next < bar.minimum() || next > std::min(bar.maximum(), 40'000))
            step = -step;
        bar.setValue(bar.value() + step);
        QCoreApplication::processEvents();
    }
}

} // namespace

BENCHMARK(rebuild)->Arg(4)->Arg(1000)->Arg(20000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(keystroke)->Arg(4)->Arg(1000)->Arg(20000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(scroll)->Arg(4)->Arg(1000)->Arg(20000)->Arg(100000)->Unit(benchmark::kMillisecond);

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    benchmark::Initialize(&argc, argv);
    if (argc != 2)
        return 2;
    iconFolder = std::filesystem::canonical(argv[1]) / "Contents" / "Resources";
    QApplication application(argc, argv);
    Style::applyTo(application);
    benchmark::RunSpecifiedBenchmarks();
}

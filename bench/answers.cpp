// answers BUNDLE: prints how many milliseconds the store takes for what its user does in the window of that
// bundle, painting included, and for decoding its catalog; a line for each, medians of several rounds.

#include "catalog/Catalog.h"
#include "catalog/Fields.h"
#include "platform/BundleLayout.h"
#include "platform/desktop/DesktopPlatform.h"
#include "ui/StoreView.h"
#include "ui/kit/Style.h"

#include <QApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QKeyEvent>
#include <QScrollArea>
#include <QScrollBar>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <span>

using namespace Qt::StringLiterals;

namespace {

constexpr int rounds = 21;

/// Prepares and does it in turns; only the doing is measured.
template <class Prepare, class Work>
void measure(const char* name, Prepare prepare, Work work)
{
    std::array<double, rounds> times{};
    for (double& time : times) {
        prepare();
        const auto start = std::chrono::steady_clock::now();
        work();
        time = std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
    }
    std::ranges::sort(times);
    std::printf("%s %.4f\n", name, times[rounds / 2]);
}

void take(const QJsonValue& value, QString& field)
{
    field = value.toString();
}

void take(const QJsonValue& value, QStringList& field)
{
    for (const QJsonValue text : value.toArray())
        field.append(text.toString());
}

void take(const QJsonValue& value, qint64& field)
{
    field = value.toInteger();
}

/// The same entries by Qt's parser, of which nothing is checked.
Catalog parsedByQt(const QByteArray& json)
{
    Catalog catalog;
    for (const QJsonValue entry : QJsonDocument::fromJson(json).array()) {
        const QJsonObject object = entry.toObject();
        StoreApp& app = catalog.emplace_back();
        forEachField([&](CodingKeys key, auto field) {
            const std::string_view text = keyText(key);
            take(object[QLatin1StringView(text.data(), qsizetype(text.size()))], app.*field);
        });
    }
    return catalog;
}

void decoding(const Path& bundle)
{
    QFile file(bundle / "Contents" / "Resources" / "catalog.json");
    if (!file.open(QFile::ReadOnly))
        qFatal("The bundle has no catalog.");
    const QByteArray json = file.readAll();
    std::optional<Result<Catalog>> catalog;
    measure(
        "decoding", [&] { catalog.reset(); },
        [&] { catalog = decodeCatalog(std::as_bytes(std::span(json))); });
    Catalog byQt;
    measure(
        "parsing", [&] { byQt.clear(); }, [&] { byQt = parsedByQt(json); });
}

/// The view of a store that has just been started.
struct Window {
    Window()
    {
        view.resize(1180, 800);
        view.show();
        QCoreApplication::processEvents();
    }

    void press(int key, const QString& text)
    {
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, Qt::NoModifier, text);
            QCoreApplication::sendEvent(view.focusWidget(), &event);
        }
        QCoreApplication::processEvents();
    }
    void answer(const Request& request)
    {
        view.answer(request);
        QCoreApplication::processEvents();
    }

    Store store;
    StoreView view{store};
};

void window()
{
    std::optional<Window> window;
    const auto open = [&] {
        window.emplace();
        window->view.focusSearch();
        QCoreApplication::processEvents();
    };
    measure("first-key", open, [&] { window->press(Qt::Key_unknown, u"п"_s); });
    bool isTyped = false;
    const auto typeOrTakeBack = [&] {
        isTyped = !isTyped;
        window->press(isTyped ? Qt::Key_unknown : Qt::Key_Backspace, isTyped ? u"р"_s : QString());
    };
    measure(
        "key", [] {}, typeOrTakeBack);

    open();
    QScrollBar& bar = *window->view.findChild<QScrollArea*>()->verticalScrollBar();
    measure(
        "scrolling", [] {},
        [&] {
            bar.setValue(bar.value() + 40);
            QCoreApplication::processEvents();
        });
    measure(
        "rebuild", [] {}, [&] { window->answer(request::Refresh()); });
    window->answer(request::ChooseSection{section_title::installed.toString()});
    measure(
        "activation", [] {}, [&] { window->answer(request::Refresh()); });
}

} // namespace

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    if (argc != 2)
        return 2;
    Style::applyTo(application);
    const DesktopPlatform machine(bundle_layout::programs(argv[1]) / "PloviStore");
    decoding(argv[1]);
    window();
}

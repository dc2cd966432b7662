#include "app/window/PloviStoreMain.h"
#include "app/window/WindowModule.h"
#include "support/FakePlatform.h"
#include "support/Samples.h"
#include "ui/kit/PlainButton.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QLibraryInfo>
#include <QLineEdit>
#include <QMenuBar>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <fstream>
#include <sstream>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

using Step = std::function<void()>;

/// The program over a machine in memory, offscreen.
class WindowTest : public testing::Test {
protected:
    WindowTest()
    {
        platform.files.content[platform.resource("catalog.json")] = sample::catalogFile({brisko});
        platform.savePanel.answer = destination;
        program.emplace();
    }

    /// Runs the program anew to its end, while a user does these steps, each when all before has been dealt
    /// with.
    void run(const std::vector<Step>& steps)
    {
        program.emplace();
        std::size_t at = 0;
        QTimer user;
        user.callOnTimeout([&] { at < steps.size() ? steps[at++]() : void(); });
        user.start(0);
        EXPECT_EQ(program->exec(), 0);
        EXPECT_EQ(at, steps.size()) << "The program ended early.";
    }

    StoreWindow* window() const { return &program->window(); }
    QAbstractButton* button(const QString& name) const
    {
        QCoreApplication::processEvents();
        for (auto* candidate : window()->findChildren<QAbstractButton*>()) {
            if (candidate->isVisible() && (candidate->accessibleName() == name || candidate->text() == name))
                return candidate;
        }
        return nullptr;
    }
    /// Triggers the menu item.
    void choose(const QString& title) const
    {
        const auto items = window()->findChildren<QAction*>();
        (*std::ranges::find(items, title, &QAction::text))->trigger();
    }

    Step key(const QKeySequence& keys) const
    {
        return [this, keys] { QTest::keySequence(window(), keys); };
    }

    const StoreApp brisko = sample::brisko();
    const Path destination = "/home/user/Downloads/Brisko.zip";
    const Step save = [this] { button(u"Скачать Brisko в ZIP"_s)->click(); };
    const Step open = [this] { button(u"Открыть"_s)->click(); };
    const Step dismiss = [this] { button(u"Понятно"_s)->click(); };
    const Step finish = [this] { platform.jobs.runAll(); };
    const Step close = [this] { window()->close(); };
    const Step seeWindow = [this] { EXPECT_TRUE(window()->isVisible()); };
    const Step seeNoWindow = [this] { EXPECT_FALSE(window()->isVisible()); };
    FakePlatform platform;
    mutable std::optional<PloviStoreMain> program;
};

} // namespace

TEST_F(WindowTest, AFailureAfterTheWindowWasClosedBringsItBack)
{
    for (const Step& answer : {dismiss, close})
        run({save, close, seeNoWindow, finish, seeWindow, answer});
    run({save, close, finish, [this] { program->showWindow(); }, dismiss, seeWindow, close});
    run({save, finish, dismiss, seeWindow, close});
    platform.workspace.registry[brisko.bundleID] = "/opt/Brisko.app";
    run({open, close, seeNoWindow, finish});
    platform.workspace.outcome = tl::unexpected(systemFailure(ENOEXEC));
    run({open, &QApplication::quit, seeNoWindow, finish, seeWindow, dismiss});
}

TEST_F(WindowTest, ASaveIsFinishedBeforeTheEndWhoeverAsksForIt)
{
    platform.files.content[brisko.packageURL()] = "archive of Brisko";
    for (const Step& end : {Step([this] { choose(u"Завершить PloviStore"_s); }),
             Step([this] { choose(u"Закрыть окно"_s); }), Step(&QApplication::quit)}) {
        platform.files.content.erase(destination);
        run({save, end, seeNoWindow, finish});
        EXPECT_EQ(platform.files.content[destination], "archive of Brisko");
    }
}

TEST_F(WindowTest, BecomingActiveAndTheRefreshCommandLookAtTheMachineAgain)
{
    window()->show();
    const auto become = [](auto state) { Q_EMIT qApp->applicationStateChanged(state); };
    const auto isOpenable = [this] { return button(u"Открыть"_s) != nullptr; };
    auto& registry = platform.workspace.registry;
    auto others = std::map<QString, Path>{{brisko.bundleID, "/opt/Brisko.app"}};
    for (const Step& refresh :
        {Step([&] { become(Qt::ApplicationActive); }), key(Qt::Key_F5), key(Qt::CTRL | Qt::Key_R)}) {
        registry.swap(others);
        become(Qt::ApplicationInactive);
        EXPECT_EQ(isOpenable(), registry.empty());
        refresh();
        EXPECT_NE(isOpenable(), registry.empty());
    }
}

TEST_F(WindowTest, TheSiteComesAfterTheAboutItemAndNothingOpensAnotherWindow)
{
    const QList<QAction*> items = window()->findChildren<QAction*>();
    const auto about = std::ranges::find(items, u"О программе PloviStore"_s, &QAction::text);
    ASSERT_LT(about + 1, items.end());
    EXPECT_EQ((*std::next(about))->text(), u"Сайт Orbanel"_s);
    QStringList shortcuts{QKeySequence(QKeySequence::New).toString()};
    for (const QAction* const item : items) {
        const QString shortcut = item->shortcut().toString();
        EXPECT_FALSE(!shortcut.isEmpty() && shortcuts.contains(shortcut)) << item->text().toStdString();
        shortcuts.append(shortcut);
    }
    choose(u"Сайт Orbanel"_s);
    EXPECT_EQ(platform.workspace.addresses, QStringList{u"https://orbanel.example/store"_s});
}

TEST_F(WindowTest, TheWindowsItemsChangeItsStateAndBack)
{
    for (const auto& [title, state] : {std::pair(u"Полный экран"_s, Qt::WindowFullScreen),
             {u"Развернуть"_s, Qt::WindowMaximized}, {u"Свернуть"_s, Qt::WindowMinimized}}) {
        choose(title);
        EXPECT_EQ(window()->windowState(), state);
        state == Qt::WindowMinimized ? window()->raiseToFront() : choose(title);
        EXPECT_EQ(window()->windowState(), Qt::WindowNoState);
    }
}

TEST_F(WindowTest, WhatTheKeyboardOpensShowsTheRingAndCoversTheWindowsItems)
{
    window()->show();
    window()->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
    for (const auto key : {Qt::Key_Alt, Qt::Key_Down, Qt::Key_Return}) {
        auto* const menu = QApplication::activePopupWidget();
        QTest::keyClick(menu ? menu : QApplication::focusWidget(), key);
    }
    window()->activateWindow(); // Offscreen a popup leaves no window active.
    ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
    EXPECT_TRUE(qobject_cast<PlainButton*>(button(u"Понятно"_s))->showsFocus());

    auto* const search = window()->findChild<QLineEdit*>();
    choose(u"Найти приложение"_s);
    choose(u"Сайт Orbanel"_s);
    search->setText(u"x"_s);
    EXPECT_EQ(window()->focusWidget(), button(u"Понятно"_s));
    EXPECT_EQ(search->text(), QString()) << "what was typed is taken back";
    EXPECT_TRUE(platform.workspace.addresses.isEmpty());
    dismiss();
    choose(u"Найти приложение"_s);
    EXPECT_EQ(window()->focusWidget(), search);
}

TEST_F(WindowTest, AltAndF10TakeTheFocusToTheMenuBarAndBackToWhereItWas)
{
    window()->show();
    window()->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
    choose(u"Найти приложение"_s);
    auto* const search = window()->findChild<QLineEdit*>();
    auto* const bar = window()->findChild<QMenuBar*>();
    for (const auto& [take, giveBack] : {std::pair(Qt::Key_Alt, Qt::Key_Alt), {Qt::Key_F10, Qt::Key_F10},
             {Qt::Key_F10, Qt::Key_Alt}, {Qt::Key_F10, Qt::Key_Escape}}) {
        QTest::keyClick(QApplication::focusWidget(), take);
        EXPECT_EQ(QApplication::focusWidget(), bar);
        EXPECT_EQ(bar->activeAction(), bar->actions().first());
        QTest::keyClick(QApplication::focusWidget(), giveBack);
        EXPECT_EQ(QApplication::focusWidget(), search);
        EXPECT_EQ(bar->activeAction(), nullptr);
    }
}

TEST_F(WindowTest, EditingWorksOnTheSearch)
{
    window()->show();
    window()->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
    auto* const search = window()->findChild<QLineEdit*>();
    choose(u"Выделить всё"_s); // Without a text that has the focus nothing happens.
    choose(u"Найти приложение"_s);
    QTest::keyClicks(QApplication::focusWidget(), u"brisko"_s);
    for (const auto& [title, isThere] : {std::pair(u"Выделить всё"_s, true), {u"Копировать"_s, true},
             {u"Удалить"_s, false}, {u"Отменить"_s, true}, {u"Повторить"_s, false}, {u"Вставить"_s, true},
             {u"Выделить всё"_s, true}, {u"Вырезать"_s, false}}) {
        choose(title);
        EXPECT_EQ(search->text(), isThere ? u"brisko"_s : QString()) << title.toStdString();
    }
    EXPECT_EQ(QApplication::clipboard()->text(), u"brisko"_s);
}

TEST_F(WindowTest, TheProgramEndsWhenAskedOrWithoutAScreenAndKeepsItsStandardStreams)
{
    QProcess process;
    process.setChildProcessModifier([] { ::close(STDIN_FILENO); });
    process.start(QStringLiteral(PROGRAM), {});
    ASSERT_TRUE(process.waitForStarted());
    const Path about = "/proc/" + std::to_string(process.processId());
    const auto catchesSignals = [&about] {
        const std::string status = (std::stringstream() << std::ifstream(about / "status").rdbuf()).str();
        return std::stoull(status.substr(status.find("SigCgt:") + 7), nullptr, 16) >> (SIGTERM - 1) & 1;
    };
    ASSERT_TRUE(QTest::qWaitFor(catchesSignals, 60'000));
    EXPECT_EQ(std::filesystem::read_symlink(about / "fd/0"), "/dev/null");
    process.terminate();
    EXPECT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitCode(), 0);

    process.setProcessEnvironment({});
    process.start(QStringLiteral(PROGRAM), {});
    EXPECT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitCode(), 1);
    EXPECT_EQ(process.readAllStandardError(), "PloviStore: нет экрана, на котором можно показать окно.\n");
}

TEST_F(WindowTest, ALibraryThatTheWindowLacksIsNamed)
{
    const QTemporaryDir folder;
    const Path contents = Path(folder.path().toStdString()) / "PloviStore.app/Contents";
    const auto copy = [&contents](const Path& source, const Path& to, const QByteArray& needed = {}) {
        std::filesystem::create_directories((contents / to).parent_path());
        std::filesystem::copy(source, contents / to, std::filesystem::copy_options::overwrite_existing);
        QFile file(contents / to);
        EXPECT_TRUE(file.open(QFile::ReadWrite));
        const QByteArray bytes = file.readAll();
        // Needs from now on one that no machine has.
        const auto at = needed.isEmpty() ? -1 : bytes.indexOf(needed + ".so.6");
        EXPECT_TRUE(needed.isEmpty() || (file.seek(at) && file.write("libNot") == 6));
    };
    const auto lacks = [](const QByteArray& library) {
        return "PloviStore: на этом компьютере нет библиотеки " + library + ", без неё окно не показать.\n";
    };
    const Path original = PROGRAM;
    const Path module = original.parent_path().parent_path() / "Frameworks" / windowModuleFile;
    const Path plugins = QLibraryInfo::path(QLibraryInfo::PluginsPath).toStdString();
    QProcess process;
    process.setProgram(QString::fromStdString(contents / "MacOS/PloviStore"));
    const auto expectFault = [&process](const QByteArray& fault) {
        process.start();
        EXPECT_TRUE(process.waitForFinished());
        EXPECT_EQ(process.exitCode(), 1);
        EXPECT_EQ(process.readAllStandardError(), fault);
    };
    copy(original, "MacOS/PloviStore");
    expectFault(lacks(QByteArray::fromStdString(contents / "Frameworks" / windowModuleFile)));
    copy(module, Path("Frameworks") / windowModuleFile, "libQt6Widgets");
    expectFault(lacks("libNotWidgets.so.6"));
    std::ofstream(contents / "Frameworks" / windowModuleFile) << std::string(100, 'x');
    process.start();
    EXPECT_TRUE(process.waitForFinished());
    EXPECT_THAT(process.readAllStandardError().toStdString(),
        testing::MatchesRegex("PloviStore: окно не загружается: .*invalid ELF header\n"));

    copy(module, Path("Frameworks") / windowModuleFile);
    std::ofstream(contents / "MacOS/qt.conf") << "[Paths]\nPrefix=..\nPlugins=Frameworks/plugins\n";
    const auto platforms = Path("Frameworks/plugins/platforms");
    QProcessEnvironment environment;
    environment.insert(u"DISPLAY"_s, u":none"_s);
    process.setProcessEnvironment(environment);
    copy(plugins / "platforms/libqxcb.so", platforms / "libqxcb.so");
    expectFault("PloviStore: нет экрана, на котором можно показать окно.\n");
    copy(plugins / "platforms/libqxcb.so", platforms / "libqxcb.so", "libQt6XcbQpa");
    expectFault(lacks("libNotXcbQpa.so.6"));
    environment.insert(u"WAYLAND_DISPLAY"_s, u"none"_s);
    environment.insert(u"LC_ALL"_s, u"ru_RU.UTF-8"_s);
    const auto wayland = platforms / "libqwayland-generic.so";
    // A bundle that brings plug-ins has frames only under X11 where the desktop draws none.
    copy(plugins / "platforms/libqxcb.so", platforms / "libqxcb.so");
    copy(plugins / wayland.lexically_relative("Frameworks/plugins"), wayland);
    environment.insert(u"XDG_SESSION_TYPE"_s, u"wayland"_s);
    environment.insert(u"LD_DEBUG"_s, u"files"_s);
    for (const QString& desktop : {u"KDE"_s, u"ubuntu:GNOME"_s}) {
        environment.insert(u"XDG_CURRENT_DESKTOP"_s, desktop);
        process.setProcessEnvironment(environment);
        process.start();
        EXPECT_TRUE(process.waitForFinished());
        const QByteArray loaded = process.readAllStandardError();
        EXPECT_EQ(
            loaded.indexOf("calling init: " + QByteArray::fromStdString(contents / platforms / "libqxcb.so"))
                < loaded.indexOf("calling init: " + QByteArray::fromStdString(contents / wayland)),
            desktop.contains(u"GNOME"_s));
    }
    environment.remove(u"LD_DEBUG"_s);
    environment.remove(u"DISPLAY"_s);
    process.setProcessEnvironment(environment);
    copy(plugins / "platforms/libqwayland-generic.so", platforms / "libqwayland-generic.so",
        "libQt6WaylandClient");
    expectFault(lacks("libNotWaylandClient.so.6"));
}

#include "app/window/MenuBar.h"
#include "app/window/PloviStoreMain.h"
#include "support/FakePlatform.h"
#include "support/Samples.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <gmock/gmock.h>

#include <csignal>
#include <fstream>
#include <list>
#include <sstream>
#include <unistd.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

/// The program over a machine in memory, offscreen.
class WindowTest : public testing::Test {
protected:
    using Step = std::function<void()>;

    static void SetUpTestSuite()
    {
        static QTemporaryDir runtimeFolder;
        static int count = 1;
        static char name[] = "tests";
        static char* argument = name;
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qputenv("XDG_RUNTIME_DIR", runtimeFolder.path().toLocal8Bit());
        application = new QApplication(count, &argument);
    }
    static void TearDownTestSuite() { delete application; }

    WindowTest()
    {
        platform.files.content[platform.resource("catalog.json")] = sample::catalogFile({brisko});
        platform.savePanel.answer = destination;
        begin();
    }

    void begin()
    {
        program.emplace();
        window = &program->window();
    }

    /// Runs the program to its end, while a user does these steps, each when all before has been dealt with.
    void run(std::list<Step> steps)
    {
        QTimer user;
        user.callOnTimeout([&steps] {
            if (steps.empty())
                return;
            const Step step = steps.front();
            steps.pop_front();
            step();
        });
        user.start(0);
        EXPECT_EQ(program->exec(), 0);
        EXPECT_TRUE(steps.empty()) << "The program ended early.";
    }

    QAbstractButton* button(const QString& name) const
    {
        QCoreApplication::processEvents();
        for (auto* candidate : window->findChildren<QAbstractButton*>()) {
            if (candidate->isVisible() && (candidate->accessibleName() == name || candidate->text() == name))
                return candidate;
        }
        return nullptr;
    }
    Step press(const QString& name) const
    {
        return [this, name] {
            ASSERT_TRUE(button(name)) << name.toStdString();
            button(name)->click();
        };
    }
    Step choose(Command command) const
    {
        return [this, command] {
            Q_EMIT window->findChild<MenuBar*>()->chosen(command);
            QCoreApplication::processEvents();
        };
    }

    static inline QApplication* application = nullptr;
    const StoreApp brisko = sample::brisko();
    const Path destination = "/home/user/Downloads/Brisko.zip";
    const Step save = press(u"Скачать Brisko в ZIP"_s);
    const Step finish = [this] { platform.jobs.runAll(); };
    const Step close = [this] { window->close(); };
    FakePlatform platform;
    std::optional<PloviStoreMain> program;
    StoreWindow* window = nullptr;
};

} // namespace

TEST_F(WindowTest, AFailureAfterTheWindowWasClosedBringsItBack)
{
    for (const Step& dismiss : {press(u"Понятно"_s), close}) {
        run({save, close, [this] { EXPECT_FALSE(window->isVisible()); }, finish,
            [this] { EXPECT_TRUE(window->isVisible() && button(u"Понятно"_s)); }, dismiss});
        begin();
    }
    run({save, finish, press(u"Понятно"_s), [this] { EXPECT_TRUE(window->isVisible()); }, close});
}

TEST_F(WindowTest, ASaveIsFinishedBeforeTheEndWhoeverAsksForIt)
{
    platform.files.content[brisko.packageURL()] = "archive of Brisko";
    for (const Step& end : {choose(Command::Quit), choose(Command::Close), Step(&QApplication::quit)}) {
        platform.files.content.erase(destination);
        begin();
        run({save, end, [this] { EXPECT_FALSE(window->isVisible()); }, finish});
        EXPECT_EQ(platform.files.content[destination], "archive of Brisko");
    }
}

TEST_F(WindowTest, BecomingActiveAndTheRefreshCommandLookAtTheMachineAgain)
{
    window->show();
    const auto become = [](Qt::ApplicationState state) {
        Q_EMIT application->applicationStateChanged(state);
    };
    for (const Step& refresh : {Step([&] { become(Qt::ApplicationActive); }), choose(Command::Refresh),
             Step([this] { QTest::keyClick(window, Qt::Key_F5); })}) {
        platform.workspace.registry.clear();
        window->refresh();
        EXPECT_FALSE(button(u"Открыть"_s));
        platform.workspace.registry[brisko.bundleID] = "/opt/Brisko.app";
        become(Qt::ApplicationInactive);
        EXPECT_FALSE(button(u"Открыть"_s));
        refresh();
        EXPECT_TRUE(button(u"Открыть"_s));
    }
}

TEST_F(WindowTest, TheMenusAreBuiltAsDescribedAndDoWhatTheySay)
{
    EXPECT_EQ(menus().at(0).items.at(0).command, Command::About);
    EXPECT_EQ(menus().at(0).items.at(1).command, Command::VisitSite);
    auto* const bar = window->findChild<MenuBar*>();
    QStringList described, built;
    std::vector<Command> meant, chosen;
    QObject::connect(bar, &MenuBar::chosen, window, [&](Command command) { chosen.push_back(command); });
    for (const Menu& menu : menus()) {
        for (const MenuItem& item : menu.items) {
            described << (item.opensGroup ? QStringList{QString()} : QStringList())
                      << menu.title + item.title + item.shortcut.toString();
            meant.push_back(item.command);
        }
    }
    for (const QAction* menu : bar->actions()) {
        for (QAction* item : menu->menu()->actions()) {
            built << (item->isSeparator() ? QString()
                                          : menu->text() + item->text() + item->shortcut().toString());
            item->trigger();
        }
    }
    EXPECT_EQ(built, described);
    EXPECT_EQ(chosen, meant);
    EXPECT_THAT(platform.workspace.addresses, ElementsAre(u"https://orbanel.example/store"_s));

    for (const auto& [command, state] : {std::pair(Command::FullScreen, Qt::WindowFullScreen),
             {Command::Zoom, Qt::WindowMaximized}, {Command::Minimize, Qt::WindowMinimized}}) {
        window->setWindowState(Qt::WindowNoState);
        choose(command)();
        EXPECT_EQ(window->windowState(), state);
        command == Command::Minimize ? window->raiseToFront() : choose(command)();
        EXPECT_EQ(window->windowState(), Qt::WindowNoState);
    }
    choose(Command::About)();
    EXPECT_TRUE(button(u"Понятно"_s));
}

TEST_F(WindowTest, EditingWorksOnTheSearch)
{
    window->show();
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    auto* const search = window->findChild<QLineEdit*>();
    choose(Command::SelectAll)(); // Without a text that has the focus nothing happens.
    choose(Command::Find)();
    ASSERT_TRUE(search->hasFocus());

    QTest::keyClicks(search, u"brisko"_s);
    const std::pair<Command, QString> steps[] = {{Command::SelectAll, u"brisko"_s},
        {Command::Copy, u"brisko"_s}, {Command::Delete, {}}, {Command::Undo, u"brisko"_s},
        {Command::Redo, {}}, {Command::Paste, u"brisko"_s}, {Command::SelectAll, u"brisko"_s},
        {Command::Cut, {}}};
    for (const auto& [command, text] : steps) {
        choose(command)();
        EXPECT_EQ(search->text(), text) << int(command);
    }
    EXPECT_EQ(QApplication::clipboard()->text(), u"brisko"_s);
}

TEST_F(WindowTest, TheProgramSaysInOneLineThatThereIsNoScreen)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.setProcessEnvironment({});
    process.start(QStringLiteral(PROGRAM), {});
    ASSERT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitCode(), 1);
    EXPECT_EQ(process.readAll(), "PloviStore: нет экрана, на котором можно показать окно.\n");
}

TEST_F(WindowTest, TheProgramKeepsItsStandardStreamsAndEndsWhenAsked)
{
    QProcess process;
    process.setChildProcessModifier([] { ::close(STDERR_FILENO); });
    process.start(QStringLiteral(PROGRAM), {});
    ASSERT_TRUE(process.waitForStarted());
    const Path about = "/proc/" + std::to_string(process.processId());
    const auto catchesSignals = [&about] {
        const std::string status = (std::stringstream() << std::ifstream(about / "status").rdbuf()).str();
        return std::stoull(status.substr(status.find("SigCgt:") + 7), nullptr, 16) >> (SIGTERM - 1) & 1;
    };
    ASSERT_TRUE(QTest::qWaitFor(catchesSignals, 60'000));

    EXPECT_EQ(std::filesystem::read_symlink(about / "fd/2"), "/dev/null");
    process.terminate();
    EXPECT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 0);
}

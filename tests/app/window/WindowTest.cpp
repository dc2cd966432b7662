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

#include <deque>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

/// The program over a machine in memory, offscreen.
class WindowTest : public testing::Test {
protected:
    using Step = std::function<void()>;

    WindowTest()
    {
        platform.files.content[platform.resource("catalog.json")] = sample::catalogFile({brisko});
        platform.savePanel.answer = "/home/user/Downloads/Brisko.zip";
        program.emplace();
        window = &program->window();
    }

    /// Runs the program until it ends, while a user does these steps, each when all before has been dealt
    /// with.
    void run(std::deque<Step> steps)
    {
        const Step proceed = [&] {
            if (steps.empty())
                return;
            const Step step = std::move(steps.front());
            steps.pop_front();
            step();
            QTimer::singleShot(0, window, proceed);
        };
        QTimer::singleShot(0, window, proceed);
        QTimer::singleShot(60'000, window, [] { qFatal("The program does not end."); });
        EXPECT_EQ(program->exec(), 0);
        EXPECT_THAT(steps, testing::IsEmpty()) << "The program ended early.";
    }

    QAbstractButton* button(const QString& name) const
    {
        for (auto* candidate : window->findChildren<QAbstractButton*>()) {
            if (candidate->isVisible() && (candidate->accessibleName() == name || candidate->text() == name))
                return candidate;
        }
        return nullptr;
    }
    Step press(const QString& name) const
    {
        return [this, name] {
            ASSERT_TRUE(button(name)) << "no button " << name.toStdString();
            button(name)->click();
        };
    }

    /// Chooses the item from the menu bar.
    void choose(Command command) const
    {
        const auto bar = window->findChild<MenuBar*>()->actions();
        const auto built = menus();
        ASSERT_EQ(std::size_t(bar.size()), built.size());
        for (std::size_t index = 0; index < built.size(); ++index) {
            auto actions = bar.at(qsizetype(index))->menu()->actions();
            for (const MenuItem& item : built[index].items) {
                if (item.opensGroup) {
                    EXPECT_TRUE(actions.takeFirst()->isSeparator());
                }
                QAction* const action = actions.takeFirst();
                EXPECT_EQ(action->text(), item.title);
                EXPECT_EQ(action->shortcut(), item.shortcut);
                if (item.command == command)
                    action->trigger();
            }
            EXPECT_THAT(actions, testing::IsEmpty());
        }
        QCoreApplication::processEvents();
    }

    const StoreApp brisko = sample::brisko();
    const QString savingBrisko = u"Скачать Brisko в ZIP"_s;
    FakePlatform platform;
    std::optional<PloviStoreMain> program;
    StoreWindow* window = nullptr;
};

class Application : public testing::Environment {
    void SetUp() override
    {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qputenv("XDG_RUNTIME_DIR", m_runtime.path().toLocal8Bit());
        m_application.emplace(m_argumentCount, &m_argument);
        QApplication::setApplicationVersion(u"7.5"_s);
    }
    void TearDown() override { m_application.reset(); }

    QTemporaryDir m_runtime;
    int m_argumentCount = 1;
    char m_name[6] = "tests";
    char* m_argument = m_name;
    std::optional<QApplication> m_application;
};

[[maybe_unused]] const auto* const application = testing::AddGlobalTestEnvironment(new Application);

} // namespace

TEST_F(WindowTest, AFailureAfterTheWindowWasClosedBringsItBack)
{
    const auto saveAndClose = {press(savingBrisko), Step([this] { window->close(); })};
    const Step fail = [this] {
        EXPECT_FALSE(window->isVisible());
        platform.jobs.runAll();
        EXPECT_TRUE(window->isVisible());
    };

    std::deque<Step> steps = saveAndClose;
    steps.insert(steps.end(), {fail, press(u"Понятно"_s)});
    run(steps);

    steps = saveAndClose;
    steps.insert(
        steps.end(), {fail, [this] { EXPECT_TRUE(button(u"Понятно"_s)); }, [this] { window->close(); }});
    run(steps);
}

TEST_F(WindowTest, ASaveIsFinishedBeforeTheEndWhoeverAsksForIt)
{
    platform.files.content[brisko.packageURL()] = "archive of Brisko";
    const Path saved = *platform.savePanel.answer;

    for (const auto& end : std::initializer_list<Step>{[this] { choose(Command::Quit); },
             [this] { choose(Command::Close); }, [] { QApplication::quit(); }}) {
        platform.files.content.erase(saved);
        run({press(savingBrisko), end, [this] { EXPECT_FALSE(window->isVisible()); },
            [this] { platform.jobs.runAll(); }});
        EXPECT_EQ(platform.files.content[saved], "archive of Brisko");
    }
}

TEST_F(WindowTest, BecomingActiveAndTheRefreshCommandLookAtTheMachineAgain)
{
    window->show();
    for (const Step& refresh : {Step([] { Q_EMIT qApp->applicationStateChanged(Qt::ApplicationActive); }),
             Step([this] { choose(Command::Refresh); }),
             Step([this] { QTest::keyClick(window, Qt::Key_F5); })}) {
        platform.workspace.registry.clear();
        window->refresh();
        QCoreApplication::processEvents();
        EXPECT_FALSE(button(u"Открыть"_s));
        platform.workspace.registry[brisko.bundleID] = "/opt/Brisko.app";
        Q_EMIT qApp->applicationStateChanged(Qt::ApplicationInactive);
        QCoreApplication::processEvents();
        EXPECT_FALSE(button(u"Открыть"_s));
        refresh();
        QCoreApplication::processEvents();
        EXPECT_TRUE(button(u"Открыть"_s));
    }
}

TEST_F(WindowTest, TheMenusDoWhatTheySay)
{
    const auto application = menus().front().items;
    EXPECT_EQ(application[0].command, Command::About);
    EXPECT_EQ(application[1].command, Command::VisitSite);
    window->show();

    choose(Command::VisitSite);
    EXPECT_THAT(platform.workspace.addresses, ElementsAre(u"https://orbanel.example/store"_s));

    for (const auto& [command, state] : {std::pair(Command::FullScreen, Qt::WindowFullScreen),
             {Command::Zoom, Qt::WindowMaximized}, {Command::Minimize, Qt::WindowMinimized}}) {
        choose(command);
        EXPECT_EQ(window->windowState(), state);
        command == Command::Minimize ? window->raiseToFront() : choose(command);
        EXPECT_EQ(window->windowState(), Qt::WindowNoState);
    }

    choose(Command::About);
    EXPECT_TRUE(button(u"Понятно"_s));
}

TEST_F(WindowTest, EditingWorksOnTheSearch)
{
    window->show();
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    auto* const search = window->findChild<QLineEdit*>();
    choose(Command::SelectAll); // Without a text that has the focus nothing happens.

    choose(Command::Find);
    ASSERT_TRUE(search->hasFocus());
    QTest::keyClicks(search, u"brisko"_s);
    const std::pair<Command, QString> steps[] = {{Command::SelectAll, u"brisko"_s},
        {Command::Copy, u"brisko"_s}, {Command::Delete, {}}, {Command::Undo, u"brisko"_s},
        {Command::Redo, {}}, {Command::Paste, u"brisko"_s}, {Command::SelectAll, u"brisko"_s},
        {Command::Cut, {}}};
    for (const auto& [command, text] : steps) {
        choose(command);
        EXPECT_EQ(search->text(), text) << int(command);
    }
    EXPECT_EQ(QApplication::clipboard()->text(), u"brisko"_s);
}

TEST_F(WindowTest, TheProgramSaysInOneLineThatThereIsNoScreen)
{
    QProcess process;
    process.setProcessEnvironment({});
    process.start(QStringLiteral(PROGRAM), {});
    ASSERT_TRUE(process.waitForFinished());

    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 1);
    EXPECT_EQ(process.readAllStandardOutput() + process.readAllStandardError(),
        "PloviStore: нет экрана, на котором можно показать окно.\n");
}

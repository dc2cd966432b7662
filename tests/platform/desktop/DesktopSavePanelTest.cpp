#include "platform/desktop/DesktopSavePanel.h"
#include "platform/desktop/TestSession.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <gmock/gmock.h>

#include <deque>
#include <filesystem>

using namespace Qt::StringLiterals;
using testing::Eq;
using testing::Optional;

namespace {

/// Does the steps of a user one after another, each as soon as it can be done.
class User : public QObject {
public:
    using Step = std::function<bool()>;

    explicit User(std::deque<Step> steps) : m_steps(std::move(steps)) { proceed(); }
    ~User() override { EXPECT_TRUE(m_steps.empty()) << "The user is still waiting."; }

private:
    void proceed()
    {
        if (m_steps.empty())
            return;
        // Before the step, which may open a nested event loop for the next one.
        QMetaObject::invokeMethod(
            this, [this] { proceed(); }, Qt::QueuedConnection);
        const Step step = m_steps.front();
        m_steps.pop_front();
        if (!step())
            m_steps.push_front(step);
    }

    std::deque<Step> m_steps;
};

template <class Dialog>
Dialog* shown()
{
    auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
    return dialog && dialog->isVisible() ? dialog : nullptr;
}

/// Waits for the panel, and for the name in it if one is given.
User::Step inPanel(const std::function<void(QFileDialog&, QLineEdit&)>& act, const QString& name = {})
{
    return [act, name] {
        auto* panel = shown<QFileDialog>();
        auto* field = panel ? panel->findChild<QLineEdit*>() : nullptr;
        if (!field || (!name.isEmpty() && field->text() != name))
            return false;
        act(*panel, *field);
        return true;
    };
}

User::Step save(const QString& typed)
{
    return inPanel([typed](QFileDialog&, QLineEdit& field) {
        field.setText(typed);
        QTest::keyClick(&field, Qt::Key_Return);
    });
}

class DesktopSavePanelTest : public testing::Test {
protected:
    std::optional<Path> run(std::deque<User::Step> steps)
    {
        const User user(std::move(steps));
        return m_panel.runModal({u"Скачать Brisko"_s, u"Brisko-1.2.zip"_s, folder});
    }

    QTemporaryDir temporary;
    const Path folder = toPath(temporary.path());
    std::unique_ptr<QWidget> window = std::make_unique<QWidget>();

private:
    DesktopSavePanel m_panel{[this] { return window.get(); }};
};

} // namespace

TEST_F(DesktopSavePanelTest, ItProposesTheNameAndOffersArchivesOnly)
{
    const auto destination = run({inPanel([this](QFileDialog& panel, QLineEdit& field) {
        EXPECT_EQ(panel.windowTitle(), u"Скачать Brisko"_s);
        EXPECT_EQ(panel.parentWidget(), window.get());
        EXPECT_EQ(field.text(), u"Brisko-1.2.zip"_s);
        EXPECT_EQ(panel.nameFilters(), QStringList{u"Архив ZIP (*.zip)"_s});
        QTest::keyClick(&field, Qt::Key_Return);
    })});

    EXPECT_THAT(destination, Optional(folder / "Brisko-1.2.zip"));
    EXPECT_TRUE(std::filesystem::is_empty(folder));
    EXPECT_FALSE(std::filesystem::exists(session::home() / "config/QtProject.conf"));
}

TEST_F(DesktopSavePanelTest, TheNameAlwaysEndsInZip)
{
    const std::pair<QString, const char*> rows[] = {
        {u"Копия"_s, "Копия.zip"},
        {u"Копия.tar"_s, "Копия.tar.zip"},
        {u"КОПИЯ.ZIP"_s, "КОПИЯ.ZIP"},
        {u"Копия 1.2"_s, "Копия 1.2.zip"},
    };
    for (const auto& [typed, name] : rows)
        EXPECT_THAT(run({save(typed)}), Optional(folder / name));
}

TEST_F(DesktopSavePanelTest, AFileIsReplacedOnlyWhenTheUserAgrees)
{
    session::write(folder / "Копия.tar.zip", "older");
    const auto answer = [](QMessageBox::StandardButton button) {
        return [button] {
            auto* question = shown<QMessageBox>();
            if (question)
                question->button(button)->click();
            return question != nullptr;
        };
    };
    const auto accept = inPanel(
        [](QFileDialog&, QLineEdit& field) { QTest::keyClick(&field, Qt::Key_Return); }, u"Копия.tar.zip"_s);
    const auto reject = inPanel([](QFileDialog& panel, QLineEdit&) { panel.reject(); }, u"Копия.tar.zip"_s);

    EXPECT_THAT(
        run({save(u"Копия.tar"_s), accept, answer(QMessageBox::Yes)}), Optional(folder / "Копия.tar.zip"));
    EXPECT_THAT(run({save(u"Копия.tar"_s), accept, answer(QMessageBox::No), reject}), Eq(std::nullopt));
}

TEST_F(DesktopSavePanelTest, ItEndsWithoutAnAnswerWithItsWindow)
{
    EXPECT_THAT(run({inPanel([this](QFileDialog&, QLineEdit&) { window.reset(); })}), Eq(std::nullopt));
}

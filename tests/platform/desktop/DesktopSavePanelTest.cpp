#include "platform/desktop/DesktopSavePanel.h"
#include "platform/desktop/TestSession.h"

#include <QApplication>
#include <QAbstractButton>
#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeView>

#include <gmock/gmock.h>
#include <sys/inotify.h>

#include <array>
#include <deque>
#include <filesystem>
#include <unistd.h>

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

User::Step inPanel(const std::function<void(QFileDialog&, QLineEdit&)>& act)
{
    return [act] {
        auto* panel = shown<QFileDialog>();
        auto* field = panel ? panel->findChild<QLineEdit*>() : nullptr;
        if (field && !field->hasFocus())
            field->setFocus();
        if (!field || !field->hasFocus())
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

const User::Step accept =
    inPanel([](QFileDialog&, QLineEdit& field) { QTest::keyClick(&field, Qt::Key_Return); });

class DesktopSavePanelTest : public testing::Test {
protected:
    std::optional<Path> run(std::deque<User::Step> steps, const QString& proposed = u"Brisko-1.2.zip"_s)
    {
        const User user(std::move(steps));
        return m_panel.runModal({u"Скачать Brisko"_s, proposed, folder});
    }

    QTemporaryDir temporary;
    const Path folder = toPath(temporary.path());
    std::unique_ptr<QWidget> window = std::make_unique<QWidget>();

private:
    DesktopSavePanel m_panel{[this] { return window.get(); }};
};

} // namespace

TEST_F(DesktopSavePanelTest, ItShowsWhatItIsGivenAndReadsNoFile)
{
    session::write(folder / "Архив.zip", "not to be read");
    const int opened = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    ::inotify_add_watch(opened, (folder / "Архив.zip").c_str(), IN_OPEN);
    const User::Step look = [this] {
        auto* panel = shown<QFileDialog>();
        auto* list = panel ? panel->findChild<QTreeView*>() : nullptr;
        if (!list || !list->model()->rowCount(list->rootIndex()))
            return false;
        EXPECT_EQ(panel->windowTitle(), u"Скачать Brisko"_s);
        EXPECT_EQ(panel->parentWidget(), window.get());
        EXPECT_EQ(panel->nameFilters(), QStringList{u"Архив ZIP (*.zip)"_s});
        const auto kind = list->model()->index(0, 2, list->rootIndex());
        EXPECT_EQ(kind.data().toString(), u"Файл"_s);
        EXPECT_FALSE(kind.siblingAtColumn(0).data(Qt::DecorationRole).value<QIcon>().isNull());
        for (int column = 0; column < 4; ++column)
            EXPECT_GT(list->columnWidth(column), 50);
        EXPECT_LE(list->header()->length(), list->viewport()->width());
        return true;
    };

    EXPECT_THAT(run({look, accept}), Optional(folder / "Brisko-1.2.zip"));
    std::array<char, 256> events;
    EXPECT_EQ(::read(opened, events.data(), events.size()), -1) << "A file was opened.";
    ::close(opened);
    EXPECT_FALSE(std::filesystem::exists(session::home() / "config/QtProject.conf"));
}

TEST_F(DesktopSavePanelTest, TheProposedNameNeverLeavesTheFolder)
{
    const std::pair<QString, const char*> rows[] = {
        {u"/etc/Копия.zip"_s, "_etc_Копия.zip"},
        {u"a\0b.zip"_s, "a_b.zip"},
        {u"1.2 & <b>.zip"_s, "1.2 & <b>.zip"},
    };
    for (const auto& [proposed, name] : rows)
        EXPECT_THAT(run({accept}, proposed), Optional(folder / name));
}

TEST_F(DesktopSavePanelTest, TheNameAlwaysEndsInZip)
{
    session::write(folder / "Записки 1.2", "another file");
    const std::pair<QString, const char*> rows[] = {
        {u"Копия"_s, "Копия.zip"},
        {u"Копия.tar"_s, "Копия.tar.zip"},
        {u"КОПИЯ.ZIP"_s, "КОПИЯ.ZIP"},
        {u"Записки 1.2"_s, "Записки 1.2.zip"},
    };
    for (const auto& [typed, name] : rows)
        EXPECT_THAT(run({save(typed)}), Optional(folder / name));
}

TEST_F(DesktopSavePanelTest, AFileIsReplacedOnlyWhenTheUserAgrees)
{
    session::write(folder / "Записки.v2.zip", "older");
    std::filesystem::create_symlink("/no/such/file", folder / "Ссылка.zip");
    const auto answer = [](const QString& text) {
        return [text] {
            auto* question = shown<QMessageBox>();
            if (!question)
                return false;
            EXPECT_EQ(question->text(), u"Файл «Записки.v2.zip» уже существует. Заменить его?"_s);
            for (auto* button : question->buttons()) {
                if (button->text() == text)
                    button->click();
            }
            return true;
        };
    };
    const auto escape = [](auto* dialog) {
        if (dialog)
            QTest::keyClick(dialog, Qt::Key_Escape);
        return dialog != nullptr;
    };

    EXPECT_THAT(run({save(u"Записки.v2"_s), answer(u"Заменить"_s)}), Optional(folder / "Записки.v2.zip"));
    EXPECT_THAT(
        run({save(u"Записки.v2"_s), answer(u"Отмена"_s), save(u"Новая"_s)}), Optional(folder / "Новая.zip"));
    EXPECT_THAT(run({save(u"Ссылка"_s), [&] { return escape(shown<QMessageBox>()); },
                    inPanel([](QFileDialog& panel, QLineEdit& field) {
                        EXPECT_EQ(field.text(), u"Ссылка.zip"_s);
                        panel.reject();
                    })}),
        Eq(std::nullopt));
}

TEST_F(DesktopSavePanelTest, ItEndsWithoutAnAnswerWithItsWindow)
{
    const User::Step close = [this] {
        window.reset();
        return true;
    };
    const User::Step inQuestion = [close] { return shown<QMessageBox>() && close(); };
    session::write(folder / "Brisko-1.2.zip", "older");

    EXPECT_THAT(run({inPanel([&](QFileDialog&, QLineEdit&) { close(); })}), Eq(std::nullopt));
    window = std::make_unique<QWidget>();
    EXPECT_THAT(run({accept, inQuestion}), Eq(std::nullopt));
}

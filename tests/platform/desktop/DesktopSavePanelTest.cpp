#include "platform/desktop/DesktopSavePanel.h"
#include "platform/desktop/TestSession.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QTreeView>

#include <gmock/gmock.h>
#include <sys/inotify.h>

#include <array>
#include <filesystem>
#include <list>
#include <unistd.h>

using namespace Qt::StringLiterals;
using testing::Eq;
using testing::Optional;

namespace {

/// What a user does as soon as it can be done; false until then.
using Step = std::function<bool()>;

template <class Dialog>
Dialog* shown()
{
    auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
    return dialog && dialog->isVisible() ? dialog : nullptr;
}

/// Types a name over the proposed one, if any, and presses Return.
Step save(const std::optional<QString>& name = {})
{
    return [name] {
        auto* panel = shown<QFileDialog>();
        auto* field = panel ? panel->findChild<QLineEdit*>() : nullptr;
        if (!field || !field->hasFocus())
            return field && (field->setFocus(), false);
        field->setText(name.value_or(field->text()));
        QTest::keyClick(field, Qt::Key_Return);
        return true;
    };
}

/// Presses a button of the question.
Step answer(const QString& text)
{
    return [text] {
        auto* question = shown<QMessageBox>();
        if (!question)
            return false;
        EXPECT_EQ(question->text(), u"Файл «Записки.v2.zip» уже существует. Заменить его?"_s);
        auto* first = question->buttons().at(0);
        (first->text() == text ? first : question->buttons().at(1))->click();
        return true;
    };
}

class DesktopSavePanelTest : public testing::Test {
protected:
    std::optional<Path> run(std::list<Step> steps, const QString& proposed = u"Brisko-1.2.zip"_s)
    {
        QTimer user;
        user.callOnTimeout([&steps] {
            if (!steps.empty() && steps.front()())
                steps.pop_front();
        });
        user.start(0);
        auto destination = m_panel.runModal({u"Скачать Brisko"_s, proposed, folder});
        EXPECT_TRUE(steps.empty()) << "The user is still waiting.";
        return destination;
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
    const Step look = [this] {
        auto* panel = shown<QFileDialog>();
        auto* list = panel ? panel->findChild<QTreeView*>() : nullptr;
        if (!list || !list->model()->rowCount(list->rootIndex()))
            return false;
        EXPECT_EQ(panel->windowTitle(), u"Скачать Brisko"_s);
        EXPECT_EQ(panel->parentWidget(), window.get());
        EXPECT_EQ(panel->nameFilters(), QStringList{u"Архив ZIP (*.zip)"_s});
        EXPECT_EQ(list->model()->index(0, 2, list->rootIndex()).data().toString(), u"Файл"_s);
        EXPECT_LE(list->header()->length(), list->viewport()->width());
        return true;
    };

    EXPECT_THAT(run({look, save()}), Optional(folder / "Brisko-1.2.zip"));
    std::array<char, 256> events;
    EXPECT_EQ(::read(opened, events.data(), events.size()), -1) << "A file was opened.";
    ::close(opened);
    EXPECT_FALSE(std::filesystem::exists(session::home() / "config/QtProject.conf"));
}

TEST_F(DesktopSavePanelTest, TheFileLiesInTheFolderAndEndsInZip)
{
    EXPECT_THAT(run({save()}, u"/etc/Копия.zip"_s), Optional(folder / "_etc_Копия.zip"));
    EXPECT_THAT(run({save()}, u"a\0b.zip"_s), Optional(folder / "a_b.zip"));

    session::write(folder / "Записки 1.2", "another file");
    for (const auto& [typed, name] : {std::pair(u"Копия"_s, "Копия.zip"), {u"Копия.tar"_s, "Копия.tar.zip"},
             {u"КОПИЯ.ZIP"_s, "КОПИЯ.ZIP"}, {u"Записки 1.2"_s, "Записки 1.2.zip"}})
        EXPECT_THAT(run({save(typed)}), Optional(folder / name));
}

TEST_F(DesktopSavePanelTest, AFileIsReplacedOnlyWhenTheUserAgrees)
{
    const Path older = folder / "Записки.v2.zip";
    std::filesystem::create_symlink("/no/such/file", older);
    const Step reject = [] {
        auto* panel = shown<QFileDialog>();
        return panel && (panel->reject(), true);
    };

    EXPECT_THAT(run({save(u"Записки.v2"_s), answer(u"Заменить"_s)}), Optional(older));
    EXPECT_THAT(
        run({save(u"Записки.v2"_s), answer(u"Отмена"_s), save(), answer(u"Заменить"_s)}), Optional(older));
    EXPECT_THAT(run({save(u"Записки.v2"_s), answer(u"Отмена"_s), reject}), Eq(std::nullopt));
}

TEST_F(DesktopSavePanelTest, ItEndsWithoutAnAnswerWithItsWindow)
{
    const auto closeDuring = [this](auto dialog) { return dialog && (window.reset(), true); };
    session::write(folder / "Brisko-1.2.zip", "older");

    EXPECT_THAT(run({[&] { return closeDuring(shown<QFileDialog>()); }}), Eq(std::nullopt));
    window = std::make_unique<QWidget>();
    EXPECT_THAT(run({save(), [&] { return closeDuring(shown<QMessageBox>()); }}), Eq(std::nullopt));
}

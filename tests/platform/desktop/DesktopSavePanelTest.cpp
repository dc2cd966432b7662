#include "platform/desktop/DesktopSavePanel.h"
#include "platform/TestBundle.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QMessageBox>
#include <QTimer>
#include <QTreeView>

#include <sys/inotify.h>

#include <list>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

/// What a user does as soon as it can be done; false until then.
using Step = std::function<bool()>;

template <class Dialog>
Step onceShown(const std::function<bool(Dialog&)>& act)
{
    return [act] {
        auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        return dialog && dialog->isVisible() && act(*dialog);
    };
}

/// Types a name over the proposed one, if any, and saves.
Step save(const QString& name = {})
{
    return onceShown<QFileDialog>([name](auto& panel) {
        auto* const field = panel.template findChild<QLineEdit*>();
        field->setText(name.isNull() ? field->text() : name);
        static_cast<QDialog&>(panel).accept();
        return true;
    });
}

/// Presses a button of the question.
Step answer(const QString& text)
{
    return onceShown<QMessageBox>([text](auto& question) {
        EXPECT_EQ(question.text(), u"Файл «Записки.v2.zip» уже существует. Заменить его?"_s);
        const auto buttons = question.buttons();
        buttons.at(buttons.at(0)->text() == text ? 0 : 1)->click();
        return true;
    });
}

struct DesktopSavePanelTest : FolderTest {
    /// An empty path when the panel ends without an answer.
    Path run(std::list<Step> steps, const QString& proposed = u"Brisko-1.2.zip"_s)
    {
        window = std::make_unique<QWidget>();
        QTimer user;
        user.callOnTimeout([&steps] {
            if (!steps.empty() && steps.front()())
                steps.pop_front();
        });
        user.start(0);
        const auto destination = panel.runModal({u"Скачать Brisko"_s, proposed, folder});
        EXPECT_TRUE(steps.empty()) << "The user is still waiting.";
        return destination.value_or(Path());
    }

    std::unique_ptr<QWidget> window;
    DesktopSavePanel panel{[this] { return window.get(); }};
};

} // namespace

TEST_F(DesktopSavePanelTest, ItShowsWhatItIsGivenAndReadsNoFile)
{
    writeFile(folder / "Архив.zip", "not to be read");
    const int opened = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    ::inotify_add_watch(opened, (folder / "Архив.zip").c_str(), IN_OPEN);
    const auto look = onceShown<QFileDialog>([this](QFileDialog& shown) {
        auto* const list = shown.findChild<QTreeView*>();
        if (!list->model()->rowCount(list->rootIndex()))
            return false;
        EXPECT_EQ(shown.parentWidget(), window.get());
        EXPECT_EQ(shown.nameFilters(), QStringList{u"Архив ZIP (*.zip)"_s});
        EXPECT_EQ(list->model()->index(0, 2, list->rootIndex()).data().toString(), u"Файл"_s);
        EXPECT_LE(list->header()->length(), list->viewport()->width());
        return true;
    });
    EXPECT_EQ(run({look, save()}), folder / "Brisko-1.2.zip");
    char event[256];
    EXPECT_EQ(::read(opened, event, sizeof event), -1) << "A file was opened.";
    ::close(opened);
}

TEST_F(DesktopSavePanelTest, TheFileLiesInTheFolderAndEndsInZip)
{
    writeFile(folder / "Записки 1.2", "another file");
    EXPECT_EQ(run({save()}, u"/etc/Копия.zip"_s), folder / "_etc_Копия.zip");
    EXPECT_EQ(run({save()}, u"a\0b.zip"_s), folder / "a_b.zip");
    for (const auto& [typed, name] : {std::pair(u"Копия"_s, "Копия.zip"), {u"Копия.tar"_s, "Копия.tar.zip"},
             {u"КОПИЯ.ZIP"_s, "КОПИЯ.ZIP"}, {u"Записки 1.2"_s, "Записки 1.2.zip"}})
        EXPECT_EQ(run({save(typed)}), folder / name);
}

TEST_F(DesktopSavePanelTest, AFileIsReplacedOnlyWhenTheUserAgreesInAWindowThatStays)
{
    const Path older = folder / "Записки.v2.zip";
    std::filesystem::create_symlink("/no/such/file", older);
    const Step type = save(u"Записки.v2"_s), replace = answer(u"Заменить"_s), cancel = answer(u"Отмена"_s);
    const auto reject = onceShown<QFileDialog>([](auto& shown) { return shown.reject(), true; });
    const auto close = onceShown<QDialog>([this](auto&) { return window.reset(), true; });

    EXPECT_EQ(run({type, replace}), older);
    EXPECT_EQ(run({type, cancel, save(), replace}), older);
    for (const auto& steps : {std::list<Step>{type, cancel, reject}, {close}, {type, close}})
        EXPECT_EQ(run(steps), Path());
}

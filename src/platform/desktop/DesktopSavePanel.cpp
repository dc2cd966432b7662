#include "platform/desktop/DesktopSavePanel.h"

#include <QFileDialog>
#include <QFileIconProvider>
#include <QHeaderView>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QSettings>
#include <QTreeView>

#include <filesystem>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView ending(".zip");
constexpr QSize firstSize(800, 500);

/// Tells what a file is by its name alone: looking into thousands of them takes seconds, and one that never
/// answers would hold up the window for ever.
class IconsByName final : public QFileIconProvider {
public:
    using QFileIconProvider::icon;
    QIcon icon(const QFileInfo& file) const override
    {
        return icon(file.isDir() ? IconType::Folder : IconType::File);
    }
    QString type(const QFileInfo& file) const override { return file.isDir() ? u"Папка"_s : u"Файл"_s; }
};

/// A file's name that the text can be: the same, unless it holds what no name can.
QString fileName(QString text)
{
    return text.replace(u'/', u'_').replace(QChar(u'\0'), u'_');
}

void setUp(QFileDialog& dialog, const SavePanelSetup& setup)
{
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilter(u"Архив ZIP (*.zip)"_s);
    // The dialog knows only the name as typed, so it would ask about another file than the one that is
    // written.
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    if (setup.folder)
        dialog.setDirectory(toText(*setup.folder));
    dialog.selectFile(fileName(setup.proposedName));
    // Qt's own dialog; the desktop's has no such list.
    if (auto* const list = dialog.findChild<QTreeView*>()) {
        list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
        dialog.resize(firstSize);
    }
}

/// The file that is written for what the user chose.
Path completed(const QString& chosen)
{
    return toPath(chosen.endsWith(ending, Qt::CaseInsensitive) ? chosen : chosen + ending);
}

/// Runs a nested event loop, in which `window` may go.
bool isFreeOrGiven(QWidget& window, const Path& place)
{
    std::error_code error;
    if (!exists(symlink_status(place, error)))
        return true;
    const QPointer question(new QMessageBox(&window));
    question->setIcon(QMessageBox::Question);
    question->setTextFormat(Qt::PlainText);
    question->setText(u"Файл «%1» уже существует. Заменить его?"_s.arg(toText(place.filename())));
    auto* const replace = question->addButton(u"Заменить"_s, QMessageBox::AcceptRole);
    question->setDefaultButton(question->addButton(u"Отмена"_s, QMessageBox::RejectRole));
    question->exec();
    const bool isGiven = question && question->clickedButton() == replace;
    delete question.data();
    return isGiven;
}

} // namespace

DesktopSavePanel::DesktopSavePanel(std::function<QWidget*()> window) : m_window(std::move(window))
{
    // Qt's file dialog keeps its last state in the user's settings; below this path nothing can be made.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, u"/dev/null"_s);
}

std::optional<Path> DesktopSavePanel::runModal(const SavePanelSetup& setup)
{
    // Its window may take the dialog with it while it runs.
    IconsByName icons;
    const QPointer dialog(new QFileDialog(m_window(), setup.title));
    dialog->setIconProvider(&icons);
    setUp(*dialog, setup);

    std::optional<Path> destination;
    while (!destination && dialog && dialog->exec() == QDialog::Accepted && dialog) {
        const Path chosen = completed(dialog->selectedFiles().value(0));
        if (isFreeOrGiven(*dialog, chosen))
            destination = chosen;
        else if (dialog)
            dialog->selectFile(toText(chosen));
    }
    delete dialog.data();
    return destination;
}

#include "platform/desktop/DesktopSavePanel.h"

#include <QFileDialog>
#include <QPointer>
#include <QSettings>

#include <filesystem>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView ending(".zip");

void setUp(QFileDialog& dialog, const SavePanelSetup& setup)
{
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilter(u"Архив ZIP (*.zip)"_s);
    dialog.setDefaultSuffix(u"zip"_s);
    if (setup.folder)
        dialog.setDirectory(toText(*setup.folder));
    dialog.selectFile(setup.proposedName);
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
    const QPointer dialog(new QFileDialog(m_window(), setup.title));
    setUp(*dialog, setup);

    std::optional<Path> destination;
    while (dialog->exec() == QDialog::Accepted && dialog) {
        const QString chosen = dialog->selectedFiles().value(0);
        if (chosen.endsWith(ending, Qt::CaseInsensitive)) {
            destination = toPath(chosen);
            break;
        }
        const Path completed = toPath(chosen + ending);
        std::error_code error;
        if (!exists(symlink_status(completed, error))) {
            destination = completed;
            break;
        }
        // Shown again with the full name, the dialog asks whether to replace that file.
        dialog->selectFile(toText(completed));
    }
    delete dialog.data();
    return destination;
}

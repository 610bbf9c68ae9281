#include "desktop/qt/FileQuestion.h"

#include <utility>

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>
#include <QStandardPaths>

#include "desktop/qt/ArrowPointer.h"

namespace desktop::qt {

namespace {

QString WithEnding(const QString& path, const QString& ending) {
    return QFileInfo(path).suffix().isEmpty() ? path + ending : path;
}

bool MayReplace(const QString& path, const QString& title) {
    QMessageBox box(QApplication::activeWindow());
    box.setIcon(QMessageBox::Warning);
    box.setWindowTitle(title);
    box.setTextFormat(Qt::PlainText);
    box.setText(
        QStringLiteral("Het bestand %1 bestaat al.\nWilt u het vervangen?").arg(QFileInfo(path).fileName()));
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box.setDefaultButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes;
}

// The toolkit's own dialog, where the desktop has none, ties only the name of the file to its label: a screen
// reader would know the other two boxes by nothing but what is chosen in them.
void TieLabels(const QFileDialog& dialog) {
    for (const auto& [name, box] :
         {std::pair("lookInLabel", "lookInCombo"), {"fileTypeLabel", "fileTypeCombo"}}) {
        if (auto* label = dialog.findChild<QLabel*>(QLatin1String(name))) {
            label->setBuddy(dialog.findChild<QWidget*>(QLatin1String(box)));
        }
    }
}

} // namespace

std::optional<QString> AskForFile(const QString& proposed, const FileKind& kind) {
    static QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    QFileDialog dialog(QApplication::activeWindow(), kind.Title, folder, kind.Filter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setOption(
        QFileDialog::DontConfirmOverwrite); // a dialog of the desktop asks before the ending is added
    dialog.setLabelText(QFileDialog::LookIn, QStringLiteral("Map:"));
    dialog.setLabelText(QFileDialog::FileName, QStringLiteral("Bestandsnaam:"));
    dialog.setLabelText(QFileDialog::FileType, QStringLiteral("Bestandstype:"));
    dialog.setLabelText(QFileDialog::Accept, QStringLiteral("Opslaan"));
    dialog.setLabelText(QFileDialog::Reject, QStringLiteral("Annuleren"));
    TieLabels(dialog);
    dialog.selectFile(proposed);
    const ArrowPointer arrow;
    while (dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty()) {
        const QString path = WithEnding(dialog.selectedFiles().front(), kind.Ending);
        if (!QFileInfo::exists(path) || MayReplace(path, dialog.windowTitle())) {
            folder = dialog.directory().absolutePath();
            return path;
        }
    }
    return std::nullopt;
}

} // namespace desktop::qt

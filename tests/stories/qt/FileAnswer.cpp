#include "FileAnswer.h"

#include <utility>

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QTest>
#include <QUrl>

namespace scenario {

namespace {

/// Shows the window in a folder of its own: nothing of this machine is to be in its picture.
class BareFolder {
  public:
    explicit BareFolder(QFileDialog& dialog) : path_(QDir::temp().filePath(QStringLiteral("Documenten"))) {
        QDir().mkpath(path_);
        dialog.setDirectory(path_);
        dialog.setSidebarUrls({QUrl::fromLocalFile(path_)});
    }
    ~BareFolder() { QDir().rmdir(path_); }
    BareFolder(const BareFolder&) = delete;
    BareFolder& operator=(const BareFolder&) = delete;

  private:
    QString path_;
};

} // namespace

FileAnswer::FileAnswer(std::function<void(QWidget&)> seen) : seen_(std::move(seen)) {
    QObject::connect(&look_, &QTimer::timeout, [this] { Answer(); });
}

void FileAnswer::Next(const QString& file) {
    file_ = QDir::current().filePath(file);
    look_.start(0);
}

void FileAnswer::Answer() {
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr || !dialog->isActiveWindow()) {
        return;
    }
    look_.stop();
    {
        const BareFolder bare(*dialog);
        seen_(*dialog);
    }
    auto* name = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    name->setText(file_); // typed, it would open a list of proposals
    QTest::keyClick(name, Qt::Key_Return);
}

} // namespace scenario

#include "util/windows/FileDialog.h"

#include <QAbstractFileIconProvider>
#include <QFileInfo>

namespace velmar {

namespace {

// Knows files and folders apart, without opening them.
class PlainIcons : public QAbstractFileIconProvider {
 public:
  QIcon icon(const QFileInfo& file) const override {
    return QAbstractFileIconProvider::icon(file.isDir() ? Folder : File);
  }
  QString type(const QFileInfo& file) const override {
    return file.isDir() ? QStringLiteral("Folder") : file.suffix();
  }
};

QStringList chosenIn(QFileDialog& dialog) {
  return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles() : QStringList();
}

}  // namespace

FileDialog::FileDialog(QWidget* parent, const QString& title, const QString& start, const QString& filters)
    : QFileDialog(parent, title, QFileInfo(start).isDir() ? start : QFileInfo(start).path(), filters),
      icons_(std::make_unique<PlainIcons>()) {
  setOption(DontUseNativeDialog);
  setIconProvider(icons_.get());
  if (!start.isEmpty() && !QFileInfo(start).isDir()) selectFile(start);
}

FileDialog::~FileDialog() = default;

QStringList askFiles(QWidget* parent, const QString& title, const QString& filters) {
  FileDialog dialog(parent, title, {}, filters);
  dialog.setFileMode(QFileDialog::ExistingFiles);
  return chosenIn(dialog);
}

QString askFile(QWidget* parent, const QString& title, const QString& filters, const QString& start) {
  FileDialog dialog(parent, title, start, filters);
  dialog.setFileMode(QFileDialog::ExistingFile);
  return chosenIn(dialog).value(0);
}

QString askFolder(QWidget* parent, const QString& title) {
  FileDialog dialog(parent, title);
  dialog.setFileMode(QFileDialog::Directory);
  dialog.setOption(QFileDialog::ShowDirsOnly);
  return chosenIn(dialog).value(0);
}

}  // namespace velmar

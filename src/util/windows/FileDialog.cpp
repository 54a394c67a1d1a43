#include "util/windows/FileDialog.h"

#include <QFileIconProvider>
#include <QFileInfo>
#include <QHeaderView>
#include <QTreeView>

namespace velmar {

namespace {

// Characters; lines for the height.
constexpr int kWidth = 130;
constexpr int kHeight = 28;
constexpr int kNameWidth = 60;
constexpr int kSizeWidth = 12;
constexpr int kDateWidth = 24;
constexpr int kSizeColumn = 1;
constexpr int kDateColumn = 3;

// Knows files and folders apart, without opening them.
class PlainIcons : public QFileIconProvider {
 public:
  QIcon icon(const QFileInfo& file) const override {
    return QFileIconProvider::icon(file.isDir() ? Folder : File);
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
  // Name, size, kind and date are seen whole.
  const int character = fontMetrics().averageCharWidth();
  resize(character * kWidth, fontMetrics().height() * kHeight);
  if (const auto* details = findChild<QTreeView*>(QStringLiteral("treeView"))) {
    details->header()->resizeSection(0, character * kNameWidth);
    details->header()->resizeSection(kSizeColumn, character * kSizeWidth);
    details->header()->resizeSection(kDateColumn, character * kDateWidth);
  }
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

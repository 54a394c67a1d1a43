// The dialogs in which files and folders are chosen.
#pragma once

#include <memory>
#include <QFileDialog>

class QFileIconProvider;

namespace velmar {

/// A file dialog that opens no file. The toolkit's own, and those of desktops, read the beginning of files to
/// find out their kind; for a database that is in use and its journal, closing them afterwards would release
/// the locks of this process.
class FileDialog : public QFileDialog {
 public:
  /// `start`: a folder, or a file that is proposed.
  FileDialog(QWidget* parent, const QString& title, const QString& start = {}, const QString& filters = {});
  ~FileDialog() override;

 private:
  std::unique_ptr<QFileIconProvider> icons_;
};

/// The paths of the chosen files, or of the file or folder; empty when the user leaves.
QStringList askFiles(QWidget* parent, const QString& title, const QString& filters);
QString askFile(QWidget* parent, const QString& title, const QString& filters, const QString& start = {});
QString askFolder(QWidget* parent, const QString& title);

}  // namespace velmar

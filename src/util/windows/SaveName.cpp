#include "util/windows/SaveName.h"

#include <QDir>

#include "util/Messages.h"
#include "util/windows/FileDialog.h"

namespace velmar {

// The question is the program's own and about the complete name, which the dialog does not know.
QString askSaveName(QWidget* parent, const QString& title, const QString& proposed, const QString& filters,
                    const std::function<QString(const QString& path, const QString& filter)>& complete) {
  FileDialog dialog(parent, title, proposed, filters);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
  QString path = complete(dialog.selectedFiles().first(), dialog.selectedNameFilter());
  if (!QFileInfo::exists(path)) return path;
  const QString question =
      QStringLiteral("Fisierul %1 exista deja. Doriti sa il inlocuiti ?").arg(QDir::toNativeSeparators(path));
  return Mesaj(question, kYesNo + kQuestion + kSecondDefault, title) == kResultYes ? path : QString();
}

QString withEnding(const QString& path, const QString& ending) {
  return QFileInfo(path).suffix().isEmpty() ? path + ending : path;
}

}  // namespace velmar

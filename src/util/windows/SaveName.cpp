#include "util/windows/SaveName.h"

#include <QDir>
#include <QFileDialog>

#include "util/Messages.h"

namespace velmar {

// The question is the program's own and about the complete name, which the dialog does not know.
QString askSaveName(QWidget* parent, const QString& title, const QString& proposed, const QString& filters,
                    const std::function<QString(const QString& path, const QString& filter)>& complete) {
  QString filter;
  const QString chosen = QFileDialog::getSaveFileName(parent, title, proposed, filters, &filter,
                                                      QFileDialog::DontConfirmOverwrite);
  if (chosen.isEmpty()) return {};
  QString path = complete(chosen, filter);
  if (!QFileInfo::exists(path)) return path;
  const QString question =
      QStringLiteral("Fisierul %1 exista deja. Doriti sa il inlocuiti ?").arg(QDir::toNativeSeparators(path));
  return Mesaj(question, kYesNo + kQuestion + kSecondDefault, title) == kResultYes ? path : QString();
}

QString withEnding(const QString& path, const QString& ending) {
  return QFileInfo(path).suffix().isEmpty() ? path + ending : path;
}

}  // namespace velmar

#include "util/FileNames.h"

#include <QRegularExpression>

namespace velmar {

QString asFileName(const QString& text) {
  static const QRegularExpression notInNames(QStringLiteral(R"([\\/:*?"<>|\x00-\x1f])"));
  QString name = text;
  return name.replace(notInNames, QStringLiteral("_"));
}

}  // namespace velmar

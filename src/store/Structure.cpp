#include "store/Structure.h"

#include <QRegularExpression>

namespace velmar {

QString ColumnShape::sizedType() const {
  return width > 0 ? QStringLiteral("%1(%2)").arg(type).arg(width) : type;
}

QString ColumnShape::declaredType() const {
  return attributes.isEmpty() ? sizedType() : sizedType() + u' ' + attributes;
}

QString ColumnShape::declaration() const {
  QString text = quotedIdentifier(name) + u' ' + declaredType();
  if (required) text += QStringLiteral(" NOT NULL");
  if (!fallback.isEmpty()) text += QStringLiteral(" DEFAULT ") + fallback;
  return text;
}

const ColumnShape* TableShape::column(const QString& wanted) const {
  for (const ColumnShape& column : columns)
    if (column.name.compare(wanted, Qt::CaseInsensitive) == 0) return &column;
  return nullptr;
}

ColumnShape* TableShape::column(const QString& wanted) {
  return const_cast<ColumnShape*>(std::as_const(*this).column(wanted));
}

QString TableShape::createStatement() const {
  QStringList parts;
  for (const ColumnShape& column : columns) parts.append(column.declaration());
  if (!key.isEmpty()) parts.append(QStringLiteral("PRIMARY KEY (%1)").arg(quotedIdentifiers(key)));
  parts.append(rules);
  return QStringLiteral("CREATE TABLE %1 (%2)%3")
      .arg(quotedIdentifier(name), parts.join(QStringLiteral(", ")), suffix);
}

QString quotedIdentifier(const QString& name) {
  QString quoted = name;
  return u'"' + quoted.replace(u'"', QStringLiteral("\"\"")) + u'"';
}

QString quotedIdentifiers(const QStringList& names) {
  QStringList quoted;
  for (const QString& name : names) quoted.append(quotedIdentifier(name));
  return quoted.join(QStringLiteral(", "));
}

void setDeclaredType(ColumnShape& column, const QString& declared) {
  static const QRegularExpression kText(QStringLiteral("CHAR|TEXT|CLOB"),
                                        QRegularExpression::CaseInsensitiveOption);
  static const QRegularExpression kWidth(QStringLiteral("\\s*\\(\\s*(\\d+)\\s*\\)\\s*$"));
  column.type = declared.simplified();
  column.isText = kText.match(declared).hasMatch();
  if (!column.isText) return;
  const auto found = kWidth.match(column.type);
  if (!found.hasMatch()) return;
  column.width = found.captured(1).toInt();
  column.type.truncate(found.capturedStart());
}

}  // namespace velmar

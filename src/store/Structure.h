// The structure of a database, read from the engine's catalogue; used to compare a company with the template.
// Types, defaults and statements are in the engine's SQL dialect: they are only compared with, and used on, a
// database of the same engine.
#pragma once

#include <QStringList>
#include <vector>

namespace velmar {

struct ColumnShape {
  QString name;
  QString type;           ///< without the width of a text
  int width = 0;          ///< maximum length of a text; 0: no limit
  bool isText = false;    ///< of a type with a width
  QString attributes;     ///< further declarations: collation, automatic numbering
  bool required = false;  ///< never null
  QString fallback;       ///< default expression; empty: none

  /// The type with its width.
  QString sizedType() const;
  /// Type, width and attributes as they are declared.
  QString declaredType() const;
  /// The complete declaration, including the name.
  QString declaration() const;
  bool operator==(const ColumnShape&) const = default;
};

struct TableShape {
  QString name;
  std::vector<ColumnShape> columns;
  QStringList key;
  QString keyName;    ///< name of the key constraint; empty if it has none
  QString suffix;     ///< what follows the columns in CREATE TABLE
  QStringList rules;  ///< its other constraints, as declared

  /// The column of that name, ignoring case; null if there is none.
  const ColumnShape* column(const QString& name) const;
  ColumnShape* column(const QString& name);
  QString createStatement() const;
  bool operator==(const TableShape&) const = default;
};

/// An index, a stored query or a trigger, with the statement that creates it.
struct StoredStatement {
  QString name;
  QString statement;
};

/// The name in double quotes, valid in a statement for any name.
QString quotedIdentifier(const QString& name);
QString quotedIdentifiers(const QStringList& names);

/// Splits a declared type into type and width, as in VARCHAR(20).
void setDeclaredType(ColumnShape& column, const QString& declared);

}  // namespace velmar

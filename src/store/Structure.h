// The structure that a database has, as its engine's catalogue tells it: what the comparison of a company
// with the template works on. Types, defaults and statements stand in the engine's own words; they are only
// ever compared with, and given to, a database of the same engine.
#pragma once

#include <QStringList>
#include <vector>

namespace velmar {

struct ColumnShape {
  QString name;
  QString type;           ///< without the width of a text
  int width = 0;          ///< characters a text may have; 0 is without limit
  bool isText = false;    ///< of a type that a width belongs to
  QString attributes;     ///< what is declared beside the type: how it sorts, that the engine numbers it
  bool required = false;  ///< never null
  QString fallback;       ///< expression of the default, empty for none

  /// The type with its width.
  QString sizedType() const;
  /// Type, width and attributes as they are declared.
  QString declaredType() const;
  /// The whole declaration, the name included.
  QString declaration() const;
  bool operator==(const ColumnShape&) const = default;
};

struct TableShape {
  QString name;
  std::vector<ColumnShape> columns;
  QStringList key;
  QString keyName;    ///< what the engine calls the key, empty where it has no name
  QString suffix;     ///< what stands behind the columns
  QStringList rules;  ///< its constraints beside the key, as they are declared

  /// The column of that name in any case, null when there is none.
  const ColumnShape* column(const QString& name) const;
  ColumnShape* column(const QString& name);
  QString createStatement() const;
  bool operator==(const TableShape&) const = default;
};

/// An index or a stored query, with the statement that makes it.
struct StoredStatement {
  QString name;
  QString statement;
};

/// The name in quotes, as a statement may hold it whatever it is.
QString quotedIdentifier(const QString& name);
QString quotedIdentifiers(const QStringList& names);

/// Takes a type with the width in brackets behind it apart.
void setDeclaredType(ColumnShape& column, const QString& declared);

}  // namespace velmar

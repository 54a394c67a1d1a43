// Tells which tables this process has just written, so that open windows stay in step. What other
// workstations write is seen when a list is read again.
#pragma once

#include <QObject>
#include <QSet>

namespace velmar {

class DataChanges : public QObject {
  Q_OBJECT
 signals:
  /// Emitted when a transaction has been committed; names are in upper case. Whoever listens reads later: the
  /// code that wrote may not be done yet.
  void written(const QSet<QString>& tables);
};

DataChanges& dataChanges();

/// The table that a statement writes, in upper case and without quotes; "" for a statement that reads.
QString writtenTable(const QString& sql);

}  // namespace velmar

// Reports which tables this process has just written, so that open windows can update. Changes made by other
// workstations are visible when a list is read again.
#pragma once

#include <QObject>
#include <QSet>

namespace velmar {

class DataChanges : public QObject {
  Q_OBJECT
 signals:
  /// Emitted when a transaction has been committed; names are in upper case. Receivers must read the data
  /// later: the code that wrote it may still be running.
  void written(const QSet<QString>& tables);
};

DataChanges& dataChanges();

/// The table that a statement writes, in upper case and without quotes; "" for a statement that only reads.
QString writtenTable(const QString& sql);

}  // namespace velmar

// Reports which tables this process has just written, so that open windows can update, and what is wrong with
// the file of the open company. Changes made by other workstations are visible when a list is read again.
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
  /// Emitted when a write was refused because the company's file was removed, moved or replaced.
  void fileLost();
  /// Emitted from another thread when the company's file was found to be damaged; see FileCheck::takeDamage.
  void fileDamaged();
};

DataChanges& dataChanges();

/// The table that a statement writes, in upper case and without quotes; "" for a statement that only reads.
QString writtenTable(const QString& sql);

}  // namespace velmar

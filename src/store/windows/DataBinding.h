// Moves one record between a table and the controls of a card: for windows that show a header beside a list.
#pragma once

#include <functional>

#include "store/windows/Card.h"

namespace velmar {

class DataBinding {
 public:
  /// Stores the row and returns its key; `shown` is the record as it was shown, empty for a new one.
  using Store = std::function<qint64(const Row& rs, const Row& shown)>;

  /// `IDName` is the key column of the record. A control shows the default of its column (Card::setDefault)
  /// for null.
  DataBinding(Card& card, const QString& IDName, Store store);

  const QString& IDName() const { return IDName_; }
  /// The record on show; an empty row for a new one.
  void setRecordset(const Row& record) { record_ = record; }
  const Row& Recordset() const { return record_; }
  /// The key of the record; 0 for a new one.
  qint64 ID() const;

  /// Every control gets its default; there is no record.
  void ResetForm();
  /// Every control gets the value of the record.
  void UpdateForm();
  /// Sets columns that no control shows, before the record is stored.
  void onBeforeUpdate(std::function<void(Row& rs)> set) { beforeUpdate_ = std::move(set); }
  /// Stores the values of the controls in one transaction and returns the key of the record. A failure rolls
  /// everything back and is passed on; the controls keep what was typed, but show columns that another
  /// workstation has changed (ChangedMeanwhile).
  qint64 UpdateRecordset();

 private:
  Card& card_;
  QString IDName_;
  Store store_;
  Row record_;
  std::function<void(Row& rs)> beforeUpdate_;
};

}  // namespace velmar

#include "store/windows/DataBinding.h"

#include "store/Database.h"
#include "store/Records.h"

namespace velmar {

DataBinding::DataBinding(Card& card, const QString& IDName, Store store)
    : card_(card), IDName_(IDName), store_(std::move(store)) {}

qint64 DataBinding::ID() const { return record_.isEmpty() ? 0 : record_.integer(IDName_); }

void DataBinding::ResetForm() {
  record_ = Row();
  card_.clear();
}

void DataBinding::UpdateForm() { card_.show(record_); }

qint64 DataBinding::UpdateRecordset() {
  Row rs = card_.typed();
  if (beforeUpdate_) beforeUpdate_(rs);
  try {
    Transaction transaction(database());
    const qint64 key = store_(rs, record_);
    transaction.commit();
    return key;
  } catch (const ChangedMeanwhile& conflict) {
    for (const QString& column : conflict.columns()) {
      record_.set(column, Value::raw(conflict.stored().value(column)));
      card_.showStored(column, conflict.stored().value(column));
    }
    throw;
  }
}

}  // namespace velmar

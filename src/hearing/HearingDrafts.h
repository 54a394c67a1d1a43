// Headers and lines of drafts with a numbered key, as the documents of hearing devices have them. Writes only
// affect drafts: a late keystroke at another workstation cannot change a validated document.
#pragma once

#include "store/Schema.h"

namespace velmar {

class HearingDrafts {
 public:
  /// The tables; the first column of each is its key, the second of `lines` the key of the header.
  HearingDrafts(const Table& header, const Table& lines) : header_(header), lines_(lines) {}

  Row stored(qint64 key) const;
  std::vector<Row> lines(qint64 key) const;

  /// The stored header. Throws RuleError when it is not a draft any more. The caller has the write lock.
  Row requireDraft(qint64 key) const;
  /// The same, also when header or lines differ from those shown.
  std::vector<Row> requireAsShown(const Row& header, const std::vector<Row>& lines) const;

  /// Stores the columns of the header that differ from those shown. Throws ChangedMeanwhile with `changed`
  /// when another workstation has changed these. The caller has the write lock.
  void saveHeader(const Row& header, const Row& shown, const QString& changed) const;
  /// Deletes header and lines of a draft that the caller has locked.
  void remove(qint64 key) const;

  /// Each in a draft that the caller has locked. The line must be stored as it was shown.
  qint64 addLine(qint64 key, const Row& line) const;
  void saveLine(const Row& line, const Row& shown) const;
  void removeLine(qint64 line) const;

  /// Stores the column Cost of the lines.
  void storeCosts(const std::vector<Row>& lines) const;

 private:
  const QString& headerKey() const { return header_.columns().front().name; }
  const QString& lineKey() const { return lines_.columns().front().name; }
  const QString& owner() const { return lines_.columns()[1].name; }

  const Table& header_;
  const Table& lines_;
};

/// Whether the columns of two rows of the table have the same values.
bool isSameRow(const Table& table, const Row& a, const Row& b);

}  // namespace velmar

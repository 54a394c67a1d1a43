// An input voucher validated by the program, and the same rows written by bare prepared statements one row at
// a time: what the program's own way is measured against.
#pragma once

#include <QString>

#include "Bare.h"

namespace velmar::bench {

class BareVoucher {
 public:
  explicit BareVoucher(const QString& path);

  /// Validates the draft in one transaction: ledger, articles, mark, note and its stamp.
  void validate(const QString& number);

 private:
  void writeLine(const std::string& key, int line);
  void updateArticle();
  void writeNote(const std::string& number);

  BareConnection connection_;
  BareStatement header_, lines_, ledger_, ledgerLine_, article_, figures_, mark_, totals_, lastNote_,
      noteLine_, stamp_;
};

/// Validates the draft of the open company as the program does; gives the milliseconds that it took.
double validatedByProgram(const QString& number);

}  // namespace velmar::bench

// An input voucher, validated by bare prepared statements, one row at a time.
#pragma once

#include <QString>

#include "Bare.h"
#include "Validated.h"

namespace velmar::bench {

class BareVoucher : public BareValidation {
 public:
  explicit BareVoucher(const QString& path);

  /// Validates the draft in one transaction: ledger, articles, flag, note and its stamp.
  void validate(const QString& number) override;

 private:
  void writeLine(const std::string& key, int line);
  void updateArticle();
  void writeNote(const std::string& number);

  BareConnection connection_;
  BareStatement header_, lines_, ledger_, ledgerLine_, article_, figures_, mark_, totals_, journal_,
      lastNote_, noteLine_, stamp_;
};

}  // namespace velmar::bench

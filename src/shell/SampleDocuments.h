// The documents of the sample company: half a year of purchases, production, sales and consumption.
#pragma once

#include <QStringList>
#include <vector>

namespace velmar {

struct SampleCatalogue {
  std::vector<qint64> families;
  std::vector<qint64> suppliers;
  std::vector<qint64> customers;
  QStringList goods;     ///< codes of what is bought
  QStringList products;  ///< codes of what the company makes
};

/// Pseudo-random numbers that are the same on every machine.
class SampleDice {
 public:
  int below(int limit) {
    state_ = state_ * 6364136223846793005ULL + 1442695040888963407ULL;
    return static_cast<int>((state_ >> 33) % static_cast<unsigned>(limit));
  }

 private:
  quint64 state_ = 20260401;
};

/// Enters and validates the documents of the half year that ends today, limited by the entry period, in the
/// order of their dates. The last input voucher and the last cash sale remain drafts.
void addSampleDocuments(const SampleCatalogue& catalogue);

}  // namespace velmar

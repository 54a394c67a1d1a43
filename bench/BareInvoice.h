// A customer invoice with stock valued by lots, validated by bare prepared statements, one row at a time.
#pragma once

#include <string>
#include <vector>

#include "Bare.h"
#include "BareNumber.h"
#include "Validated.h"

namespace velmar::bench {

/// What an issue reads for each line; bound to the article's code.
inline constexpr const char* kStockRead = "SELECT CANT FROM G_STOCMAG WHERE ARTID = ? AND CODMAG = 1";
inline constexpr const char* kOrderedRead =
    "SELECT SUM(L.CANT - COALESCE(L.CANTLIV, 0)) FROM G_COMCLI C JOIN G_LCOMCL L ON C.NUMCOM = "
    "L.NUMCOM WHERE L.CODART = ? AND C.VALIDAT = -1";
inline constexpr const char* kArticleRead = "SELECT FARASTOC, STOC FROM G_ARTMAG WHERE CODART = ?";
inline constexpr const char* kLotsRead =
    "SELECT L.DOCID, L.LINIE, L.CANTRAMASA, L.PRETFT, L.COST FROM G_LDOCUM L "
    "JOIN G_DOCUME D ON D.ID = L.DOCID WHERE L.ARTID = ? AND L.CANTRAMASA > 0 "
    "AND SUBSTR(L.DOCID, 1, 2) IN ('FF', 'BI', 'FI', 'FS', 'NR') "
    "ORDER BY D.DATADOC, L.DATA, L.DOCID, L.LINIE";

class BareInvoice : public BareValidation {
 public:
  explicit BareInvoice(const QString& path);

  /// Finds the next number, then in one transaction: stock, lots, draft, ledger, links, articles, mark,
  /// notes.
  void validate(const QString& number) override;

  /// A line of a draft.
  struct Sold {
    int line = 0;
    std::string article;
    double quantity = 0, price = 0, value = 0, vat = 0;
    double cost = 0;
    double stock = 0;  ///< of the article, from G_ARTMAG
  };
  std::vector<Sold> sold(const QString& number);
  /// Whether the stock of an article in warehouse 1 is too small for the lines.
  bool isShort(std::vector<Sold>& lines);

 private:
  struct Head {
    int warehouse = 0, partner = 0, payment = 0;
    std::string due, remark, series;
  };
  struct Rate {
    double percent = 0;
    std::string account;
  };

  Head headOf(const std::string& number);
  void takeLots(Sold& line, const std::string& number);
  void writeLedger(const std::string& number, const Head& head, const Rate& rate,
                   const std::vector<Sold>& lines);
  void writeNotes(const std::string& number, const Head& head, const Rate& rate);

  BareConnection connection_;
  BareNumber number_;
  BareStatement header_, lines_, rate_, method_, stock_, ordered_, article_, lots_;
  BareStatement rest_, link_, cost_, draftCost_, ledger_, ledgerLine_, figures_, mark_;
  BareStatement parameters_, sales_, goods_, products_, lastNote_, noteLine_;
};

}  // namespace velmar::bench

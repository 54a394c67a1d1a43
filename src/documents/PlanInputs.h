// All that the plan of a validation is made from besides the document, read in few statements.
#pragma once

#include <QHash>

#include "accounting/Notes.h"
#include "catalogue/ArticleFigures.h"
#include "stock/Links.h"
#include "stock/Lots.h"
#include "store/Row.h"

namespace velmar {

struct Document;

struct PlanInputs {
  QString costMethod;  ///< "FIFO", "MP" or ""
  int decimals = 2;    ///< of prices and values
  QString series;      ///< of the kind's numbers; kNoSeries: none
  Row parameters;      ///< of kt_par
  QDate today;         ///< date of validation
  ArticleTable articles;
  OpenLots lots;                    ///< of the articles, under FIFO, for a kind that takes from lots
  std::vector<SourceLine> sources;  ///< lines of the orders and notes that the document's lines came from
  Decimal vatPercent;
  QString vatAccount;
  // What only some kinds need; read by their rules.
  std::vector<Lot> receipt;                  ///< lots of the receipt that a return to the supplier refers to
  QHash<QString, Decimal> rates;             ///< of the articles' sale currencies on the document's date
  QHash<qint64, QString> warehouseAccounts;  ///< by code of the warehouse
  QString cashJournal;                       ///< of the warehouse
  QString cashAccount;
  Row originDocument;             ///< of the document that this one is made from: its row in the ledger,
  std::vector<Row> originLines;   ///< its lines there,
  std::vector<Note> originNotes;  ///< its notes
  std::vector<Row> sameNumber;    ///< lines of another kind's document with the same number

  bool isFifo() const;
};

/// Throws RuleError, naming TCOST, when the company has not chosen how stock is valued.
void requireCostMethod(const PlanInputs& inputs);

/// Reads the exchange rates of the articles' sale currencies on the document's date.
void readSaleRates(const Document& document, PlanInputs& inputs);

/// Reads the inputs for the document as they are now. The session has the company's parameters.
PlanInputs readInputs(const Document& document);

}  // namespace velmar

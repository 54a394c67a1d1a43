// Formulas of layouts: JavaScript expressions over the names of variables and fields, found without regard to
// case. A name that is not defined has no value and prints as nothing.
//
//   Denumire + " " + UM                      text
//   Cant * PretFT                            a number; lei and quantities are decimals, rounded on paper
//   bDeviza ? CODDEVIZA : "LEI"              a choice
//   nPagina + " din " + nPagini              the page, and how many there are (dots until they are counted)
//   nLinie                                   the line, counted from 1
//   data(DATAFAC, "yyyy"), numar(CURS, 4)    a date or number as text, apart from the cell's own format
#pragma once

#include <optional>
#include <QJSEngine>
#include <QStringList>
#include <QVariant>
#include <vector>

#include "util/Errors.h"

namespace velmar::layout {

/// Why a formula cannot be used.
struct FormulaFault {
  QString text;    ///< Romanian
  int column = 0;  ///< from 1 within the formula; 0 when no place is known
};

/// The names that formulas have besides variables and fields.
inline constexpr const char* kPageName = "nPagina";
inline constexpr const char* kPageCountName = "nPagini";
inline constexpr const char* kLineName = "nLinie";

/// The names a formula speaks of, in their order, as they are written in it. Functions, properties and words
/// inside texts are not among them.
QStringList namesIn(const QString& formula);

/// Nothing when the formula can be compiled; an empty one can. Unknown names are no fault: see namesIn().
std::optional<FormulaFault> faultOf(const QString& formula);

/// Compiled formulas, each a function of just the names it uses.
class Formulas {
 public:
  Formulas();

  /// Takes a formula and gives its number. One with a fault gives nothing wherever it is asked for.
  int add(const QString& formula);
  /// The names that the formula uses.
  const QStringList& names(int formula) const;
  /// Its value with these values for its names: text, number (double), boolean, QDate(Time) or null; what
  /// fails while it is computed, infinities included, is null.
  QVariant value(int formula, const QVariantList& values);

 private:
  struct Compiled {
    QStringList names;
    QJSValue function;
  };

  QJSEngine engine_;
  std::vector<Compiled> compiled_;
};

}  // namespace velmar::layout

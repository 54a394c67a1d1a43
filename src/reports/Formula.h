// Formulas of layouts: JavaScript expressions over the names of variables and fields, found without regard to
// case. A name that is not defined is an empty text.
//
//   Denumire + " " + UM                      text
//   Cant * PretFT                            a number; rounded where it is shown
//   bDeviza ? CODDEVIZA : "LEI"              a choice
//   nPagina + " din " + nPagini              the page, and how many there are (dots until they are counted)
//   nLinie                                   the line, counted from 1
//   data(DATAFAC, "yyyy"), numar(CURS, 4)    a date or number as text, apart from the cell's own format
//   rotunjit(ValoareFT * CURS, 2)            a number, rounded half to even as amounts are
//
// An expression only: no statements, assignments or functions of its own, so that each ends.
#pragma once

#include <memory>
#include <optional>
#include <QJSValue>
#include <QStringList>
#include <QVariant>
#include <set>
#include <vector>

class QJSEngine;

namespace velmar::layout {

/// Why a formula cannot be used.
struct FormulaFault {
  QString text;    ///< Romanian
  int column = 0;  ///< from 1 within the formula
};

/// The names that formulas have besides variables, fields and sums.
inline constexpr const char* kPageName = "nPagina";
inline constexpr const char* kPageCountName = "nPagini";
inline constexpr const char* kLineName = "nLinie";

/// The names a formula speaks of, each once, in their order, as they are written in it. Functions, properties
/// and words inside texts are not among them.
QStringList namesIn(const QString& formula);

/// Nothing when the formula can be compiled; an empty one can. Unknown names are no fault: see namesIn().
std::optional<FormulaFault> faultOf(const QString& formula);

/// Compiled formulas, each a function of just the names it uses.
class Formulas {
 public:
  Formulas();
  ~Formulas();

  /// Takes a formula and gives its number. One with a fault has no value.
  int add(const QString& formula);
  /// The names that the formula uses.
  const QStringList& names(int formula) const { return compiled_[static_cast<size_t>(formula)].names; }
  /// Whether the formula is but a name, whose value can be taken as it stands.
  bool isName(int formula) const { return compiled_[static_cast<size_t>(formula)].isName; }
  /// Its value with these values for its names: text, number (double), boolean, or null, which is also what
  /// fails while it is computed.
  QVariant value(int formula, const QVariantList& values) const;
  /// The formulas that could not be computed so far: they have a fault, failed or gave no finite number.
  const std::set<int>& failed() const { return failed_; }

 private:
  struct Compiled {
    QStringList names;
    bool isName = false;
    bool isEmpty = false;
    QJSValue function;
  };

  std::unique_ptr<QJSEngine> engine_;
  std::vector<Compiled> compiled_;
  mutable std::set<int> failed_;
};

}  // namespace velmar::layout

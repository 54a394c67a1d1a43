// Formulas of layouts: JavaScript expressions with the names of variables and fields, which are case
// insensitive. An undefined name is an empty text.
//
//   Denumire + " " + UM                      text
//   Cant * PretFT                            a number; rounded when it is displayed
//   bDeviza ? CODDEVIZA : "LEI"              a choice
//   nPagina + " din " + nPagini              the page and the number of pages (dots until they are counted)
//   nLinie                                   the line, counted from 1
//   data(DATAFAC, "yyyy"), numar(CURS, 4)    a date or number as text, independent of the cell's format
//   rotunjit(ValoareFT * CURS, 2)            a number, rounded half to even as amounts are
//
// Only expressions: no statements, assignments or function definitions, so that each terminates.
// A result of more than 10,000 characters counts as failed, and so does a formula whose work on the texts it
// gets could take a second.
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

/// Predefined names, in addition to variables, fields and sums.
inline constexpr const char* kPageName = "nPagina";
inline constexpr const char* kPageCountName = "nPagini";
inline constexpr const char* kLineName = "nLinie";

/// The names used in a formula, each once, in order, as written. Functions, properties and words in texts are
/// not included.
QStringList namesIn(const QString& formula);

/// Empty when the formula can be compiled, as an empty formula can. Unknown names are not faults: see
/// namesIn().
std::optional<FormulaFault> faultOf(const QString& formula);

/// Compiled formulas, each a function of the names it uses.
class Formulas {
 public:
  Formulas();
  ~Formulas();

  /// Adds a formula and returns its number. A formula with a fault has no value.
  int add(const QString& formula);
  /// The names that the formula uses.
  const QStringList& names(int formula) const { return compiled_[static_cast<size_t>(formula)].names; }
  /// Whether the formula is only a name, whose value can be used unchanged.
  bool isName(int formula) const { return compiled_[static_cast<size_t>(formula)].isName; }
  /// The formula's value for these values of its names: text, number (double), boolean, or null, also when
  /// the evaluation fails.
  QVariant value(int formula, const QVariantList& values) const;
  /// The formulas that could not be computed so far: they have a fault, failed or gave no finite number.
  const std::set<int>& failed() const { return failed_; }

 private:
  struct Compiled {
    QStringList names;
    bool isName = false;
    bool isEmpty = false;
    QList<qsizetype> uses;   ///< of each name
    qsizetype length = 0;    ///< the longest text without the names' values
    qsizetype steps = 0;     ///< operations on texts, at most
    qsizetype searches = 0;  ///< of them, those that search a text in a text
    QJSValue function;
  };

  static bool isTooMuch(const Compiled& compiled, const QVariantList& values);

  std::unique_ptr<QJSEngine> engine_;
  std::vector<Compiled> compiled_;
  mutable std::set<int> failed_;
};

}  // namespace velmar::layout

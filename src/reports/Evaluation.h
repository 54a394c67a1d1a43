// Evaluates the formulas of a layout with the data of a report. Each name is looked up once, not for each
// line.
#pragma once

#include "reports/Formula.h"
#include "reports/Layout.h"
#include "reports/ReportData.h"
#include "util/Decimal.h"

namespace velmar::layout {

/// The current position of a report in its data.
struct Place {
  int set = 0;    ///< row of the variables, from 0
  int line = -1;  ///< row of the fields, from 0; -1 if there is none
  int page = 0;   ///< from 0
  int pages = 0;  ///< 0 until they are counted
  const std::vector<Decimal>* sums = nullptr;
};

/// The part of the layout that a formula belongs to.
enum class Scope {
  Page,  ///< an object: variables and sums
  Line   ///< a row of the table: fields before variables
};

class Evaluation {
 public:
  /// `table` may be nullptr.
  Evaluation(const ReportData& data, const Table* table);

  /// Adds a formula and returns its number.
  int add(const QString& formula, Scope scope);
  QVariant value(int formula, const Place& place) const;
  bool isTrue(int formula, const Place& place) const;
  /// The formulas that could not be computed so far.
  const std::set<int>& failed() const { return formulas_.failed(); }

  int setCount() const { return data_.hasVariables ? data_.variables.size() : (data_.fields ? 1 : 0); }
  int lineCount() const { return data_.fields ? data_.fields->size() : 0; }
  const ReportData& data() const { return data_; }

 private:
  enum class Origin { Nothing, Field, Variable, Constant, Sum, Page, PageCount, Line };
  /// The source of a name's value.
  struct Source {
    Origin origin = Origin::Nothing;
    int place = 0;  ///< index of the column or sum
    QVariant constant;
  };

  Source find(const QString& name, Scope scope) const;
  QVariant take(const Source& source, const Place& place) const;

  ReportData data_;
  QStringList sumNames_;
  Formulas formulas_;
  std::vector<std::vector<Source>> sources_;  ///< of each formula's names
};

}  // namespace velmar::layout

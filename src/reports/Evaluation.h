// The formulas of a layout over the data of a report: each name is looked up once, so that a line costs no
// search.
#pragma once

#include "reports/Formula.h"
#include "reports/Layout.h"
#include "reports/ReportData.h"
#include "util/Decimal.h"

namespace velmar::layout {

/// Where on its way through the data a report stands.
struct Place {
  int set = 0;    ///< row of the variables, from 0
  int line = -1;  ///< row of the fields, from 0; -1 where there is none
  int page = 0;   ///< from 0
  int pages = 0;  ///< 0 until they are counted
  const std::vector<Decimal>* sums = nullptr;
};

/// Where a formula stands.
enum class Scope {
  Page,  ///< an object: variables and sums
  Line   ///< a row of the table: fields before variables
};

class Evaluation {
 public:
  /// `table` may be nullptr.
  Evaluation(const ReportData& data, const Table* table);

  /// Takes a formula and gives its number.
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
  /// Where a name's value comes from.
  struct Source {
    Origin origin = Origin::Nothing;
    int place = 0;  ///< of the column or sum
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

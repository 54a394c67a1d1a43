// The reports of stock, sales and orders and the VAT journals: for each its window's controls, its statement
// and its variables. A further report is a row of stockReports() and a layout in lst/.
#pragma once

#include <functional>
#include <QDate>
#include <QHash>
#include <QSet>

#include "reports/ReportData.h"
#include "reports/Variables.h"
#include "util/Progress.h"

namespace velmar {

/// A control of a report window, besides the commands.
struct ReportControl {
  enum class Kind {
    Date,
    Option,  ///< of the options of a frame at most one is ticked
    Check,
    Choice,   ///< a drop-down list
    Article,  ///< a drop-down list of all articles, found by typing
    Text,
    Number,  ///< a whole number from 1, 1 at the start
    Note     ///< shows the note of the report
  };
  Kind kind;
  QString name;
  QString caption;
  QString of = {};          ///< Choice, Article, Text: the option or box that they belong to
  QString missing = {};     ///< the message when that is ticked and nothing is chosen
  QStringList clears = {};  ///< the options that a tick of this box takes off
  QString tip = {};         ///< tool tip
  int most = 999;           ///< Number: the largest
  QString wrong = {};       ///< Number: the message for another one; empty: the general one
  bool mayBeEmpty = false;  ///< Number: an empty box gives 1
};

struct ReportFrame {
  QString caption;
  std::vector<ReportControl> controls;
  QString ticked = {};  ///< the option at the start; none: a second click takes a choice off
  QString name = {};    ///< object name
};

/// A column of the rows on the screen.
struct ReportColumn {
  enum class Kind { Text, Whole, Amount, Price, Quantity, Date };
  QString field;
  QString caption;
  Kind kind = Kind::Text;
  int width = 12;        ///< characters
  bool isTotal = false;  ///< its sum is shown at the foot
  QString from = {};     ///< the field whose values it shows; empty: its own
};

/// The fields of a row that lead to its document, article and partner; empty: none.
struct ReportLinks {
  QString document = {};  ///< key in the ledger
  QString prefix = {};    ///< in front of a document's number
  QString article = {};
  QString partner = {};               ///< name
  QString deviceOrder = "IdComanda";  ///< key of an order of hearing devices; only its rows have the field
};

struct ReportChoice;

/// How the rows of a report are compared with those of the same days a year before: from the first to the
/// last day that counts, each a year earlier, 29 February as 28. The rows then have the fields ANTERIOR, of
/// the row's key, and TOTALANTERIOR, of all rows; both 0 where there was nothing.
struct ReportComparison {
  /// The rows of one key are added up; `isYearBefore`: a row of the year before.
  std::function<QString(const Row& row, const ReportChoice& choice, bool isYearBefore)> key = {};
  QString value = {};  ///< field; empty: the report has no comparison
  bool listsMissing =
      false;  ///< keys that only the year before has are rows too, with nulls but for these fields
  QStringList keyFields = {};
};

/// What the user chose, by the names of the controls.
struct ReportChoice {
  QHash<QString, QDate> dates;
  QSet<QString> ticked;
  QHash<QString, QString> codes;  ///< of drop-down lists
  QHash<QString, QString> texts;  ///< of text boxes, and of the chosen items
  QHash<QString, int> numbers;

  bool has(const QString& control) const { return ticked.contains(control); }
  /// The code chosen for that option; empty when the option is not ticked.
  QString codeOf(const QString& option, const QString& list) const {
    return has(option) ? codes.value(list) : QString();
  }
};

/// Its rows are read when its command is given.
struct StockReport {
  /// The period at the start: that of the parameters, from its first day to today, today, the calendar year.
  enum class Start { Year, YearToToday, Today, CalendarYear };

  QString window;   ///< class of its window
  QString caption;  ///< of its window
  QString project;  ///< file name of its layout
  std::vector<ReportFrame> frames;
  QString from = {};  ///< control of the first day; empty: the report has none
  QString to = {};    ///< control of the last day; empty: the report has none
  Start start = Start::Today;
  bool losesFirstDay = false;  ///< the period begins after midnight of the first day
  bool previewsOnly = false;   ///< cmdVisualizare chooses no printer, cmdPrint does
  bool canPrint = false;       ///< has cmdPrint
  bool isLabels = false;       ///< each row is a label
  bool checksDates = false;    ///< cmdDesign refuses inverted dates
  std::vector<ReportColumn> columns = {};
  ReportLinks links = {};
  ReportComparison comparison = {};
  std::function<Recordset(const ReportChoice&)> rows = {};
  /// Instead of `rows`, which only read and can be interrupted: for rows that are also written, or read in
  /// parts.
  std::function<Recordset(const ReportChoice&, const Progress&)> rowsInParts = {};
  std::function<void(const ReportChoice&, Variables&)> variables = {};
  /// The text of the control of kind Note, for the dates and the ticks.
  std::function<QString(const ReportChoice&)> note = {};
  /// The command cmdCalcul: fills its work table and returns what the window then shows.
  std::function<QString(const ReportChoice&, const Progress&)> compute = {};
};

/// The tick of a report that is compared with the year before.
extern const QString kComparesYears;
/// The tick of a report whose period otherwise loses its first day.
extern const QString kTakesFirstDay;

const std::vector<StockReport>& stockReports();
/// Throws StoreError for an unknown window.
const StockReport& stockReport(const QString& window);

/// The rows of a report. Throws RuleError when there are none, and what `progress` throws. Descarcare writes
/// its work table.
Recordset reportRows(const StockReport& report, const ReportChoice& choice, const Progress& progress = {});

/// The rows of a report as they are shown on the screen. Throws as reportRows().
Recordset screenRows(const StockReport& report, const ReportChoice& choice, const Progress& progress = {});

/// The rows and the variables of a report. Throws as reportRows().
ReportData reportData(const StockReport& report, const ReportChoice& choice, const Progress& progress = {});

}  // namespace velmar

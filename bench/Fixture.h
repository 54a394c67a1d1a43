// Basis of the measurements: companies of a given size in a temporary folder, timing, and the printed table.
#pragma once

#include <functional>
#include <QList>
#include <QString>
#include <QStringList>

namespace velmar::bench {

inline constexpr int kRounds = 30;

/// Whether only the written rows are compared, on small companies, without times.
bool isQuick();
void setQuick();
/// Lines of the documents whose validation is measured.
inline constexpr int kSmallDocument = 20;
inline constexpr int kLargeDocument = 200;

inline constexpr int kDrafts = 240;
/// The document number of a draft with that many lines; each company has drafts 0 to kDrafts - 1.
QString draftNumber(int lines, int draft);

enum class CompanySize {
  EmptyLedger,   ///< 10,000 articles, the drafts, nothing validated
  MillionLines,  ///< as EmptyLedger, with 1,000,000 lines of 50,000 documents and 500,000 of notes
  Grown,         ///< as MillionLines, without drafts, with 100,000 articles and 50,000 partners
  Trade,         ///< 10,000 articles, a ledger of 10,000 lines, drafts of trade (TradeFill.h, DraftFill.h)
  GrownTrade     ///< as Trade, with 1,000,000 lines of 50,000 documents and 500,000 of notes
};

/// Where companies are kept.
enum class Store { Files, Server };
QString nameOf(Store store);

/// Whether the measurements have a server: the folder of its socket is in VELMAR_TEST_SERVER.
bool hasServer();

/// The path of a new copy of such a company. The original is created once per run.
QString copyOfCompany(Store store, CompanySize size, const QString& fileName);

/// Removes a company that is no longer needed.
void removeCompany(const QString& path);

/// The path of a company with that many articles and nothing else, created once per run.
QString companyWithArticles(Store store, int count);

/// A company that is open as in the program, with database and session, while this object exists.
class OpenCompany {
 public:
  explicit OpenCompany(const QString& path);
  ~OpenCompany();
  OpenCompany(const OpenCompany&) = delete;
  OpenCompany& operator=(const OpenCompany&) = delete;
};

/// The duration of the work in milliseconds.
template <typename Work>
double timed(Work&& work);

/// The most memory that the work takes beside what the process has, in MiB.
double memoryOf(const std::function<void()>& work);

class Times {
 public:
  void add(double milliseconds) { values_.append(milliseconds); }
  double median() const;
  double worst() const;

 private:
  QList<double> values_;
};

/// Prints a heading, with the columns after the name of the row.
void printHeading(Store store, const QString& title, const QStringList& columns);
void printRow(const QString& name, const QStringList& cells);
QString milliseconds(double value);

inline constexpr double kNoAim = 1e9;
/// "1.23", with a mark if it is above the target.
QString ratio(double value, double aim);

/// Stores the ratio of the time of an operation to that of the bare statements, for the table at the end.
void noteRatio(const QString& name, Store store, double value, double aim = kNoAim);
/// Times the work of the program and its bare counterpart in turns, prints a row with both medians, and
/// stores their ratio under "bench: name".
void compare(Store store, const QString& bench, const QString& name, double aim, int rounds,
             const std::function<void()>& ours, const std::function<void()>& bare);
/// Prints the ratios of the run, with one column for each engine.
void printRatios();

/// Prints what is being done to standard error.
void progress(const QString& text);

}  // namespace velmar::bench

#include <QElapsedTimer>

template <typename Work>
double velmar::bench::timed(Work&& work) {
  QElapsedTimer timer;
  timer.start();
  work();
  return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

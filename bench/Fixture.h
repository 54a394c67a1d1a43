// What the measurements stand on: companies of a told size in a temporary folder, times, and the table.
#pragma once

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
/// Number of the draft of that many lines; each company has drafts 0 to kDrafts - 1.
QString draftNumber(int lines, int draft);

enum class CompanySize {
  EmptyLedger,   ///< 10,000 articles, the drafts, nothing validated
  MillionLines,  ///< as EmptyLedger, with 1,000,000 lines of 50,000 documents and 500,000 of notes
  Grown,         ///< as MillionLines, without drafts, with 100,000 articles and 50,000 partners
  Trade,         ///< 10,000 articles, a ledger of 10,000 lines, drafts of customer invoices (TradeFill.h)
  GrownTrade     ///< as Trade, with 1,000,000 lines of 50,000 documents and 500,000 of notes
};

/// Where companies are kept.
enum class Store { Files, Server };
QString nameOf(Store store);

/// Whether the measurements have a server: its socket's folder stands in VELMAR_TEST_SERVER.
bool hasServer();

/// The path of a fresh copy of such a company. The original is made once a run.
QString copyOfCompany(Store store, CompanySize size, const QString& fileName);

/// Takes a company away that is not needed any more.
void removeCompany(const QString& path);

/// The path of a company with that many articles and nothing else, which is made once.
QString companyWithArticles(Store store, int count);

/// A company open as the program has it, database and session, for as long as this lives.
class OpenCompany {
 public:
  explicit OpenCompany(const QString& path);
  ~OpenCompany();
  OpenCompany(const OpenCompany&) = delete;
  OpenCompany& operator=(const OpenCompany&) = delete;
};

/// Milliseconds that the work took.
template <typename Work>
double timed(Work&& work);

class Times {
 public:
  void add(double milliseconds) { values_.append(milliseconds); }
  double median() const;
  double worst() const;

 private:
  QList<double> values_;
};

/// Prints a heading, its columns behind the name of the row.
void printHeading(Store store, const QString& title, const QStringList& columns);
void printRow(const QString& name, const QStringList& cells);
QString milliseconds(double value);

inline constexpr double kNoAim = 1e9;
/// "1.23" and, where it is above the aim, a mark.
QString ratio(double value, double aim);

/// Keeps how many times as long as the bare statements a piece of work took, for the table at the end.
void noteRatio(const QString& name, Store store, double value, double aim = kNoAim);
/// Prints the ratios of the run, the engines beside each other.
void printRatios();

/// Says on standard error what takes a while.
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

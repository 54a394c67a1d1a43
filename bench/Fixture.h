// What the measurements stand on: companies of a told size in a temporary folder, times, and the table.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace velmar::bench {

inline constexpr int kRounds = 30;
/// Lines of the vouchers that are measured.
inline constexpr int kSmallVoucher = 20;
inline constexpr int kLargeVoucher = 200;

inline constexpr int kDrafts = 2 * kRounds;
/// Number of the draft of that many lines; each company has drafts 0 to kDrafts - 1.
QString draftNumber(int lines, int draft);

enum class CompanySize {
  EmptyLedger,   ///< 10,000 articles, the drafts, nothing validated
  MillionLines,  ///< as EmptyLedger, with 1,000,000 lines of 50,000 documents and 500,000 of notes
  Grown          ///< as MillionLines, without drafts, with 100,000 articles and 50,000 partners
};

/// The path of a fresh copy of such a company. The original is made once a run.
QString copyOfCompany(CompanySize size, const QString& fileName);

/// The path of a company with that many articles and nothing else.
QString companyWithArticles(int count);

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
void printHeading(const QString& title, const QStringList& columns);
void printRow(const QString& name, const QStringList& cells);
QString milliseconds(double value);

/// "1.23" and, where it is above the aim, a mark.
QString ratio(double value, double aim);

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

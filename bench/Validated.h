// The document kinds whose validation is measured: by the program, and by bare prepared statements that write
// the same rows one at a time.
#pragma once

#include <memory>
#include <QString>

#include "Bare.h"
#include "Fixture.h"

namespace velmar::bench {

/// A connection that validates drafts with bare statements.
class BareValidation {
 public:
  virtual ~BareValidation() = default;

  /// Does the same as Validated::byProgram(), writing in one transaction.
  virtual void validate(const QString& number) = 0;
};

struct Validated {
  QString bench;  ///< name of the measurement
  QString title;
  QString prefix;  ///< of the document kind
  CompanySize small, large;
  QString smallName, largeName;
  int notes;  ///< created for each document
  double ratioAim;
  std::unique_ptr<BareValidation> (*bare)(const QString& path);

  /// Proposes the number of a further document and validates the draft of the open company like the program;
  /// returns the duration of both in milliseconds.
  double byProgram(const QString& number) const;
};

const Validated& vouchers();
const Validated& invoices();

/// The kind with that measurement name.
const Validated& validatedBy(const QString& bench);

/// The times of the program and of bare statements for the same work.
struct Pair {
  Times ours;
  Times bare;
};

/// A company that is also open in another connection, so that closing a file does not empty its journal.
struct Used {
  explicit Used(const QString& file) : path(file), colleague(file) {
    colleague.run("SELECT VERSIUNE FROM kt_info");
  }

  QString path;
  BareConnection colleague;
};

/// Column headings of the rows below.
extern const QStringList kContestColumns;
void printRatio(Store store, const QString& bench, const QString& row, const Pair& pair, double aim);
/// How much longer a document of that many lines takes on the large ledger.
void printGrowth(int lines, const Pair& small, const Pair& large);
/// Returns `held`.
bool printAgreement(bool held);

/// Whether two companies in which the same drafts were validated have the same contents; prints differences
/// to standard error. Opens both.
bool agree(const Validated& kind, const QString& one, const QString& other);

}  // namespace velmar::bench

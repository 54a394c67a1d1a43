// The document kinds whose validation is measured: by the program, and by bare prepared statements that write
// the same rows one at a time.
#pragma once

#include <memory>
#include <QString>
#include <vector>

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

/// What the bare statements of recorded rows read, besides the draft and its lines.
struct Reads {
  std::vector<const char*> whole;       ///< once; bound to the document's number
  std::vector<const char*> perArticle;  ///< for each line; bound to its article
  std::vector<const char*> perSource;   ///< for each line; bound to its article and its source
};

struct Validated {
  QString bench;  ///< name of the measurement
  QString title;
  QString prefix;  ///< of the document kind
  CompanySize small, large;
  QString smallName, largeName;
  int notes;  ///< created for each document
  double ratioAim;
  /// Null: the bare statements write the rows that the program wrote (BareRows.h), reading what `reads` says.
  std::unique_ptr<BareValidation> (*bare)(const QString& path);
  Reads reads = {};
  int drafts = kDrafts;                            ///< of each length
  int firstDraft = 0;                              ///< their first number, as for draftNumber()
  int copies = 1;                                  ///< of the company that the rounds are spread over
  void (*prepare)(const QString& path) = nullptr;  ///< makes a copy of the company ready
  double growthBesideBare = 0;  ///< aim of the growth as a multiple of that of the bare statements; 0: alone

  QString number(int lines, int draft) const { return draftNumber(lines, firstDraft + draft); }
  /// The number of drafts of each length that are validated in one copy.
  int measuredDrafts() const;
  std::unique_ptr<BareValidation> bareOn(const QString& path, CompanySize size) const;

  /// Proposes the number of a further document and validates the draft of the open company like the program;
  /// returns the duration of both in milliseconds.
  double byProgram(const QString& number) const;
};

/// Rounds in sequence; one before them, after opening the files, is not counted.
int blockRounds();

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
/// How much longer a document of that many lines takes on the large ledger; see Validated::growthBesideBare.
void printGrowth(int lines, const Pair& small, const Pair& large, double besideBare = 0);
/// Returns `held`.
bool printAgreement(bool held);

/// Whether two companies in which the same drafts were validated have the same contents; prints differences
/// to standard error. Opens both.
bool agree(const Validated& kind, const QString& one, const QString& other);

}  // namespace velmar::bench

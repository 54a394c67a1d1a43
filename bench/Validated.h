// The kinds of document whose validation is measured: the program's own way, and the same rows written by
// bare prepared statements one row at a time.
#pragma once

#include <memory>
#include <QString>

#include "Fixture.h"

namespace velmar::bench {

/// A connection that validates drafts with bare statements.
class BareValidation {
 public:
  virtual ~BareValidation() = default;

  /// Does what Validated::byProgram() does, the writing in one transaction.
  virtual void validate(const QString& number) = 0;
};

struct Validated {
  QString bench;  ///< name of the measurement
  QString title;
  QString prefix;  ///< of the document kind
  CompanySize small, large;
  QString smallName, largeName;
  int notes;  ///< that each document gets
  double ratioAim;
  std::unique_ptr<BareValidation> (*bare)(const QString& path);

  /// Proposes the number of a further document and validates the draft of the open company as the program
  /// does; gives the milliseconds that both took.
  double byProgram(const QString& number) const;
};

const Validated& vouchers();
const Validated& invoices();

/// The kind that goes by that name.
const Validated& validatedBy(const QString& bench);

/// Whether two companies in which the same drafts were validated hold the same; tells on standard error what
/// differs. Both are opened.
bool agree(const Validated& kind, const QString& one, const QString& other);

}  // namespace velmar::bench

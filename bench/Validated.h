// The document kinds whose validation is measured: by the program, and by bare prepared statements that write
// the same rows one at a time.
#pragma once

#include <memory>
#include <QString>

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

/// Whether two companies in which the same drafts were validated have the same contents; prints differences
/// to standard error. Opens both.
bool agree(const Validated& kind, const QString& one, const QString& other);

}  // namespace velmar::bench

// Makes electronic invoices of validated documents of the open company: from the ledger, the lines of the
// draft (of a storno those of its invoice), the company and the partner.
#pragma once

#include <memory>

#include "einvoice/EInvoice.h"

namespace velmar {

struct MadeInvoice {
  EInvoice invoice;
  std::vector<EFault> faults;  ///< of the data, then faultsOf(); a file is made only without any
};

class EInvoiceSource {
 public:
  /// Reads what all invoices share.
  EInvoiceSource();
  ~EInvoiceSource();

  /// Reads the documents, ledger keys of kind FC or FS, also of hearing devices, in place of those before.
  void read(const QStringList& documents);
  /// The invoice of a document that was read; only a fault for one whose draft is lost. Throws RuleError when
  /// there is no such document.
  MadeInvoice make(const QString& document) const;

  struct Data;

 private:
  std::unique_ptr<Data> data_;
};

}  // namespace velmar

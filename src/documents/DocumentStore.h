// Where the documents that a window shows come from.
#pragma once

#include <memory>
#include <optional>

#include "documents/Document.h"
#include "documents/DocumentKind.h"

namespace velmar {

class DocumentStore {
 public:
  explicit DocumentStore(const DocumentKind& kind) : kind_(kind) {}
  virtual ~DocumentStore() = default;

  /// The documents of the working warehouse from which the user chooses: number, date, partner's name (NUME)
  /// and the kind's further columns.
  virtual Recordset list() const = 0;
  /// Whether the document with that header can be validated: it is a draft, or a validated document that has
  /// not been turned round.
  bool isOpen(const Row& header) const;
  /// Header and lines; empty when the number does not exist.
  std::optional<Document> load(const QString& number) const;

 protected:
  /// The list of the header's rows with that condition, newest first unless the kind specifies otherwise.
  Recordset listWhere(const QString& condition) const;

  const DocumentKind& kind_;
};

/// The store of a kind without a draft: validated invoices that can be turned round.
class InvoiceView : public DocumentStore {
 public:
  using DocumentStore::DocumentStore;
  Recordset list() const override;
};

/// The store of the kind: its drafts, or what it is made from.
std::unique_ptr<DocumentStore> storeOf(const DocumentKind& kind);

}  // namespace velmar

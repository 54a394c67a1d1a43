// The listing form of all documents: options, the delegate's data, preview and print.
#pragma once

#include <QDialog>

#include "documents/Listing.h"

class QCheckBox;
class QGroupBox;

namespace velmar {

struct PreparedReport;

class frmLst : public QDialog {
  Q_OBJECT
 public:
  /// Reads the document; throws RuleError when it is not stored.
  frmLst(const Printout& printout, QWidget* parent);

 private:
  QGroupBox* optionsFrame();
  QGroupBox* delegateFrame();
  ListingOptions options() const;
  bool settle();
  void list();
  void design();
  PreparedReport prepare() const;

  const ListingKind& kind_;
  ListedDocument document_;
  QHash<QString, QVariant> own_;
  bool foreign_;
  QCheckBox* CheckChitanta_ = nullptr;
  QCheckBox* CheckDeviza_ = nullptr;
  QCheckBox* chkTiparire_ = nullptr;
};

/// Shows the listing form of a stored document and returns when it is closed. Throws RuleError when the
/// document does not exist.
void listDocument(const Printout& printout, QWidget* parent);

}  // namespace velmar

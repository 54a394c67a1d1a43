// The list of all validated documents, with the lines of the current one, and the commands that print them
// again, take them back to entry, or make drafts of them.
#pragma once

#include "stock/LedgerKey.h"
#include "store/windows/BrowserForm.h"

namespace velmar {

class frmLDoc : public BrowserForm {
  Q_OBJECT
 public:
  explicit frmLDoc(QWidget* parent = nullptr);

 protected:
  void showRecord(const Row* record) override;

 private:
  QList<QPushButton*> commands();
  void cancelInvoice();
  void reprint();
  void remove();
  void invoiceProforma();
  void copyTurnedInvoice();
  LedgerKey currentOf(KindId kind, const QString& missing, const QString& another) const;
  QString askedNumber();

  TDBGrid* grdChild_;
  QPushButton* cmdFacturare_ = nullptr;
  QPushButton* cmdStornare_ = nullptr;
};

}  // namespace velmar

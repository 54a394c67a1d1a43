// Invoices of hearing devices: the drafts of one variant, the header, the orders or vouchers that can be
// billed, and the lines.
#pragma once

#include "hearing/Invoices.h"
#include "store/windows/DataBinding.h"
#include "store/windows/ListForm.h"

class QComboBox;

namespace velmar {

class DetailGrid;
class SearchCombo;

class frmGrilaFacturaAudio : public ListForm {
  Q_OBJECT
  Q_PROPERTY(int TipFactura READ TipFactura)
 public:
  explicit frmGrilaFacturaAudio(BilledBy by, QWidget* parent = nullptr);

  int TipFactura() const { return static_cast<int>(by_); }

 protected:
  void showRecord(const Row* record) override;
  void startNew() override;
  bool isShownGone() const override;
  void showNew();
  void showEvent(QShowEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  QWidget* headerFrame();
  QWidget* sourceFrames();
  QList<QPushButton*> commands();
  void fillLists();
  void showInvoice(const Row& invoice);
  void showLines();
  void showSources();
  void showHint();
  qint64 required() const;
  Decimal shownRate() const;
  void save();
  void validate();
  void remove();
  void print();
  void toggleSource();
  void takeCell(size_t line, const QString& field, const QString& text);

  BilledBy by_;
  DataBinding binding_;
  SearchCombo* cboClient_ = nullptr;
  SearchCombo* cboPunctLucru_ = nullptr;
  QComboBox* cboCotaTVA_ = nullptr;
  QLineEdit* txtNumar_ = nullptr;
  QLabel* lblCota_ = nullptr;
  TDBGrid* sources_ = nullptr;  ///< grdListaComenzi or grdListaBonuri
  DetailGrid* grdDetalii_ = nullptr;
};

}  // namespace velmar

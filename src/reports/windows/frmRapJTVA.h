// The windows of the VAT journals: period, first number, and the commands.
#pragma once

#include <QWidget>

#include "reports/VatJournals.h"

class QCheckBox;
class QFormLayout;
class QGroupBox;
class QLabel;

namespace velmar {

class DateBox;
class NumberBox;
struct PreparedReport;

class frmRapJTVA : public QWidget {
  Q_OBJECT
 public:
  explicit frmRapJTVA(const VatJournal& journal, QWidget* parent = nullptr);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  QGroupBox* optionsFrame();
  void addStornos(QFormLayout* rows);
  void countStornos();
  QGroupBox* periodFrame();
  QLayout* commandLine();
  DateBox* dateBox(const QString& name, const QDate& date);

  VatPeriod period() const;
  int firstNumber() const;
  PreparedReport report();
  void compute();
  void list();
  void print();
  void design();
  /// Runs a command; shows a RuleError and sets the focus on its field.
  void run(void (frmRapJTVA::*command)());

  const VatJournal& journal_;
  NumberBox* txtNRC_;
  DateBox* DTPickerdela_;
  DateBox* DTPickerla_;
  QCheckBox* chkPrimaZi_;
  QLabel* lblStare_;
  QCheckBox* chkStorno_ = nullptr;  ///< with lblStorno_; only in a journal that has stornos
  QLabel* lblStorno_ = nullptr;
};

/// "Jurnal de cumparare cu TVA"
class frmRapJCTVA : public frmRapJTVA {
  Q_OBJECT
 public:
  explicit frmRapJCTVA(QWidget* parent = nullptr) : frmRapJTVA(purchaseJournal(), parent) {}
};

/// "Jurnal de vanzare cu TVA"
class frmRapJVTVA : public frmRapJTVA {
  Q_OBJECT
 public:
  explicit frmRapJVTVA(QWidget* parent = nullptr) : frmRapJTVA(salesJournal(), parent) {}
};

}  // namespace velmar

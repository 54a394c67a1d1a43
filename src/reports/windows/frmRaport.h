// The window of every report of stock, sales and orders and of the VAT journals: the controls of its row in
// the table of reports, and the commands.
#pragma once

#include <QWidget>

#include "reports/StockReports.h"

class QAbstractButton;
class QFormLayout;
class QLabel;
class QLineEdit;

namespace velmar {

class DateBox;
class NumberBox;
class SearchCombo;
struct PreparedReport;

class frmRaport : public QWidget {
  Q_OBJECT
 public:
  explicit frmRaport(const StockReport& report, QWidget* parent = nullptr);

 protected:
  void showEvent(QShowEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  QWidget* frame(const ReportFrame& frame);
  void addControl(const ReportControl& control, QFormLayout* rows);
  SearchCombo* listOf(const ReportControl& control);
  void makeExclusive(const ReportFrame& frame);
  QLayout* commandLine();

  void showDefaults();
  void restoreChoice();
  void keepChoice(const ReportChoice& chosen) const;
  void enableChoices();
  /// The dates, as last taken, and the ticks.
  ReportChoice shownChoice() const;
  ReportChoice choice() const;
  void showNote();
  /// The number in the box. Throws RuleError.
  int wholeNumber(const ReportControl& control) const;
  void requireChoice(const ReportControl& control, const ReportChoice& chosen) const;
  /// The choice, kept for the next time. Throws RuleError, with the control at fault.
  ReportChoice acceptedChoice() const;
  /// Reads the choice and the rows. Throws RuleError, with the control at fault.
  PreparedReport prepared();
  void read(const std::function<void(const Progress&)>& work);
  void list();
  void compute();
  void showOnScreen();
  void print();
  void design();
  /// Runs a command; shows a RuleError and opens or focuses its control.
  void run(void (frmRaport::*command)());

  const StockReport& report_;
  QHash<QString, DateBox*> dates_;
  QHash<QString, QAbstractButton*> ticks_;
  QHash<QString, SearchCombo*> lists_;
  QHash<QString, QLineEdit*> texts_;
  QHash<QString, NumberBox*> numbers_;
  QLabel* note_ = nullptr;      ///< only where the report has one
  QLabel* lblStare_ = nullptr;  ///< only with cmdCalcul
};

}  // namespace velmar

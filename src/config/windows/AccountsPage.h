// The tab "Conturi": posting accounts, number ranges, decimals, and the storno method.
#pragma once

#include "config/windows/ParameterPage.h"

class QRadioButton;

namespace velmar {

class SearchCombo;

class AccountsPage : public ParameterPage {
  Q_OBJECT
 public:
  explicit AccountsPage(QWidget* parent = nullptr);

  /// After a change of the chart of accounts: lists its accounts and enters the plan's defaults.
  void takePlan(int plan);

 protected:
  void showStored() override;
  void storeShown() override;

 private:
  QWidget* accountsFrame();
  QWidget* rangeFrame(const QString& title, int firstBox, const QString& kind);
  QWidget* pricesRow();
  QWidget* stornoFrame();
  void showStorno(bool black);
  void fillCombos();

  QList<SearchCombo*> combos_;
  QRadioButton* optStornareNegru_;
  QRadioButton* optStornareRosu_;
  QLineEdit* txtTipStornare_;  ///< the storno method as "1" or "0", always hidden
};

}  // namespace velmar

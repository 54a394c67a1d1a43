// The tab "Conturi": the accounts of postings, number ranges, decimals, and the way of a storno.
#pragma once

#include "config/windows/ParameterPage.h"

class QRadioButton;

namespace velmar {

class SearchCombo;

class AccountsPage : public ParameterPage {
  Q_OBJECT
 public:
  explicit AccountsPage(QWidget* parent = nullptr);

  /// After a change of the plan of accounts: offers its accounts and puts in its defaults.
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
  QLineEdit* txtTipStornare_;  ///< the way as "1" or "0", never seen
};

}  // namespace velmar

// The tab "Jurnale": the journal of each kind of document, and the cash register.
#pragma once

#include "config/windows/ParameterPage.h"

namespace velmar {

class SearchCombo;

class JournalsPage : public ParameterPage {
  Q_OBJECT
 public:
  explicit JournalsPage(QWidget* parent = nullptr);

 protected:
  void showStored() override;
  void storeShown() override;

 private:
  QWidget* journalsFrame();
  QWidget* registerRow();

  QList<SearchCombo*> combos_;
};

}  // namespace velmar

// The tab "Societate": the company's identity, chart of accounts and cost method.
#pragma once

#include "config/windows/ParameterPage.h"

class QBoxLayout;
class QGroupBox;
class QRadioButton;

namespace velmar {

class IdentityPage : public ParameterPage {
  Q_OBJECT
 public:
  explicit IdentityPage(QWidget* parent = nullptr);

  /// Shows the stored chart of accounts; the choice is enabled while it may still change.
  void showPlan();

 signals:
  /// The user clicked a chart of accounts, which takes effect at once.
  void planChosen(int plan);

 protected:
  void showStored() override;
  void storeShown() override;

 private:
  QWidget* identityFrame();
  QWidget* addressFrame(const QString& title, int place);
  QGroupBox* planFrame();
  QGroupBox* methodFrame();
  void showMethod(const QString& method);

  QGroupBox* planFrame_;
  QList<QRadioButton*> plans_;
  QRadioButton* Option1_;
  QRadioButton* Option2_;
  QLineEdit* Text2_;  // the method as it is stored
};

}  // namespace velmar

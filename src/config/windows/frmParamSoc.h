// The company's parameters: identity, fiscal years, accounts and journals, one tab each.
#pragma once

#include <QWidget>

class QBoxLayout;
class QLabel;
class QTabWidget;

namespace velmar {

class AccountsPage;
class IdentityPage;
class ParameterPage;

class frmParamSoc : public QWidget {
  Q_OBJECT
 public:
  explicit frmParamSoc(QWidget* parent = nullptr);

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  QBoxLayout* buttonRow();
  void addPage(int place, ParameterPage* page, const QString& caption);
  void setUpTabKey(const QKeySequence& keys, int step);
  ParameterPage* frontPage() const;
  void save();
  void savePage(ParameterPage* page);
  void changePlan(int plan);
  void showState();

  QTabWidget* tabs_;
  IdentityPage* identity_;
  AccountsPage* accounts_;
  QLabel* lblStare_;
};

}  // namespace velmar

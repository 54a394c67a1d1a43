// The bulk update of sale prices.
#pragma once

#include <QWidget>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLineEdit;
class QRadioButton;

namespace velmar {

class ArticleCombo;
class NumberBox;
struct PricedArticles;

class FrmActPretVanz : public QWidget {
  Q_OBJECT
 public:
  explicit FrmActPretVanz(QWidget* parent = nullptr);

 private:
  QGroupBox* articleFrame();
  QLayout* basisBlock();
  QLayout* commandLine();
  void showScope();
  PricedArticles chosen() const;
  void updatePrices();
  void goTo(const QString& column);

  QRadioButton* optToateArt_;
  QRadioButton* optFamilie_;
  QRadioButton* optArticol_;
  QComboBox* cboFamilie_;
  ArticleCombo* cboArticol_;
  QCheckBox* CheckAdaos_;
  QCheckBox* CheckDeviza_;
  NumberBox* TextAdaos_;
  QLineEdit* TextDeviza_;
};

}  // namespace velmar

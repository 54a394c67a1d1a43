// The details of one article: its boxes, the frames enabled depending on its stock, its prices.
#pragma once

#include <QWidget>

#include "catalogue/ArticlePrices.h"
#include "store/windows/Card.h"

class QCheckBox;
class QComboBox;
class QFormLayout;
class QGroupBox;
class QLineEdit;
class QRadioButton;

namespace velmar {

class NumberBox;
class SearchCombo;

class ArticleCard : public QWidget {
  Q_OBJECT
 public:
  /// Binds its controls to the columns of G_ARTMAG in `card`.
  explicit ArticleCard(Card& card);

  /// To be called after the record (null for a new article) has been shown in the card.
  void recordShown(const Row* record);
  /// To be called after Enter has been set up to move from box to box.
  void watchPrices();
  /// Reads suppliers, families and currencies again.
  void refreshLists();
  /// Sets the default unit of new articles: "Buc", or the last one typed.
  void resetUnit();

  /// Recalculates the prices from the edited one.
  void recalculate();
  /// The article as entered, with its currency (`CODDEVIZA`) if it has prices in currency.
  Row article() const;
  /// The control in which the column is entered.
  QWidget* entryOf(const QString& column) const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QLineEdit* textField(QFormLayout* rows, int index);
  NumberBox* numberField(QFormLayout* rows, int index);
  SearchCombo* listFor(QFormLayout* rows, int index, const QString& name, const QString& kind);
  QWidget* identityFrame();
  QWidget* vatFrame();
  QWidget* basisFrame();
  QWidget* priceFrame();
  QWidget* hearingFrame();
  void basisChanged();
  void showFrames(const Row* record);
  void showDifference();
  PriceBasis basis() const;
  NumberBox* number(int index) const;

  Card& card_;
  QLineEdit* txtControl_;
  QString unit_;
  QCheckBox* chkFaraStoc_;
  QGroupBox* Frame5_;
  QGroupBox* Frame10_;
  QGroupBox* picPreturi_;
  QRadioButton* fromNet_;
  QRadioButton* fromGross_;
  SearchCombo* DataCombo1_;
  SearchCombo* DataCombo2_;
  SearchCombo* cboCodDevizaDenumire_;
  QGroupBox* frmAudio_ = nullptr;  ///< null without hearing devices
  QFormLayout* hearingRows_ = nullptr;
  NumberBox* txtPretVanzare_ = nullptr;
  NumberBox* txtCompensareCAS_ = nullptr;
  NumberBox* txtDiferenta_ = nullptr;
  QCheckBox* chkDeviza_ = nullptr;
  QComboBox* cboDeviza_ = nullptr;
};

}  // namespace velmar

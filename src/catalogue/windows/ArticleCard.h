// The details of one article on screen: its boxes, the frames that its stock opens and closes, its prices.
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

  /// The record (none for a new article) now stands in the card.
  void recordShown(const Row* record);
  /// To be called once Enter moves on from box to box.
  void watchPrices();
  /// Reads suppliers, families and currencies anew.
  void refreshLists();
  /// The unit that new articles start with: "Buc", or the last one typed.
  void resetUnit();

  /// Recalculates the prices from the one that is worked on.
  void recalculate();
  /// What the card says of the article, its currency of purchase included where it is asked for.
  Row article() const;
  /// Where the column is entered.
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

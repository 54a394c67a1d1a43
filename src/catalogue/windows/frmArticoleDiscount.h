// The quantity bands of articles and families: a tree to choose from, the bands of what is chosen beside it.
#pragma once

#include <optional>
#include <QWidget>

#include "catalogue/DiscountBands.h"

class QGroupBox;
class QLabel;
class QPushButton;
class QStackedWidget;
class QStandardItemModel;
class QTreeView;

namespace velmar {

class ArticleCombo;
class ArticleTree;
class NumberBox;
class TDBGrid;

class frmArticoleDiscount : public QWidget {
  Q_OBJECT
 public:
  explicit frmArticoleDiscount(QWidget* parent = nullptr);

  /// Stores the band in the boxes; true on success, else the reason has been shown.
  bool Salveaza();

 private:
  QWidget* treeSide();
  QGroupBox* bandSide();
  QWidget* bandDetails();
  QLayout* commands();
  TDBGrid* bandList();

  void showNode(const QModelIndex& node);
  void showBands(int place);
  void showBand();
  void add();
  void remove();
  void apply();
  /// Runs what the editor may refuse; shows the reason, the bands as they stand and the box at fault.
  template <typename Work>
  bool attempt(Work&& work);

  std::optional<DiscountBands> editor_;  ///< nothing while the root is chosen
  ArticleTree* nodes_;
  QTreeView* treeArticole_;
  ArticleCombo* search_;
  QStackedWidget* pages_;
  QLabel* chosen_;
  TDBGrid* lvwDiscounts_;
  QStandardItemModel* rows_;
  NumberBox* txtCantMin_;
  NumberBox* txtCantMax_;
  NumberBox* txtDiscount_;
  QPushButton* cmdAplica_;
  bool filling_ = false;
};

}  // namespace velmar

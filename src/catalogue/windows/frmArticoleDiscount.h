// The quantity bands of articles and families: a tree of both and the bands of the selected node.
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

  /// Stores the band in the boxes; returns false after showing the reason if that fails.
  bool Salveaza();

 private:
  QWidget* treeSide();
  QGroupBox* bandSide();
  void showFound();
  QWidget* bandDetails();
  QLayout* commands();
  TDBGrid* bandList();

  void showNode(const QModelIndex& node);
  void showBands(int place);
  void showBand();
  void add();
  void remove();
  void apply();
  /// Runs an operation of the editor; if it throws, shows the reason, the current bands and the box at fault.
  template <typename Work>
  bool attempt(Work&& work);

  std::optional<DiscountBands> editor_;  ///< empty while the root is selected
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

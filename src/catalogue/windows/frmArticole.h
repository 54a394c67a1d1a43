// The catalogue of articles: the list, an article's details, and the exports of chosen articles.
#pragma once

#include "catalogue/windows/CatalogueForm.h"

class QComboBox;

namespace velmar {

class ArticleCard;
class extTDBGrid;

class frmArticole : public CatalogueForm {
  Q_OBJECT
 public:
  explicit frmArticole(QWidget* parent = nullptr);

 protected:
  void showRecord(const Row* record) override;
  void startNew() override;
  void focusField(const QString& column) override;
  void showEvent(QShowEvent* event) override;

 private:
  QWidget* searchRow();
  QList<QPushButton*> commands();
  void add();
  void save();
  void remove();
  void search();
  void order();
  void exportXml();
  void exportHtml();

  ArticleCard* details_;
  QComboBox* cboCautare_;
  QPushButton* cmdStocPeMag_ = nullptr;
  extTDBGrid* grouping_;
  Row shown_;  ///< the article as the card showed it
  bool listening_ = false;
};

}  // namespace velmar

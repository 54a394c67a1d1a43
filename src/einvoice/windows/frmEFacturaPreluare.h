// An electronic invoice of a supplier beside the draft that it becomes: supplier, articles, taking over.
#pragma once

#include <QDialog>

#include "einvoice/Purchases.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace velmar {

class ArticleCombo;
class EntryGrid;
class StatusText;

class frmEFacturaPreluare : public QDialog {
  Q_OBJECT
 public:
  /// `id`: of the file in G_EFACTURAPRIM. Throws RuleError when its content was refused.
  frmEFacturaPreluare(qint64 id, QWidget* parent);

  void done(int result) override;

 private:
  QLayout* head();
  void show();
  void choose(size_t line, const QString& code);
  size_t currentLine() const;

  void addSupplier();
  void addArticle();
  void takeOverNow();

  PurchaseSource source_;
  Purchase purchase_;
  QLineEdit* txtFurnizor_;
  QPushButton* cmdFurnizorNou_;
  QLineEdit* txtNumar_;
  QLineEdit* txtStornata_;
  EntryGrid* TDBGrid1_;
  ArticleCombo* cboArticol_;
  QComboBox* cboFamilie_;
  QLabel* lblDiferenta_;
  StatusText* lblStare_;
};

}  // namespace velmar

// The one window of all documents: commands, header, list of drafts, lines with their totals. The windows of
// the kinds add what is their own.
#pragma once

#include <functional>
#include <QWidget>

#include "documents/DocumentEditor.h"
#include "util/Errors.h"

class QBoxLayout;
class QCheckBox;
class QPushButton;

namespace velmar {

class HeaderForm;
class LineGrid;
class LineModel;
class TDBGrid;
struct ArticleList;

class frmGrila : public QWidget {
  Q_OBJECT
 public:
  /// A window for the kind, with the list that its name cells drop.
  frmGrila(const QString& prefix, const ArticleList& articles, QWidget* parent);

  /// Re-reads the lists: drafts and partners.
  void refreshLists();

  QSize sizeHint() const override;

 protected:
  void showEvent(QShowEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QBoxLayout* commandRow();
  QPushButton* command(const QString& name, const QString& caption, const QString& toolTip,
                       const QString& picture, void (frmGrila::*action)());
  QWidget* draftsFrame();
  void buildLines(const ArticleList& articles);
  void orderTabs();

  void newDocument();
  void save();
  void validate();
  void sterge();
  void print();
  void openSelected();

  void Salvare();
  void AfisareAntet();
  void DetaliiFactura();
  void GridFooterText();
  /// Shows the editor's document: header, lines and the drafts beside it.
  void showDocument();
  void refreshDrafts();
  void showRule(const RuleError& rule);
  /// Runs a command: first takes over what stands in an open cell, then guards the work.
  void run(const QString& procedure, const std::function<void()>& work);

  DocumentEditor editor_;
  HeaderForm* header_;
  TDBGrid* drafts_ = nullptr;  ///< TDBGrid2
  QCheckBox* bySupplierCode_ = nullptr;
  LineModel* lineModel_ = nullptr;
  LineGrid* lines_ = nullptr;  ///< TDBGrid1
  bool listening_ = false;     ///< already follows the activation of its frame
};

}  // namespace velmar

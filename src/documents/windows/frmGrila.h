// The one window of all documents: commands, header, list of drafts, lines with their totals. The windows of
// the kinds add what is their own.
#pragma once

#include <functional>
#include <QWidget>

#include "documents/DocumentEditor.h"

#include "util/Errors.h"

class QCheckBox;
class QComboBox;
class QDateEdit;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPushButton;

namespace velmar {

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
  void buildCommands();
  void buildHeader();
  void buildLists(const ArticleList& articles);
  void orderTabs();
  void addPartnerField(const HeaderField& field, QFormLayout* form);
  void addTextField(const HeaderField& field, QFormLayout* form);
  QPushButton* command(const QString& name, const QString& caption, const QString& toolTip,
                       const QString& picture, void (frmGrila::*action)());

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
  void refreshDrafts();
  void partnerPicked();
  void partnerTyped();
  /// Shows that the header on screen is no longer the stored one.
  void headerTouched();
  void showPartner(const QString& code);
  void showRule(const RuleError& rule);
  /// Runs a command: first takes over what stands in an open cell, then guards the work.
  void run(const QString& procedure, const std::function<void()>& work);

  /// The header's texts by column, as they stand in the controls; dates in ISO form.
  QHash<QString, QString> typedHeader() const;
  QWidget* control(const QString& column) const { return controls_.value(column); }

  DocumentEditor editor_;
  LineModel* lineModel_ = nullptr;
  LineGrid* lines_ = nullptr;  ///< TDBGrid1
  TDBGrid* drafts_ = nullptr;  ///< TDBGrid2
  QCheckBox* bySupplierCode_ = nullptr;
  QComboBox* partner_ = nullptr;  ///< DataCombo1
  QLabel* partnerName_ = nullptr;
  QLabel* state_ = nullptr;
  QHash<QString, QWidget*> controls_;  ///< header controls by column
  bool showing_ = false;               ///< the controls are being filled, not typed in
  bool listening_ = false;             ///< already follows the activation of its frame
};

}  // namespace velmar

// The header of a document on screen: a control for each header field of the kind, under its known name.
#pragma once

#include <QGroupBox>
#include <QHash>

#include "documents/DocumentKind.h"
#include "store/Row.h"

class QFormLayout;
class QLabel;
class QLineEdit;

namespace velmar {

class SearchCombo;

class HeaderForm : public QGroupBox {
  Q_OBJECT
 public:
  HeaderForm(const DocumentKind& kind, QWidget* parent);

  /// Fills the controls from a row of the kind's header table.
  void fill(const Row& header, bool numberLocked);
  /// Re-reads the list of partners; the one that is chosen stays chosen.
  void refreshPartners();

  /// What stands in the controls, by column; dates in ISO form. Takes over first what is still being typed.
  QHash<QString, QString> typed();

  /// A line below the fields: what state the document is in.
  void showState(const QString& text);

  /// The control of a column, null when the header has none.
  QWidget* control(const QString& column) const { return controls_.value(column); }
  void focusNumber();
  /// The controls in the order in which Tab and Enter go through them.
  QList<QWidget*> tabChain() const;

 signals:
  /// The user changed something.
  void touched();

 private:
  void addDateField(const HeaderField& field);
  void addTextField(const HeaderField& field);
  void addPartnerField(const HeaderField& field);
  void takePartner();
  void showPartner(const QString& code);
  QLineEdit* partnerCode() const;

  const DocumentKind& kind_;
  QFormLayout* form_;
  QHash<QString, QWidget*> controls_;
  SearchCombo* partner_ = nullptr;  ///< DataCombo1
  QLabel* partnerName_ = nullptr;
  QLabel* state_;
};

}  // namespace velmar

// The header of a document on screen: a control for each header field of the kind, under its known name, in
// one column or, where there are many, in two.
#pragma once

#include <memory>
#include <QGroupBox>
#include <QHash>

#include "documents/DocumentKind.h"

class QFormLayout;
class QLabel;
class QLineEdit;

namespace velmar {

class HeaderControl;

class HeaderForm : public QGroupBox {
  Q_OBJECT
 public:
  HeaderForm(const DocumentKind& kind, QWidget* parent);
  ~HeaderForm() override;

  /// Shows the texts of a document, by HeaderField::key(); dates in ISO form.
  void fill(const QHash<QString, QString>& texts, bool numberLocked);
  /// Shows what changed in some fields.
  void showChanges(const QHash<QString, QString>& texts);
  /// Re-reads the lists; what is chosen stays chosen.
  void refreshLists();

  /// What stands in the controls, by HeaderField::key().
  QHash<QString, QString> texts() const;
  /// As texts(), having taken over first what is still being typed.
  QHash<QString, QString> typed();

  /// A line below the fields: what state the document is in.
  void showState(const QString& text);

  /// The control of a key, null when the header has none.
  QWidget* control(const QString& key) const;
  void focusNumber();
  /// Whether the boxes of a field can be used.
  void setFieldEnabled(const QString& key, bool is);
  /// The controls in the order in which Tab and Enter go through them.
  QList<QWidget*> tabChain() const;

  bool hasTwoColumns() const { return columns_.size() > 1; }

 signals:
  /// The user changed something.
  void touched();
  /// The user chose something in the field of that key.
  void chosen(const QString& key);

 private:
  void addControl(const HeaderField& field);
  void layOut();
  void addRow(QFormLayout* rows, HeaderControl* control);
  void addCurrencyRow(QFormLayout* rows, HeaderControl* box);
  HeaderControl* find(HeaderFieldType type) const;
  /// Whether the control stands in the row of the currency's box.
  bool isBesideForeign(const HeaderControl* control) const;
  void enableCurrency();

  const DocumentKind& kind_;
  std::vector<std::unique_ptr<HeaderControl>> controls_;
  QList<QFormLayout*> columns_;
  QLabel* state_;
};

}  // namespace velmar

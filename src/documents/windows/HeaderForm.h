// The header of a document: a control with a fixed name for each header field of the kind, in one column, or
// two if there are many.
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
  /// Reads the lists again; keeps the selections.
  void refreshLists();

  /// The texts of the controls, by HeaderField::key().
  QHash<QString, QString> texts() const;
  /// As texts(), after committing text that is still being typed.
  QHash<QString, QString> typed();

  /// Shows the state of the document in a line below the fields.
  void showState(const QString& text);

  /// The control of a key; null if there is none.
  QWidget* control(const QString& key) const;
  void focusNumber();
  /// Enables or disables the boxes of a field.
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
  /// Whether the control is in the row of the foreign currency box.
  bool isBesideForeign(const HeaderControl* control) const;
  /// Whether the box of foreign currency is ticked; false for a kind without it.
  bool isForeign() const;
  /// Enables currency and rate by the box of foreign currency; shows the currency behind a rate in its own
  /// row.
  void followCurrency();

  const DocumentKind& kind_;
  std::vector<std::unique_ptr<HeaderControl>> controls_;
  QList<QFormLayout*> columns_;
  QLabel* rateCurrency_ = nullptr;
  QLabel* state_;
};

}  // namespace velmar

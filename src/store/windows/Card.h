// Binds one record to the controls of a form: shows it, reads the typed values, detects changes.
#pragma once

#include <QMap>
#include <QObject>
#include <QWidget>

#include "store/Row.h"

namespace velmar {

/// Boxes, lists, check boxes and options, dates and labels, each with the column that it shows. A list
/// has the column's values as the data of its items; a label is read-only. A text longer than the box allows
/// is still shown completely.
class Card : public QObject {
  Q_OBJECT
 public:
  explicit Card(QObject* parent) : QObject(parent) {}

  template <typename Control>
  Control* add(const QString& column, Control* control) {
    bind(column, control);
    return control;
  }
  /// Sets the value that the column's control shows after clear(). A card with its defaults counts as
  /// unchanged.
  void setDefault(const QString& column, const Value& value);

  /// Shows the row's columns; those that it does not have are cleared.
  void show(const Row& row);
  void clear();
  /// Shows another stored value in one column, as unchanged; typed values of other columns are kept.
  void showStored(const QString& column, const QVariant& value);
  /// Marks the current values as unchanged.
  void settle();

  /// The values of the controls by column: trimmed texts, numbers as decimals (invalid ones as text), null if
  /// empty.
  Row typed() const;
  QString text(const QString& column) const { return typed().text(column); }
  bool isChanged() const;

  /// Null when the card has no such column. The column is case insensitive.
  QWidget* control(const QString& column) const;
  QList<QWidget*> controls() const;

 signals:
  /// The user changed something.
  void edited();

 private:
  struct Bound {
    QString column;
    QWidget* control;
    int length;  ///< the maximum length of a text box
  };

  void bind(const QString& column, QWidget* control);
  void put(const Bound& bound, const QVariant& value);
  QStringList state() const;

  QList<Bound> bound_;
  QMap<QString, Value> defaults_;
  QStringList settled_;
  bool isCleared_ = false;  ///< shows the defaults of a new record
};

}  // namespace velmar

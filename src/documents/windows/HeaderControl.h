// The controls of one header field, which show and read it as one text.
#pragma once

#include <memory>
#include <QObject>

#include "documents/DocumentKind.h"

class QBoxLayout;
class QWidget;

namespace velmar {

class HeaderControl : public QObject {
  Q_OBJECT
 public:
  explicit HeaderControl(const HeaderField& field) : field_(field) {}

  const HeaderField& field() const { return field_; }

  void show(const QString& text);
  virtual QString text() const = 0;
  /// Commits text that is still being typed.
  virtual void settle() {}
  /// Reads its list again; keeps the selection.
  virtual void refresh() {}

  /// Its boxes in tab order; the first gets the focus when the field is at fault.
  virtual QList<QWidget*> boxes() const = 0;
  /// The control focused by its caption's access key.
  virtual QWidget* entry() const { return boxes().first(); }
  /// Further controls in its row.
  virtual QWidget* besides() const { return nullptr; }
  /// A control in the row below.
  virtual QWidget* below() const { return nullptr; }

 signals:
  /// The user changed something.
  void touched();
  /// The user chose another value.
  void chosen();

 protected:
  virtual void put(const QString& text) = 0;
  /// Emits chosen() if the text has changed.
  void choose();
  /// The last text shown or chosen.
  const QString& known() const { return known_; }

 private:
  const HeaderField& field_;
  QString known_;
};

/// The control for a field of the kind; its boxes are children of `form`.
std::unique_ptr<HeaderControl> makeHeaderControl(const DocumentKind& kind, const HeaderField& field,
                                                 QWidget* form);

}  // namespace velmar

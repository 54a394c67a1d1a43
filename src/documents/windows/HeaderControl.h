// One field of a document's header on screen: the boxes it is entered in, shown and read as one text.
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
  /// Takes over what is still being typed.
  virtual void settle() {}
  /// Re-reads its list; what is chosen stays chosen.
  virtual void refresh() {}

  /// Its boxes in tab order; the first takes the focus when the field is at fault.
  virtual QList<QWidget*> boxes() const = 0;
  /// What its caption reaches.
  virtual QWidget* entry() const { return boxes().first(); }
  /// What else stands in its row.
  virtual QWidget* besides() const { return nullptr; }
  /// What stands in a row of its own below it.
  virtual QWidget* below() const { return nullptr; }

 signals:
  /// The user changed something.
  void touched();
  /// The user chose something other than what stood.
  void chosen();

 protected:
  virtual void put(const QString& text) = 0;
  /// Tells of a choice when the text is another one than before.
  void choose();
  /// The text shown or chosen last.
  const QString& known() const { return known_; }

 private:
  const HeaderField& field_;
  QString known_;
};

/// The control for a field of the kind; its boxes are children of `form`.
std::unique_ptr<HeaderControl> makeHeaderControl(const DocumentKind& kind, const HeaderField& field,
                                                 QWidget* form);

}  // namespace velmar

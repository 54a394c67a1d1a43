// The controls that forms are put together from, made with their name and tool tip at once.
#pragma once

#include <functional>
#include <optional>
#include <QLabel>
#include <QLineEdit>

#include "util/Decimal.h"
#include "util/windows/KeyFilter.h"

class QPushButton;

namespace velmar {

/// Gives a control the name that settings and scenarios know it by, and its tool tip.
template <typename Widget>
Widget* named(Widget* widget, const QString& name, const QString& toolTip = {}) {
  widget->setObjectName(name);
  widget->setToolTip(toolTip);
  return widget;
}

/// A command button with a line icon; an empty `picture` gives none.
QPushButton* makeButton(const QString& name, const QString& caption, const QString& toolTip = {},
                        const QString& picture = {});

/// A text box that takes at most `width` characters (0: any number) and is about as wide.
QLineEdit* makeTextBox(const QString& name, int width, const QString& toolTip = {},
                       KeyFilter::Options keys = {});
/// Lets the box grow until a text of full length in capitals fits.
void fitCapitals(QLineEdit* box);

/// A text that ends in dots where its place is too narrow, and then has the whole as its tool tip.
class ElidedLabel : public QLabel {
 public:
  explicit ElidedLabel(QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

/// A box for a number: typed with comma or point alike, shown in the Romanian way with its decimals while it
/// has not the focus. What is no number stays as it was typed.
class NumberBox : public QLineEdit {
  Q_OBJECT
 public:
  /// `decimals` are shown; -1 shows the number as it is.
  explicit NumberBox(int decimals, QWidget* parent = nullptr);

  void setNumber(const std::optional<Decimal>& number);
  /// Nothing when the box is empty or holds no number.
  std::optional<Decimal> number() const;
  /// What was typed, without groups of thousands; a number that was set as it would be typed.
  const QString& typed() const { return typed_; }
  /// Takes the text as typed by the user.
  void setTyped(const QString& text);

 protected:
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void showText();

  int decimals_;
  QString typed_;
};

/// What is wrong with the contents of a box, "" when nothing is.
using Objection = std::function<QString()>;

/// Shows the objection, if there is one, when the user leaves the box, and brings the focus back to it;
/// `refused` runs between the two.
void checkWhenLeft(QWidget* box, Objection objection, int icon = 0, const QString& title = {},
                   std::function<void()> refused = {});

/// Whether a command of the form may run: false while a check refuses one of its boxes. The box that has the
/// focus is checked now.
bool entriesAccepted(QWidget* form);

/// "Valoarea trebuie sa fie numerica" while the box holds something that is no number.
void requireNumberWhenLeft(NumberBox* box,
                           const QString& text = QStringLiteral("Valoarea trebuie sa fie numerica"),
                           int icon = 0, const QString& title = {}, std::function<void()> refused = {});

}  // namespace velmar

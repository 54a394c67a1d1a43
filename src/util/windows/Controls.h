// Creates the controls of forms with their name and tool tip.
#pragma once

#include <functional>
#include <optional>
#include <QLabel>
#include <QLineEdit>

#include "util/Decimal.h"
#include "util/windows/KeyFilter.h"

class QPushButton;

namespace velmar {

/// Sets the name of a control, used by settings and scenarios, and its tool tip.
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
/// Makes the box wide enough for a text of maximum length in upper case.
void fitCapitals(QLineEdit* box);

/// The text of a tool tip that shows this text as it is: the toolkit would take some for markup.
QString plainToolTip(const QString& text);

/// A text that is truncated with dots if it does not fit, and then has the complete text as its tool tip.
class ElidedLabel : public QLabel {
 public:
  explicit ElidedLabel(QWidget* parent = nullptr);

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
};

/// A box for a number, typed with a comma or point, shown in Romanian format with its decimals while it does
/// not have the focus. A text that is not a number remains as typed.
class NumberBox : public QLineEdit {
  Q_OBJECT
 public:
  /// `decimals` are shown; -1 shows the number as it is.
  explicit NumberBox(int decimals, QWidget* parent = nullptr);

  void setNumber(const std::optional<Decimal>& number);
  /// Empty when the box is empty or its text is not a number.
  std::optional<Decimal> number() const;
  /// The typed text, without thousands separators; a number that was set, in the form in which it would be
  /// typed.
  const QString& typed() const { return typed_; }
  /// Sets the text as if typed by the user.
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

/// Shows the objection, if there is one, when the user leaves the box, and sets the focus on it again;
/// `refused` runs between the two.
void checkWhenLeft(QWidget* box, Objection objection, int icon = 0, const QString& title = {},
                   std::function<void()> refused = {});

/// Whether a command of the form may run: false while a check refuses one of its boxes. The box that has the
/// focus is checked now.
bool entriesAccepted(QWidget* form);

/// A command button of a form: a click runs `work` guarded, unless a check refuses one of the form's boxes.
QPushButton* makeCommand(QWidget* form, const QString& name, const QString& caption, const QString& toolTip,
                         const QString& picture, std::function<void()> work);

/// Objects with "Valoarea trebuie sa fie numerica" to a text that is not a number.
void requireNumberWhenLeft(NumberBox* box,
                           const QString& text = QStringLiteral("Valoarea trebuie sa fie numerica"),
                           int icon = 0, const QString& title = {}, std::function<void()> refused = {});

}  // namespace velmar

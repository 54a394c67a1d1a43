// Common behaviour of forms: closing, the keys Enter and Esc, the hourglass.
#pragma once

#include <QWidget>

class QPushButton;

namespace velmar {

/// The user's decision about unsaved input.
enum class Leaving { Store, Discard, Stay };
/// Activates the form and asks.
Leaving askLeaving(QWidget* form, const QString& question);

/// Activates a form in the main window.
void activateForm(QWidget* form);

/// Closes a form, also when it is a child window of the main window.
void closeForm(QWidget* form);

/// Minimize or maximize a form, also when it is a child window of the main window.
void minimiseForm(QWidget* form);
void maximiseForm(QWidget* form);

/// Sets the focus on a control of the form by its name, with the pages of tabs that it is on in front.
/// Returns whether there is such a control.
bool goToControl(QWidget* form, const QString& name);

/// Makes the button `cmdIesire` close its form and nothing else.
void setUpExitButton(QPushButton* button, QWidget* form);

/// Enter in a text box or on a button of `form` presses `defaultButton` (or the button itself), Esc presses
/// `exitButton`. For forms that are not a QDialog, which does this itself. A cell being edited and an open
/// list handle their keys first.
void setUpKeys(QWidget* form, QPushButton* defaultButton, QPushButton* exitButton);

/// Shows the hourglass during the lifetime of the object.
class Hourglass {
 public:
  Hourglass();
  ~Hourglass();
  Hourglass(const Hourglass&) = delete;
  Hourglass& operator=(const Hourglass&) = delete;
};

}  // namespace velmar

// The habits that all forms share: how they close, what Enter and Esc do, the hourglass.
#pragma once

#include <QWidget>

class QPushButton;

namespace velmar {

/// What becomes of something typed that is about to be left unsaved.
enum class Leaving { Store, Discard, Stay };
/// Brings the form to the front and asks.
Leaving askLeaving(QWidget* form, const QString& question);

/// Brings a form to the front of the main window.
void activateForm(QWidget* form);

/// Closes a form, also when it is a child window of the main window.
void closeForm(QWidget* form);

/// Put a form out of the way and make it as large as its room, also when it is a child window of the main
/// window.
void minimiseForm(QWidget* form);
void maximiseForm(QWidget* form);

/// Makes the button `cmdIesire` close its form and nothing else.
void setUpExitButton(QPushButton* button, QWidget* form);

/// Enter in a text box or on a button of `form` presses `defaultButton` (or the button itself), Esc presses
/// `exitButton`. For forms that are no QDialog, which does so by itself. A cell that is being edited and an
/// open list take their keys first.
void setUpKeys(QWidget* form, QPushButton* defaultButton, QPushButton* exitButton);

/// Shows the hourglass for as long as the object lives.
class Hourglass {
 public:
  Hourglass();
  ~Hourglass();
  Hourglass(const Hourglass&) = delete;
  Hourglass& operator=(const Hourglass&) = delete;
};

}  // namespace velmar

// The keyboard and the mouse of a scenario: events that enter the program where those of a person do, so that
// shortcuts, key filters and modal windows act.
#pragma once

#include <QWidget>

namespace velmar::scenario {

/// Presses a key by the toolkit's name ("F5", "Ctrl+P", "Enter") or as a single character.
void pressKey(const QString& name);

/// Types one character.
void typeCharacter(QChar character);

/// Presses the left mouse button on the widget at that place.
void clickAt(QWidget* widget, const QPoint& place, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

/// The steps of dragging with the left mouse button, by places of the widget.
void pressMouse(QWidget* widget, const QPoint& place, Qt::KeyboardModifiers modifiers);
void moveMouse(QWidget* widget, const QPoint& place);
void releaseMouse(QWidget* widget, const QPoint& place, Qt::KeyboardModifiers modifiers);

/// Brings the window of the widget to the front; fails when another modal window stands before it.
void bringToFront(QWidget* widget);

/// Gives the widget the keyboard focus; fails when it cannot have it.
void focus(QWidget* widget);

/// Whether the keyboard focus is in the widget or inside it.
bool focusIsIn(const QWidget* widget);

/// After a modal window has closed: makes the window that waits for the user active, as a window manager
/// would.
void giveFocusBack();

/// Fails when the widget is hidden or disabled.
void requireUsable(const QWidget* widget);

/// The modal window that holds up the widget's window; null when there is none.
QWidget* modalBefore(const QWidget* widget);

/// Fails when a modal window stands before the widget's window.
void requireReachable(const QWidget* widget);

}  // namespace velmar::scenario

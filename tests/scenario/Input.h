// Keyboard and mouse input of a scenario: events are injected like those of a user, so that shortcuts, key
// filters and modal windows are effective.
#pragma once

#include <QWidget>

namespace velmar::scenario {

/// Presses a key by its Qt name ("F5", "Ctrl+P", "Enter") or as a single character.
void pressKey(const QString& name);

/// Types one character.
void typeCharacter(QChar character);

/// Clicks the left mouse button on the widget at that position.
void clickAt(QWidget* widget, const QPoint& place, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

/// The steps of dragging with the left mouse button, at positions in the widget.
void pressMouse(QWidget* widget, const QPoint& place, Qt::KeyboardModifiers modifiers);
void moveMouse(QWidget* widget, const QPoint& place);
void releaseMouse(QWidget* widget, const QPoint& place, Qt::KeyboardModifiers modifiers);

/// Brings the window of the widget to the front; fails if another modal window is in front of it.
void bringToFront(QWidget* widget);

/// Sets the keyboard focus to the widget; fails if it cannot have it.
void focus(QWidget* widget);

/// Whether the keyboard focus is in the widget or inside it.
bool focusIsIn(const QWidget* widget);

/// After a modal window was closed: activates the window that waits for the user, as a window manager does.
void giveFocusBack();

/// Fails when the widget is hidden or disabled.
void requireUsable(const QWidget* widget);

/// The modal window that blocks the widget's window; null if there is none.
QWidget* modalBefore(const QWidget* widget);

/// Fails if a modal window blocks the widget's window.
void requireReachable(const QWidget* widget);

}  // namespace velmar::scenario

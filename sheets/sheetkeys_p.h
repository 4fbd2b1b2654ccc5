// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QList>

class QEvent;
class QObject;
class QPushButton;
class QWidget;

/// Blocks the shortcuts of the window while sheet is visible, but not those of the sheet. Returns
/// whether event, which was sent to watched, was such a shortcut and must be consumed.
bool overridesShortcut(const QWidget *sheet, const QObject *watched, QEvent *event);

/// Whether a click next to the visible sheet has just given the focus to its window.
bool isFocusLostToWindow(const QWidget *sheet, const QObject *watched, const QEvent *event);

/// What a sheet must do about an event that it filters.
enum class SheetEvent {
    Other, ///< nothing
    Blocked, ///< consume it; a Close event was ignored
    FocusLost, ///< consume it and take the focus back
    Key, ///< handle the key press, which was sent to the window, and consume it
};

/// Sorts an event of the window of sheet, or of a part that the sheet filters.
SheetEvent sheetEvent(
    const QWidget *sheet, const QObject *watched, QEvent *event, bool blocksClosing);

/// The button of sheet that has the focus; null without one.
QPushButton *focusedButton(const QWidget *sheet);

/// The widgets of sheet through which Tab cycles, in child order; none if it is hidden.
QList<QWidget *> focusStops(QWidget *sheet);

/// Gives the focus to the next or previous stop after from in the focus chain, and wraps at the end
/// of the sheet.
void moveFocus(QWidget *sheet, const QList<QWidget *> &stops, QWidget *from, bool isForward);

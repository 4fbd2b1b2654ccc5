// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QList>

class QEvent;
class QObject;
class QPushButton;
class QWidget;

/// Keeps the shortcuts of the window from firing while sheet is visible; its own still fire.
/// Returns whether event, which was sent to watched, was such a shortcut: it is consumed then.
bool overridesShortcut(const QWidget *sheet, const QObject *watched, QEvent *event);

/// Whether a click beside the visible sheet has just given its window the focus.
bool isFocusLostToWindow(const QWidget *sheet, const QObject *watched, const QEvent *event);

/// The button of sheet that has the focus; null without one.
QPushButton *focusedButton(const QWidget *sheet);

/// The widgets of sheet, in child order, among which Tab goes round: none while it is hidden.
QList<QWidget *> focusStops(QWidget *sheet);

/// Gives the focus to the stop after from in the focus chain, or before it. At the end of the sheet
/// the first stop, or the last one, is next.
void moveFocus(QWidget *sheet, const QList<QWidget *> &stops, QWidget *from, bool isForward);

// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

class QAction;
class QLineEdit;

/// Qt's clear button of a field, with the picture "bt_close" and a name for assistive tools.
void setNamedClearButton(QLineEdit *field, bool enabled);

/// The action of that button; null without one.
QAction *clearButtonAction(const QLineEdit *field);

/// Hides the text of a field and adds a button that shows it while it is checked; or removes the
/// button and shows the text.
void setPasswordButton(QLineEdit *field, bool enabled);

/// The action of that button; null without one.
QAction *passwordButtonAction(const QLineEdit *field);

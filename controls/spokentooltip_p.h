// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

class QString;
class QWidget;

/// Uses a widget's tool tip without mark-up as its accessible description; Qt would include the
/// mark-up. Keeps a description set by the host.
void speakToolTip(QWidget *widget);

/// Appends the text of a badge to that description; an empty text removes it. A widget has one
/// badge: the last one counts.
void speakBadge(QWidget *widget, const QString &text);

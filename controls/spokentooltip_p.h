// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

class QWidget;

/// Uses a widget's tool tip without mark-up as its accessible description; Qt would include the
/// mark-up. Keeps a description set by the host.
void speakToolTip(QWidget *widget);

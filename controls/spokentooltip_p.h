// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

class QWidget;

/// Describes a widget to assistive tools by its tool tip without the mark-up, which Qt would have
/// them read out. A description that the host gives it stays.
void speakToolTip(QWidget *widget);

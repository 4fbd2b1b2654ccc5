// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

class QComboBox;

/// Has the list of a combo box painted once each time it opens, where Qt paints it twice from the
/// second time on. Call it once, when the view is set; the box owns what this takes.
void paintPopupOnce(QComboBox *box);

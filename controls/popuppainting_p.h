// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

class QComboBox;

/// Makes sure that the list of a combo box is painted only once each time it opens; from the second
/// time on, Qt would paint it twice. Call it once, after the view has been set; the box owns the
/// helper object.
void paintPopupOnce(QComboBox *box);

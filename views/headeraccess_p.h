// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

class QHeaderView;

/// Shows assistive tools the header of a VemoAbstractTable as a row with a column header for each
/// caption. Call it when the header is in its widget.
void makeHeaderAccessible(QHeaderView *header);

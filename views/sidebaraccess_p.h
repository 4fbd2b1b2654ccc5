// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

/// Shows assistive tools each SideBarList as a list with an item for each page. Qt's own items of
/// a list do not tell that they are disabled, and are selected without becoming current.
void makeSideBarsAccessible();

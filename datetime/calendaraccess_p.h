// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

/// From now on assistive tools find the parts of a VemoCalanderView, and in its grid a table of
/// days that have their full date for a name. Calling it again does nothing.
void makeCalendarsAccessible();

// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

/// Makes the parts of every VemoCalanderView accessible, and its grid as a table of days whose
/// names are full dates. A second call has no effect.
void makeCalendarsAccessible();

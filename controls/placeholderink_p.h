// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

class QLineEdit;

/// Makes the placeholder of a styled field paler than its text: a style sheet sets the same colour
/// for both, so that an empty field looks filled in. Keeps a placeholder colour set by the host.
void palePlaceholder(QLineEdit *field);

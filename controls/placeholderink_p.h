// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

class QLineEdit;

/// Shows the placeholder of a styled field paler than a text: a style sheet gives both one colour,
/// and an empty field looks filled in. A colour of the host's own for the placeholder stays.
void palePlaceholder(QLineEdit *field);

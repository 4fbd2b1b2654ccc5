// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QString>

/// Whether the tags, or the tables, of html lie deeper inside each other than the limits allow.
bool isNestedTooDeeply(const QString &html);

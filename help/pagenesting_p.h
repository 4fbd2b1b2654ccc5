// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include "core/testexport_p.h"

#include <QString>

/// Whether the tags, or the tables, of html lie deeper inside each other than the limits allow.
VEMO_TEST_EXPORT bool isNestedTooDeeply(const QString &html);

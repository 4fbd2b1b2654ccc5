// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

/// Of two opaque colours, as WCAG computes it: 1 to 21.
double contrast(const QColor &a, const QColor &b);

// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QRect>

/// The rectangle of the check box that any ItemDelegate drew last; null if none has been drawn.
QRect &lastCheckRect();

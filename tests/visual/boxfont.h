// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>

/// A font in which each character is a box of the same width, and the blank is empty: texts keep
/// their position and colour, but pictures do not depend on the text rendering of a system.
QFont boxFont();

// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>

/// A font in which each character is a box of one width, and the blank is blank: texts keep their
/// place and their colour, but no picture depends on how a system draws letters.
QFont boxFont();

// SPDX-License-Identifier: MIT
#pragma once

#include "options.h"

/// Writes a PNG file for each main state of the window and prints the paths. Returns an error
/// message; empty on success.
QString writeScreenshots(const Options &options);

// SPDX-License-Identifier: MIT
#pragma once

#include "options.h"

/// Writes what the window looks like in its main states, each as a PNG file, and their paths to the
/// standard output. The result says what went wrong; empty if nothing did.
QString writeScreenshots(const Options &options);

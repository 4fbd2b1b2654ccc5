// SPDX-License-Identifier: MIT
#pragma once

/// Installs the default theme in the user's language, unless the process has already performed a
/// start-up. Its pictures are written to a temporary folder that is removed when the process ends.
/// If that is not writable, returns false with a warning.
bool startTheme();

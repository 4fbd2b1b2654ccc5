// SPDX-License-Identifier: MIT
#pragma once

/// Starts the default theme, in the user's language, unless this process has done a start-up
/// before. Its pictures go to a temporary folder that is removed when the process ends. False and a
/// warning where that can't be written.
bool startTheme();

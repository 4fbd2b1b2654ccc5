// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

struct Options;

/// Writes a PNG file for each page, or for the selected page, at the page's full height, and prints
/// each path. Returns an error message; empty on success.
QString writeScreenshots(const Options &options);

/// The file name of a page's picture: "Data views" becomes "data-views.png".
QString screenshotName(const QString &title);

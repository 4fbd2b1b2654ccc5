// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

struct Options;

/// Writes one PNG file per page (or the one page that was chosen) at the page's whole height, and
/// prints each path. Yields what went wrong, a sentence; empty when nothing did.
QString writeScreenshots(const Options &options);

/// The file name of a page's picture: "Data views" becomes "data-views.png".
QString screenshotName(const QString &title);

// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QString>

/// The scale of the primary screen, measured once on the first call of getInstance().
///
/// All lengths in the library are in design pixels, for a 96-dpi screen; scaled() converts them to
/// screen pixels. Do not call getInstance() before the application object exists: without a
/// screen both values are 1.
///
///     const int rowHeight = DPIinfo::scaled(28); // 35 at 120 dpi
///
/// \image html resources-screen.png
class VEMO_EXPORT DPIinfo
{
public:
    /// The only instance. The first call measures the primary screen; the application object must
    /// exist.
    static DPIinfo &getInstance();

    /// The scale factor: logical dots per inch / 96, so 1.5 at 144 dpi. Not dots per inch.
    double getDPI() const { return m_dpi; }

    /// The device pixel ratio, for example 2 on a screen with pixels of half the size.
    double getDPR() const { return m_dpr; }

    /// Converts design pixels to screen pixels: multiplies by getDPI() and truncates toward zero,
    /// so 28.5 becomes 42 at 144 dpi. Clamped to the range of int; 0 for NaN.
    static int scaled(qreal designPixels);

    /// Returns sheet with every "px" length multiplied by getDPI() and truncated to whole pixels.
    ///
    /// Lengths with up to three characters ("8px", "100px") are exact. A longer one ("1000px",
    /// "12.5px") is scanned again from its fourth character, which adds a second length after it:
    /// do not use such lengths in style files. Any digits before "px" are a length, even in the
    /// name of a picture: "arrow_16px.png" becomes "arrow_24px.png" at factor 1.5.
    ///
    /// A sheet with more than 64 Mi characters is returned unchanged.
    QString getScaledStyleSheet(QString sheet) const;

private:
    DPIinfo();

    double m_dpi = 1.0;
    double m_dpr = 1.0;
};

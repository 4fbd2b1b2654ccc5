// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QString>

/// The primary screen's scale, measured once: on the first call of getInstance(), and never again.
///
/// Every length of the library is in design pixels, made for a screen of 96 dpi; scaled() turns it
/// into screen pixels. Don't call getInstance() before the application object exists: without a
/// screen both values are 1.
///
///     const int rowHeight = DPIinfo::scaled(28); // 35 at 120 dpi
///
/// \image html resources-screen.png
class VEMO_EXPORT DPIinfo
{
public:
    /// The one instance. Its first call measures the primary screen; the application object must
    /// exist.
    static DPIinfo &getInstance();

    /// The scale factor: logical dots per inch / 96, so 1.5 at 144 dpi. Not dots per inch.
    double getDPI() const { return m_dpi; }

    /// The device pixel ratio, such as 2 on a screen with pixels of half the size.
    double getDPR() const { return m_dpr; }

    /// The screen pixels of a length in design pixels: times getDPI(), truncated toward zero, so 42
    /// for 28.5 at 144 dpi. Clamped to what an int holds; 0 for NaN.
    static int scaled(qreal designPixels);

    /// sheet with every "px" length multiplied by getDPI() and cut to whole pixels.
    ///
    /// Lengths of up to three characters ("8px", "100px") come out exact. A longer one ("1000px",
    /// "12.5px") is read again from its fourth character on, which adds a second length behind it:
    /// write style files without them. Any digits before "px" are a length, also in the name of a
    /// picture: "arrow_16px.png" becomes "arrow_24px.png" at factor 1.5.
    ///
    /// A sheet of more than 64 Mi characters is returned as it is.
    QString getScaledStyleSheet(QString sheet) const;

private:
    DPIinfo();

    double m_dpi = 1.0;
    double m_dpr = 1.0;
};

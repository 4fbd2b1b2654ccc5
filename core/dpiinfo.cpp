// SPDX-License-Identifier: MIT
#include <vemo/dpiinfo.h>

#include "core/scaledlengths_p.h"
#include "core/truncation_p.h"

#include <QGuiApplication>
#include <QScreen>

namespace {

constexpr double kDesignDpi = 96.0;

} // namespace

DPIinfo &DPIinfo::getInstance()
{
    static DPIinfo instance;
    return instance;
}

DPIinfo::DPIinfo()
{
    if (const QScreen *screen = QGuiApplication::primaryScreen()) {
        m_dpi = screen->logicalDotsPerInchX() / kDesignDpi;
        m_dpr = screen->devicePixelRatio();
    }
}

int DPIinfo::scaled(qreal designPixels)
{
    return truncToInt(getInstance().m_dpi * designPixels);
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): by value as declared.
QString DPIinfo::getScaledStyleSheet(QString sheet) const
{
    return scaledLengths(sheet, m_dpi);
}

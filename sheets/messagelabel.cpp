// SPDX-License-Identifier: MIT
#include "sheets/messagelabel_p.h"

void MessageLabel::fit()
{
    // A label never asks for less than its minimum height, so a fixed one would only ever grow.
    setMinimumHeight(0);
    setMaximumHeight(QWIDGETSIZE_MAX);
    const int height = heightForWidth(width());
    // A text without word wrap has no height for a width.
    if (height >= 0)
        setFixedHeight(height);
}

void MessageLabel::fitTo(int width)
{
    ensurePolished();
    resize(width, height());
    fit();
}

void MessageLabel::resizeEvent(QResizeEvent *event)
{
    QLabel::resizeEvent(event);
    fit();
}

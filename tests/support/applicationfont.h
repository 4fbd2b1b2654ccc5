// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QFont>

/// The font of the application in another size, in points.
inline QFont fontOf(int points)
{
    QFont font = QApplication::font();
    font.setPointSize(points);
    return font;
}

/// Sets the font of the application during its lifetime.
class ApplicationFont
{
public:
    explicit ApplicationFont(int points) { QApplication::setFont(fontOf(points)); }
    ~ApplicationFont() { QApplication::setFont(m_before); }

private:
    QFont m_before = QApplication::font();
};

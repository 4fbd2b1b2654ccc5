// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QObject>
#include <QStringList>

class QFont;
class QToolButton;

/// Keeps the heading of a calendar, month and year, within its navigation bar: in a font that is
/// too large for it, both get a smaller one. The longest name decides, so that the heading has one
/// size in every month.
class HeadingFont : public QObject
{
public:
    /// Lives with the calendar, which has Qt's own parts.
    HeadingFont(QWidget *calendar, const QStringList &months);

    /// Of the bar with the heading in its own font.
    int wantedWidth() const { return m_wanted_width; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void fit();
    int widthBesideText() const;
    void setFont(const QFont &font);

    QWidget *m_bar;
    QToolButton *m_month;
    QToolButton *m_year;
    QStringList m_months;
    int m_wanted_width = 0;
    bool m_is_smaller = false;
    bool m_is_fitting = false;
};

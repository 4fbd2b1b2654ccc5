// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QObject>

class QWidget;

/// Gives a control of a fixed height a smaller font while a line of its own is too high. Controls
/// that paint their texts themselves only need fontForHeight().
class FittingFont : public QObject
{
    Q_OBJECT

public:
    /// For a text with room for height screen pixels. A second call for the same control has no
    /// effect. A font that the host sets on the control itself stays.
    static void keep(QWidget *control, int height);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    FittingFont(QWidget *control, int height);
    void fit();

    QWidget *m_control;
    int m_height;
    int m_smaller_size = 0; // in pixels; 0 while the control has its own font
    bool m_is_fitting = false;
};

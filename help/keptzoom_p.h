// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QObject>

class QTextEdit;

/// Gives a view the zoom of the one that was zoomed last, and keeps its own for the next one. The
/// zoom is the difference between the font sizes of the view and its parent; it is limited to half
/// and three times the size.
class KeptZoom : public QObject
{
public:
    /// Belongs to the view.
    explicit KeptZoom(QTextEdit *view);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    qreal originalSize() const;
    void setSize(qreal points);

    QTextEdit *m_view;
};

// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QLabel>

#include <memory>

class QMovie;

/// Shows the picture or the movie of a message. QLabel draws a pixel of a movie over several pixels
/// of the screen if there are more than one to a point; this class then draws larger frames.
class IconLabel : public QLabel
{
public:
    explicit IconLabel(QWidget *parent);
    ~IconLabel() override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QPixmap detailedFrame();

    std::unique_ptr<QMovie>
        m_detailed; ///< of the same file in the pixels of the screen; never runs
};

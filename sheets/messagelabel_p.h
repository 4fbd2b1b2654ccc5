// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QLabel>

/// A text label that is always exactly as high as its wrapped text.
class MessageLabel : public QLabel
{
public:
    using QLabel::QLabel;

    /// Sets the height for the current width and text. Call it after each change of the text.
    void fit();

    /// Sets the width and the corresponding height before the layout does. The text is not laid out
    /// if both are already set.
    void fitTo(int width);

    /// To be called for a new text, so that the next fitTo() lays it out.
    void forgetSize() { m_fittedWidth = -1; }

    // Returns the fitted size if there is one: layouts call this often, and laying out the text,
    // and in particular estimating a good width for it, is slow.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    int heightForWidth(int width) const override;

protected:
    void changeEvent(QEvent *event) override;
    /// With the focus rectangle of the style, which a QLabel leaves out.
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    bool isFitted() const { return m_fittedWidth >= 0; }

    int m_fittedWidth = -1; ///< the width for which the height is fixed; -1 if it is not
};

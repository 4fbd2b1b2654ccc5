// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QLabel>

/// A text label that is always exactly as high as its wrapped text needs at its width.
class MessageLabel : public QLabel
{
public:
    using QLabel::QLabel;

    /// Takes on the height for the width and text of now; call it after each change of the text.
    void fit();

    /// Takes on width and the height that goes with it, before any layout does; nothing is laid
    /// out if it has both already.
    void fitTo(int width);

    /// For a new text: the next fitTo() lays it out.
    void forgetSize() { m_fittedWidth = -1; }

    // Once fitted it answers from what it knows: laying a text out anew, and above all guessing a
    // good width for it, takes long, and layouts ask often.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    int heightForWidth(int width) const override;

protected:
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    bool isFitted() const { return m_fittedWidth >= 0; }

    int m_fittedWidth = -1; ///< the width that the fixed height goes with; -1: none does
};

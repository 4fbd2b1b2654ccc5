// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include "core/testexport_p.h"

#include <QLabel>

/// A text label that is always exactly as high as its wrapped text needs at its width.
class VEMO_TEST_EXPORT MessageLabel : public QLabel
{
public:
    using QLabel::QLabel;

    /// Takes on the height for the width and text of now; call it after each change of the text.
    void fit();

    /// Takes on width and the height that goes with it, before any layout does.
    void fitTo(int width);

protected:
    void resizeEvent(QResizeEvent *event) override;
};

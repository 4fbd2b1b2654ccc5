// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

class ClickableLabel;
class QCheckBox;
class QString;
class QWidget;

/// A check box with a caption that wraps, which a QCheckBox of its own cannot do.
struct CheckRow
{
    QCheckBox *box;
    ClickableLabel *label; ///< the caption, which also clicks the box
};

/// Creates a row without a caption in an empty container. The keys are those of style sections.
CheckRow newCheckRow(QWidget *container, const char *boxKey, const char *labelKey);

/// Sets the minimum height of the caption in a row of this width. Without it a layout would make
/// room for as many lines as a label of some other width needs.
void fitCaption(const CheckRow &row, int width);

/// Sets the caption, also for assistive tools.
void setCaption(const CheckRow &row, const QString &text);

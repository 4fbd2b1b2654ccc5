// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QComboBox>

/// A combo box in the library's look whose list always opens two screen pixels below it, aligned
/// with its left edge.
///
/// Requires: style files. The section "component.combobox" contains the placeholders %1 and %2,
/// which are replaced by the padding on both sides (6 design pixels, with fractions) and the
/// border; the section "component.scrollbar" is appended. A missing section is left out, with a
/// warning. It belongs to its parent. Assistive tools announce it by its accessible name; if it has
/// none, by the label whose buddy it is, and otherwise by its current text.
///
///     auto *unit = new VemoComboBox(page);
///     unit->addItems({ tr("Days"), tr("Weeks") });
///     connect(unit, QOverload<int>::of(&VemoComboBox::currentIndexChanged), this,
///         &MainWindow::setUnit);
///
/// \image html choices-combo-boxes.png
class VEMO_EXPORT VemoComboBox : public QComboBox
{
    Q_OBJECT

public:
    /// Creates an empty box and looks up its styles.
    explicit VemoComboBox(QWidget *parent = nullptr);

    /// Opens the list. The box first gives up the keyboard focus and, if it had the focus, takes it
    /// back when the list has closed, unless another widget of the window has it by then.
    void showPopup() override;

    /// Higher than the section allows if a line of the font does not fit otherwise.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    /// Takes the style of a reloaded theme.
    void customEvent(QEvent *event) override;

private:
    QSize grown(const QSize &hint) const;

    QString m_theme_style;
};

// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QFrame>

class VemoMaskPrivate;

/// A translucent cover between a window and the sheet shown over it.
///
/// The cover fills the window, follows its size, holds the sheet in its middle, and is visible
/// exactly while the sheet is shown. It belongs to the window and is deleted with it; when the
/// sheet is deleted first, the hidden cover stays. Scope the window's own style rules by object
/// name: a rule for every QWidget or QFrame replaces the cover's colour. It needs no resources.
///
///     auto *sheet = new VemoMessageSheet(VemoMessageSheet::Information, tr("Done."), window);
///     VemoMask::createMask(sheet, window, QColor(0, 0, 0, 20));
///     sheet->exec();
///
/// \image html sheets-frame-and-mask.png
class VEMO_EXPORT VemoMask : public QFrame
{
    Q_OBJECT

public:
    /// Lays a cover over parent, which should be a window, and widget, which becomes its child, in
    /// the middle of it. Without a parent that of widget is taken. color should be translucent:
    /// showConfirmMsg() and its like take QColor(0, 0, 0, 20). Returns widget (its parentWidget()
    /// is now the cover), or null where widget or any parent is missing, and where parent is widget
    /// or lies within it.
    static QWidget *createMask(QWidget *widget, QWidget *parent, QColor color);

    ~VemoMask() override;

    /// Takes on the size of the window again; already done whenever that changes.
    void resize();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    VemoMask(QWidget *widget, QWidget *parent, const QColor &color);

    VemoMaskPrivate *m_d;
};

// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QFrame>

class VemoMaskPrivate;

/// A translucent cover between a window and the sheet shown over it.
///
/// The cover fills the window, follows its size, holds the sheet in its middle, and is visible
/// exactly while the sheet is shown. Until then it stays above every other child of the window,
/// also above those that are added or raised later; of two masks, the one shown last is above.
/// Clicks, the wheel, context menus, tool tips and drops stop at it.
///
/// A sheet whose size policy lets it grow fills the cover. Message and input sheets have a fixed
/// width; give a VemoSheet of your own the policy Fixed to keep it in the middle.
///
/// It belongs to the window and is deleted with it. If the sheet is deleted first, the hidden cover
/// stays: delete sheet->parentWidget() instead, which deletes both. Scope the window's own style
/// rules by object name: a rule for every QWidget or QFrame replaces the cover's colour. It needs
/// no resources.
///
/// VemoMessageSheet and VemoInputSheet lay their mask themselves in execAndDelete() and open(). For
/// a frame of your own, which ends when you delete the mask:
///
///     auto *sheet = new VemoSheet(window);
///     sheet->setWidget(content);
///     sheet->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
///     VemoMask::createMask(sheet, window, QColor(0, 0, 0, 20))->show();
///     connect(close, &VemoButton::clicked, sheet->parentWidget(), &QObject::deleteLater);
///
/// \image html sheets-frame-and-mask.png
class VEMO_EXPORT VemoMask : public QFrame
{
    Q_OBJECT

public:
    /// Lays a cover over parent, which should be a window, and puts widget, which becomes its
    /// child, in the middle of it. A null parent means that of widget. color should be translucent:
    /// the message functions use QColor(0, 0, 0, 20). Returns widget (its parentWidget() is now the
    /// cover), or null if widget or any parent is missing, or if parent is widget or lies within
    /// it.
    ///
    /// Each call makes a new cover. If widget has one already, that one stays behind, empty, and
    /// deliberately is still shown and hidden with widget, so that the window gets darker: delete
    /// it first, after widget->setParent(window).
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

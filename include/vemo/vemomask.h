// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QFrame>

class VemoMaskPrivate;

/// A translucent cover between a window and the sheet shown over it.
///
/// The cover fills the window, follows its size, centres the sheet, and is visible exactly while
/// the sheet is shown. While visible, it stays above every other child of the window, including
/// those added or raised later; of two masks, the one shown last is on top. Clicks, wheel events,
/// context menus, tool tips and drops stop at it.
///
/// A sheet whose size policy lets it grow fills the cover. Message and input sheets have a fixed
/// width; set the policy Fixed for your own VemoSheet to keep it centred.
///
/// It belongs to the window and is deleted with it. If the sheet is deleted first, the hidden cover
/// remains: delete sheet->parentWidget() instead, which deletes both. Scope the window's own style
/// rules by object name: a rule for every QWidget or QFrame replaces the cover's colour. Requires:
/// nothing.
///
/// VemoMessageSheet and VemoInputSheet create their mask themselves in execAndDelete() and open().
/// For your own frame, which ends when you delete the mask:
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
    /// Creates a cover over parent, which should be a window, and centres widget in it, which
    /// becomes its child. A null parent means that of widget. color should be translucent: the
    /// message functions use QColor(0, 0, 0, 20). Returns widget (its parentWidget() is now the
    /// cover), or null if widget or any parent is missing, or if parent is widget or inside it.
    ///
    /// Each call creates a cover. If widget already has one, that one remains empty and,
    /// deliberately, is still shown and hidden with widget, so that the window gets darker: delete
    /// it first, after widget->setParent(window).
    static QWidget *createMask(QWidget *widget, QWidget *parent, QColor color);

    ~VemoMask() override;

    /// Adopts the size of the window; called automatically whenever that changes.
    void resize();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    /// Takes the shade of a reloaded theme.
    void customEvent(QEvent *event) override;

private:
    VemoMask(QWidget *widget, QWidget *parent, const QColor &color);

    VemoMaskPrivate *m_d;
};

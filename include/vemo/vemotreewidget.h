// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QColor>
#include <QPersistentModelIndex>
#include <QTreeWidget>

/// A tree that paints a rounded highlight behind selected and hovered rows and tells the host of
/// key presses and right clicks.
///
/// It looks up no style itself: a host sets its colours, its style sheet (the default theme has
/// one, "component.tree") and, for renaming, an ItemDelegate. Rows without a check box
/// (Qt::ItemIsUserCheckable) draw their text as disabled. It belongs to its parent. The events that
/// its own signals hand out are not to be kept; their slots may delete the tree.
///
///     auto *folders = new VemoTreeWidget(this);
///     folders->setStyleSheet(getStyleSheet("component.tree"));
///     folders->setBackgroundColor("#DCEBFB", "#EEF3F8");
///     connect(folders, SIGNAL(sigMouseRightClickEvent(QMouseEvent *)), this,
///         SLOT(slotShowMenu(QMouseEvent *)));
///
/// \image html tree-folders.png
class VEMO_EXPORT VemoTreeWidget : public QTreeWidget
{
    Q_OBJECT
    Q_PROPERTY(QColor selectedColor READ selectedColor WRITE setSelectedColor)
    Q_PROPERTY(QColor hoverColor READ hoverColor WRITE setHoverColor)

public:
    /// An empty tree without colours.
    explicit VemoTreeWidget(QWidget *parent = nullptr);

    /// Colours behind selected and hovered rows, from the next paint on; invalid ones, as at first,
    /// paint black.
    void setBackgroundColor(QColor selected, QColor hover);

    /// The colour behind selected rows; invalid at first.
    QColor selectedColor() const { return m_selected_color; }
    /// The one colour without the other, for forms.
    void setSelectedColor(const QColor &color) { setBackgroundColor(color, m_hover_color); }
    /// The colour behind hovered rows; invalid at first.
    QColor hoverColor() const { return m_hover_color; }
    /// The one colour without the other, for forms.
    void setHoverColor(const QColor &color) { setBackgroundColor(m_selected_color, color); }

    /// Scrolls sideways until the left edge of item is in the middle of the viewport, unless it has
    /// 100 design pixels of room already. Does nothing for a null item or another tree's.
    void updateScrollArea(QTreeWidgetItem *item);

Q_SIGNALS:
    /// The user pressed a key; before the tree handles it.
    void sigKeyPressEvent(QKeyEvent *);
    /// The user pressed the right button, anywhere on the tree; before the tree handles it.
    void sigMouseRightClickEvent(QMouseEvent *event);

protected:
    /// Follows the pointer, so that the highlight of a row goes when the pointer does.
    bool event(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    /// Makes the current item current once more, so that its signals fire; without one, the first.
    void focusInEvent(QFocusEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    void paintEvent(QPaintEvent *event) override;
    void drawRow(QPainter *painter, const QStyleOptionViewItem &option,
        const QModelIndex &index) const override;

private:
    struct Paint;

    bool isSelected(const QModelIndex &index) const;
    bool isHovered(const QRect &rect) const;
    void setPointer(const QPoint &pointer);
    QModelIndex rowAt(const QPoint &pointer) const;
    void updateRow(const QModelIndex &row);

    QColor m_selected_color;
    QColor m_hover_color;
    const Paint *m_paint = nullptr; ///< set while the viewport is painted
    QPersistentModelIndex m_hovered_row; ///< the row under the pointer, as far as events say
};

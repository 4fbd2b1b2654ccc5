// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QColor>
#include <QPersistentModelIndex>
#include <QTreeWidget>

/// A tree that paints a rounded highlight under selected and hovered rows, and emits signals for
/// key presses and right clicks.
///
/// It does not style itself: the host sets its colours, its style sheet (the default theme has the
/// section "component.tree") and, for renaming, an ItemDelegate. The text of rows without a check
/// box (Qt::ItemIsUserCheckable) is drawn as disabled. It belongs to its parent. The events passed
/// to slots are only valid during the signal; slots may delete the tree.
///
///     auto *folders = new VemoTreeWidget(this);
///     folders->setStyleSheet(getStyleSheet("component.tree"));
///     folders->setBackgroundColor("#DCEBFB", "#EEF3F8");
///     connect(folders, &VemoTreeWidget::sigMouseRightClickEvent, this,
///         &MainWindow::showFolderMenu);
///
/// \image html tree-folders.png
class VEMO_EXPORT VemoTreeWidget : public QTreeWidget
{
    Q_OBJECT
    /// The highlight of selected rows.
    Q_PROPERTY(QColor selectedColor READ selectedColor WRITE setSelectedColor)
    /// The highlight of hovered rows.
    Q_PROPERTY(QColor hoverColor READ hoverColor WRITE setHoverColor)

public:
    /// Creates an empty tree without colours.
    explicit VemoTreeWidget(QWidget *parent = nullptr);

    /// Sets the highlights of selected and hovered rows, from the next paint event on. Initially
    /// they are invalid and painted black.
    void setBackgroundColor(QColor selected, QColor hover);

    /// The highlight of selected rows; initially invalid.
    QColor selectedColor() const { return m_selected_color; }
    /// Sets this colour and keeps the other; for forms.
    void setSelectedColor(const QColor &color) { setBackgroundColor(color, m_hover_color); }
    /// The highlight of hovered rows; initially invalid.
    QColor hoverColor() const { return m_hover_color; }
    /// Sets this colour and keeps the other; for forms.
    void setHoverColor(const QColor &color) { setBackgroundColor(m_selected_color, color); }

    /// Scrolls horizontally until the left edge of item is in the middle of the viewport, unless
    /// there are already 100 design pixels of space. Ignores null and items of other trees.
    void updateScrollArea(QTreeWidgetItem *item);

Q_SIGNALS:
    /// Emitted when the user presses a key, before the tree handles it.
    void sigKeyPressEvent(QKeyEvent *);
    /// Emitted when the user presses the right button anywhere on the tree, before the tree handles
    /// it.
    void sigMouseRightClickEvent(QMouseEvent *event);
    /// The user asked for a menu by the keyboard, with the Menu key or Shift+F10; after
    /// sigKeyPressEvent() and before the tree handles the key. item is the current one, or null;
    /// position is where its menu should open, below its text, in the viewport.
    void sigMenuKeyEvent(QTreeWidgetItem *item, const QPoint &position);

protected:
    /// Tracks the pointer, so that the highlight disappears when the pointer leaves a row.
    bool event(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    /// Sets the current item again so that its signals are emitted, or the first item if there is
    /// none.
    void focusInEvent(QFocusEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    void paintEvent(QPaintEvent *event) override;
    void drawRow(QPainter *painter, const QStyleOptionViewItem &option,
        const QModelIndex &index) const override;

private:
    struct Paint;

    QPoint menuPosition() const;
    bool isSelected(const QModelIndex &index) const;
    bool isHovered(const QRect &rect) const;
    void setPointer(const QPoint &pointer);
    QModelIndex rowAt(const QPoint &pointer) const;
    void updateRow(const QModelIndex &row);

    QColor m_selected_color;
    QColor m_hover_color;
    const Paint *m_paint = nullptr; ///< set while the viewport is painted
    QPersistentModelIndex m_hovered_row; ///< the row under the pointer at the last event
};

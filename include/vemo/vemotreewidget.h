// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QColor>
#include <QPersistentModelIndex>
#include <QTreeWidget>
#include <QUrl>

#include <functional>
#include <memory>

/// A tree that paints a rounded highlight under selected and hovered rows, and emits signals for
/// key presses and right clicks. It can also propagate check states, filter its items, request
/// children when an item is expanded, and report drops; all of that is off by default.
///
/// It does not style itself: the host sets its colours, its style sheet (the default theme has the
/// section "component.tree") and, for renaming, an ItemDelegate. The text of rows without a check
/// box (Qt::ItemIsUserCheckable) is drawn as disabled. It belongs to its parent. The events passed
/// to slots are only valid during the signal; the slots of signals that pass an event, and of
/// sigMenuKeyEvent(), may delete the tree.
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
    /// Whether checking an item also checks the items below it.
    Q_PROPERTY(bool checkPropagation READ hasCheckPropagation WRITE setCheckPropagation)
    /// Whether items can be dragged and dropped; see setDropSignalsEnabled().
    Q_PROPERTY(bool dropSignalsEnabled READ areDropSignalsEnabled WRITE setDropSignalsEnabled)

public:
    /// What is known about the children of an item.
    enum ChildrenState {
        ChildrenLoaded, ///< all are in the tree; the initial state of every item
        ChildrenOnDemand, ///< requested when the item is expanded
        ChildrenLoading, ///< requested, and not all of them in the tree yet
        ChildrenFailed, ///< could not be loaded; requested again when the item is expanded again
    };
    Q_ENUM(ChildrenState)

    /// Where something was dropped.
    enum DropPosition {
        DropOnItem,
        DropAboveItem, ///< between an item and the one above it
        DropBelowItem,
        DropOnViewport, ///< where there is no item
    };
    Q_ENUM(DropPosition)

    /// Returns whether an item matches a filter. Must not change the tree.
    using FilterFunction = std::function<bool(const QTreeWidgetItem &item)>;

    /// Creates an empty tree without colours.
    explicit VemoTreeWidget(QWidget *parent = nullptr);
    ~VemoTreeWidget() override;

    /// Sets the highlights of selected and hovered rows from the next paint on; initially black.
    void setBackgroundColor(QColor selected, QColor hover);

    QColor selectedColor() const { return m_selected_color; } ///< initially invalid
    /// Sets this colour and keeps the other; for forms.
    void setSelectedColor(const QColor &color) { setBackgroundColor(color, m_hover_color); }
    QColor hoverColor() const { return m_hover_color; } ///< initially invalid
    /// Sets this colour and keeps the other; for forms.
    void setHoverColor(const QColor &color) { setBackgroundColor(m_selected_color, color); }

    /// Scrolls horizontally until the left edge of item is in the middle of the viewport, unless
    /// there are already 100 design pixels of space. Ignores null and items of other trees.
    void updateScrollArea(QTreeWidgetItem *item);

    /// Sets whether checking or unchecking an item in column 0 does the same to all items below it,
    /// and whether every item shows the common state of its children, or Qt::PartiallyChecked. Off
    /// by default. Enabling it updates all items that have children.
    ///
    /// Items without a check box, and what is below them, are left out. Items added later keep
    /// their states, unless their parent is ChildrenLoading: then they get its state when it
    /// becomes ChildrenLoaded. itemChanged() is only emitted for the item that was checked, at the
    /// end; the model's dataChanged() also reports the others.
    void setCheckPropagation(bool enabled);
    bool hasCheckPropagation() const { return m_checks != nullptr; } ///< false by default

    /// Shows only the items that match, and the items above them, which are expanded. Replaces the
    /// previous filter. Later, new items and hidden items that change are tested; to test all items
    /// again, set the filter again. Items hidden by setHidden() before stay hidden; of the items
    /// below a hidden one, isHidden() need not be true. Hidden items are deselected.
    void setFilterFunction(const FilterFunction &matches);
    /// The same for items whose text in column contains text in any case; "" removes the filter.
    void setFilterText(const QString &text, int column = 0);
    /// Shows the items hidden by the filter, and expands and collapses all items as before it was
    /// set, except those added since, which are collapsed. The selection and the current item do
    /// not change.
    void clearFilter();
    bool isFiltered() const { return m_filter != nullptr; } ///< whether a filter is set

    /// Sets what is known about the children of item. An item whose children are not loaded can be
    /// expanded even if it has none; ChildrenOnDemand collapses it. text is shown below an item
    /// that is ChildrenLoading or ChildrenFailed, in a row that cannot be selected, until the next
    /// call. Ignores null and items of other trees; an item taken out of the tree becomes
    /// ChildrenLoaded.
    void setChildrenState(
        QTreeWidgetItem *item, ChildrenState state, const QString &text = QString());
    /// ChildrenLoaded for items of which nothing else was set.
    ChildrenState childrenState(const QTreeWidgetItem *item) const;

    /// Sets whether items can be dragged, and items and files dropped, which is only reported: the
    /// tree never moves, copies or removes an item. Sets the dragDropMode, which a host may
    /// restrict. The flags Qt::ItemIsDragEnabled and Qt::ItemIsDropEnabled of the items and of
    /// invisibleRootItem() apply; with dragDropOverwriteMode nothing is dropped between items.
    void setDropSignalsEnabled(bool enabled);
    bool areDropSignalsEnabled() const { return m_are_drop_signals_enabled; } ///< false by default

    using QTreeWidget::edit;

Q_SIGNALS:
    /// Emitted when the user presses a key, before the tree handles it.
    void sigKeyPressEvent(QKeyEvent *);
    /// Emitted when the user presses the right button on the tree, before the tree handles it.
    void sigMouseRightClickEvent(QMouseEvent *event);
    /// The user asked for a menu by the keyboard, with the Menu key or Shift+F10; after
    /// sigKeyPressEvent() and before the tree handles the key. item is the current one, or null;
    /// position is where its menu should open, below its text, in the viewport.
    void sigMenuKeyEvent(QTreeWidgetItem *item, const QPoint &position);
    /// Emitted once when the user has changed the check box of item in column 0, after
    /// itemChanged(). A slot may delete items, but not the tree.
    void itemToggled(QTreeWidgetItem *item, Qt::CheckState state);
    /// Emitted by the event loop after item was expanded, if its children are ChildrenOnDemand or
    /// ChildrenFailed; they are ChildrenLoading now. Add the children, now or later, and call
    /// setChildrenState(), which the tree does for you if there are children when the slot returns.
    /// A slot may delete the item or the tree.
    void childrenRequested(QTreeWidgetItem *item);
    /// Emitted when the user dropped items of this or another VemoTreeWidget. target is null with
    /// DropOnViewport. A slot may delete items, but not the tree.
    void itemsDropped(const QList<QTreeWidgetItem *> &items, QTreeWidgetItem *target,
        VemoTreeWidget::DropPosition position, Qt::DropAction action);
    /// Emitted when the user dropped files or links from elsewhere.
    void urlsDropped(const QList<QUrl> &urls, QTreeWidgetItem *target,
        VemoTreeWidget::DropPosition position, Qt::DropAction action);

protected:
    /// Tracks the pointer, so that the highlight disappears when the pointer leaves a row.
    bool event(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    /// Sets the current item again, or else the first one, so that its signals are emitted.
    void focusInEvent(QFocusEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    void paintEvent(QPaintEvent *event) override;
    void drawRow(QPainter *painter, const QStyleOptionViewItem &option,
        const QModelIndex &index) const override;
    bool edit(const QModelIndex &index, EditTrigger trigger, QEvent *event) override;
    void dataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight,
        const QVector<int> &roles = QVector<int>()) override;
    void rowsInserted(const QModelIndex &parent, int start, int end) override;
    void rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end) override;
    void reset() override;
    QStringList mimeTypes() const override;
    Qt::DropActions supportedDropActions() const override;
    void startDrag(Qt::DropActions supportedActions) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    struct Paint;
    class Checks;
    class Children;
    class Filter;

    QPoint menuPosition() const;
    bool isSelected(const QModelIndex &index) const;
    bool isHovered(const QRect &rect) const;
    void setPointer(const QPoint &pointer);
    QModelIndex rowAt(const QPoint &pointer) const;
    void updateRow(const QModelIndex &row);
    void expandItems(const QList<QPersistentModelIndex> &items, bool isExpanded);
    void leaveHiddenItems();
    bool canDrop(const QMimeData &data, const QTreeWidgetItem *target) const;
    DropPosition dropPosition() const;
    QPixmap draggedPicture(const QList<QTreeWidgetItem *> &items) const;

    QColor m_selected_color;
    QColor m_hover_color;
    const Paint *m_paint = nullptr; ///< set while the viewport is painted
    QPersistentModelIndex m_hovered_row; ///< the row under the pointer at the last event
    std::unique_ptr<Checks> m_checks; ///< null without check propagation
    std::unique_ptr<Children> m_children; ///< null until the state of an item is set
    std::unique_ptr<Filter> m_filter; ///< null without a filter
    bool m_are_drop_signals_enabled = false;
};

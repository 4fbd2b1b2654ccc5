// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QListView>
#include <QPersistentModelIndex>

class SideBarDelegate;

/// What an item of a side bar knows besides the roles of Qt.
enum SideBarRole : int {
    IconNameRole = Qt::UserRole,
    BadgeRole, ///< an int; 0 if there is no badge
    GroupRole, ///< the number of its group; -1 if it is in none
    HeadingRole, ///< the heading above it; empty unless it is the first page of a group
};

/// The pages of a side bar, of which the first one of a group has the heading in its row. Exactly
/// the current page is selected, unless it is disabled.
class SideBarList : public QListView
{
    Q_OBJECT

public:
    explicit SideBarList(QWidget *parent);

    bool isCollapsed() const { return m_is_collapsed; }
    void setCollapsed(bool collapsed);

    bool isPressed(const QModelIndex &index) const { return m_pressed == index; }

    /// The row at point, even at its heading.
    QModelIndex rowAt(const QPoint &point) const { return QListView::indexAt(point); }
    /// The page at point; headings are not part of pages.
    QModelIndex indexAt(const QPoint &point) const override;
    /// Its row without the heading.
    QRect pageRect(const QModelIndex &index) const;

    static bool isPageEnabled(const QModelIndex &index)
    {
        return index.flags().testFlag(Qt::ItemIsEnabled);
    }
    /// Chooses a page for the user, unless it is disabled.
    void pick(const QModelIndex &index);

    /// The width that shows all texts, in screen pixels, with frame and scroll bar.
    int widthOfTexts() const;

Q_SIGNALS:
    /// Emitted at the end of what may have chosen another page: a key, a click or a call of pick().
    /// A slot may delete the list.
    void inputHandled();
    void returnPressed(); ///< a slot may delete the list

protected:
    void changeEvent(QEvent *event) override;
    QItemSelectionModel::SelectionFlags selectionCommand(
        const QModelIndex &index, const QEvent *event) const override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    void setPressed(const QModelIndex &index);

    SideBarDelegate *m_delegate;
    QPersistentModelIndex m_pressed;
    bool m_is_collapsed = false;
};

// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QStyledItemDelegate>

class QLabel;
class SideBarList;
class VemoBadge;

/// Draws the rows of a side bar and shows their tool tips.
class SideBarDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit SideBarDelegate(SideBarList *list);

    /// Of headings and badges.
    void setFont(const QFont &font);

    /// The part of a row below its heading.
    QRect pageRect(const QModelIndex &index, const QRect &row) const;

    /// The width of a row that shows its texts uncut, in screen pixels.
    int rowWidth(const QModelIndex &index) const;

    /// The width is that of the view, so that no row is wider.
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    void paint(QPainter *painter, const QStyleOptionViewItem &option,
        const QModelIndex &index) const override;
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
        const QModelIndex &index) override;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;

private:
    QStyleOptionViewItem pageOption(
        const QStyleOptionViewItem &option, const QModelIndex &index) const;
    QSize headingSize(const QModelIndex &index) const;
    QRect badgeRect(const QStyleOptionViewItem &page, const QModelIndex &index) const;
    int textRoom(const QStyleOptionViewItem &page, const QModelIndex &index) const;
    bool isCut(const QStyleOptionViewItem &page, const QModelIndex &index) const;
    void paintHeading(QPainter *painter, const QRect &row, const QModelIndex &index) const;
    void paintPage(QPainter *painter, QStyleOptionViewItem page, const QModelIndex &index) const;
    void paintBadge(
        QPainter *painter, const QStyleOptionViewItem &page, const QModelIndex &index) const;

    SideBarList *m_list;
    /// Never shown, but drawn into the rows: so they have the look of their style sections.
    QLabel *m_heading;
    VemoBadge *m_badge;
};

// SPDX-License-Identifier: MIT
#pragma once

#include <QLayout>
#include <QVector>

/// Places its items side by side, with their own widths, and continues in a new line if there is no
/// room left. Each item has the height of its line.
class WrappingLayout : public QLayout
{
public:
    ~WrappingLayout() override;

    void addItem(QLayoutItem *item) override { m_items.append(item); }
    int count() const override { return m_items.size(); }
    QLayoutItem *itemAt(int index) const override { return m_items.value(index); }
    QLayoutItem *takeAt(int index) override;

    Qt::Orientations expandingDirections() const override { return {}; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override { return place({0, 0, width, 0}, false); }
    QSize sizeHint() const override;
    QSize minimumSize() const override;
    void setGeometry(const QRect &rect) override;

private:
    /// How high the lines are in rect; moves the items to their places if isForReal.
    int place(const QRect &rect, bool isForReal) const;
    void placeLine(const QVector<QLayoutItem *> &line, const QRect &room) const;

    QVector<QLayoutItem *> m_items;
};

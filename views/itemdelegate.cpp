// SPDX-License-Identifier: MIT
#include <vemo/itemdelegate.h>

#include "controls/growntofont_p.h"
#include "controls/loweredtext_p.h"
#include "core/scaling_p.h"
#include "views/itemdelegate_p.h"
#include "views/owndirection_p.h"

#include <vemo/stylemanager.h>
#include <vemo/vemotreewidget.h>

#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QRegularExpressionValidator>

namespace {

constexpr int kRowHeight = 28; // design pixels

void setupEditor(QLineEdit *editor)
{
    const QRegularExpression name(QStringLiteral(R"(^[^\.\\\/:*?"<>|][^\\\/:*?"<>|]*)"));
    editor->setValidator(new QRegularExpressionValidator(name, editor));
    editor->setStyleSheet(getStyleSheet("component.tree_item"));
    editor->setAttribute(Qt::WA_MacShowFocusRect, false);
    editor->selectAll();
}

} // namespace

QRect &lastCheckRect()
{
    static QRect rect;
    return rect;
}

ItemDelegate::ItemDelegate() = default;

ItemDelegate::ItemDelegate(QObject *parent) : QItemDelegate(parent) { }

bool ItemDelegate::eventFilter(QObject *object, QEvent *event)
{
    const QPointer<ItemDelegate> self(this);
    const QPointer<QObject> editor(object);
    if (event->type() == QEvent::KeyPress) {
        auto *keyEvent = static_cast<QKeyEvent *>(event);
        if (keyEvent->key() == Qt::Key_Escape)
            Q_EMIT sigKeyPressed(keyEvent);
    }
    // A slot may have deleted the editor or the delegate.
    return !self || !editor || QItemDelegate::eventFilter(object, event);
}

QSize ItemDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    return {QItemDelegate::sizeHint(option, index).width(), scaled(kRowHeight)};
}

void ItemDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    if (auto *lineEdit = qobject_cast<QLineEdit *>(editor))
        setupEditor(lineEdit);
    // So that a screen reader announces the name being edited.
    editor->setAccessibleName(index.data().toString());
    QItemDelegate::setEditorData(editor, index);
}

void ItemDelegate::drawCheck(QPainter *painter, const QStyleOptionViewItem &option,
    const QRect &rect, Qt::CheckState state) const
{
    lastCheckRect() = rect;
    QItemDelegate::drawCheck(painter, option, rect, state);
}

void ItemDelegate::drawFocus(
    QPainter *painter, const QStyleOptionViewItem &option, const QRect &rect) const
{
    QRect frame = rect;
    if (const auto *tree = qobject_cast<const VemoTreeWidget *>(option.widget)) {
        const int highlightEnd = tree->viewport()->width() - scaled(kHighlightInset) - 1;
        frame.setRight(qMin(frame.right(), highlightEnd));
    }
    QItemDelegate::drawFocus(painter, option, frame);
}

void ItemDelegate::drawDisplay(QPainter *painter, const QStyleOptionViewItem &option,
    const QRect &rect, const QString &text) const
{
    QStyleOptionViewItem fitting = option;
    fitting.font = fontForHeight(option.font, option.rect.height());
    // The base also fills the rectangle of a selected row, in trees of ours with nothing.
    const bool isFilled = option.state.testFlag(QStyle::State_Selected)
        && option.palette.color(QPalette::Highlight).alpha() > 0;
    const int lowered =
        isFilled ? 0 : loweredBy(fitting.font, text, rect.height(), LinePlace::WholePixel);
    QItemDelegate::drawDisplay(
        painter, fitting, rect.translated(0, -lowered), inOwnDirection(text, option.direction));
}

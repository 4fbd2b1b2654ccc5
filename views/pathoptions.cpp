// SPDX-License-Identifier: MIT
// The options of a VemoButtonPath, which are off at first, and its keys.
#include "core/qtcompat_p.h"
#include "views/pathbuttons_p.h"
#include "views/pathedit_p.h"

#include <vemo/stylemanager.h>
#include <vemo/vemobuttonpath.h>

#include <QDragMoveEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QShortcut>

#include <algorithm>

namespace {

bool offersOneOf(const QMimeData &data, const QStringList &types)
{
    return std::any_of(
        types.begin(), types.end(), [&data](const QString &type) { return data.hasFormat(type); });
}

} // namespace

void VemoButtonPath::setToolTipsEnabled(bool enabled)
{
    m_are_tool_tips_enabled = enabled;
    for (int column = 0; column < m_buttons.size(); column += 2)
        static_cast<PathName *>(m_buttons.at(column))->setToolTipEnabled(enabled);
}

void VemoButtonPath::setSiblingMenusEnabled(bool enabled)
{
    if (enabled == m_are_sibling_menus_enabled)
        return;
    m_are_sibling_menus_enabled = enabled;
    refresh(path());
}

void VemoButtonPath::setEditable(bool editable)
{
    if (editable == m_is_editable)
        return;
    m_is_editable = editable;
    delete m_edit_shortcut;
    m_edit_shortcut = nullptr;
    if (!editable) {
        delete m_edit;
        m_edit = nullptr;
        return;
    }
    m_edit_shortcut = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_L), this);
    connect(m_edit_shortcut, SIGNAL(activated()), this, SLOT(editPath()));
}

bool VemoButtonPath::isEditing() const
{
    return m_edit && !m_edit->isHidden();
}

void VemoButtonPath::editPath()
{
    if (!m_edit) {
        m_edit = new PathEdit(this);
        connect(m_edit, SIGNAL(pathEntered(QString)), this, SIGNAL(sigUpdatePath(QString)));
    }
    m_edit->start(path());
}

void VemoButtonPath::setDropMimeTypes(const QStringList &types)
{
    m_drop_types = types;
    viewport()->setAcceptDrops(!types.isEmpty());
}

/// Asks for the siblings of the name in a column.
void VemoButtonPath::requestSiblings(int column)
{
    m_sibling_column = column;
    Q_EMIT siblingsRequested(pathUpTo(column - 2));
}

void VemoButtonPath::showSiblings(const QStringList &names)
{
    if (m_sibling_column < 0 || names.isEmpty())
        return;
    const auto *name = static_cast<const PathName *>(m_buttons.at(m_sibling_column));
    const QString folder = pathUpTo(m_sibling_column - 2);
    if (!m_sibling_menu) {
        m_sibling_menu = std::make_unique<QMenu>();
        m_sibling_menu->setStyleSheet(getStyleSheet("component.menu"));
    }
    m_sibling_menu->clear();
    m_sibling_menu->setLayoutDirection(layoutDirection());
    for (const QString &sibling : names) {
        QAction *action = m_sibling_menu->addAction(PathName::captionOf(sibling));
        action->setCheckable(true);
        action->setChecked(sibling == name->part());
        const QString path = folder.isEmpty() ? sibling : folder + QLatin1Char('/') + sibling;
        connect(action, &QAction::triggered, this, [this, path] { Q_EMIT sigUpdatePath(path); });
    }
    const QList<QAction *> actions = m_sibling_menu->actions();
    const auto current = std::find_if(
        actions.begin(), actions.end(), [](const QAction *action) { return action->isChecked(); });
    QPoint corner(0, name->height());
    if (isRightToLeft())
        corner.setX(name->width() - m_sibling_menu->sizeHint().width());
    m_sibling_menu->popup(name->mapToGlobal(corner));
    m_sibling_menu->setActiveAction(current == actions.end() ? actions.first() : *current);
}

void VemoButtonPath::keyPressEvent(QKeyEvent *event)
{
    const int column = m_buttons.indexOf(qobject_cast<QPushButton *>(window()->focusWidget()));
    if (column < 0 || !moveFocus(column, event->key()))
        QTableWidget::keyPressEvent(event);
}

/// Whether the key moved the focus away from the name in a column, or opened its menu.
bool VemoButtonPath::moveFocus(int column, int key)
{
    const int last = m_buttons.size() - 1;
    const int step = isRightToLeft() ? -2 : 2;
    int to = column;
    switch (key) {
    case Qt::Key_Left:
        to -= step;
        break;
    case Qt::Key_Right:
        to += step;
        break;
    case Qt::Key_Home:
        to = 0;
        break;
    case Qt::Key_End:
        to = last;
        break;
    case Qt::Key_Down:
        if (m_are_sibling_menus_enabled)
            requestSiblings(column);
        return m_are_sibling_menus_enabled;
    default:
        return false;
    }
    m_buttons.at(qBound(0, to, last))->setFocus(Qt::TabFocusReason);
    return true;
}

void VemoButtonPath::mousePressEvent(QMouseEvent *event)
{
    if (m_is_editable && event->button() == Qt::LeftButton)
        editPath();
    else
        QTableWidget::mousePressEvent(event);
}

void VemoButtonPath::dragEnterEvent(QDragEnterEvent *event)
{
    if (offersOneOf(*event->mimeData(), m_drop_types))
        event->acceptProposedAction();
    else
        event->ignore();
}

void VemoButtonPath::dragMoveEvent(QDragMoveEvent *event)
{
    const int column = columnAt(positionOf(event).x());
    const bool isName = column >= 0 && column % 2 == 0;
    const bool isTarget = isName && offersOneOf(*event->mimeData(), m_drop_types);
    showDropTarget(isTarget ? column : -1);
    if (isTarget)
        event->acceptProposedAction();
    else
        event->ignore();
}

void VemoButtonPath::dragLeaveEvent(QDragLeaveEvent * /*event*/)
{
    showDropTarget(-1);
}

void VemoButtonPath::dropEvent(QDropEvent *event)
{
    const int column = m_drop_column;
    showDropTarget(-1);
    if (column < 0) {
        event->ignore();
        return;
    }
    event->acceptProposedAction();
    Q_EMIT dropped(event->mimeData(), getPath(column), event->dropAction());
}

/// Shows the name in a column as pressed, or none.
void VemoButtonPath::showDropTarget(int column)
{
    if (column == m_drop_column)
        return;
    if (m_drop_column >= 0)
        m_buttons.at(m_drop_column)->setDown(false);
    m_drop_column = column;
    if (column >= 0)
        m_buttons.at(column)->setDown(true);
}

// SPDX-License-Identifier: MIT
#include "sheets/sheetkeys_p.h"

#include <vemo/accessiblefilter.h>

#include <QAbstractButton>
#include <QAction>
#include <QKeyEvent>
#include <QPushButton>
#include <QShortcut>

#include <algorithm>

namespace {

bool isShortcutWithin(const QWidget *sheet, const QKeySequence &keys)
{
    const auto buttons = sheet->findChildren<QAbstractButton *>();
    const auto shortcuts = sheet->findChildren<QShortcut *>();
    const auto actions = sheet->findChildren<QAction *>();
    return std::any_of(buttons.begin(), buttons.end(), [&](const QAbstractButton *button) {
        return button->shortcut() == keys;
    }) || std::any_of(shortcuts.begin(), shortcuts.end(), [&](const QShortcut *shortcut) {
        return shortcut->key() == keys;
    }) || std::any_of(actions.begin(), actions.end(), [&](const QAction *action) {
        return action->shortcuts().contains(keys);
    });
}

} // namespace

bool overridesShortcut(const QWidget *sheet, const QObject *watched, QEvent *event)
{
    // Qt first sends a key as ShortcutOverride. The widget that accepts it receives the key press,
    // and no shortcut is activated.
    if (event->type() != QEvent::ShortcutOverride || watched != sheet->window()
        || !sheet->isVisible())
        return false;
    const auto *key = static_cast<QKeyEvent *>(event);
    if (isShortcutWithin(sheet, QKeySequence(key->key() | int(key->modifiers()))))
        return false;
    event->accept();
    return true;
}

bool isFocusLostToWindow(const QWidget *sheet, const QObject *watched, const QEvent *event)
{
    return event->type() == QEvent::FocusIn && watched == sheet->window() && sheet->isVisible()
        && static_cast<const QFocusEvent *>(event)->reason() == Qt::MouseFocusReason;
}

SheetEvent sheetEvent(
    const QWidget *sheet, const QObject *watched, QEvent *event, bool blocksClosing)
{
    if (blocksClosing && event->type() == QEvent::Close) {
        event->ignore();
        return SheetEvent::Blocked;
    }
    if (overridesShortcut(sheet, watched, event))
        return SheetEvent::Blocked;
    if (isFocusLostToWindow(sheet, watched, event))
        return SheetEvent::FocusLost;
    // Every key is consumed, so that the window below the sheet receives none.
    const bool isKey =
        event->type() == QEvent::KeyPress && watched == sheet->window() && sheet->isVisible();
    return isKey ? SheetEvent::Key : SheetEvent::Other;
}

QPushButton *focusedButton(const QWidget *sheet)
{
    auto *button = qobject_cast<QPushButton *>(sheet->window()->focusWidget());
    return button && sheet->isAncestorOf(button) ? button : nullptr;
}

QList<QWidget *> focusStops(QWidget *sheet)
{
    QList<QWidget *> stops = accessibleList(sheet, AccessibleFilter({}, Qt::TabFocus));
    const auto isDisabled = [](const QWidget *widget) { return !widget->isEnabled(); };
    stops.erase(std::remove_if(stops.begin(), stops.end(), isDisabled), stops.end());
    return stops;
}

void moveFocus(QWidget *sheet, const QList<QWidget *> &stops, QWidget *from, bool isForward)
{
    if (from->isWindow() && stops.contains(from->focusWidget()))
        from = from->focusWidget();
    // Skips disabled and hidden widgets of the sheet.
    const auto isStop = [&](QWidget *widget) {
        return widget->focusPolicy() != Qt::NoFocus
            && (stops.contains(widget) || !sheet->isAncestorOf(widget));
    };
    QWidget *next = from;
    do {
        next = isForward ? next->nextInFocusChain() : next->previousInFocusChain();
    } while (next != from && !isStop(next));
    if (!stops.contains(next))
        next = stops.isEmpty() ? nullptr : isForward ? stops.first() : stops.last();
    if (next)
        next->setFocus(Qt::TabFocusReason);
}

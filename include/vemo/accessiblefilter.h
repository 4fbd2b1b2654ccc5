// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QList>

class QWidget;

/// The widgets that accessibleList() leaves out: given ones, and those with a lower focus policy.
///
///     // Only the Tab stops, without the close button.
///     const AccessibleFilter filter({ closeButton }, Qt::StrongFocus);
///     const QList<QWidget *> order = accessibleList(window, filter);
///
/// \image html focus-order-order.png
class VEMO_EXPORT AccessibleFilter
{
public:
    /// Leaves out nothing: no widgets, and the level Qt::NoFocus.
    AccessibleFilter() = default;
    /// Leaves out widgets, and all widgets with a focus policy below level. The caller keeps
    /// ownership of the widgets.
    AccessibleFilter(const QList<QWidget *> &widgets, Qt::FocusPolicy level);

    /// The widgets that are never listed, although their children are. The pointers are compared
    /// but never dereferenced.
    const QList<QWidget *> &filterWidgets() const { return m_filter_widgets; }
    /// Sets the widgets that are never listed.
    void setFilterWidgets(const QList<QWidget *> &widgets) { m_filter_widgets = widgets; }

    /// The lowest focus policy that is listed. Policies are compared as integers:
    /// NoFocus 0, TabFocus 1, ClickFocus 2, StrongFocus 11, WheelFocus 15.
    Qt::FocusPolicy focusLevel() const { return m_focus_level; }
    /// Sets the lowest focus policy that is listed.
    void setFocusLevel(Qt::FocusPolicy level) { m_focus_level = level; }

private:
    QList<QWidget *> m_filter_widgets;
    Qt::FocusPolicy m_focus_level = Qt::NoFocus;
};

/// Returns root and the visible widgets below it that accept the keyboard focus and are not
/// excluded: parents before their children, siblings in the order of QObject::children(). That is
/// the order in which they were added, unless raise(), lower() or stackUnder() has moved one.
///
/// The list is empty if root is null or hidden; a hidden widget excludes everything below it. Only
/// the focus policy is considered, so disabled widgets are listed as well. Requires: nothing.
///
///     const QList<QWidget *> order = accessibleList(window, QList<QWidget *>{ closeButton });
VEMO_EXPORT QList<QWidget *> accessibleList(QWidget *root, QList<QWidget *> excluded);

/// Returns the widgets that pass filter, in the same order. The default filter passes every visible
/// widget, including those that do not accept the focus.
VEMO_EXPORT QList<QWidget *> accessibleList(QWidget *root, AccessibleFilter filter);

/// Sets the focus policy of all widgets, in list order; null entries are ignored.
///
///     adjustFocusPolicy(Qt::NoFocus, accessibleList(sideBar, QList<QWidget *>()));
VEMO_EXPORT void adjustFocusPolicy(Qt::FocusPolicy policy, QList<QWidget *> widgets);

/// Announces every window of the application that is a QWidget without a role of its own as a
/// window: Qt announces a window only for dialogs, message boxes and main windows. Call it once,
/// before the first window; a second call has no effect. Requires: nothing.
///
///     QApplication app(argc, argv);
///     makeWindowsAccessible();
VEMO_EXPORT void makeWindowsAccessible();

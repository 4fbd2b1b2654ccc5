// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QList>

class QWidget;

/// What accessibleList() leaves out: some widgets, and those whose focus policy is too weak.
///
///     // Only what the Tab key stops at, without the close button.
///     const AccessibleFilter filter({ closeButton }, Qt::StrongFocus);
///     const QList<QWidget *> order = accessibleList(window, filter);
///
/// \image html focus-order-order.png
class VEMO_EXPORT AccessibleFilter
{
public:
    /// Leaves nothing out: no widgets, and the level Qt::NoFocus.
    AccessibleFilter() = default;
    /// Leaves out widgets, and what takes less focus than level. The widgets stay the caller's.
    AccessibleFilter(const QList<QWidget *> &widgets, Qt::FocusPolicy level);

    /// The widgets never listed; their children still are. Pointers are compared, never followed.
    const QList<QWidget *> &filterWidgets() const { return m_filter_widgets; }
    /// Replaces the widgets never listed.
    void setFilterWidgets(const QList<QWidget *> &widgets) { m_filter_widgets = widgets; }

    /// The least focus policy that is listed. Policies are compared as the integers they are:
    /// NoFocus 0, TabFocus 1, ClickFocus 2, StrongFocus 11, WheelFocus 15.
    Qt::FocusPolicy focusLevel() const { return m_focus_level; }
    /// Replaces the least focus policy.
    void setFocusLevel(Qt::FocusPolicy level) { m_focus_level = level; }

private:
    QList<QWidget *> m_filter_widgets;
    Qt::FocusPolicy m_focus_level = Qt::NoFocus;
};

/// The visible widgets under root, itself included, that can take the keyboard focus and are not
/// excluded: each before its children, siblings in the order of QObject::children(). That is the
/// order in which they were added until raise(), lower() or stackUnder() moves one.
///
/// Empty for a root that is null or hidden; a hidden widget hides all that is under it. Only the
/// focus policy counts, so disabled widgets are listed, too. Nothing has to be initialised first.
///
///     const QList<QWidget *> order = accessibleList(window, QList<QWidget *>{ closeButton });
VEMO_EXPORT QList<QWidget *> accessibleList(QWidget *root, QList<QWidget *> excluded);

/// The same walk, taking the widgets that pass filter. The default filter passes every visible
/// widget, also those without focus.
VEMO_EXPORT QList<QWidget *> accessibleList(QWidget *root, AccessibleFilter filter);

/// Gives all widgets one focus policy, in list order; null entries are passed over.
///
///     adjustFocusPolicy(Qt::NoFocus, accessibleList(sideBar, QList<QWidget *>()));
VEMO_EXPORT void adjustFocusPolicy(Qt::FocusPolicy policy, QList<QWidget *> widgets);

// SPDX-License-Identifier: MIT
#include <vemo/accessiblefilter.h>

#include <QAccessibleWidget>
#include <QSet>
#include <QWidget>

#include <algorithm>
#include <vector>

namespace {

QSet<QWidget *> setOf(const QList<QWidget *> &widgets)
{
    return {widgets.begin(), widgets.end()};
}

/// The visible widgets in the tree of root that satisfy isTaken, parents before children. Not
/// recursive, so that the depth of the tree is not limited.
template <typename Predicate> QList<QWidget *> visibleWidgets(QWidget *root, Predicate isTaken)
{
    QList<QWidget *> taken;
    std::vector<QWidget *> pending {root};
    while (!pending.empty()) {
        QWidget *widget = pending.back();
        pending.pop_back();
        if (!widget || !widget->isVisible())
            continue;
        if (isTaken(widget))
            taken.append(widget);
        const QObjectList &children = widget->children();
        std::for_each(children.rbegin(), children.rend(), [&](QObject *child) {
            if (child->isWidgetType())
                pending.push_back(static_cast<QWidget *>(child));
        });
    }
    return taken;
}

/// For assistive tools a plain QWidget is a filler, even as a window. The role is looked up each
/// time, because a widget may become a window, or part of one, later.
class AccessibleWindow : public QAccessibleWidget
{
public:
    explicit AccessibleWindow(QWidget *widget) : QAccessibleWidget(widget) { }

    QAccessible::Role role() const override
    {
        return isWindow() ? QAccessible::Window : QAccessibleWidget::role();
    }

private:
    bool isWindow() const { return widget()->isWindow() && widget()->windowType() == Qt::Window; }
};

QAccessibleInterface *newAccessibleWindow(const QString &className, QObject *object)
{
    // Other classes have interfaces of their own.
    return className == QLatin1String("QWidget")
        ? new AccessibleWindow(static_cast<QWidget *>(object))
        : nullptr;
}

} // namespace

AccessibleFilter::AccessibleFilter(const QList<QWidget *> &widgets, Qt::FocusPolicy level)
    : m_filter_widgets(widgets), m_focus_level(level)
{
}

// Deliberate: lists and filters are passed by value.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
QList<QWidget *> accessibleList(QWidget *root, QList<QWidget *> excluded)
{
    const QSet<QWidget *> excludedSet = setOf(excluded);
    return visibleWidgets(root, [&](QWidget *widget) {
        return widget->focusPolicy() != Qt::NoFocus && !excludedSet.contains(widget);
    });
}

// NOLINTNEXTLINE(performance-unnecessary-value-param)
QList<QWidget *> accessibleList(QWidget *root, AccessibleFilter filter)
{
    const QSet<QWidget *> excludedSet = setOf(filter.filterWidgets());
    // Deliberate: policies are compared as integers, not as flags.
    const int level = filter.focusLevel();
    return visibleWidgets(root, [&](QWidget *widget) {
        return static_cast<int>(widget->focusPolicy()) >= level && !excludedSet.contains(widget);
    });
}

void adjustFocusPolicy(Qt::FocusPolicy policy, QList<QWidget *> widgets)
{
    for (QWidget *widget : qAsConst(widgets)) {
        if (widget)
            widget->setFocusPolicy(policy);
    }
}

void makeWindowsAccessible()
{
    QAccessible::installFactory(newAccessibleWindow); // a no-op if already installed
}

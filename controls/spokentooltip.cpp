// SPDX-License-Identifier: MIT
#include "controls/spokentooltip_p.h"

#include "controls/spokentext_p.h"

#include <QEvent>
#include <QVariant>
#include <QWidget>

namespace {

constexpr const char *kOwnDescription = "_vemo_described_by_tool_tip";
constexpr const char *kBadge = "_vemo_badge";

/// The description of a widget with a tool tip, a badge or both; empty if Qt's own is right.
QString descriptionOf(const QWidget &widget)
{
    const QString tip = widget.toolTip();
    const QString text = spoken(tip);
    const QString badge = widget.property(kBadge).toString();
    // Qt itself uses a plain tool tip as the description.
    if (badge.isEmpty())
        return text == tip ? QString() : text;
    return text.isEmpty() ? badge : text + QStringLiteral(", ") + badge;
}

void describe(QWidget *widget)
{
    const QString description = widget->accessibleDescription();
    if (description != widget->property(kOwnDescription).toString())
        return; // Set by the host.
    const QString next = descriptionOf(*widget);
    if (next == description)
        return;
    widget->setProperty(kOwnDescription, next);
    widget->setAccessibleDescription(next);
}

/// A single instance watches all widgets.
class ToolTipWatch : public QObject
{
public:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::ToolTipChange)
            describe(static_cast<QWidget *>(watched));
        return false;
    }
};

} // namespace

void speakToolTip(QWidget *widget)
{
    static ToolTipWatch watch;
    widget->installEventFilter(&watch);
}

void speakBadge(QWidget *widget, const QString &text)
{
    if (text == widget->property(kBadge).toString())
        return;
    widget->setProperty(kBadge, text.isEmpty() ? QVariant() : text);
    speakToolTip(widget);
    describe(widget);
}

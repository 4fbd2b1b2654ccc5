// SPDX-License-Identifier: MIT
#include "controls/spokentooltip_p.h"

#include "controls/spokentext_p.h"

#include <QEvent>
#include <QVariant>
#include <QWidget>

namespace {

constexpr const char *kOwnDescription = "_vemo_described_by_tool_tip";

void describe(QWidget *widget)
{
    const QString description = widget->accessibleDescription();
    if (description != widget->property(kOwnDescription).toString())
        return; // The host's own.
    // Of a plain tool tip Qt makes the description itself.
    const QString tip = widget->toolTip();
    const QString text = spoken(tip);
    const QString next = text == tip ? QString() : text;
    if (next == description)
        return;
    widget->setProperty(kOwnDescription, next);
    widget->setAccessibleDescription(next);
}

/// One for all widgets.
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

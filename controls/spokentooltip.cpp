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
        return; // Set by the host.
    // Qt itself uses a plain tool tip as the description.
    const QString tip = widget->toolTip();
    const QString text = spoken(tip);
    const QString next = text == tip ? QString() : text;
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

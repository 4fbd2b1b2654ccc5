// SPDX-License-Identifier: MIT
#include "controls/placeholderink_p.h"

#include "core/qtcompat_p.h"

#include <QEvent>
#include <QLineEdit>

namespace {

constexpr int kPale = 180; // of 255: a contrast just above 4.5 : 1 on a light background

void pale(QLineEdit *field)
{
    QPalette palette = field->palette();
    bool isChanged = false;
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        const QColor current = palette.color(group, QPalette::PlaceholderText);
        QColor ink = palette.color(group, QPalette::Text);
        if (current != placeholderOfSheet(ink))
            continue;
        // The text of a disabled field is already pale.
        if (group != QPalette::Disabled)
            ink.setAlpha(kPale);
        if (current == ink)
            continue;
        palette.setColor(group, QPalette::PlaceholderText, ink);
        isChanged = true;
    }
    if (isChanged)
        field->setPalette(palette);
}

/// Updates the placeholder whenever a style sheet has set the colours.
class PlaceholderInk : public QObject
{
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::PaletteChange)
            pale(static_cast<QLineEdit *>(watched));
        return QObject::eventFilter(watched, event);
    }
};

} // namespace

void palePlaceholder(QLineEdit *field)
{
    field->installEventFilter(new PlaceholderInk(field));
    pale(field);
}

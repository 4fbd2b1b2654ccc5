// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include "core/stringof_p.h"

#include <vemo/vemoiconbutton.h>

#include <QEvent>

/// A picture button whose accessible name is a string of the library, and follows its language. A
/// tool tip with the same text does, too; texts of the host's own stay.
class NamedIconButton : public VemoIconButton
{
public:
    explicit NamedIconButton(const QString &picture, const char *nameKey, QWidget *parent = nullptr)
        : VemoIconButton(picture, parent), m_key(nameKey), m_name(stringOf(nameKey))
    {
        setAccessibleName(m_name);
    }

protected:
    void changeEvent(QEvent *event) override
    {
        VemoIconButton::changeEvent(event);
        if (event->type() == QEvent::LanguageChange)
            followLanguage(this, {"accessibleName", "toolTip"}, &m_name, stringOf(m_key));
    }

private:
    const char *m_key;
    QString m_name; ///< in the language shown last
};

// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QEvent>
#include <QLineEdit>

/// Begins the text of a field at the side where its language begins. QLineEdit goes by the text,
/// and takes dates and times for texts from left to right.
class LeadingText : public QObject
{
public:
    /// Lives with field.
    explicit LeadingText(QLineEdit *field) : QObject(field), m_field(field)
    {
        field->installEventFilter(this);
        align();
    }

protected:
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() == QEvent::LayoutDirectionChange)
            align();
        return false;
    }

private:
    void align()
    {
        const Qt::Alignment side = m_field->isRightToLeft() ? Qt::AlignRight | Qt::AlignAbsolute
                                                            : Qt::Alignment(Qt::AlignLeft);
        m_field->setAlignment(side | Qt::AlignVCenter);
    }

    QLineEdit *m_field;
};

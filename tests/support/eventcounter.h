// SPDX-License-Identifier: MIT
#pragma once

#include <QEvent>
#include <QObject>

#include <functional>
#include <utility>

/// Counts the events of a type that an object receives, or those that satisfy a condition.
class EventCounter : public QObject
{
public:
    EventCounter(QObject *watched, QEvent::Type type, std::function<bool()> condition = {})
        : m_type(type), m_condition(std::move(condition))
    {
        watched->installEventFilter(this);
    }

    int count() const { return m_count; }

    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() == m_type && (!m_condition || m_condition()))
            ++m_count;
        return false;
    }

private:
    QEvent::Type m_type;
    std::function<bool()> m_condition;
    int m_count = 0;
};

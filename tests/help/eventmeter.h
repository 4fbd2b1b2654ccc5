// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QThread>

#include <ctime>

/// An application that records the maximum CPU time of a single event in its thread.
class EventMeter : public QApplication
{
public:
    using QApplication::QApplication;

    void reset() { m_max = 0; }
    double maxMilliseconds() const { return m_max; }
    /// The receiver of that event.
    QString receiver() const { return m_receiver; }

    bool notify(QObject *receiver, QEvent *event) override
    {
        // Nested events are part of the outer one; events of other threads also arrive here.
        if (QThread::currentThread() != thread() || m_is_measuring)
            return QApplication::notify(receiver, event);
        m_is_measuring = true;
        const QString name = QString::fromLatin1("%1, event %2")
                                 .arg(QString::fromLatin1(receiver->metaObject()->className()))
                                 .arg(event->type());
        const double start = now();
        const bool result = QApplication::notify(receiver, event);
        const double spent = now() - start;
        if (spent > m_max)
            m_receiver = name;
        m_max = qMax(m_max, spent);
        m_is_measuring = false;
        return result;
    }

    /// The CPU time of the calling thread, in milliseconds.
    static double now()
    {
        timespec time {};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return time.tv_sec * 1e3 + time.tv_nsec / 1e6;
    }

private:
    double m_max = 0;
    QString m_receiver;
    bool m_is_measuring = false;
};

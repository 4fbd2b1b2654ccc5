// SPDX-License-Identifier: MIT
#pragma once

#include <QtTest>

#include <sys/inotify.h>
#include <unistd.h>

/// Notices that a folder is opened, by whatever process.
class FolderWatch
{
public:
    explicit FolderWatch(const QString &folder) : m_queue(inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
    {
        inotify_add_watch(m_queue, folder.toUtf8().constData(), IN_OPEN);
    }
    ~FolderWatch() { close(m_queue); }
    Q_DISABLE_COPY(FolderWatch)

    bool wasOpened()
    {
        char events[4096];
        m_wasOpened = m_wasOpened || read(m_queue, events, sizeof events) > 0;
        return m_wasOpened;
    }

private:
    int m_queue;
    bool m_wasOpened = false;
};

// SPDX-License-Identifier: MIT
#include <vemo/mousebuttonfilter.h>

#include <QEvent>

MouseButtonFilter::MouseButtonFilter() = default;

MouseButtonFilter::MouseButtonFilter(QObject *parent) : QObject(parent) { }

bool MouseButtonFilter::eventFilter(QObject *object, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
        return true;
    default:
        return QObject::eventFilter(object, event);
    }
}

MouseReleaseFilter::MouseReleaseFilter() = default;

MouseReleaseFilter::MouseReleaseFilter(QObject *parent) : QObject(parent) { }

bool MouseReleaseFilter::eventFilter(QObject *object, QEvent *event)
{
    return event->type() == QEvent::MouseButtonRelease || QObject::eventFilter(object, event);
}

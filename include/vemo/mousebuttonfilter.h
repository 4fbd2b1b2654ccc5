// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QObject>

/// An event filter that blocks every mouse press, release and double click of the object it is
/// installed on; mouse moves and wheel events still arrive.
///
/// It has no effect until it is installed. Without a parent, you must delete it; deleting it
/// removes the filter.
///
///     preview->installEventFilter(new MouseButtonFilter(preview));
///
/// \image html foot-bar-mouse-filters.png
class VEMO_EXPORT MouseButtonFilter : public QObject
{
public:
    /// Creates a filter without a parent.
    MouseButtonFilter();
    /// Creates a filter that belongs to parent.
    explicit MouseButtonFilter(QObject *parent);

    bool eventFilter(QObject *object, QEvent *event) override;
};

/// An event filter that only blocks mouse releases of the object it is installed on: a button is
/// pressed but never clicked. Ownership is as for MouseButtonFilter.
///
///     button->installEventFilter(new MouseReleaseFilter(button));
///
/// \image html foot-bar-mouse-filters.png
class VEMO_EXPORT MouseReleaseFilter : public QObject
{
public:
    /// Creates a filter without a parent.
    MouseReleaseFilter();
    /// Creates a filter that belongs to parent.
    explicit MouseReleaseFilter(QObject *parent);

    bool eventFilter(QObject *object, QEvent *event) override;
};

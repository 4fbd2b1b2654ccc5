// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QObject>

/// An event filter that keeps every mouse press, release and double click from what it is installed
/// on; the pointer's moves and the wheel still arrive.
///
/// It filters nothing until it is installed. Without a parent it is yours to delete; deleting it
/// lifts the filter.
///
///     preview->installEventFilter(new MouseButtonFilter(preview));
///
/// \image html foot-bar-mouse-filters.png
class VEMO_EXPORT MouseButtonFilter : public QObject
{
public:
    /// Without a parent.
    MouseButtonFilter();
    /// Deleted with parent.
    explicit MouseButtonFilter(QObject *parent);

    bool eventFilter(QObject *object, QEvent *event) override;
};

/// An event filter that keeps only mouse releases from what it is installed on: it is pressed, but
/// never clicked. For its ownership see MouseButtonFilter.
///
///     button->installEventFilter(new MouseReleaseFilter(button));
///
/// \image html foot-bar-mouse-filters.png
class VEMO_EXPORT MouseReleaseFilter : public QObject
{
public:
    /// Without a parent.
    MouseReleaseFilter();
    /// Deleted with parent.
    explicit MouseReleaseFilter(QObject *parent);

    bool eventFilter(QObject *object, QEvent *event) override;
};

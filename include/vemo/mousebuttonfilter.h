// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QObject>

/// An event filter that keeps every mouse press, release and double click from what it is installed
/// on; the pointer's moves and the wheel still arrive.
///
/// It is made without a parent: give it one, or delete it yourself. Deleting it lifts the filter.
///
///     auto *filter = new MouseButtonFilter;
///     filter->setParent(preview);
///     preview->installEventFilter(filter);
///
/// \image html foot-bar-mouse-filters.png
class VEMO_EXPORT MouseButtonFilter : public QObject
{
public:
    /// Made without a parent, and filters nothing until it is installed.
    MouseButtonFilter();

    bool eventFilter(QObject *object, QEvent *event) override;
};

/// An event filter that keeps only mouse releases from what it is installed on: it is pressed, but
/// never clicked. Made without a parent, like MouseButtonFilter.
///
///     auto *filter = new MouseReleaseFilter;
///     filter->setParent(button);
///     button->installEventFilter(filter);
///
/// \image html foot-bar-mouse-filters.png
class VEMO_EXPORT MouseReleaseFilter : public QObject
{
public:
    /// Made without a parent, and filters nothing until it is installed.
    MouseReleaseFilter();

    bool eventFilter(QObject *object, QEvent *event) override;
};

// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

/// Records warnings and more severe messages between start() and stop(), and passes them on to the
/// previous handler. Records all messages of the library's own category.
///
///     getStyleSheet("no.such.key");
///     QCOMPARE(messages.take(), QStringList("Cannot find stylesheet \"no.such.key\""));
class RecordedMessages
{
public:
    void start();
    void stop();

    /// Returns the texts since the last call, oldest first. Warnings of the library's own category
    /// are recorded unchanged; other texts are prefixed by their category ("qt.svg: ...") or level
    /// ("critical: ...").
    QStringList take();
};

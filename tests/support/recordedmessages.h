// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

/// Records every warning, and worse, between start() and stop(), and passes it on to the handler
/// that was there before.
///
///     getStyleSheet("no.such.key");
///     QCOMPARE(messages.take(), QStringList("Cannot find stylesheet \"no.such.key\""));
class RecordedMessages
{
public:
    void start();
    void stop();

    /// The texts since the last call, oldest first. A message of the library's own category stands
    /// as it is, any other with its category in front ("qt.svg: ...").
    QStringList take();
};

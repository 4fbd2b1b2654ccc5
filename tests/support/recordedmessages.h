// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

/// Records every warning, and worse, between start() and stop(), and passes it on to the handler
/// that was there before. Of the library's own category it records every message.
///
///     getStyleSheet("no.such.key");
///     QCOMPARE(messages.take(), QStringList("Cannot find stylesheet \"no.such.key\""));
class RecordedMessages
{
public:
    void start();
    void stop();

    /// The texts since the last call, oldest first. A warning of the library's own category is
    /// recorded as it is. Any other category is put before the text ("qt.svg: ..."), and so is any
    /// other level ("critical: ...").
    QStringList take();
};

// SPDX-License-Identifier: MIT
#pragma once

#include "app/instancelock_p.h"

#include <QFile>
#include <QTest>

/// What is the same for the lock files of all systems.
inline void takeLockOnceAtATime(const QString &path)
{
    InstanceLock first(path);
    InstanceLock second(path);
    QVERIFY(!first.isHeld());
    QCOMPARE(first.take(), InstanceLock::Taken);
    QVERIFY(first.isHeld());
    QCOMPARE(first.take(), InstanceLock::Taken);
    QCOMPARE(second.take(), InstanceLock::HeldElsewhere);
    QVERIFY(!second.isHeld());
    first.release();
    QVERIFY(!first.isHeld());
    QCOMPARE(second.take(), InstanceLock::Taken);
    QCOMPARE(first.take(), InstanceLock::HeldElsewhere);
}

inline void takeLockAfterItsHolderIsGone(const QString &path)
{
    InstanceLock second(path);
    {
        InstanceLock first(path);
        QCOMPARE(first.take(), InstanceLock::Taken);
        QCOMPARE(second.take(), InstanceLock::HeldElsewhere);
    }
    QCOMPARE(second.take(), InstanceLock::Taken);
}

/// Nobody else can take the lock after the file was opened and closed.
inline void openTheFileOfAHeldLock(const QString &path)
{
    InstanceLock first(path);
    QCOMPARE(first.take(), InstanceLock::Taken);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    file.close();
    InstanceLock second(path);
    QCOMPARE(second.take(), InstanceLock::HeldElsewhere);
}

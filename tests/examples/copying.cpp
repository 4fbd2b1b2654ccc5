// SPDX-License-Identifier: MIT
#include "copying.h"

#include "examples/filebrowser/files/nativename.h"

#include <QtTest>

Copying::Copying(const QStringList &sources, const QString &target) : job(sources, target, nullptr)
{
    connect(&job,
        SIGNAL(progress(qint64,qint64,QString)), this, SLOT(slotProgress(qint64,qint64,QString)));
    connect(&job,
        SIGNAL(finished(QStringList,QStringList)), this,
            SLOT(slotFinished(QStringList,QStringList)));
    job.start();
}

void Copying::waitForEnd()
{
    // Not by WaitForMoreEvents: on Windows the timers of the job are none.
    QEventLoop loop;
    connect(&job, SIGNAL(finished(QStringList,QStringList)), &loop, SLOT(quit()));
    if (ends == 0)
        loop.exec();
    QCoreApplication::processEvents();
}

void Copying::slotProgress(qint64 doneBytes, qint64 totalBytes, const QString &name)
{
    QVERIFY(doneBytes <= totalBytes);
    QVERIFY(done.isEmpty() || doneBytes >= done.last());
    QVERIFY(!name.isEmpty());
    done += doneBytes;
    total = totalBytes;
    if (cancelsWhenCopying && doneBytes > 0)
        job.cancel();
}

void Copying::slotFinished(const QStringList &copies, const QStringList &troubles)
{
    copied = copies;
    problems = troubles;
    ++ends;
}

QString problem(const char *name, int error)
{
    return QString::fromLatin1("%1: %2").arg(QString::fromUtf8(name), systemReason(error));
}

// SPDX-License-Identifier: MIT
#pragma once

#include "examples/filebrowser/files/copyjob.h"

#include <QVector>

/// Runs one job and keeps what it told.
class Copying : public QObject
{
    Q_OBJECT

public:
    Copying(const QStringList &sources, const QString &target);

    void waitForEnd();

    CopyJob job;
    QStringList copied;
    QStringList problems;
    QVector<qint64> done;
    qint64 total = -1;
    int ends = 0;
    bool cancelsWhenCopying = false;

private Q_SLOTS:
    void slotProgress(qint64 doneBytes, qint64 totalBytes, const QString &name);
    void slotFinished(const QStringList &copies, const QStringList &troubles);
};

/// The line that the job reports for a problem.
QString problem(const char *name, int error);

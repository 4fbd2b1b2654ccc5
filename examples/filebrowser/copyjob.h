// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QStringList>
#include <QTimer>

#include <memory>
#include <vector>

class CopyPlan;
class TreeCopy;

/// Copies files, links and whole folders into a folder from the event loop, a few milliseconds at a
/// time. Nothing is ever replaced: a copy whose name is taken is called "name (2).ext". Links are
/// copied as links; permissions and times are kept. Deliberate: the bits that let a program run as
/// its owner or group (setuid, setgid) are dropped, since the copy may have another owner. A copy
/// gets its name when it is complete, and until then is hidden under another; cancel(), an error and
/// the destructor leave nothing half done.
///
///     auto *job = new CopyJob({home + "/a.txt"}, stick, this);
///     connect(job, SIGNAL(finished(QStringList,QStringList)), ...);
///     job->start();
class CopyJob : public QObject
{
    Q_OBJECT

public:
    CopyJob(const QStringList &sources, const QString &targetFolder, QObject *parent);
    ~CopyJob() override;

    void start();
    /// Takes back the source that is being copied; those copied before it stay. finished() follows.
    void cancel();

Q_SIGNALS:
    /// In bytes, and one more for each entry. While the sources are being listed done is 0 and
    /// total grows.
    void progress(qint64 done, qint64 total, const QString &name);
    /// The paths of the copies, and what could not be copied, as "name: reason".
    void finished(const QStringList &copied, const QStringList &problems);

private Q_SLOTS:
    void slotWorkOn();

private:
    enum class Phase { Waiting, Listing, Copying, Undoing, Ended };

    Phase listOn();
    Phase copyOn();
    Phase undoOn();
    Phase nextSource();
    void report();

    QByteArrayList m_sources;
    QByteArray m_target;
    std::vector<std::unique_ptr<CopyPlan>> m_plans;
    std::unique_ptr<TreeCopy> m_tree;
    size_t m_current = 0; ///< The plan that is being copied.
    qint64 m_done = 0; ///< Of the sources before it.
    qint64 m_total = 0;
    QByteArray m_name;
    QStringList m_copied;
    QStringList m_problems;
    Phase m_phase = Phase::Waiting;
    bool m_isCancelled = false;
    QTimer m_slice;
};

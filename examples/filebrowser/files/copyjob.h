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
/// copied as links; permissions and times are kept. Deliberate: the setuid and setgid bits are
/// dropped, since the copy may have another owner. A copy has a hidden temporary name until it is
/// complete; cancel(), an error and the destructor leave no incomplete copies.
///
///     auto *job = new CopyJob({home + "/a.txt"}, stick, this);
///     connect(job, &CopyJob::finished, window, &MainWindow::showResult);
///     job->start();
class CopyJob : public QObject
{
    Q_OBJECT

public:
    CopyJob(const QStringList &sources, const QString &targetFolder, QObject *parent);
    ~CopyJob() override;

    void start();
    /// Removes the copy of the current source; completed copies remain. finished() is emitted
    /// later.
    void cancel();

Q_SIGNALS:
    /// In bytes, plus one for each entry. While the sources are being listed, done is 0 and total
    /// grows.
    void progress(qint64 done, qint64 total, const QString &name);
    /// copied contains the paths of the copies; problems what could not be copied, as "name:
    /// reason".
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
    qint64 m_done = 0; ///< For the sources before it.
    qint64 m_total = 0;
    QByteArray m_name;
    QStringList m_copied;
    QStringList m_problems;
    Phase m_phase = Phase::Waiting;
    bool m_isCancelled = false;
    QTimer m_slice;
};

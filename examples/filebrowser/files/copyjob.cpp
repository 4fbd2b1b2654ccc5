// SPDX-License-Identifier: MIT
#include "copyjob.h"

#include "copyplan.h"
#include "nativename.h"
#include "treecopy.h"

#include <QElapsedTimer>
#include <QPointer>

#include <cerrno>

namespace {

constexpr int kSlice = 4; // milliseconds

QByteArray withoutSlash(QByteArray path)
{
    while (path.size() > 1 && path.endsWith('/'))
        path.chop(1);
    return path;
}

/// Never empty: the root folder has no name but its path.
QByteArray shownName(const QByteArray &path)
{
    const QByteArray name = path.mid(path.lastIndexOf('/') + 1);
    return name.isEmpty() ? path : name;
}

bool isFolder(const CopyPlan &plan)
{
    return !plan.items().isEmpty() && plan.items().first().kind == CopyItem::Folder;
}

} // namespace

CopyJob::CopyJob(const QStringList &sources, const QString &targetFolder, QObject *parent)
    : QObject(parent), m_target(withoutSlash(toNativeName(targetFolder)))
{
    for (const QString &source : sources)
        m_sources += withoutSlash(toNativeName(source));
    connect(&m_slice, SIGNAL(timeout()), this, SLOT(slotWorkOn()));
}

CopyJob::~CopyJob() = default;

void CopyJob::start()
{
    if (m_phase != Phase::Waiting)
        return;
    m_phase = Phase::Listing;
    m_slice.start(0);
}

void CopyJob::cancel()
{
    m_isCancelled = true;
    if (m_phase == Phase::Listing || m_phase == Phase::Copying)
        m_phase = Phase::Undoing;
}

void CopyJob::slotWorkOn()
{
    QElapsedTimer timer;
    timer.start();
    do {
        if (m_phase == Phase::Listing)
            m_phase = listOn();
        else if (m_phase == Phase::Copying)
            m_phase = copyOn();
        else
            m_phase = undoOn();
    } while (m_phase != Phase::Ended && !timer.hasExpired(kSlice));
    report();
}

CopyJob::Phase CopyJob::listOn()
{
    if (!m_plans.empty()) {
        const qint64 before = m_plans.back()->total();
        const bool isMore = m_plans.back()->step();
        m_total += m_plans.back()->total() - before;
        if (isMore)
            return Phase::Listing;
        m_problems += m_plans.back()->problems();
    }
    if (m_plans.size() == size_t(m_sources.size()))
        return nextSource();
    const QByteArray source = m_sources.at(int(m_plans.size()));
    m_name = shownName(source);
    m_plans.push_back(std::make_unique<CopyPlan>(source));
    m_total += m_plans.back()->total();
    if (isFolder(*m_plans.back()) && isInside(m_target, source)) {
        // Not listed either: it may contain everything.
        m_total -= m_plans.back()->total();
        m_plans.back() = std::make_unique<CopyPlan>();
        m_problems += problemLine(source, EINVAL);
    }
    return Phase::Listing;
}

/// Starts with the next source that has something to copy.
CopyJob::Phase CopyJob::nextSource()
{
    m_tree.reset();
    while (m_current < m_plans.size() && m_plans[m_current]->items().isEmpty())
        ++m_current;
    if (m_isCancelled || m_current == m_plans.size())
        return Phase::Ended;
    m_tree = std::make_unique<TreeCopy>(*m_plans[m_current], m_target);
    return Phase::Copying;
}

CopyJob::Phase CopyJob::copyOn()
{
    const TreeCopy::State state = m_tree->step();
    m_name = m_tree->currentName();
    if (state == TreeCopy::Working)
        return Phase::Copying;
    m_problems += m_tree->problems();
    if (state == TreeCopy::Failed)
        return Phase::Undoing;
    m_copied += fromNativeName(m_tree->path());
    m_done += m_plans[m_current++]->total();
    return nextSource();
}

CopyJob::Phase CopyJob::undoOn()
{
    if (m_tree && m_tree->undoStep())
        return Phase::Undoing;
    if (m_current < m_plans.size())
        m_done += m_plans[m_current++]->total();
    return nextSource();
}

void CopyJob::report()
{
    const QPointer<CopyJob> self(this);
    if (m_phase == Phase::Ended)
        m_slice.stop();
    if (!m_isCancelled)
        Q_EMIT progress(
            m_done + (m_tree ? m_tree->doneBytes() : 0), m_total, fromNativeName(m_name));
    if (self && m_phase == Phase::Ended && !m_slice.isActive())
        Q_EMIT finished(m_copied, m_problems);
}

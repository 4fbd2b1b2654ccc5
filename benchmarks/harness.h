// SPDX-License-Identifier: MIT
#pragma once

#include "benchmarks/fingerprint.h"

#include <QString>
#include <QVector>

#include <functional>
#include <optional>

/// A small harness that measures ratios on a noisy machine: every round runs all variants of a case
/// in turn, and the result is the median over the rounds of the ratio within a round.
namespace bench {

/// The reading of a clock, in nanoseconds, or of the heap, in bytes.
using Meter = std::function<double()>;

enum class Quantity {
    Time, ///< CPU time of the process; elapsed time on a real X server, which does part of the work
    Bytes, ///< growth of the heap
};

/// One implementation of what the case measures.
struct Variant
{
    QString what;
    std::function<void()> prepare;
    std::function<double(const Meter &meter, int calls)> measure;
    std::function<QByteArray()> fingerprint;
};

/// A bound for ours as a multiple of the reference, or in nanoseconds or bytes if there is none.
struct Goal
{
    double most = 0;
    double stretch = 0; ///< a better value to aim for; 0 if there is none
};

/// Hides a result from the optimiser, so that it does not remove the work for it.
template <typename Result> void keep(const Result &result)
{
    asm volatile("" : : "r"(&result) : "memory");
}

template <typename Run> double measureCalls(const Run &run, const Meter &meter, int calls)
{
    if (calls == 1) {
        const double before = meter();
        const auto result = run();
        const double after = meter();
        keep(result);
        return after - before; // The destruction of the result is not measured.
    }
    const double before = meter();
    for (int i = 0; i < calls; ++i) {
        const auto result = run();
        keep(result);
    }
    return (meter() - before) / calls;
}

/// Describes what is compared. Filled by a function of its family:
///
///     c.goal(0.06, 0.04);
///     c.reference("regex", [=] { return regexScaled(sheet); });
///     c.limit("copy", [=] { return copied(sheet); });
///     c.ours([=] { return DPIinfo::getInstance().getScaledStyleSheet(sheet); });
///
/// Every variant is a function that returns a result (see fingerprint.h). Those of the reference
/// and ours must be equal; that of the limit need not. The destruction of a result is measured as
/// well, unless the case calls once().
class Case
{
public:
    explicit Case(const QString &name) : m_name(name) { }

    /// Sets the maximum cost of ours as a multiple of the reference.
    void goal(double most, double stretch = 0) { m_goal = {most, stretch}; }
    /// The same as a multiple of the limit, in a separate row.
    void goalOfLimit(double most, double stretch = 0) { m_limitGoal = {most, stretch}; }
    /// The same on a real X server; cases without this goal are not run there.
    void goalOnX11(double most, double stretch = 0) { m_x11Goal = {most, stretch}; }
    /// Runs the case for information only, for example to compare with a peer.
    void withoutGoal() { m_hasGoal = false; }

    /// The number of items that one call handles; the table shows costs per item.
    void items(int count) { m_items = count; }
    /// One call per round, whose result is kept until the clock has stopped. For calls that create
    /// widgets for 1 ms or more.
    void once() { m_isOnce = true; }
    /// Counts bytes that remain on the heap instead of time; goals without a reference are in
    /// bytes.
    void bytes() { m_quantity = Quantity::Bytes, m_isOnce = true; }
    /// Ours and the reference deliberately do different work, for example half of it.
    void resultsDiffer() { m_isCompared = false; }

    /// An additional condition that must be true after ours has run.
    void check(const std::function<bool()> &condition) { m_condition = condition; }

    /// Sets the reference; the next two functions set the limit and ours. If given, prepare runs
    /// before each call, unmeasured, and implies once().
    template <typename Run>
    void reference(const QString &what, Run run, const std::function<void()> &prepare = {})
    {
        m_reference = comparable(what, run, prepare);
    }

    template <typename Run>
    void limit(const QString &what, Run run, const std::function<void()> &prepare = {})
    {
        m_limit = variant(what, run, prepare);
    }

    template <typename Run> void ours(Run run, const std::function<void()> &prepare = {})
    {
        m_ours = comparable(QStringLiteral("ours"), run, prepare);
    }

    const QString &name() const { return m_name; }
    const std::optional<Variant> &reference() const { return m_reference; }
    const std::optional<Variant> &limit() const { return m_limit; }
    const Variant &ours() const { return m_ours; }
    Goal goalOn(bool onX11) const { return onX11 ? m_x11Goal : m_goal; }
    bool isRunOn(bool onX11) const { return !m_hasGoal || goalOn(onX11).most > 0; }
    Goal limitGoal() const { return m_limitGoal; }
    Quantity quantity() const { return m_quantity; }
    int items() const { return m_items; }
    bool isOnce() const { return m_isOnce; }
    bool isCompared() const { return m_isCompared && m_reference; }
    bool isConditionMet() const { return !m_condition || m_condition(); }

private:
    template <typename Run>
    Variant variant(const QString &what, Run run, const std::function<void()> &prepare)
    {
        m_isOnce |= bool(prepare);
        return {what, prepare,
            [run](const Meter &meter, int calls) { return measureCalls(run, meter, calls); }, {}};
    }

    template <typename Run>
    Variant comparable(const QString &what, Run run, const std::function<void()> &prepare)
    {
        Variant made = variant(what, run, prepare);
        made.fingerprint = [run] { return bench::fingerprint(run()); };
        return made;
    }

    QString m_name;
    std::optional<Variant> m_reference;
    std::optional<Variant> m_limit;
    Variant m_ours;
    std::function<bool()> m_condition;
    Goal m_goal;
    Goal m_limitGoal;
    Goal m_x11Goal;
    Quantity m_quantity = Quantity::Time;
    int m_items = 1;
    bool m_hasGoal = true;
    bool m_isOnce = false;
    bool m_isCompared = true;
};

/// The result of a case; costs are medians per item, in nanoseconds or bytes.
struct Measured
{
    bool isEqual = true; ///< whether ours and the reference returned the same
    double reference = 0;
    double limit = 0;
    double ours = 0;
    QVector<double> ratios; ///< ours / reference of each round, sorted
    QVector<double> limitRatios;
};

Measured measure(const Case &c, int rounds, bool onX11);

/// The median of sorted values; 0 if there are none.
double median(const QVector<double> &sorted);

/// All cases, each set up only when it runs.
class Cases
{
public:
    using Setup = std::function<void(Case &)>;

    struct Entry
    {
        QString name;
        Setup setup;
    };

    void add(const QString &name, const Setup &setup) { m_entries.append({name, setup}); }
    const QVector<Entry> &entries() const { return m_entries; }

private:
    QVector<Entry> m_entries;
};

/// The cases of all families (see families.h).
Cases allCases();

} // namespace bench

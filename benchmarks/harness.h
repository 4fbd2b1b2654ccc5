// SPDX-License-Identifier: MIT
#pragma once

#include "benchmarks/fingerprint.h"

#include <QString>
#include <QVector>

#include <functional>
#include <optional>

/// A small harness for ratios on a noisy machine: every round runs all variants of a case in turn,
/// and what counts is the median over the rounds of the ratio within a round.
namespace bench {

/// The reading of a clock, in nanoseconds, or of the heap, in bytes.
using Meter = std::function<double()>;

enum class Quantity {
    Time, ///< CPU time of the process; elapsed time on a real X server, which works for us too
    Bytes, ///< growth of the heap
};

/// One way to do what the case is about.
struct Variant
{
    QString what;
    std::function<void()> prepare;
    std::function<double(const Meter &meter, int calls)> measure;
    std::function<QByteArray()> fingerprint;
};

/// A bound for ours as a multiple of the reference; without a reference in nanoseconds or bytes.
struct Goal
{
    double most = 0;
    double stretch = 0; ///< better still; 0: none named
};

/// Hides a result from the optimiser, so that the work for it is really done.
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
        return after - before; // The result goes away unmeasured.
    }
    const double before = meter();
    for (int i = 0; i < calls; ++i) {
        const auto result = run();
        keep(result);
    }
    return (meter() - before) / calls;
}

/// What is compared, told once by the function that a family registers:
///
///     c.goal(0.06, 0.04);
///     c.reference("regex", [=] { return regexScaled(sheet); });
///     c.limit("copy", [=] { return copied(sheet); });
///     c.ours([=] { return DPIinfo::getInstance().getScaledStyleSheet(sheet); });
///
/// Every variant is a function that returns a result (see fingerprint.h); the reference's and ours
/// must be equal, the limit's need not. A result is thrown away within the measured time, unless
/// the case says once().
class Case
{
public:
    explicit Case(const QString &name) : m_name(name) { }

    /// The most that ours may cost, as a multiple of the reference.
    void goal(double most, double stretch = 0) { m_goal = {most, stretch}; }
    /// The same as a multiple of the limit, in a row of its own.
    void goalOfLimit(double most, double stretch = 0) { m_limitGoal = {most, stretch}; }
    /// The same on a real X server; a case without it isn't run there.
    void goalOnX11(double most, double stretch = 0) { m_x11Goal = {most, stretch}; }
    /// Run anywhere, only to be seen: what a peer costs, say.
    void withoutGoal() { m_hasGoal = false; }

    /// What one call handles; the table tells costs per item.
    void items(int count) { m_items = count; }
    /// One call a round, its result kept until the clock has stopped: for 1 ms or more of widgets.
    void once() { m_isOnce = true; }
    /// Counts bytes that stay on the heap instead of time; goals without a reference are in bytes.
    void bytes() { m_quantity = Quantity::Bytes, m_isOnce = true; }
    /// Ours and the reference do different work on purpose, such as half of it.
    void resultsDiffer() { m_isCompared = false; }

    /// prepare runs before each call, unmeasured; it implies once().
    /// A condition that must hold after ours has run, besides the equal results.
    void check(const std::function<bool()> &condition) { m_condition = condition; }

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

/// What a case came to; costs are medians per item, in nanoseconds or bytes.
struct Measured
{
    bool isEqual = true; ///< ours gave the reference's result
    double reference = 0;
    double limit = 0;
    double ours = 0;
    QVector<double> ratios; ///< ours / reference of each round, sorted
    QVector<double> limitRatios;
};

Measured measure(const Case &c, int rounds, bool onX11);

/// The middle one of sorted values; 0 of none.
double median(const QVector<double> &sorted);

/// All cases, each made only when it runs.
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

/// Registers a family of cases before main runs, by what initialises a constant of its file.
bool addFamily(void (*addTo)(Cases &));

/// The cases of all families, in the order of their source files.
Cases allCases();

} // namespace bench

// SPDX-License-Identifier: MIT
#include "benchmarks/harness.h"

#include "benchmarks/families.h"

#include <algorithm>
#include <ctime>
#include <malloc.h>

namespace bench {

namespace {

constexpr double kMinSample = 3e6; // Nanoseconds; in shorter ones the cost of the clock would show.

double nanoseconds(clockid_t clock)
{
    timespec time {};
    clock_gettime(clock, &time);
    return time.tv_sec * 1e9 + time.tv_nsec;
}

double heapBytes()
{
    const struct mallinfo2 heap = mallinfo2();
    return static_cast<double>(heap.uordblks + heap.hblkhd);
}

Meter meterOf(Quantity quantity, bool onX11)
{
    if (quantity == Quantity::Bytes)
        return heapBytes;
    return
        [clock = onX11 ? CLOCK_MONOTONIC : CLOCK_PROCESS_CPUTIME_ID] { return nanoseconds(clock); };
}

/// A variant on its way through the rounds.
struct Runner
{
    const Variant *variant;
    int calls = 1;
    QVector<double> costs;

    double sample(const Meter &meter) const
    {
        if (variant->prepare)
            variant->prepare();
        return variant->measure(meter, calls);
    }

    void calibrate(const Case &c, const Meter &meter)
    {
        double cost = sample(meter);
        while (!c.isOnce() && cost * calls < kMinSample) {
            calls *= 2;
            cost = sample(meter);
        }
    }
};

bool givesSameResult(const Case &c)
{
    const auto resultOf = [](const Variant &variant) {
        if (variant.prepare)
            variant.prepare();
        return variant.fingerprint();
    };
    const QByteArray ours = resultOf(c.ours());
    return c.isConditionMet() && (!c.isCompared() || ours == resultOf(*c.reference()));
}

QVector<double> sorted(QVector<double> values)
{
    std::sort(values.begin(), values.end());
    return values;
}

QVector<double> ratios(const QVector<double> &costs, const QVector<double> &references)
{
    QVector<double> all;
    for (int i = 0; i < costs.size(); ++i)
        all.append(costs[i] / references[i]);
    return sorted(all);
}

} // namespace

double median(const QVector<double> &sorted)
{
    return sorted.isEmpty() ? 0 : sorted[sorted.size() / 2];
}

Measured measure(const Case &c, int rounds, bool onX11)
{
    Measured measured;
    measured.isEqual = givesSameResult(c);
    const Meter meter = meterOf(c.quantity(), onX11);
    std::vector<Runner> runners {{&c.ours(), 1, {}}};
    for (const auto *other : {&c.reference(), &c.limit()}) {
        if (*other)
            runners.push_back({&**other, 1, {}});
    }
    for (Runner &runner : runners)
        runner.calibrate(c, meter);
    for (int round = 0; round < rounds; ++round) {
        // The state of caches depends on the order, so each variant takes each position.
        std::rotate(runners.begin(), runners.begin() + 1, runners.end());
        for (Runner &runner : runners)
            runner.costs.append(runner.sample(meter) / c.items());
    }
    const auto costsOf = [&](const Variant &variant) {
        return std::find_if(runners.begin(), runners.end(), [&](const Runner &runner) {
            return runner.variant == &variant;
        })->costs;
    };
    measured.ours = median(sorted(costsOf(c.ours())));
    if (c.reference()) {
        measured.reference = median(sorted(costsOf(*c.reference())));
        measured.ratios = ratios(costsOf(c.ours()), costsOf(*c.reference()));
    }
    if (c.limit()) {
        measured.limit = median(sorted(costsOf(*c.limit())));
        measured.limitRatios = ratios(costsOf(c.ours()), costsOf(*c.limit()));
    }
    return measured;
}

Cases allCases()
{
    // In this order they are run and listed.
    void (*const families[])(Cases &) = {
        styleCases,
        imagesCases,
        helpCases,
        controlsCases,
        viewsCases,
        buttonCases,
        messageCases,
        dateTimeCases,
        stockCases,
        themeCases,
#ifdef VEMO_BENCH_PEERS
        dateTimePeersCases,
#endif
    };
    Cases cases;
    for (const auto addTo : families)
        addTo(cases);
    return cases;
}

} // namespace bench

// SPDX-License-Identifier: MIT
#pragma once

#include "benchmarks/harness.h"

#include <QStringList>

namespace bench {

/// Prints all cases row by row as a Markdown table, and collects the missed goals.
class Report
{
public:
    explicit Report(bool onX11) : m_onX11(onX11) { }

    void begin() const;
    void add(const Case &c, const Measured &measured);
    /// Prints the missed goals and returns the exit code.
    int end() const;

private:
    void addRow(const Case &c, const QString &name, const QStringList &costs,
        const QVector<double> &ratios, const Goal &goal, double achieved);

    bool m_onX11;
    QStringList m_missed;
    QStringList m_different;
};

} // namespace bench

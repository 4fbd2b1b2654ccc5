// SPDX-License-Identifier: MIT
#include "benchmarks/report.h"

#include <QTextStream>

namespace bench {

namespace {

struct Column
{
    const char *title;
    int width;
};

constexpr Column kColumns[] = {{"case", 34}, {"anchor", 9}, {"limit", 9}, {"ours", 9}, {"ratio", 7},
    {"spread", 6}, {"goal", 7}, {"stretch", 7}, {"verdict", 8}};

void printRow(const QStringList &cells)
{
    QString row;
    for (int i = 0; i < cells.size(); ++i) {
        const int width = kColumns[i].width;
        row += QLatin1String("| ")
            + (i == 0 ? cells[i].leftJustified(width) : cells[i].rightJustified(width))
            + QLatin1Char(' ');
    }
    QTextStream(stdout) << row << "|\n";
}

/// Three significant digits, so that no figure looks more precise than it is.
QString threeDigits(double value)
{
    const int decimals = value >= 100 ? 0 : value >= 10 ? 1 : value >= 1 ? 2 : 3;
    return QString::number(value, 'f', decimals);
}

QString costText(double cost, Quantity quantity)
{
    if (cost <= 0)
        return QStringLiteral("-");
    if (quantity == Quantity::Bytes)
        return threeDigits(cost) + QLatin1String(" B");
    const char *unit = cost >= 1e6 ? "ms" : cost >= 1e3 ? "us" : "ns";
    const double divisor = cost >= 1e6 ? 1e6 : cost >= 1e3 ? 1e3 : 1;
    return threeDigits(cost / divisor) + QLatin1Char(' ') + QLatin1String(unit);
}

QString ratioText(double ratio)
{
    return ratio > 0 ? threeDigits(ratio) + QLatin1Char('x') : QStringLiteral("-");
}

/// The distance of the middle half of the rounds from the median, in percent.
QString spreadText(const QVector<double> &sorted)
{
    if (sorted.size() < 4)
        return QStringLiteral("-");
    const double half = (sorted[sorted.size() * 3 / 4] - sorted[sorted.size() / 4]) / 2;
    return QStringLiteral("%1 %").arg(qRound(100 * half / median(sorted)));
}

} // namespace

void Report::begin() const
{
    QStringList titles;
    QStringList rules;
    for (const Column &column : kColumns) {
        titles << QLatin1String(column.title);
        rules << QString(column.width - 1, QLatin1Char('-'))
                + QLatin1Char(rules.isEmpty() ? '-' : ':');
    }
    printRow(titles);
    printRow(rules);
}

void Report::add(const Case &c, const Measured &measured)
{
    if (!measured.isEqual)
        m_different << c.name();
    const auto cost = [&](double value) { return costText(value, c.quantity()); };
    const QStringList costs {cost(measured.reference), cost(measured.limit), cost(measured.ours)};
    const double achieved = c.reference() ? median(measured.ratios) : measured.ours;
    addRow(c, c.name(), costs, measured.ratios, c.goalOn(m_onX11), achieved);
    if (c.limitGoal().most > 0 && !m_onX11)
        addRow(c, c.name() + QLatin1String(" (of limit)"), costs, measured.limitRatios,
            c.limitGoal(), median(measured.limitRatios));
}

void Report::addRow(const Case &c, const QString &name, const QStringList &costs,
    const QVector<double> &ratios, const Goal &goal, double achieved)
{
    const auto bound = [&](double value) {
        return c.reference() ? ratioText(value) : costText(value, c.quantity());
    };
    const bool isMissed = goal.most > 0 && achieved > goal.most;
    if (isMissed)
        m_missed
            << QStringLiteral("%1 is at %2, goal %3").arg(name, bound(achieved), bound(goal.most));
    const char *verdict = m_different.contains(c.name()) ? "DIFFERS"
        : goal.most <= 0                                 ? "-"
        : isMissed                                       ? "MISSED"
        : goal.stretch > 0 && achieved <= goal.stretch   ? "stretch"
                                                         : "goal";
    printRow(QStringList {name} + costs
        + QStringList {ratioText(median(ratios)), spreadText(ratios), bound(goal.most),
            bound(goal.stretch), QLatin1String(verdict)});
}

int Report::end() const
{
    QTextStream out(stdout);
    for (const QString &missed : m_missed)
        out << "\nGoal missed: " << missed;
    for (const QString &name : m_different)
        out << "\nOurs gives another result than the reference: " << name;
    const bool isFine = m_missed.isEmpty() && m_different.isEmpty();
    out << (isFine ? "\nEvery goal is reached.\n" : "\n\n");
    return isFine ? 0 : 1;
}

} // namespace bench

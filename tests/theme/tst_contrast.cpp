// SPDX-License-Identifier: MIT
#include "support/vemotest.h"

#include "support/testhost.h"

#include <QDir>
#include <QRegularExpression>

#include <cmath>

namespace {

constexpr double kReadable = 4.5; // WCAG AA for text of ordinary size
const QStringList kGrounds {"#FFFFFF", "#F5F7FA"}; // surface and canvas

struct Rule
{
    QString selector;
    QString colour;
    QString ground; // empty: none of its own
};

double channel(double value)
{
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double luminance(const QColor &colour)
{
    return 0.2126 * channel(colour.redF()) + 0.7152 * channel(colour.greenF())
        + 0.0722 * channel(colour.blueF());
}

double contrast(const QString &a, const QString &b)
{
    const double first = luminance(QColor(a)) + 0.05;
    const double second = luminance(QColor(b)) + 0.05;
    return qMax(first, second) / qMin(first, second);
}

QString property(const QString &block, const QString &name)
{
    const QRegularExpression pattern("(?:^|[;{\\s])" + name + R"(\s*:[^;]*?(#[0-9A-Fa-f]{6}))");
    return pattern.match(block).captured(1);
}

QVector<Rule> rulesOf(const QString &section)
{
    QVector<Rule> rules;
    auto match = QRegularExpression("([^{}]+)\\{([^}]*)\\}").globalMatch(section);
    while (match.hasNext()) {
        const auto rule = match.next();
        const QString block = rule.captured(2);
        QString ground = property(block, "background");
        if (ground.isEmpty())
            ground = property(block, "background-color");
        for (const QString &selector : rule.captured(1).split(','))
            rules.append({selector.trimmed(), property(block, "color"), ground});
    }
    return rules;
}

/// The selector without its states: "QLabel:hover" becomes "QLabel", "X::item:hover" "X::item".
QString atRest(QString selector)
{
    return selector.remove(QRegularExpression("(?<!:):(?!:)!?[\\w-]+"));
}

QStringList groundsOf(const Rule &rule, const QVector<Rule> &rules)
{
    if (!rule.ground.isEmpty())
        return {rule.ground};
    for (const Rule &other : rules) {
        if (other.selector == atRest(rule.selector) && !other.ground.isEmpty())
            return {other.ground};
    }
    return kGrounds;
}

} // namespace

class ContrastTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void textIsReadableOnItsGround_data();
    void textIsReadableOnItsGround();
    void theMeasureKnowsGoodFromBad();
};

void ContrastTest::textIsReadableOnItsGround_data()
{
    QTest::addColumn<QString>("colour");
    QTest::addColumn<QString>("ground");
    for (const QString &file : QDir(":/vemo/theme/style").entryList({"*.qss"})) {
        QFile style(":/vemo/theme/style/" + file);
        QVERIFY(style.open(QIODevice::ReadOnly));
        auto header = QRegularExpression(
            R"(^==(.*)==\n((?:^(?!==).*\n?)*))", QRegularExpression::MultilineOption)
                          .globalMatch(QString::fromUtf8(style.readAll()));
        while (header.hasNext()) {
            const auto section = header.next();
            const QVector<Rule> rules = rulesOf(section.captured(2));
            for (const Rule &rule : rules) {
                // What can't be used need not be readable.
                if (rule.colour.isEmpty() || rule.selector.contains(":disabled"))
                    continue;
                for (const QString &ground : groundsOf(rule, rules))
                    QTest::addRow("%s: %s on %s", qPrintable(section.captured(1).trimmed()),
                        qPrintable(rule.selector), qPrintable(ground))
                        << rule.colour << ground;
            }
        }
    }
}

void ContrastTest::textIsReadableOnItsGround()
{
    QFETCH(QString, colour);
    QFETCH(QString, ground);
    const double measured = contrast(colour, ground);
    QVERIFY2(measured >= kReadable, qPrintable(QString::number(measured)));
}

void ContrastTest::theMeasureKnowsGoodFromBad()
{
    QCOMPARE(contrast("#000000", "#FFFFFF"), 21.0);
    QCOMPARE(contrast("#FFFFFF", "#FFFFFF"), 1.0);
    QVERIFY(contrast("#9AA5B1", "#FFFFFF") < kReadable);
}

VEMO_TEST_MAIN(ContrastTest)
#include "tst_contrast.moc"

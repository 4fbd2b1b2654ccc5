// SPDX-License-Identifier: MIT
#include "support/vemotest.h"

#include "support/testhost.h"

#include <vemo/defaulttheme.h>
#include <vemo/vemolineedit.h>

#include <QDir>
#include <QLineEdit>
#include <QRegularExpression>

#include <cmath>

namespace {

// WCAG AA for text of normal size, and for other parts that are needed to use a control.
constexpr double kReadable = 4.5;
constexpr double kVisible = 3.0;
const QStringList kGrounds {"#FFFFFF", "#F5F7FA"}; // surface and canvas

struct Rule
{
    QString selector;
    QString colour; // these are empty where the rule has none of its own
    QString ground;
    QString ring; // of a border or an outline
    QString selectedColour;
    QString selectedGround;
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

/// The first of the properties that has a colour.
QString property(const QString &block, const QStringList &names)
{
    for (const QString &name : names) {
        const QString colour = property(block, name);
        if (!colour.isEmpty())
            return colour;
    }
    return {};
}

QVector<Rule> rulesOf(const QString &section)
{
    QVector<Rule> rules;
    auto match = QRegularExpression("([^{}]+)\\{([^}]*)\\}").globalMatch(section);
    while (match.hasNext()) {
        const auto rule = match.next();
        const QString block = rule.captured(2);
        for (const QString &selector : rule.captured(1).split(',')) {
            // Disabled controls need not be readable.
            if (selector.contains(":disabled") || selector.contains(":off"))
                continue;
            rules.append({selector.trimmed(), property(block, "color"),
                property(block, {"background", "background-color"}),
                property(block, {"border", "border-color", "border-bottom", "outline"}),
                property(block, "selection-color"), property(block, "selection-background-color")});
        }
    }
    return rules;
}

/// Each section of the theme's style files, by its key.
QMap<QString, QVector<Rule>> sections()
{
    static const QRegularExpression pattern(
        R"(^==(.*)==\n((?:^(?!==).*\n?)*))", QRegularExpression::MultilineOption);
    QMap<QString, QVector<Rule>> sections;
    for (const QString &file : QDir(":/vemo/theme/style").entryList({"*.qss"})) {
        QFile style(":/vemo/theme/style/" + file);
        if (!style.open(QIODevice::ReadOnly))
            return {};
        QString text = QString::fromUtf8(style.readAll());
        text.remove(QRegularExpression(R"(/\*.*?\*/)"));
        auto section = pattern.globalMatch(text);
        while (section.hasNext()) {
            const auto match = section.next();
            sections.insert(match.captured(1).trimmed(), rulesOf(match.captured(2)));
        }
    }
    return sections;
}

/// A selector, then what it falls back on: without its states, from the last to the first, and the
/// widget that an item is of.
QStringList fallbacks(const QString &selector)
{
    static const QRegularExpression lastState("(?<!:):(?!:)!?[\\w-]+$");
    QStringList found {selector};
    for (QString shorter = selector; shorter.contains(lastState);) {
        shorter.remove(lastState);
        found += shorter;
    }
    QString widget = found.last();
    return found + QStringList(widget.remove(QRegularExpression("::item$")));
}

/// The colour that a member of the rules has for a selector.
QString effective(const QString &selector, const QVector<Rule> &rules, QString Rule::*member)
{
    for (const QString &fallback : fallbacks(selector)) {
        for (const Rule &rule : rules) {
            if (rule.selector == fallback && !(rule.*member).isEmpty())
                return rule.*member;
        }
    }
    return {};
}

/// Parts of a widget that hold no text.
bool isGraphic(const QString &selector)
{
    static const QRegularExpression text("::(item|section|tab|title)\\b");
    return selector.contains("::") && !selector.contains(text);
}

void addPair(
    const QString &section, const QString &selector, const QString &colour, const QString &ground)
{
    const QStringList grounds = ground.isEmpty() ? kGrounds : QStringList(ground);
    for (const QString &behind : grounds)
        QTest::addRow("%s: %s, %s on %s", qPrintable(section), qPrintable(selector),
            qPrintable(colour), qPrintable(behind))
            << colour << behind;
}

void addColumns()
{
    QTest::addColumn<QString>("colour");
    QTest::addColumn<QString>("ground");
}

/// Of the solid pixels of a picture, the one that stands out most.
double contrast(const QImage &picture, const QString &ground)
{
    double most = 1;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QColor colour = picture.pixelColor(x, y);
            if (colour.alpha() == 255)
                most = qMax(most, contrast(colour.name(), ground));
        }
    }
    return most;
}

} // namespace

class ContrastTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void textIsReadableOnItsGround_data();
    void textIsReadableOnItsGround();
    void thePaletteIsReadableOnItsGrounds_data();
    void thePaletteIsReadableOnItsGrounds();
    void placeholdersAreReadable();
    void aProgressTextIsReadableOnBothPartsOfItsBar();
    void focusAndChoicesAreVisible_data();
    void focusAndChoicesAreVisible();
    void picturesAreVisibleOnTheirGround_data();
    void picturesAreVisibleOnTheirGround();
    void theMeasureKnowsGoodFromBad();
    void everyStateOfEveryWidgetIsLookedAt();
};

void ContrastTest::textIsReadableOnItsGround_data()
{
    addColumns();
    const auto all = sections();
    for (auto section = all.cbegin(); section != all.cend(); ++section) {
        for (const Rule &rule : *section) {
            const auto value = [&](QString Rule::*member) {
                return effective(rule.selector, *section, member);
            };
            if (isGraphic(rule.selector))
                continue;
            const QString colour = value(&Rule::colour);
            const bool saysSo = !rule.colour.isEmpty() || !rule.ground.isEmpty();
            if (saysSo && !colour.isEmpty())
                addPair(section.key(), rule.selector, colour, value(&Rule::ground));
            if (!rule.selectedColour.isEmpty())
                addPair(section.key(), rule.selector + " (selection)", rule.selectedColour,
                    value(&Rule::selectedGround));
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

void ContrastTest::thePaletteIsReadableOnItsGrounds_data()
{
    QTest::addColumn<QPalette::ColorRole>("text");
    QTest::addColumn<QPalette::ColorRole>("ground");
    QTest::newRow("window") << QPalette::WindowText << QPalette::Window;
    QTest::newRow("list") << QPalette::Text << QPalette::Base;
    QTest::newRow("every other row") << QPalette::Text << QPalette::AlternateBase;
    QTest::newRow("button") << QPalette::ButtonText << QPalette::Button;
    QTest::newRow("placeholder") << QPalette::PlaceholderText << QPalette::Base;
    QTest::newRow("selection") << QPalette::HighlightedText << QPalette::Highlight;
    QTest::newRow("link") << QPalette::Link << QPalette::Base;
    QTest::newRow("tool tip") << QPalette::ToolTipText << QPalette::ToolTipBase;
}

void ContrastTest::thePaletteIsReadableOnItsGrounds()
{
    QFETCH(QPalette::ColorRole, text);
    QFETCH(QPalette::ColorRole, ground);
    const QPalette palette = defaultThemePalette();
    QVERIFY(contrast(palette.color(text).name(), palette.color(ground).name()) >= kReadable);
    QVERIFY(palette.isBrushSet(QPalette::Active, text)); // not what Qt would have there
    QVERIFY(palette.isBrushSet(QPalette::Active, ground));
}

void ContrastTest::placeholdersAreReadable()
{
    VemoLineEdit edit;
    edit.show();
    const QColor ink = edit.getLineEdit()->palette().color(QPalette::PlaceholderText);
    for (const QString &ground : kGrounds) {
        const QColor behind(ground);
        const auto mixed = [&ink](double over, double under) {
            return over * ink.alphaF() + under * (1 - ink.alphaF());
        };
        const QColor seen = QColor::fromRgbF(mixed(ink.redF(), behind.redF()),
            mixed(ink.greenF(), behind.greenF()), mixed(ink.blueF(), behind.blueF()));
        QVERIFY(contrast(seen.name(), ground) >= kReadable);
    }
}

void ContrastTest::aProgressTextIsReadableOnBothPartsOfItsBar()
{
    const QVector<Rule> rules = sections().value("application");
    const QString bar = "QProgressBar.QProgressBar";
    const QString text = effective(bar, rules, &Rule::colour);
    const QString ground = effective(bar, rules, &Rule::ground);
    const QString done = effective(bar + "::chunk", rules, &Rule::ground);
    QVERIFY(contrast(text, ground) >= kReadable);
    QVERIFY(contrast(text, done) >= kReadable);
    QVERIFY(
        contrast(effective(bar + "::chunk:horizontal", rules, &Rule::ring), ground) >= kVisible);
}

// A ring of the focus, and the frames of check boxes and radio buttons, which have no other sign.
void ContrastTest::focusAndChoicesAreVisible_data()
{
    addColumns();
    const auto all = sections();
    for (auto section = all.cbegin(); section != all.cend(); ++section) {
        for (const Rule &rule : *section) {
            const bool isWanted =
                rule.selector.contains(":focus") || rule.selector.contains("::indicator");
            if (isWanted && !rule.ring.isEmpty())
                addPair(section.key(), rule.selector, rule.ring, {});
        }
    }
}

void ContrastTest::focusAndChoicesAreVisible()
{
    QFETCH(QString, colour);
    QFETCH(QString, ground);
    const double measured = contrast(colour, ground);
    QVERIFY2(measured >= kVisible, qPrintable(QString::number(measured)));
}

void ContrastTest::picturesAreVisibleOnTheirGround_data()
{
    QTest::addColumn<QString>("picture");
    QTest::addColumn<QStringList>("grounds");
    const QMap<QString, QStringList> states {
        {"", kGrounds}, {"_hover", {"#EEF3F8"}}, {"_click", {"#DCEBFB"}}};
    const QStringList onAccent {"#1769E0", "#0F57C2", "#0B469E"};
    const QStringList onDanger {"#C93A3A", "#AF2C2C", "#8F2020"};
    for (const QString &file : QDir(":/vemo/theme/images").entryList({"*.png"})) {
        const QString name = file.chopped(4);
        const QString state = name.mid(name.lastIndexOf('_') + 1);
        if (name.startsWith("bg_") || state == "disable")
            continue;
        if (name.startsWith("check") || name == "radio_dot")
            QTest::newRow(qPrintable(name)) << file << onAccent + onDanger;
        else if (state == "hover" || state == "click")
            QTest::newRow(qPrintable(name)) << file << states.value('_' + state);
        else
            QTest::newRow(qPrintable(name)) << file << states.value("") + QStringList("#DCEBFB");
    }
}

void ContrastTest::picturesAreVisibleOnTheirGround()
{
    QFETCH(QString, picture);
    QFETCH(QStringList, grounds);
    for (const QString &ground : grounds) {
        const double measured = contrast(QImage(":/vemo/theme/images/" + picture), ground);
        QVERIFY2(measured >= kVisible, qPrintable(QString("%1: %2").arg(ground).arg(measured)));
    }
}

void ContrastTest::theMeasureKnowsGoodFromBad()
{
    QCOMPARE(contrast("#000000", "#FFFFFF"), 21.0);
    QCOMPARE(contrast("#FFFFFF", "#FFFFFF"), 1.0);
    QVERIFY(contrast("#9AA5B1", "#FFFFFF") < kReadable);
}

// Otherwise all tests would pass if the files could not be read.
void ContrastTest::everyStateOfEveryWidgetIsLookedAt()
{
    const auto all = sections();
    QVERIFY(all.size() >= 30);
    const QVector<Rule> cancel = all.value("component.cancel_button");
    QCOMPARE(cancel.size(), 4);
    QCOMPARE(effective("QPushButton:pressed", cancel, &Rule::colour), QString("#1F2933"));
    QCOMPARE(effective("QPushButton:pressed", cancel, &Rule::ground), QString("#DCEBFB"));
    QCOMPARE(effective("QPushButton:focus", cancel, &Rule::ground), QString("#FFFFFF"));
    QCOMPARE(effective("QPushButton:focus", cancel, &Rule::ring), QString("#1769E0"));
    const QVector<Rule> table = all.value("component.table");
    QCOMPARE(effective("QTableWidget::item:hover", table, &Rule::colour), QString("#1F2933"));
}

VEMO_TEST_MAIN(ContrastTest)
#include "tst_contrast.moc"

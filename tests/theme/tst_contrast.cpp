// SPDX-License-Identifier: MIT
#include "support/vemotest.h"

#include "support/testhost.h"

#include <vemo/defaulttheme.h>
#include <vemo/stylemanager.h>
#include <vemo/vemolineedit.h>
#include <vemo/vemomask.h>
#include <vemo/vemosheet.h>

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLineEdit>
#include <QRegularExpression>

#include <cmath>

namespace {

// WCAG AA for text of normal size, and for other parts that are needed to use a control.
constexpr double kReadable = 4.5;
constexpr double kVisible = 3.0;
// Of the edge of a pop-up, which has no shadow. Frames in a window have about 1.5.
constexpr double kSeparate = 2.2;
const QStringList kLooks {"theme", "theme-dark"}; // their folders

struct Rule
{
    QString selector;
    QString colour; // these are empty where the rule has none of its own
    QString ground;
    QString ring; // of a border or an outline
    QString selectedColour;
    QString selectedGround;
    bool hasGap; ///< between the border and the ground, where the window is seen
};

/// The colours of a look, by name.
QMap<QString, QString> paletteOf(const QString &look)
{
    QFile file(":/vemo/" + look + "/palette.json");
    QMap<QString, QString> colours;
    if (!file.open(QIODevice::ReadOnly))
        return colours;
    const QJsonObject palette = QJsonDocument::fromJson(file.readAll()).object();
    for (auto colour = palette.begin(); colour != palette.end(); ++colour)
        colours.insert(colour.key(), colour.value().toString());
    return colours;
}

QStringList coloursOf(const QString &look, const QStringList &names)
{
    QStringList colours;
    for (const QString &name : names)
        colours += paletteOf(look).value(name);
    return colours;
}

QStringList groundsOf(const QString &look)
{
    return coloursOf(look, {"surface", "canvas"});
}

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
                property(block, "selection-color"), property(block, "selection-background-color"),
                block.contains("background-clip: padding")});
        }
    }
    return rules;
}

/// Each section of a look's style files, by its key.
QMap<QString, QVector<Rule>> sectionsOf(const QString &look)
{
    static const QRegularExpression pattern(
        R"(^==(.*)==\n((?:^(?!==).*\n?)*))", QRegularExpression::MultilineOption);
    QMap<QString, QVector<Rule>> sections;
    const QDir folder(":/vemo/" + look + "/style");
    for (const QString &file : folder.entryList({"*.qss"})) {
        QFile style(folder.filePath(file));
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

/// The states of a selector and the part of a widget that has them.
QPair<QString, QSet<QString>> partAndStates(QString selector)
{
    static const QRegularExpression state("(?<!:):(?!:)(!?[\\w-]+)");
    QSet<QString> states;
    auto match = state.globalMatch(selector);
    while (match.hasNext())
        states += match.next().captured(1);
    return {selector.remove(state), states};
}

/// The rule with this member that wins for a part in exactly the states of the selector.
Rule appliedRule(const QString &selector, const QVector<Rule> &rules, QString Rule::*member)
{
    const auto [part, states] = partAndStates(selector);
    Rule applied;
    int maxStates = -1;
    for (const Rule &rule : rules) {
        const auto [rulePart, ruleStates] = partAndStates(rule.selector);
        const bool isApplied = rulePart == part && states.contains(ruleStates);
        if (isApplied && !(rule.*member).isEmpty() && ruleStates.size() >= maxStates) {
            applied = rule;
            maxStates = ruleStates.size();
        }
    }
    return applied;
}

/// Parts of a widget that hold no text.
bool isGraphic(const QString &selector)
{
    static const QRegularExpression text("::(item|section|tab|title)\\b");
    return selector.contains("::") && !selector.contains(text);
}

/// Where a row of a test comes from.
struct Place
{
    QString look;
    QString section;
};

void addPair(
    const Place &place, const QString &selector, const QString &colour, const QString &ground)
{
    const QStringList grounds = ground.isEmpty() ? groundsOf(place.look) : QStringList(ground);
    for (const QString &behind : grounds)
        QTest::addRow("%s, %s: %s, %s on %s", qPrintable(place.look), qPrintable(place.section),
            qPrintable(selector), qPrintable(colour), qPrintable(behind))
            << colour << behind;
}

/// Calls function with each rule, the other rules of its section, and its place.
template <typename Function> void forEachRule(const Function &function)
{
    for (const QString &look : kLooks) {
        const auto all = sectionsOf(look);
        for (auto section = all.cbegin(); section != all.cend(); ++section) {
            for (const Rule &rule : *section)
                function(rule, *section, Place {look, section.key()});
        }
    }
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

Q_DECLARE_METATYPE(DefaultThemeMode)

class ContrastTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void textIsReadableOnItsGround_data();
    void textIsReadableOnItsGround();
    void thePaletteIsReadableOnItsGrounds_data();
    void thePaletteIsReadableOnItsGrounds();
    void placeholdersAreReadable_data();
    void placeholdersAreReadable();
    void aProgressTextIsReadableOnBothPartsOfItsBar_data();
    void aProgressTextIsReadableOnBothPartsOfItsBar();
    void focusAndChoicesAreVisible_data();
    void focusAndChoicesAreVisible();
    void aFocusRingStandsOutFromItsWidget_data();
    void aFocusRingStandsOutFromItsWidget();
    void picturesAreVisibleOnTheirGround_data();
    void picturesAreVisibleOnTheirGround();
    void theMeasureKnowsGoodFromBad();
    void everyStateOfEveryWidgetIsLookedAt();
    void aSheetStandsOutFromItsWindow_data();
    void aSheetStandsOutFromItsWindow();
    void aPopUpStandsOutByItsEdge_data();
    void aPopUpStandsOutByItsEdge();
};

void ContrastTest::textIsReadableOnItsGround_data()
{
    addColumns();
    forEachRule([](const Rule &rule, const QVector<Rule> &section, const Place &place) {
        const auto value = [&](QString Rule::*member) {
            return effective(rule.selector, section, member);
        };
        if (isGraphic(rule.selector))
            return;
        const QString colour = value(&Rule::colour);
        const bool saysSo = !rule.colour.isEmpty() || !rule.ground.isEmpty();
        if (saysSo && !colour.isEmpty())
            addPair(place, rule.selector, colour, value(&Rule::ground));
        if (!rule.selectedColour.isEmpty())
            addPair(place, rule.selector + " (selection)", rule.selectedColour,
                value(&Rule::selectedGround));
    });
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
    QTest::addColumn<DefaultThemeMode>("mode");
    QTest::addColumn<QPalette::ColorRole>("text");
    QTest::addColumn<QPalette::ColorRole>("ground");
    for (const auto mode : {DefaultThemeMode::Light, DefaultThemeMode::Dark}) {
        const auto add = [mode](const char *name, QPalette::ColorRole text,
                             QPalette::ColorRole ground) {
            QTest::addRow("%s, %s", mode == DefaultThemeMode::Dark ? "dark" : "light", name)
                << mode << text << ground;
        };
        add("window", QPalette::WindowText, QPalette::Window);
        add("list", QPalette::Text, QPalette::Base);
        add("every other row", QPalette::Text, QPalette::AlternateBase);
        add("button", QPalette::ButtonText, QPalette::Button);
        add("placeholder", QPalette::PlaceholderText, QPalette::Base);
        add("selection", QPalette::HighlightedText, QPalette::Highlight);
        add("link", QPalette::Link, QPalette::Base);
        add("tool tip", QPalette::ToolTipText, QPalette::ToolTipBase);
    }
}

void ContrastTest::thePaletteIsReadableOnItsGrounds()
{
    QFETCH(DefaultThemeMode, mode);
    QFETCH(QPalette::ColorRole, text);
    QFETCH(QPalette::ColorRole, ground);
    QVERIFY(setDefaultThemeMode(mode));
    const QPalette palette = defaultThemePalette();
    QVERIFY(contrast(palette.color(text).name(), palette.color(ground).name()) >= kReadable);
    QVERIFY(palette.isBrushSet(QPalette::Active, text)); // not what Qt would have there
    QVERIFY(palette.isBrushSet(QPalette::Active, ground));
}

void ContrastTest::placeholdersAreReadable_data()
{
    QTest::addColumn<DefaultThemeMode>("builtIn");
    QTest::addColumn<DefaultThemeMode>("shownIn");
    const auto light = DefaultThemeMode::Light;
    const auto dark = DefaultThemeMode::Dark;
    addRow("light", light, light);
    addRow("dark", dark, dark);
    addRow("light, then dark", light, dark);
    addRow("dark, then light", dark, light);
}

void ContrastTest::placeholdersAreReadable()
{
    QFETCH(DefaultThemeMode, builtIn);
    QFETCH(DefaultThemeMode, shownIn);
    QVERIFY(setDefaultThemeMode(builtIn));
    VemoLineEdit edit;
    edit.show();
    QVERIFY(setDefaultThemeMode(shownIn));
    const QString look = shownIn == DefaultThemeMode::Dark ? "theme-dark" : "theme";
    const QColor ink = edit.getLineEdit()->palette().color(QPalette::PlaceholderText);
    for (const QString &ground : groundsOf(look)) {
        const QColor behind(ground);
        const auto mixed = [&ink](double over, double under) {
            return over * ink.alphaF() + under * (1 - ink.alphaF());
        };
        const QColor seen = QColor::fromRgbF(mixed(ink.redF(), behind.redF()),
            mixed(ink.greenF(), behind.greenF()), mixed(ink.blueF(), behind.blueF()));
        QVERIFY(contrast(seen.name(), ground) >= kReadable);
    }
}

void ContrastTest::aProgressTextIsReadableOnBothPartsOfItsBar_data()
{
    QTest::addColumn<QString>("look");
    for (const QString &look : kLooks)
        QTest::newRow(qPrintable(look)) << look;
}

void ContrastTest::aProgressTextIsReadableOnBothPartsOfItsBar()
{
    QFETCH(QString, look);
    const QVector<Rule> rules = sectionsOf(look).value("application");
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
    forEachRule([](const Rule &rule, const QVector<Rule> &, const Place &place) {
        const bool isWanted =
            rule.selector.contains(":focus") || rule.selector.contains("::indicator");
        if (isWanted && !rule.ring.isEmpty())
            addPair(place, rule.selector, rule.ring, {});
    });
}

void ContrastTest::focusAndChoicesAreVisible()
{
    QFETCH(QString, colour);
    QFETCH(QString, ground);
    const double measured = contrast(colour, ground);
    QVERIFY2(measured >= kVisible, qPrintable(QString::number(measured)));
}

// In each state, from the ground that its pixels have without the focus.
void ContrastTest::aFocusRingStandsOutFromItsWidget_data()
{
    addColumns();
    forEachRule([](const Rule &rule, const QVector<Rule> &section, const Place &place) {
        if (rule.selector.contains(":focus") || rule.selector.contains("::item"))
            return;
        const Rule focused = appliedRule(rule.selector + ":focus", section, &Rule::ring);
        const QString ground = appliedRule(rule.selector, section, &Rule::ground).ground;
        if (focused.selector.contains(":focus") && focused.hasGap)
            addPair(place, rule.selector + ":focus", ground, {});
        else if (focused.selector.contains(":focus"))
            addPair(place, rule.selector + ":focus", focused.ring, ground);
    });
}

void ContrastTest::aFocusRingStandsOutFromItsWidget()
{
    focusAndChoicesAreVisible();
}

void ContrastTest::picturesAreVisibleOnTheirGround_data()
{
    QTest::addColumn<QString>("picture");
    QTest::addColumn<QStringList>("grounds");
    const QStringList marked {
        "accent", "accent-hover", "accent-pressed", "danger", "danger-hover", "danger-pressed"};
    for (const QString &look : kLooks) {
        const QDir folder(":/vemo/" + look + "/images");
        for (const QString &file : folder.entryList({"*.png"})) {
            const QString name = file.chopped(4);
            const QString state = name.mid(name.lastIndexOf('_') + 1);
            if (name.startsWith("bg_") || state == "disable")
                continue;
            QStringList grounds {"surface", "canvas", "selection"};
            if (name.startsWith("check") || name == "radio_dot" || name == "switch_on")
                grounds = marked;
            else if (state == "hover")
                grounds = QStringList {"hover"};
            else if (state == "click")
                grounds = QStringList {"selection"};
            QTest::addRow("%s, %s", qPrintable(look), qPrintable(name))
                << folder.filePath(file) << coloursOf(look, grounds);
        }
    }
}

void ContrastTest::picturesAreVisibleOnTheirGround()
{
    QFETCH(QString, picture);
    QFETCH(QStringList, grounds);
    for (const QString &ground : grounds) {
        const double measured = contrast(QImage(picture), ground);
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
    QCOMPARE(sectionsOf("theme-dark").size(), sectionsOf("theme").size() + 1); // "colors"
    const auto all = sectionsOf("theme");
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

void ContrastTest::aSheetStandsOutFromItsWindow_data()
{
    aProgressTextIsReadableOnBothPartsOfItsBar_data();
}

// The window under the mask, the edge of the shadow on it, and the body of the sheet.
void ContrastTest::aSheetStandsOutFromItsWindow()
{
    QFETCH(QString, look);
    const bool isDark = look == "theme-dark";
    QVERIFY(setDefaultThemeMode(isDark ? DefaultThemeMode::Dark : DefaultThemeMode::Light));
    QWidget window;
    window.setPalette(defaultThemePalette());
    window.resize(500, 400);
    auto *sheet = new VemoSheet(&window);
    sheet->setWidget(new QWidget);
    sheet->setFixedSize(300, 200);
    const QColor shade = StyleManager::getInstance().getColor("mask", QColor(0, 0, 0, 20));
    VemoMask::createMask(sheet, &window, shade);
    window.show();
    const QColor uncovered = pixelAt(&window, {2, 2});
    sheet->show();
    const auto lightness = [&](const QPoint &point) { return pixelAt(&window, point).lightness(); };
    const int masked = lightness({2, 2});
    const int nextToBody = lightness({100 + 20, 200});
    const int body = lightness({250, 200});
    QVERIFY(uncovered.lightness() - masked >= 7);
    QVERIFY2(isDark ? masked - lightness({100 + 17, 200}) >= 3 : masked - nextToBody >= 20,
        qPrintable(QString::number(masked - lightness({100 + 17, 200}))));
    QVERIFY(body - masked >= 15);
    QCOMPARE(pixelAt(&window, {250, 200}), defaultThemeColor("surface"));
}

void ContrastTest::aPopUpStandsOutByItsEdge_data()
{
    addColumns();
    static const QRegularExpression popUp("^(QMenu(\\.QMenu)?|QToolTip|QComboBox(\\.QComboBox)? "
                                          "(QAbstractItemView|VemoCalanderView))$");
    forEachRule([](const Rule &rule, const QVector<Rule> &, const Place &place) {
        if (popUp.match(rule.selector).hasMatch())
            addPair(place, rule.selector, rule.ring, {});
    });
}

void ContrastTest::aPopUpStandsOutByItsEdge()
{
    QFETCH(QString, colour);
    QFETCH(QString, ground);
    const double measured = contrast(colour, ground);
    QVERIFY2(measured >= kSeparate, qPrintable(QString::number(measured)));
}

VEMO_TEST_MAIN(ContrastTest)
#include "tst_contrast.moc"

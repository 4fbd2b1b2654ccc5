// SPDX-License-Identifier: MIT
#include <vemo/imagemanager.h>
#include <vemo/stylemanager.h>

#include "support/testhost.h"
#include "support/vemotest.h"

#include <QLabel>
#include <QPainter>
#include <QPointer>
#include <QPushButton>

#include <functional>

namespace {

/// Calls a function on the event of reload().
class Handler : public QWidget
{
public:
    explicit Handler(std::function<void(Handler *)> function) : m_function(std::move(function)) { }

    int calls = 0;

protected:
    void customEvent(QEvent *event) override
    {
        if (event->type() != StyleManager::reloadEvent())
            return;
        ++calls;
        m_function(this);
    }

private:
    std::function<void(Handler *)> m_function;
};

QColor middleOf(const QPixmap &pixmap)
{
    const QImage image = pixmap.toImage();
    return image.isNull() ? QColor() : image.pixelColor(image.rect().center());
}

const QByteArray kBefore =
    "== a ==\nQLabel { color: red; padding: 10px; }\n"
    "== long ==\nQLabel { color: red; padding: 10px; }\nQFrame { border: none; }\n"
    "== other ==\nQWidget { color: red; }\n"
    "== twin ==\nQWidget { color: red; }\n"
    "== gone ==\nQFrame { color: red; }\n"
    "== empty ==\n\n";
const QByteArray kAfter =
    "== a ==\nQLabel { color: blue; padding: 10px; }\n"
    "== long ==\nQLabel { color: blue; padding: 10px; }\nQFrame { border: 2px; }\n"
    "== other ==\nQWidget { color: blue; }\n"
    "== twin ==\nQWidget { color: green; }\n"
    "== empty ==\nQWidget { color: blue; }\n";

} // namespace

Q_DECLARE_METATYPE(std::function<QString()>)
Q_DECLARE_METATYPE(QIcon::Mode)
Q_DECLARE_METATYPE(QIcon::State)

class ThemeReloadTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_host.start(ImageManager::LAZY_LOAD); }
    void init();
    void cleanup();
    void sectionsInASheetAreExchanged_data();
    void sectionsInASheetAreExchanged();
    void theApplicationsSheetIsExchanged();
    void sectionsThatTheFilesLackAreForgotten();
    void everyWidgetIsSentTheEventOnce();
    void aSheetThatAHandlerSetsStays();
    void aHandlerMayDeleteOtherWidgets();
    void aWindowWithASheetOfItsOwnGetsTheNewPalette();
    void withoutTheSectionColorsAreThoseOfTheCode();
    void colorsComeFromTheirSection_data();
    void colorsComeFromTheirSection();
    void aWrongColorIsWarnedAbout();
    void anIconDrawsByName_data();
    void anIconDrawsByName();
    void anIconWithoutAStateMakesItOfTheNormalPicture();
    void anIconFollowsTheCatalogue();
    void anUnknownIconIsNull();

private:
    void load(const QByteArray &text);
    void reload(const QByteArray &text);

    TestHost m_host;
};

void ThemeReloadTest::load(const QByteArray &text)
{
    StyleManager::getInstance().reload({m_host.writeFile("before.qss", text)});
}

void ThemeReloadTest::reload(const QByteArray &text)
{
    StyleManager::getInstance().reload({m_host.writeFile("after.qss", text)});
}

void ThemeReloadTest::init()
{
    VemoTest::init();
    load(kBefore);
}

void ThemeReloadTest::cleanup()
{
    qApp->setStyleSheet({});
    QApplication::setPalette({});
    VemoTest::cleanup();
}

void ThemeReloadTest::sectionsInASheetAreExchanged_data()
{
    QTest::addColumn<std::function<QString()>>("sheet");
    const auto add = [](const char *name, const std::function<QString()> &sheet) {
        QTest::newRow(name) << sheet;
    };
    const auto section = [](const char *key) { return getStyleSheet(key); };
    add("one section", [=] { return section("a"); });
    add("unscaled", [] { return getStyleSheet("a", true); });
    add("trimmed", [=] { return section("a").trimmed(); });
    add("two sections", [=] { return section("a") + section("other"); });
    add("a section twice", [=] { return section("other") + section("other"); });
    add("one that begins with another", [=] { return section("long"); });
    add("between rules of the host",
        [=] { return "#x { color: red; }" + section("a") + "QMenu {}"; });
    add("none", [] { return QString("QLabel { color: red; }"); });
    add("nothing", [] { return QString(); });
}

void ThemeReloadTest::sectionsInASheetAreExchanged()
{
    QFETCH(std::function<QString()>, sheet);
    QLabel label;
    label.setStyleSheet(sheet());
    reload(kAfter);
    QCOMPARE(label.styleSheet(), sheet());
}

void ThemeReloadTest::theApplicationsSheetIsExchanged()
{
    qApp->setStyleSheet(getStyleSheet("other") + "QMenu { color: red; }");
    reload(kAfter);
    QCOMPARE(qApp->styleSheet(), getStyleSheet("other") + "QMenu { color: red; }");
}

void ThemeReloadTest::sectionsThatTheFilesLackAreForgotten()
{
    QLabel label;
    label.setStyleSheet(getStyleSheet("gone"));
    const QString before = label.styleSheet();
    reload(kAfter);
    QCOMPARE(label.styleSheet(), before);
    QCOMPARE(getStyleSheet("gone"), QString());
    QCOMPARE(messages.take(), QStringList("Cannot find stylesheet \"gone\""));
}

void ThemeReloadTest::everyWidgetIsSentTheEventOnce()
{
    QString seen;
    Handler window([&](Handler *) { seen = getStyleSheet("other"); });
    auto *child = new Handler([](Handler *) {});
    child->setParent(&window);
    reload(kAfter);
    QCOMPARE(window.calls, 1);
    QCOMPARE(child->calls, 1);
    QCOMPARE(seen, getStyleSheet("other")); // the new section is there already
}

void ThemeReloadTest::aSheetThatAHandlerSetsStays()
{
    const QString old = getStyleSheet("a");
    Handler widget([old](Handler *self) { self->setStyleSheet(old + "QMenu {}"); });
    widget.setStyleSheet(old);
    reload(kAfter);
    QCOMPARE(widget.styleSheet(), old + "QMenu {}");
}

void ThemeReloadTest::aHandlerMayDeleteOtherWidgets()
{
    QVector<QPointer<QWidget>> widgets;
    for (int i = 0; i < 20; ++i) {
        widgets += new Handler([&widgets](Handler *self) {
            for (const QPointer<QWidget> &widget : qAsConst(widgets)) {
                if (widget != self)
                    delete widget;
            }
        });
        widgets.last()->setStyleSheet(getStyleSheet("a"));
    }
    reload(kAfter);
    const auto isAlive = [](const QPointer<QWidget> &widget) { return !widget.isNull(); };
    QCOMPARE(std::count_if(widgets.begin(), widgets.end(), isAlive), 1);
    for (const QPointer<QWidget> &widget : qAsConst(widgets))
        delete widget;
}

void ThemeReloadTest::aWindowWithASheetOfItsOwnGetsTheNewPalette()
{
    QWidget window;
    window.setStyleSheet("#nobody { color: red; }");
    window.resize(400, 300);
    auto *inner = new QWidget(&window);
    inner->setStyleSheet("#nobody { color: green; }");
    auto *label = new QLabel("Text", inner);
    window.show();
    QPalette dark = QApplication::palette();
    dark.setColor(QPalette::Window, Qt::darkBlue);
    dark.setColor(QPalette::WindowText, Qt::yellow);
    QApplication::setPalette(dark);
    reload(kAfter);
    QCOMPARE(window.palette().color(QPalette::Window), QColor(Qt::darkBlue));
    QCOMPARE(inner->palette().color(QPalette::Window), QColor(Qt::darkBlue));
    QCOMPARE(label->palette().color(QPalette::WindowText), QColor(Qt::yellow));
    QCOMPARE(pixelAt(&window, {300, 200}), QColor(Qt::darkBlue));
}

void ThemeReloadTest::withoutTheSectionColorsAreThoseOfTheCode()
{
    const StyleManager &styles = StyleManager::getInstance();
    QCOMPARE(styles.getColor("sheet-body", Qt::white), QColor(Qt::white));
    reload("== colors ==\nsheet-body: #123456;\n");
    QCOMPARE(styles.getColor("sheet-body", Qt::white), QColor(0x12, 0x34, 0x56));
    QCOMPARE(styles.getColor("mask", Qt::white), QColor(Qt::white));
    reload(kAfter);
    QCOMPARE(styles.getColor("sheet-body", Qt::white), QColor(Qt::white));
}

void ThemeReloadTest::colorsComeFromTheirSection_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QColor>("expected");
    QTest::newRow("hex") << QByteArray("x: #123456;") << QColor(0x12, 0x34, 0x56);
    QTest::newRow("name") << QByteArray("x: teal;") << QColor("teal");
    QTest::newRow("with alpha") << QByteArray("x: rgba(1, 2,3 , 4);") << QColor(1, 2, 3, 4);
    QTest::newRow("without blanks") << QByteArray("x:#123456") << QColor(0x12, 0x34, 0x56);
    QTest::newRow("among others") << QByteArray("y: red;\n  x: green; z: blue;") << QColor("green");
    QTest::newRow("the later one") << QByteArray("x: red; x: green;") << QColor("green");
    QTest::newRow("another name") << QByteArray("xx: red; X: red;") << QColor("black");
}

void ThemeReloadTest::colorsComeFromTheirSection()
{
    QFETCH(QByteArray, text);
    QFETCH(QColor, expected);
    reload("== colors ==\n" + text + '\n');
    QCOMPARE(StyleManager::getInstance().getColor("x", QColor("black")), expected);
}

void ThemeReloadTest::aWrongColorIsWarnedAbout()
{
    reload("== colors ==\nx: redd;\n");
    QCOMPARE(messages.take(), QStringList("Not a color \"x: redd\""));
    QCOMPARE(StyleManager::getInstance().getColor("x", Qt::black), QColor(Qt::black));
}

void ThemeReloadTest::anIconDrawsByName_data()
{
    QTest::addColumn<QIcon::Mode>("mode");
    QTest::addColumn<QIcon::State>("state");
    QTest::addColumn<QColor>("expected");
    QTest::newRow("normal") << QIcon::Normal << QIcon::Off << QColor(Qt::red);
    QTest::newRow("active") << QIcon::Active << QIcon::Off << QColor(Qt::green);
    QTest::newRow("on") << QIcon::Normal << QIcon::On << QColor(Qt::blue);
    QTest::newRow("disabled") << QIcon::Disabled << QIcon::Off << QColor(Qt::gray);
    QTest::newRow("disabled, on") << QIcon::Disabled << QIcon::On << QColor(Qt::gray);
}

void ThemeReloadTest::anIconDrawsByName()
{
    QFETCH(QIcon::Mode, mode);
    QFETCH(QIcon::State, state);
    QFETCH(QColor, expected);
    for (const auto &[name, colour] :
        {std::make_pair("four", Qt::red), std::make_pair("four_hover", Qt::green),
            std::make_pair("four_click", Qt::blue), std::make_pair("four_disable", Qt::gray)})
        m_host.addPicture(name, {64, 64}, colour);
    m_host.writeCatalogue({"four"});
    ImageManager::getInstance().initialize(ImageManager::LAZY_LOAD);
    const QIcon icon = getGlobalIcon("four");
    const QSize size = getGlobalImage("four").size() / getGlobalImage("four").devicePixelRatio();
    QCOMPARE(middleOf(icon.pixmap(size, mode, state)), expected);
    QCOMPARE(icon.pixmap(size, mode, state).size(), getGlobalImage("four").size());
    // No larger than it is, or, at a pixel ratio, what Qt makes of that.
    QCOMPARE(icon.actualSize(size * 4, mode, state),
        QIcon(getGlobalImage("four")).actualSize(size * 4, QIcon::Normal));
    QCOMPARE(icon.actualSize(size / 2, mode, state), size / 2);
    QImage canvas(16, 16, QImage::Format_ARGB32);
    QPainter painter(&canvas);
    icon.paint(&painter, canvas.rect(), Qt::AlignCenter, mode, state);
    painter.end();
    QCOMPARE(canvas.pixelColor(8, 8), expected);
}

void ThemeReloadTest::anIconWithoutAStateMakesItOfTheNormalPicture()
{
    m_host.addPicture("one", {64, 64}, Qt::red);
    m_host.writeCatalogue({"one"});
    ImageManager::getInstance().initialize(ImageManager::LAZY_LOAD);
    const QIcon icon = getGlobalIcon("one");
    const QIcon plain(getGlobalImage("one"));
    for (const auto mode : {QIcon::Normal, QIcon::Active, QIcon::Disabled, QIcon::Selected})
        QCOMPARE(icon.pixmap(16, mode).toImage(), plain.pixmap(16, mode).toImage());
}

void ThemeReloadTest::anIconFollowsTheCatalogue()
{
    m_host.addPicture("one", {64, 64}, Qt::red);
    m_host.writeCatalogue({"one"});
    ImageManager::getInstance().initialize(ImageManager::LAZY_LOAD);
    QPushButton button;
    button.setIcon(getGlobalIcon("one"));
    QCOMPARE(middleOf(button.icon().pixmap(16)), QColor(Qt::red));
    m_host.addPicture("one", {64, 64}, Qt::green);
    ImageManager::getInstance().initialize(ImageManager::LAZY_LOAD);
    QCOMPARE(middleOf(button.icon().pixmap(16)), QColor(Qt::green));
}

void ThemeReloadTest::anUnknownIconIsNull()
{
    QVERIFY(getGlobalIcon("nothing").isNull());
}

VEMO_TEST_MAIN(ThemeReloadTest)
#include "tst_themereload.moc"

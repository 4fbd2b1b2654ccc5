// SPDX-License-Identifier: MIT
#include <vemo/vemospinner.h>

#include "support/contrast.h"
#include "support/eventcounter.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/defaulttheme.h>
#include <vemo/dpiinfo.h>

#include <QAccessible>
#include <QLabel>
#include <QScrollArea>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <functional>

class VemoSpinnerTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void isStoppedAtFirst();
    void startsAndStops();
    void propertiesAreThoseOfTheFunctions();
    void hasTheSizeOfItsDiameter_data();
    void hasTheSizeOfItsDiameter();
    void stoppedItKeepsItsPlaceAndDrawsNothing();
    void ringIsDrawnInTheMiddle();
    void ringIsVisibleOnWindows();
    void turnsWhileItIsSeen();
    void restsWhileNobodySeesIt_data();
    void restsWhileNobodySeesIt();
    void isStillIfTheStyleAnimatesNothing();
    void otherThemeIsShownAtOnce();
    void takesNoFocusAndNoMouse();
    void isAnnouncedAsABusyProgressBar();
    void isNamedByTheHostOrALabel();
    void mayBeDeletedWhileItTurns_data();
    void mayBeDeletedWhileItTurns();
};

namespace {

constexpr int kTicks = 3;

/// Lets several frames' time go by, counted by a timer as fast as the spinner's.
bool letFramesPass()
{
    QTimer clock;
    int ticks = 0;
    QObject::connect(&clock, &QTimer::timeout, &clock, [&ticks] { ++ticks; });
    clock.start(40);
    return QTest::qWaitFor([&ticks] { return ticks >= kTicks; }, 30000);
}

bool isBlank(QWidget &widget)
{
    const QImage image = widget.grab().toImage();
    QImage blank(image.size(), image.format());
    blank.setDevicePixelRatio(image.devicePixelRatio());
    blank.fill(image.pixelColor(0, 0));
    return image == blank;
}

QAccessibleInterface *interfaceOf(QWidget *widget)
{
    return QAccessible::queryAccessibleInterface(widget);
}

/// A window with a spinner that turns, and ways to hide it and show it again.
struct Room
{
    QWidget window;
    QScrollArea *scrolling = new QScrollArea;
    QStackedWidget *pages = new QStackedWidget;
    QWidget *column = new QWidget;
    VemoSpinner *spinner = new VemoSpinner(column);

    Room()
    {
        column->resize(50, 2000);
        scrolling->setWidget(column);
        pages->addWidget(scrolling);
        pages->addWidget(new QWidget);
        (new QVBoxLayout(&window))->addWidget(pages);
        window.resize(200, 200);
        spinner->start();
        window.show();
    }
};

using Step = std::function<void(Room &)>;

} // namespace

Q_DECLARE_METATYPE(Step)

void VemoSpinnerTest::isStoppedAtFirst()
{
    const VemoSpinner spinner;
    QVERIFY(!spinner.isRunning());
    QVERIFY(!spinner.parent());
    QCOMPARE(spinner.diameter(), 16);
}

void VemoSpinnerTest::startsAndStops()
{
    VemoSpinner spinner;
    QSignalSpy changes(&spinner, &VemoSpinner::runningChanged);
    spinner.stop();
    QCOMPARE(changes.count(), 0);
    spinner.start();
    spinner.start();
    QVERIFY(spinner.isRunning());
    spinner.stop();
    QVERIFY(!spinner.isRunning());
    spinner.setRunning(true);
    QVERIFY(spinner.isRunning());
    QCOMPARE(changes, (QList<QVariantList> {{true}, {false}, {true}}));
}

void VemoSpinnerTest::propertiesAreThoseOfTheFunctions()
{
    VemoSpinner spinner;
    QVERIFY(spinner.setProperty("running", true));
    QVERIFY(spinner.setProperty("diameter", 40));
    QVERIFY(spinner.isRunning());
    QCOMPARE(spinner.diameter(), 40);
    QCOMPARE(spinner.property("running"), QVariant(true));
    QCOMPARE(spinner.property("diameter"), QVariant(40));
}

void VemoSpinnerTest::hasTheSizeOfItsDiameter_data()
{
    QTest::addColumn<int>("diameter");
    QTest::addColumn<int>("expected");
    addRow("default", 16, 16);
    addRow("large", 48, 48);
    addRow("smallest", 4, 4);
    addRow("too small", 3, 4);
    addRow("negative", -16, 4);
}

void VemoSpinnerTest::hasTheSizeOfItsDiameter()
{
    QFETCH(int, diameter);
    QFETCH(int, expected);
    QWidget window;
    auto *spinner = new VemoSpinner;
    auto *layout = new QVBoxLayout(&window);
    layout->addWidget(spinner);
    window.resize(200, 200);
    window.show();
    spinner->setDiameter(diameter);
    layout->activate();
    QCOMPARE(spinner->diameter(), expected);
    QCOMPARE(spinner->size(), QSize(DPIinfo::scaled(expected), DPIinfo::scaled(expected)));
    QCOMPARE(spinner->minimumSizeHint(), spinner->size());
}

void VemoSpinnerTest::stoppedItKeepsItsPlaceAndDrawsNothing()
{
    QWidget window;
    auto *spinner = new VemoSpinner;
    (new QVBoxLayout(&window))->addWidget(spinner);
    window.show();
    QVERIFY(isBlank(*spinner));
    const QRect place = spinner->geometry();
    spinner->start();
    QVERIFY(!isBlank(*spinner));
    spinner->stop();
    QVERIFY(isBlank(*spinner));
    QVERIFY(spinner->isVisible());
    QCOMPARE(spinner->geometry(), place);
}

void VemoSpinnerTest::ringIsDrawnInTheMiddle()
{
    VemoSpinner spinner;
    spinner.setDiameter(32);
    spinner.resize(DPIinfo::scaled(32) + 60, DPIinfo::scaled(32) + 20);
    spinner.start();
    const QImage image = spinner.grab().toImage();
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != image.pixel(0, 0))
                ink |= QRect(x, y, 1, 1);
        }
    }
    QCOMPARE(ink, QRect(30, 10, DPIinfo::scaled(32), DPIinfo::scaled(32)));
    QCOMPARE(image.pixel(ink.center()), image.pixel(0, 0));
    // The arc of the first picture is at the top.
    const QColor ground = image.pixelColor(0, 0);
    QVERIFY(contrast(image.pixelColor(ink.center().x(), ink.top() + 2), ground) >= 3);
    QVERIFY(contrast(image.pixelColor(ink.center().x(), ink.bottom() - 2), ground) < 3);
}

void VemoSpinnerTest::ringIsVisibleOnWindows()
{
    const VemoSpinner spinner;
    spinner.ensurePolished();
    const QColor ink = spinner.palette().color(spinner.foregroundRole());
    QCOMPARE(ink, defaultThemeColor("accent"));
    for (const char *ground : {"canvas", "surface"})
        QVERIFY(contrast(ink, defaultThemeColor(ground)) >= 3);
}

void VemoSpinnerTest::turnsWhileItIsSeen()
{
    Room room;
    const EventCounter paints(room.spinner, QEvent::Paint);
    QTRY_VERIFY(paints.count() > kTicks);
    const QImage first = room.spinner->grab().toImage();
    QTRY_VERIFY(room.spinner->grab().toImage() != first);
    room.spinner->stop();
    QCoreApplication::processEvents();
    const EventCounter timers(room.spinner, QEvent::Timer);
    QVERIFY(letFramesPass());
    QCOMPARE(timers.count(), 0);
}

void VemoSpinnerTest::restsWhileNobodySeesIt_data()
{
    QTest::addColumn<Step>("hide");
    QTest::addColumn<Step>("show");
    addRow("hidden", Step([](Room &room) { room.spinner->hide(); }),
        Step([](Room &room) { room.spinner->show(); }));
    addRow("hidden window", Step([](Room &room) { room.window.hide(); }),
        Step([](Room &room) { room.window.show(); }));
    addRow("other page", Step([](Room &room) { room.pages->setCurrentIndex(1); }),
        Step([](Room &room) { room.pages->setCurrentIndex(0); }));
    addRow("scrolled away", Step([](Room &room) { room.scrolling->ensureVisible(0, 1999); }),
        Step([](Room &room) { room.scrolling->ensureVisible(0, 0); }));
    // The offscreen platform goes on painting minimized windows.
    if (QGuiApplication::platformName() == QLatin1String("xcb")) {
        addRow("minimized", Step([](Room &room) { room.window.showMinimized(); }),
            Step([](Room &room) { room.window.showNormal(); }));
    }
}

void VemoSpinnerTest::restsWhileNobodySeesIt()
{
    QFETCH(Step, hide);
    QFETCH(Step, show);
    Room room;
    const EventCounter paints(room.spinner, QEvent::Paint);
    QTRY_VERIFY(paints.count() > kTicks);
    hide(room);
    const EventCounter timers(room.spinner, QEvent::Timer);
    // The window manager takes its time to minimize.
    QTRY_VERIFY([&] {
        const int before = timers.count();
        return letFramesPass() && timers.count() == before;
    }());
    const int atRest = paints.count();
    QVERIFY(letFramesPass());
    QCOMPARE(paints.count(), atRest);
    QVERIFY(room.spinner->isRunning());
    show(room);
    QTRY_VERIFY(paints.count() > atRest + kTicks);
}

void VemoSpinnerTest::isStillIfTheStyleAnimatesNothing()
{
    Room room;
    const EventCounter paints(room.spinner, QEvent::Paint);
    QTRY_VERIFY(paints.count() > kTicks);
    room.window.setStyleSheet("VemoSpinner { widget-animation-duration: 0; }");
    QVERIFY(letFramesPass());
    const EventCounter timers(room.spinner, QEvent::Timer);
    const QImage still = room.spinner->grab().toImage();
    QVERIFY(letFramesPass());
    QCOMPARE(timers.count(), 0);
    QVERIFY(!isBlank(*room.spinner));
    QCOMPARE(room.spinner->grab().toImage(), still);
    room.window.setStyleSheet(QString());
    QTRY_VERIFY(timers.count() > kTicks);
}

void VemoSpinnerTest::otherThemeIsShownAtOnce()
{
    VemoSpinner spinner;
    spinner.setDiameter(32);
    spinner.resize(spinner.sizeHint());
    spinner.start();
    const QPoint top(spinner.width() / 2, DPIinfo::scaled(2));
    const QColor light = defaultThemeColor("accent");
    QCOMPARE(pixelAt(&spinner, top), light);
    QVERIFY(setDefaultThemeMode(DefaultThemeMode::Dark));
    QVERIFY(defaultThemeColor("accent") != light);
    QCOMPARE(pixelAt(&spinner, top), defaultThemeColor("accent"));
    QVERIFY(setDefaultThemeMode(DefaultThemeMode::Light));
    spinner.setEnabled(false);
    QCOMPARE(pixelAt(&spinner, top), defaultThemeColor("faint-ink"));
}

void VemoSpinnerTest::takesNoFocusAndNoMouse()
{
    VemoSpinner spinner;
    QCOMPARE(spinner.focusPolicy(), Qt::NoFocus);
    QVERIFY(!spinner.hasMouseTracking());
}

void VemoSpinnerTest::isAnnouncedAsABusyProgressBar()
{
    VemoSpinner spinner;
    QAccessibleInterface *accessible = interfaceOf(&spinner);
    QCOMPARE(accessible->role(), QAccessible::ProgressBar);
    QVERIFY(!accessible->state().focusable);
    QVERIFY(!accessible->state().busy);
    spinner.start();
    QVERIFY(accessible->state().busy);
    spinner.stop();
    QVERIFY(!accessible->state().busy);
}

void VemoSpinnerTest::isNamedByTheHostOrALabel()
{
    QWidget window;
    QLabel caption("&Loading", &window);
    VemoSpinner spinner(&window);
    QCOMPARE(interfaceOf(&spinner)->text(QAccessible::Name), QString());
    caption.setBuddy(&spinner);
    QCOMPARE(interfaceOf(&spinner)->text(QAccessible::Name), QString("Loading"));
    spinner.setAccessibleName("Saving");
    QCOMPARE(interfaceOf(&spinner)->text(QAccessible::Name), QString("Saving"));
}

void VemoSpinnerTest::mayBeDeletedWhileItTurns_data()
{
    QTest::addColumn<bool>("isBySlot");
    addRow("by the host", false);
    addRow("by a slot of runningChanged()", true);
}

void VemoSpinnerTest::mayBeDeletedWhileItTurns()
{
    QFETCH(bool, isBySlot);
    const QPointer<VemoSpinner> spinner = new VemoSpinner;
    spinner->start();
    spinner->show();
    const EventCounter paints(spinner, QEvent::Paint);
    QTRY_VERIFY(paints.count() > kTicks);
    if (isBySlot) {
        connect(spinner, &VemoSpinner::runningChanged, spinner, [&spinner] { delete spinner; });
        spinner->stop();
    } else {
        delete spinner;
    }
    QVERIFY(!spinner);
    QVERIFY(letFramesPass());
}

VEMO_TEST_MAIN(VemoSpinnerTest)
#include "tst_vemospinner.moc"

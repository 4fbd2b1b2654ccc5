// SPDX-License-Identifier: MIT
#include <vemo/vemomask.h>

#include "support/vemotest.h"

#include <QLayout>
#include <QPointer>

namespace {

const QColor kShade(0, 0, 0, 20);

QWidget *plainSheet(QWidget *parent)
{
    auto *sheet = new QWidget(parent);
    sheet->setFixedSize(60, 40);
    return sheet;
}

} // namespace

class VemoMaskTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void containsTheWidgetAndReturnsIt();
    void takesTheParentOfTheWidgetWhereNoneIsGiven();
    void isNotMadeWithout_data();
    void isNotMadeWithout();
    void coversTheWindowWithTheWidgetInTheMiddle();
    void givenColourWins_data();
    void givenColourWins();
    void followsTheSizeOfTheWindow();
    void leavesItsSizeAloneAtOtherEvents();
    void coversTheWholeWindowForAParentWithinIt();
    void isVisibleExactlyWhileTheWidgetIs();
    void waitsForTheWidgetWhenTheWindowShowsLater();
    void showsWithAWindowShownAfterTheWidget();
    void comesBackWithItsWindow();
    void hidesWhenTheVisibleWidgetIsDeleted();
    void diesWithTheWindow();
    void filtersLetEveryEventPass();
};

void VemoMaskTest::containsTheWidgetAndReturnsIt()
{
    QWidget window;
    QWidget *sheet = plainSheet(nullptr);
    QCOMPARE(VemoMask::createMask(sheet, &window, kShade), sheet);
    auto *mask = qobject_cast<VemoMask *>(sheet->parentWidget());
    QVERIFY(mask);
    QCOMPARE(mask->parentWidget(), &window);
    QVERIFY(!mask->isWindow());
    QCOMPARE(mask->layout()->itemAt(0)->widget(), sheet);
}

void VemoMaskTest::takesTheParentOfTheWidgetWhereNoneIsGiven()
{
    QWidget window;
    QWidget *sheet = plainSheet(&window);
    QCOMPARE(VemoMask::createMask(sheet, nullptr, kShade), sheet);
    QCOMPARE(sheet->parentWidget()->parentWidget(), &window);
}

void VemoMaskTest::isNotMadeWithout_data()
{
    QTest::addColumn<QString>("what");
    for (const char *what : {"a widget", "any parent", "a parent other than the widget",
             "a parent outside of the widget"})
        QTest::newRow(what) << what;
}

void VemoMaskTest::isNotMadeWithout()
{
    QFETCH(const QString, what);
    QWidget window;
    QWidget inner(&window);
    QWidget *widget = what == "a widget" ? nullptr : &window;
    QWidget *parent = what == "a parent other than the widget"           ? &window
        : what == "a parent outside of the widget" || what == "a widget" ? &inner
                                                                         : nullptr;
    QCOMPARE(VemoMask::createMask(widget, parent, kShade), nullptr);
    QCOMPARE(VemoMask::createMask(nullptr, nullptr, kShade), nullptr);
    QVERIFY(window.findChildren<VemoMask *>().isEmpty());
    QCOMPARE(inner.parentWidget(), &window);
}

void VemoMaskTest::coversTheWindowWithTheWidgetInTheMiddle()
{
    QWidget window;
    window.resize(300, 200);
    QWidget *sheet = VemoMask::createMask(plainSheet(nullptr), &window, kShade);
    window.show();
    sheet->show();
    QCOMPARE(sheet->parentWidget()->geometry(), QRect(0, 0, 300, 200));
    QCOMPARE(sheet->geometry(), QRect(120, 80, 60, 40));
}

void VemoMaskTest::givenColourWins_data()
{
    QTest::addColumn<QColor>("colour");
    QTest::addColumn<QColor>("onWhite");
    QTest::newRow("the shade of the messages") << kShade << QColor(235, 235, 235);
    QTest::newRow("opaque") << QColor(10, 20, 30, 255) << QColor(10, 20, 30);
    QTest::newRow("fully transparent") << QColor(0, 0, 0, 0) << QColor(255, 255, 255);
}

void VemoMaskTest::givenColourWins()
{
    QFETCH(const QColor, colour);
    QFETCH(const QColor, onWhite);
    QWidget window;
    window.resize(300, 200);
    QPalette white = window.palette();
    white.setColor(QPalette::Window, Qt::white);
    window.setPalette(white);
    QWidget *sheet = VemoMask::createMask(plainSheet(nullptr), &window, colour);
    window.show();
    QCOMPARE(pixelAt(&window, {5, 5}), QColor(Qt::white));
    sheet->show();
    QCOMPARE(pixelAt(&window, {5, 5}), onWhite);
    QCOMPARE(pixelAt(&window, {299, 199}), onWhite);
    sheet->hide();
    QCOMPARE(pixelAt(&window, {5, 5}), QColor(Qt::white));
}

void VemoMaskTest::followsTheSizeOfTheWindow()
{
    QWidget window;
    window.resize(300, 200);
    QWidget *sheet = VemoMask::createMask(plainSheet(nullptr), &window, kShade);
    QWidget *mask = sheet->parentWidget();
    window.show();
    sheet->show();
    const QSize sizes[] = {{301, 200}, {500, 450}, {100, 80}, {640, 480}};
    for (const QSize &size : sizes) {
        window.resize(size);
        QCOMPARE(mask->size(), size);
        QCOMPARE(mask->pos(), QPoint(0, 0));
    }
    sheet->hide();
    window.resize(320, 240);
    QCOMPARE(mask->size(), QSize(320, 240));
}

void VemoMaskTest::leavesItsSizeAloneAtOtherEvents()
{
    QWidget window;
    window.resize(300, 200);
    QWidget *mask = VemoMask::createMask(plainSheet(nullptr), &window, kShade)->parentWidget();
    window.show();
    mask->setFixedSize(11, 12);
    window.setWindowTitle("changed");
    window.move(50, 60);
    window.setFont(QFont("monospace"));
    window.hide();
    window.show();
    QCOMPARE(mask->size(), QSize(11, 12));
    static_cast<VemoMask *>(mask)->resize();
    QCOMPARE(mask->size(), QSize(300, 200));
}

void VemoMaskTest::coversTheWholeWindowForAParentWithinIt()
{
    QWidget window;
    window.resize(300, 200);
    QWidget panel(&window);
    panel.resize(50, 40);
    QWidget *mask = VemoMask::createMask(plainSheet(nullptr), &panel, kShade)->parentWidget();
    QCOMPARE(mask->size(), QSize(300, 200));
    window.show();
    window.resize(400, 300);
    QCOMPARE(mask->size(), QSize(300, 200));
    panel.resize(51, 40);
    QCOMPARE(mask->size(), QSize(400, 300));
}

void VemoMaskTest::isVisibleExactlyWhileTheWidgetIs()
{
    QWidget window;
    QWidget *sheet = VemoMask::createMask(plainSheet(nullptr), &window, kShade);
    QWidget *mask = sheet->parentWidget();
    window.show();
    QVERIFY(!mask->isVisible());
    for (int i = 0; i < 2; ++i) {
        sheet->show();
        QVERIFY(mask->isVisible());
        QVERIFY(sheet->isVisible());
        sheet->hide();
        QVERIFY(!mask->isVisible());
    }
}

void VemoMaskTest::waitsForTheWidgetWhenTheWindowShowsLater()
{
    QWidget window;
    QWidget *sheet = VemoMask::createMask(plainSheet(nullptr), &window, kShade);
    window.show();
    QVERIFY(!sheet->isVisible());
    QVERIFY(!sheet->parentWidget()->isVisible());
}

void VemoMaskTest::showsWithAWindowShownAfterTheWidget()
{
    QWidget window;
    QWidget *sheet = VemoMask::createMask(plainSheet(nullptr), &window, kShade);
    sheet->show();
    window.show();
    QVERIFY(sheet->isVisible());
    window.hide();
    sheet->hide();
    window.show();
    QVERIFY(!sheet->parentWidget()->isVisible());
}

void VemoMaskTest::comesBackWithItsWindow()
{
    QWidget window;
    QWidget *sheet = VemoMask::createMask(plainSheet(nullptr), &window, kShade);
    window.show();
    sheet->show();
    window.hide();
    window.show();
    QVERIFY(sheet->isVisible());
    QVERIFY(sheet->parentWidget()->isVisible());
}

void VemoMaskTest::hidesWhenTheVisibleWidgetIsDeleted()
{
    QWidget window;
    QWidget *sheet = VemoMask::createMask(plainSheet(nullptr), &window, kShade);
    QWidget *mask = sheet->parentWidget();
    window.show();
    sheet->show();
    delete sheet;
    QVERIFY(!mask->isVisible());
    window.resize(410, 310);
    QCOMPARE(mask->size(), QSize(410, 310));
}

void VemoMaskTest::diesWithTheWindow()
{
    auto *window = new QWidget;
    const QPointer<QWidget> sheet = VemoMask::createMask(plainSheet(nullptr), window, kShade);
    const QPointer<QWidget> mask = sheet->parentWidget();
    window->show();
    sheet->show();
    delete window;
    QVERIFY(!mask);
    QVERIFY(!sheet);
}

void VemoMaskTest::filtersLetEveryEventPass()
{
    class Recorder : public QWidget
    {
    public:
        using QWidget::QWidget;
        bool event(QEvent *event) override
        {
            types.append(event->type());
            return QWidget::event(event);
        }
        QVector<QEvent::Type> types;
    };
    Recorder window;
    auto *sheet = new Recorder;
    VemoMask::createMask(sheet, &window, kShade);
    window.show();
    sheet->show();
    window.resize(123, 124);
    sheet->hide();
    QVERIFY(window.types.contains(QEvent::Resize));
    QVERIFY(sheet->types.contains(QEvent::ShowToParent));
    QVERIFY(sheet->types.contains(QEvent::HideToParent));
}

VEMO_TEST_MAIN(VemoMaskTest)
#include "tst_vemomask.moc"

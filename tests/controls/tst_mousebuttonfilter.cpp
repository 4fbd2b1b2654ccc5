// SPDX-License-Identifier: MIT
#include <vemo/mousebuttonfilter.h>

#include "support/vemotest.h"

#include <QMouseEvent>
#include <QPointer>
#include <QPushButton>

class MouseButtonFilterTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void bothAreMadeWithoutParent();
    void bothMayBeMadeInTheirParent();
    void swallowsExactlyItsEvents_data();
    void swallowsExactlyItsEvents();
    void buttonFilterKeepsAButtonFromBeingPressed();
    void releaseFilterLetsAButtonBePressedButNeverClicked();
    void deletingTheFilterLiftsIt();
};

namespace {

/// Counts the mouse events that arrive, by type.
struct Counter : QPushButton
{
    bool event(QEvent *event) override
    {
        ++counts[event->type()];
        return QPushButton::event(event);
    }

    QMap<QEvent::Type, int> counts;
};

} // namespace

void MouseButtonFilterTest::bothAreMadeWithoutParent()
{
    const MouseButtonFilter buttons;
    const MouseReleaseFilter releases;
    QVERIFY(!buttons.parent());
    QVERIFY(!releases.parent());
}

void MouseButtonFilterTest::bothMayBeMadeInTheirParent()
{
    auto *button = new QPushButton;
    const QPointer<QObject> filters[] = {
        new MouseButtonFilter(button), new MouseReleaseFilter(button)};
    for (const QPointer<QObject> &filter : filters)
        QCOMPARE(filter->parent(), button);
    delete button;
    for (const QPointer<QObject> &filter : filters)
        QVERIFY(!filter);
}

void MouseButtonFilterTest::swallowsExactlyItsEvents_data()
{
    QTest::addColumn<QEvent::Type>("type");
    QTest::addColumn<bool>("byButtonFilter");
    QTest::addColumn<bool>("byReleaseFilter");
    QTest::newRow("press") << QEvent::MouseButtonPress << true << false;
    QTest::newRow("release") << QEvent::MouseButtonRelease << true << true;
    QTest::newRow("double click") << QEvent::MouseButtonDblClick << true << false;
    QTest::newRow("move") << QEvent::MouseMove << false << false;
    QTest::newRow("wheel") << QEvent::Wheel << false << false;
    QTest::newRow("enter") << QEvent::Enter << false << false;
    QTest::newRow("leave") << QEvent::Leave << false << false;
    QTest::newRow("key") << QEvent::KeyPress << false << false;
    QTest::newRow("touch") << QEvent::TouchBegin << false << false;
    QTest::newRow("window's own press") << QEvent::NonClientAreaMouseButtonPress << false << false;
    QTest::newRow("none") << QEvent::None << false << false;
}

void MouseButtonFilterTest::swallowsExactlyItsEvents()
{
    QFETCH(QEvent::Type, type);
    QFETCH(bool, byButtonFilter);
    QFETCH(bool, byReleaseFilter);
    QObject target;
    QEvent event(type);
    QCOMPARE(MouseButtonFilter().eventFilter(&target, &event), byButtonFilter);
    QCOMPARE(MouseReleaseFilter().eventFilter(&target, &event), byReleaseFilter);
}

void MouseButtonFilterTest::buttonFilterKeepsAButtonFromBeingPressed()
{
    Counter button;
    MouseButtonFilter filter;
    button.installEventFilter(&filter);
    QSignalSpy presses(&button, SIGNAL(pressed()));
    button.setMouseTracking(true);
    button.show();
    QTest::mousePress(&button, Qt::LeftButton);
    QTest::mouseDClick(&button, Qt::LeftButton);
    QTest::mouseRelease(&button, Qt::LeftButton);
    QTest::mouseMove(&button, {3, 3});
    QTRY_VERIFY(button.counts[QEvent::MouseMove] > 0);
    QCOMPARE(button.counts[QEvent::MouseButtonPress], 0);
    QCOMPARE(button.counts[QEvent::MouseButtonDblClick], 0);
    QCOMPARE(button.counts[QEvent::MouseButtonRelease], 0);
    QCOMPARE(presses.count(), 0);
    QTest::keyClick(&button, Qt::Key_Space);
    QCOMPARE(presses.count(), 1);
}

void MouseButtonFilterTest::releaseFilterLetsAButtonBePressedButNeverClicked()
{
    Counter button;
    MouseReleaseFilter filter;
    button.installEventFilter(&filter);
    QSignalSpy presses(&button, SIGNAL(pressed()));
    QSignalSpy clicks(&button, SIGNAL(clicked()));
    button.show();
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::mouseDClick(&button, Qt::LeftButton);
    QTest::mouseRelease(&button, Qt::LeftButton);
    QCOMPARE(button.counts[QEvent::MouseButtonPress], 1);
    QCOMPARE(button.counts[QEvent::MouseButtonDblClick], 1);
    QCOMPARE(button.counts[QEvent::MouseButtonRelease], 0);
    QVERIFY(presses.count() > 0);
    QCOMPARE(clicks.count(), 0);
}

void MouseButtonFilterTest::deletingTheFilterLiftsIt()
{
    QPushButton button;
    auto *filter = new MouseButtonFilter;
    button.installEventFilter(filter);
    QSignalSpy clicks(&button, SIGNAL(clicked()));
    button.show();
    QTest::mouseClick(&button, Qt::LeftButton);
    QCOMPARE(clicks.count(), 0);
    delete filter;
    QTest::mouseClick(&button, Qt::LeftButton);
    QCOMPARE(clicks.count(), 1);
}

VEMO_TEST_MAIN(MouseButtonFilterTest)
#include "tst_mousebuttonfilter.moc"

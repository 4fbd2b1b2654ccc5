// SPDX-License-Identifier: MIT
#include <vemo/clickablelabel.h>

#include "support/vemotest.h"

#include <QMetaMethod>
#include <QSignalSpy>
#include <QVBoxLayout>

class ClickableLabelTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void takesTextAndParentAndNoStyle();
    void mayBeMadeWithoutTextAndParent();
    void hasOneSignalAndNoSlots();
    void reportsThePressOfEveryButton_data();
    void reportsThePressOfEveryButton();
    void emitsNothingOnRelease();
    void leavesThePressToTheLabelAfterwards();
    void mayBeDeletedInItsOwnClick();
};

void ClickableLabelTest::takesTextAndParentAndNoStyle()
{
    QWidget parent;
    const ClickableLabel label("Details", &parent);
    QCOMPARE(label.text(), QString("Details"));
    QCOMPARE(label.parentWidget(), &parent);
    QCOMPARE(label.styleSheet(), QString());
    QVERIFY(!label.isWindow());
}

void ClickableLabelTest::mayBeMadeWithoutTextAndParent()
{
    const ClickableLabel label;
    QVERIFY(!label.parent());
    QCOMPARE(label.text(), QString());
}

void ClickableLabelTest::hasOneSignalAndNoSlots()
{
    const QMetaObject &meta = ClickableLabel::staticMetaObject;
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 1);
    QCOMPARE(meta.method(meta.methodOffset()).methodSignature(), QByteArray("clicked()"));
    QCOMPARE(meta.method(meta.methodOffset()).methodType(), QMetaMethod::Signal);
}

void ClickableLabelTest::reportsThePressOfEveryButton_data()
{
    QTest::addColumn<int>("button");
    QTest::newRow("left") << int(Qt::LeftButton);
    QTest::newRow("right") << int(Qt::RightButton);
    QTest::newRow("middle") << int(Qt::MiddleButton);
    QTest::newRow("back") << int(Qt::BackButton);
}

void ClickableLabelTest::reportsThePressOfEveryButton()
{
    QFETCH(int, button);
    ClickableLabel label("Details");
    QSignalSpy clicks(&label, SIGNAL(clicked()));
    label.show();
    QTest::mousePress(&label, static_cast<Qt::MouseButton>(button));
    QCOMPARE(clicks.count(), 1);
}

void ClickableLabelTest::emitsNothingOnRelease()
{
    ClickableLabel label("Details");
    label.show();
    QTest::mousePress(&label, Qt::LeftButton);
    QSignalSpy clicks(&label, SIGNAL(clicked()));
    QTest::mouseRelease(&label, Qt::LeftButton);
    QCOMPARE(clicks.count(), 0);
}

void ClickableLabelTest::leavesThePressToTheLabelAfterwards()
{
    ClickableLabel label("one two three");
    label.setTextInteractionFlags(Qt::TextSelectableByMouse);
    label.setSelection(0, 3);
    label.show();
    QString selectedInSlot;
    connect(&label, &ClickableLabel::clicked, this, [&] { selectedInSlot = label.selectedText(); });
    QTest::mousePress(&label, Qt::LeftButton, {}, {label.width() - 1, label.height() / 2});
    QCOMPARE(selectedInSlot, QString("one"));
    QCOMPARE(label.selectedText(), QString());
}

void ClickableLabelTest::mayBeDeletedInItsOwnClick()
{
    QWidget window;
    auto *label = new ClickableLabel("Details", &window);
    const QPointer<ClickableLabel> guard(label);
    connect(label, &ClickableLabel::clicked, this, [label] { delete label; });
    window.show();
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, label->geometry().center());
    QVERIFY(guard.isNull());
}

VEMO_TEST_MAIN(ClickableLabelTest)
#include "tst_clickablelabel.moc"

// SPDX-License-Identifier: MIT
#include <vemo/vemofootbar.h>

#include "support/vemotest.h"

#include <QHBoxLayout>
#include <QPushButton>

class VemoFootbarTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void hasItsLayoutFromTheStartAndNothingInIt();
    void hasNoMetaObjectOfItsOwn();
    void pushingLaysNothingOut();
    void laysOutLeftGroupStretchRightGroup();
    void marginsAndSpacingOfInitAreScaled();
    void initOverwritesEarlierMarginsAndSpacing();
    void marginsAndSpacingAfterInitAreScaledAndTruncated();
    void groupsAreAtBothEnds();
    void emptyBarHoldsOneStretch();
    void secondInitAddsEverythingAgain();
    void widgetsDeletedOrNullAreLeftOut();
};

namespace {

int scaledBy(int length)
{
    return length * qEnvironmentVariableIntValue("QT_FONT_DPI") / 96;
}

QList<QWidget *> widgetsIn(const QLayout *layout)
{
    QList<QWidget *> widgets;
    for (int i = 0; i < layout->count(); ++i)
        widgets += layout->itemAt(i)->widget();
    return widgets;
}

} // namespace

void VemoFootbarTest::hasItsLayoutFromTheStartAndNothingInIt()
{
    QWidget parent;
    const VemoFootbar bar(&parent);
    QCOMPARE(bar.parentWidget(), &parent);
    QVERIFY(qobject_cast<QHBoxLayout *>(bar.layout()));
    QCOMPARE(bar.layout()->count(), 0);
}

void VemoFootbarTest::hasNoMetaObjectOfItsOwn()
{
    const VemoFootbar bar;
    QCOMPARE(bar.metaObject(), &QWidget::staticMetaObject);
}

void VemoFootbarTest::pushingLaysNothingOut()
{
    QWidget window;
    VemoFootbar bar(&window);
    auto *button = new QPushButton(&window);
    bar.pushLeftWidget(button);
    bar.pushRightWidget(button);
    QCOMPARE(bar.layout()->count(), 0);
    QCOMPARE(button->parentWidget(), &window);
}

void VemoFootbarTest::laysOutLeftGroupStretchRightGroup()
{
    VemoFootbar bar;
    QPushButton a, b, c, d;
    bar.pushRightWidget(&c);
    bar.pushLeftWidget(&a);
    bar.pushRightWidget(&d);
    bar.pushLeftWidget(&b);
    bar.init();
    auto *layout = static_cast<QHBoxLayout *>(bar.layout());
    QCOMPARE(widgetsIn(layout), QList<QWidget *>({&a, &b, nullptr, &c, &d}));
    QVERIFY(layout->itemAt(2)->spacerItem());
    for (int i = 0; i < layout->count(); ++i) {
        QCOMPARE(layout->stretch(i), i == 2 ? 1 : 0);
        if (i != 2)
            QCOMPARE(layout->itemAt(i)->alignment(), Qt::AlignVCenter);
    }
    QCOMPARE(a.parentWidget(), &bar);
    QCOMPARE(layout->alignment(), Qt::AlignLeft);
    for (QPushButton *button : {&a, &b, &c, &d})
        button->setParent(nullptr);
}

void VemoFootbarTest::marginsAndSpacingOfInitAreScaled()
{
    VemoFootbar bar;
    bar.init();
    QCOMPARE(bar.layout()->contentsMargins(),
        QMargins(scaledBy(20), scaledBy(8), scaledBy(20), scaledBy(8)));
    QCOMPARE(bar.layout()->spacing(), scaledBy(10));
}

void VemoFootbarTest::initOverwritesEarlierMarginsAndSpacing()
{
    VemoFootbar bar;
    bar.setMargins(1, 2, 3, 4);
    bar.setSpacing(5);
    bar.init();
    QCOMPARE(bar.layout()->contentsMargins().left(), scaledBy(20));
    QCOMPARE(bar.layout()->spacing(), scaledBy(10));
}

void VemoFootbarTest::marginsAndSpacingAfterInitAreScaledAndTruncated()
{
    VemoFootbar bar;
    bar.init();
    bar.setMargins(1, 2, 3, 5);
    bar.setSpacing(7);
    QCOMPARE(bar.layout()->contentsMargins(),
        QMargins(scaledBy(1), scaledBy(2), scaledBy(3), scaledBy(5)));
    QCOMPARE(bar.layout()->spacing(), scaledBy(7));
}

void VemoFootbarTest::groupsAreAtBothEnds()
{
    VemoFootbar bar;
    auto *left = new QPushButton("Help");
    auto *right = new QPushButton("Save");
    bar.pushLeftWidget(left);
    bar.pushRightWidget(right);
    bar.init();
    bar.resize(scaledBy(600), scaledBy(80));
    bar.show();
    QCOMPARE(left->x(), scaledBy(20));
    QCOMPARE(right->x() + right->width(), bar.width() - scaledBy(20));
    QCOMPARE(left->geometry().center().y(), right->geometry().center().y());
    QVERIFY(qAbs(2 * left->y() + left->height() - bar.height()) <= 1);
}

void VemoFootbarTest::emptyBarHoldsOneStretch()
{
    VemoFootbar bar;
    bar.init();
    QCOMPARE(widgetsIn(bar.layout()), QList<QWidget *>({nullptr}));
}

void VemoFootbarTest::secondInitAddsEverythingAgain()
{
    VemoFootbar bar;
    auto *left = new QPushButton;
    auto *right = new QPushButton;
    bar.pushLeftWidget(left);
    bar.pushRightWidget(right);
    bar.init();
    bar.init();
    // A layout contains a widget only once: adding it again moves it after the first stretch.
    QCOMPARE(widgetsIn(bar.layout()), QList<QWidget *>({nullptr, left, nullptr, right}));
}

void VemoFootbarTest::widgetsDeletedOrNullAreLeftOut()
{
    VemoFootbar bar;
    auto *gone = new QPushButton;
    auto *kept = new QPushButton;
    bar.pushLeftWidget(gone);
    bar.pushLeftWidget(nullptr);
    bar.pushLeftWidget(kept);
    delete gone;
    bar.init();
    QCOMPARE(widgetsIn(bar.layout()), QList<QWidget *>({kept, nullptr}));
}

VEMO_TEST_MAIN(VemoFootbarTest)
#include "tst_vemofootbar.moc"

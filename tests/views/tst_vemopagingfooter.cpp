// SPDX-License-Identifier: MIT
#include <vemo/vemopagingbar.h>

#include "core/scaling_p.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/stylemanager.h>
#include <vemo/vemopagingmodel.h>

#include <QBoxLayout>
#include <QLabel>

namespace {

QString commonStyle()
{
    return getStyleSheet("component.paging_bar_label");
}

QString rightmostStyle()
{
    return getStyleSheet("component.paging_bar_rightmost_label");
}

struct Footer
{
    VemoPagingModel model {10, nullptr};
    VemoPagingBar bar {&model, nullptr};

    QBoxLayout *layout() const
    {
        const QLayout *row = bar.findChild<QWidget *>("PAGINGBARBORDER")->layout();
        return static_cast<QBoxLayout *>(row->itemAt(row->count() - 1)->layout());
    }
    /// The widget at an index counted from the right: the refresh button, then alternating
    /// separators and labels.
    QLabel *at(int index) const
    {
        return qobject_cast<QLabel *>(layout()->itemAt(index)->widget());
    }
    QLabel *separator(int label) const { return at(1 + 2 * label); }
    QLabel *label(int label) const { return at(2 + 2 * label); }
};

} // namespace

class VemoPagingFooterTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void describesALabelWithoutWidthAtFirst();
    void showsOneText();
    void putsEachLabelLeftOfItsSeparator();
    void fixesTheWidthThatIsNotZero();
    void changesTextsAndWidthsOfItsLabels();
    void dropsLabelsButKeepsTheirSeparators();
    void makesNewLabelsForDroppedOnes();
    void stylesTheFirstLabelByTheRefreshButton_data();
    void stylesTheFirstLabelByTheRefreshButton();
    void keepsTheStyleOfAnExistingLabel();
    void showsALabelThatComesLater();
};

void VemoPagingFooterTest::describesALabelWithoutWidthAtFirst()
{
    const PagingFooterInfo info;
    QVERIFY(info.text.isEmpty());
    QCOMPARE(info.width, 0);
    const PagingFooterInfo copy = PagingFooterInfo {"12 items", 80};
    QCOMPARE(copy.text, QString("12 items"));
    QCOMPARE(copy.width, 80);
}

void VemoPagingFooterTest::showsOneText()
{
    Footer footer;
    footer.bar.setFooterText("12 items");
    QCOMPARE(footer.layout()->count(), 3);
    QCOMPARE(footer.label(0)->text(), QString("12 items"));
    QCOMPARE(footer.label(0)->alignment(), Qt::AlignRight | Qt::AlignVCenter);
    QCOMPARE(footer.label(0)->minimumHeight(), scaled(24));
    QCOMPARE(footer.label(0)->maximumHeight(), scaled(24));
    QCOMPARE(footer.label(0)->maximumWidth(), QWIDGETSIZE_MAX);
    footer.bar.setFooterInfo({"13 items", 90});
    QCOMPARE(footer.layout()->count(), 3);
    QCOMPARE(footer.label(0)->text(), QString("13 items"));
}

void VemoPagingFooterTest::putsEachLabelLeftOfItsSeparator()
{
    Footer footer;
    footer.bar.resize(scaled(900), scaled(32));
    footer.bar.show();
    footer.bar.setFooterInfos({{"12 items", 0}, {"3 selected", 0}});
    QCOMPARE(footer.layout()->count(), 5);
    QTRY_VERIFY(footer.label(1)->isVisible());
    QVERIFY(QTest::qWaitForWindowExposed(&footer.bar));
    for (int i = 1; i < 5; ++i) {
        const QWidget *right = footer.layout()->itemAt(i - 1)->widget();
        QTRY_COMPARE(footer.at(i)->x() + footer.at(i)->width() + scaled(4), right->x());
        QCOMPARE(footer.layout()->itemAt(i)->alignment(), Qt::AlignVCenter);
    }
    for (int label = 0; label < 2; ++label) {
        QCOMPARE(footer.separator(label)->size(), QSize(scaled(1), scaled(24)));
        QCOMPARE(footer.separator(label)->styleSheet(),
            QString("QLabel {background: rgba(171,181,194,0.20);}"));
        QVERIFY(footer.separator(label)->text().isEmpty());
    }
}

void VemoPagingFooterTest::fixesTheWidthThatIsNotZero()
{
    Footer footer;
    footer.bar.setFooterInfos({{"12 items", 90}});
    QCOMPARE(footer.label(0)->minimumWidth(), scaled(90));
    QCOMPARE(footer.label(0)->maximumWidth(), scaled(90));
}

void VemoPagingFooterTest::changesTextsAndWidthsOfItsLabels()
{
    Footer footer;
    footer.bar.setFooterInfos({{"12 items", 90}, {"3 selected", 0}});
    footer.bar.setFooterInfos({{"13 items", 0}, {"4 selected", 70}});
    QCOMPARE(footer.layout()->count(), 5);
    QCOMPARE(footer.label(0)->text(), QString("13 items"));
    QCOMPARE(footer.label(0)->maximumWidth(), scaled(90));
    QCOMPARE(footer.label(1)->text(), QString("4 selected"));
    QCOMPARE(footer.label(1)->maximumWidth(), scaled(70));
}

void VemoPagingFooterTest::dropsLabelsButKeepsTheirSeparators()
{
    Footer footer;
    footer.bar.show();
    footer.bar.setFooterInfos({{"one", 0}, {"two", 0}, {"three", 0}});
    const QList<QLabel *> labels {footer.label(0), footer.label(1), footer.label(2)};
    const QList<QLabel *> separators {
        footer.separator(0), footer.separator(1), footer.separator(2)};
    QTRY_VERIFY(labels.at(2)->isVisible());
    footer.bar.setFooterInfos({{"one", 0}});
    QVERIFY(labels.at(0)->isVisible());
    for (int dropped = 1; dropped < 3; ++dropped) {
        QVERIFY(labels.at(dropped)->isHidden());
        QCOMPARE(footer.layout()->indexOf(labels.at(dropped)), -1);
        QVERIFY(footer.bar.isAncestorOf(labels.at(dropped)));
        QVERIFY(separators.at(dropped)->isVisible());
        QVERIFY(footer.layout()->indexOf(separators.at(dropped)) > 0);
    }
    footer.bar.setFooterInfos({});
    QVERIFY(labels.at(0)->isHidden());
    QCOMPARE(footer.layout()->count(), 4);
}

void VemoPagingFooterTest::makesNewLabelsForDroppedOnes()
{
    Footer footer;
    footer.bar.setFooterInfos({{"one", 0}, {"two", 0}});
    const QLabel *dropped = footer.label(1);
    footer.bar.setFooterInfos({{"one", 0}});
    footer.bar.setFooterInfos({{"one", 0}, {"other", 0}});
    QCOMPARE(footer.layout()->count(), 6);
    QCOMPARE(footer.at(5)->text(), QString("other"));
    QVERIFY(footer.at(5) != dropped);
    QCOMPARE(footer.at(5)->styleSheet(), commonStyle());
}

void VemoPagingFooterTest::stylesTheFirstLabelByTheRefreshButton_data()
{
    QTest::addColumn<bool>("shown");
    QTest::addColumn<bool>("refreshHidden");
    QTest::addColumn<bool>("rightmost");
    QTest::newRow("never shown") << false << false << true;
    QTest::newRow("never shown, without refresh") << false << true << true;
    QTest::newRow("shown") << true << false << false;
    QTest::newRow("shown, without refresh") << true << true << true;
}

void VemoPagingFooterTest::stylesTheFirstLabelByTheRefreshButton()
{
    QFETCH(bool, shown);
    QFETCH(bool, refreshHidden);
    QFETCH(bool, rightmost);
    Footer footer;
    footer.bar.setRefreshButtonHidden(refreshHidden);
    if (shown)
        footer.bar.show();
    footer.bar.setFooterInfos({{"one", 0}, {"two", 0}});
    QCOMPARE(footer.label(0)->styleSheet(), rightmost ? rightmostStyle() : commonStyle());
    QCOMPARE(footer.label(1)->styleSheet(), commonStyle());
}

void VemoPagingFooterTest::keepsTheStyleOfAnExistingLabel()
{
    Footer footer;
    footer.bar.show();
    footer.bar.setFooterText("one");
    footer.bar.setRefreshButtonHidden(true);
    footer.bar.setFooterText("two");
    QCOMPARE(footer.label(0)->styleSheet(), commonStyle());
}

void VemoPagingFooterTest::showsALabelThatComesLater()
{
    Footer footer;
    footer.bar.show();
    footer.bar.setFooterText("one");
    QTRY_VERIFY(footer.label(0)->isVisible());
}

VEMO_TEST_MAIN(VemoPagingFooterTest)
#include "tst_vemopagingfooter.moc"

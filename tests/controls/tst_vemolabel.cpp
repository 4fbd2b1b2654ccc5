// SPDX-License-Identifier: MIT
#include <vemo/vemolabel.h>

#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/stylemanager.h>

class VemoLabelTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void takesTextParentFlagsAndTheScaledSection();
    void startsWithoutTextWhenNoneIsGiven();
    void hasNoMetaObjectOfItsOwn();
    void isAsTallAsItsWrappedTextNeeds();
    void shrinksAgainWhenWidened();
    void shorterTextShrinksItAtTheNextResize();
    void leavesTheMinimumHeightAlone_data();
    void leavesTheMinimumHeightAlone();
    void wrappedPictureGivesNoNegativeHeight();
};

namespace {

const QString kLongText = QStringLiteral("Files that were deleted stay here for thirty days, and "
                                         "then they are gone for good.");

void makeGrowing(QLabel &label)
{
    label.setWordWrap(true);
    label.setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Minimum);
}

/// The height of the text at a width, from a label without a minimum height.
int neededHeight(const QString &text, int width)
{
    VemoLabel label(text);
    label.setWordWrap(true);
    return label.heightForWidth(width);
}

} // namespace

void VemoLabelTest::takesTextParentFlagsAndTheScaledSection()
{
    QWidget parent;
    const VemoLabel label("Name", &parent, Qt::Tool);
    QCOMPARE(label.text(), QString("Name"));
    QCOMPARE(label.parentWidget(), &parent);
    QVERIFY(label.windowFlags().testFlag(Qt::Tool));
    QVERIFY(!label.styleSheet().isEmpty());
    QCOMPARE(label.styleSheet(), getStyleSheet("component.label", false));
}

void VemoLabelTest::startsWithoutTextWhenNoneIsGiven()
{
    QWidget parent;
    const VemoLabel label(&parent, Qt::Popup);
    QCOMPARE(label.text(), QString());
    QCOMPARE(label.parentWidget(), &parent);
    QVERIFY(label.windowFlags().testFlag(Qt::Popup));
    QCOMPARE(label.styleSheet(), getStyleSheet("component.label", false));
}

void VemoLabelTest::hasNoMetaObjectOfItsOwn()
{
    const VemoLabel label;
    QCOMPARE(label.metaObject(), &QLabel::staticMetaObject);
}

void VemoLabelTest::isAsTallAsItsWrappedTextNeeds()
{
    VemoLabel label(kLongText);
    makeGrowing(label);
    label.resize(120, 10);
    label.show();
    QCOMPARE(label.minimumHeight(), neededHeight(kLongText, 120));
    QVERIFY(label.height() >= label.minimumHeight());
    QVERIFY(label.minimumHeight() > 2 * label.fontMetrics().height());
}

void VemoLabelTest::shrinksAgainWhenWidened()
{
    VemoLabel label(kLongText);
    makeGrowing(label);
    label.resize(120, 10);
    label.show();
    const int narrow = label.minimumHeight();
    label.resize(1000, label.height());
    QVERIFY(label.minimumHeight() < narrow);
    QCOMPARE(label.minimumHeight(), neededHeight(kLongText, 1000));
}

void VemoLabelTest::shorterTextShrinksItAtTheNextResize()
{
    VemoLabel label(kLongText);
    makeGrowing(label);
    label.resize(120, 10);
    label.show();
    const int tall = label.minimumHeight();
    label.setText("Short.");
    QCoreApplication::processEvents();
    QCOMPARE(label.minimumHeight(), tall);
    label.resize(121, label.height());
    QCOMPARE(label.minimumHeight(), neededHeight("Short.", 121));
}

void VemoLabelTest::leavesTheMinimumHeightAlone_data()
{
    QTest::addColumn<bool>("wraps");
    QTest::addColumn<QSizePolicy::Policy>("vertical");
    QTest::newRow("wrapped, policy Preferred") << true << QSizePolicy::Preferred;
    QTest::newRow("wrapped, policy Fixed") << true << QSizePolicy::Fixed;
    QTest::newRow("wrapped, policy MinimumExpanding") << true << QSizePolicy::MinimumExpanding;
    QTest::newRow("not wrapped, policy Minimum") << false << QSizePolicy::Minimum;
}

void VemoLabelTest::leavesTheMinimumHeightAlone()
{
    QFETCH(bool, wraps);
    QFETCH(QSizePolicy::Policy, vertical);
    VemoLabel label(kLongText);
    label.setWordWrap(wraps);
    label.setSizePolicy(QSizePolicy::Preferred, vertical);
    label.setMinimumHeight(7);
    label.resize(120, 40);
    label.show();
    label.resize(130, 40);
    QCOMPARE(label.minimumHeight(), 7);
}

void VemoLabelTest::wrappedPictureGivesNoNegativeHeight()
{
    VemoLabel label;
    makeGrowing(label);
    label.setPixmap(QPixmap(20, 20));
    label.resize(50, 50);
    label.show();
    QCOMPARE(label.minimumHeight(), 0);
}

VEMO_TEST_MAIN(VemoLabelTest)
#include "tst_vemolabel.moc"

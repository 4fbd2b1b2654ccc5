// SPDX-License-Identifier: MIT
// Sizes and places in the button sections of the default theme.
#include "support/activewindow.h"
#include "support/vemotest.h"

#include "core/scaling_p.h"
#include "support/testhost.h"

#include <vemo/vemobutton.h>
#include <vemo/vemoiconbutton.h>

#include <QBitmap>
#include <QStyleOptionButton>

namespace {

struct State
{
    const char *name;
    QStyle::State flags;
    bool isEnabled;
};

const State kStates[] = {
    {"rest", QStyle::State_None, true},
    {"hover", QStyle::State_MouseOver, true},
    {"pressed", QStyle::State_Sunken, true},
    {"focus", QStyle::State_HasFocus, true},
    {"disabled", QStyle::State_None, false},
};

QStyleOptionButton optionOf(const QWidget &button, const State &state)
{
    QStyleOptionButton option;
    option.initFrom(&button);
    option.rect = QRect(0, 0, 100, 40);
    option.state |= state.flags;
    option.state.setFlag(QStyle::State_Enabled, state.isEnabled);
    option.text = "Save";
    return option;
}

} // namespace

class ButtonLookTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void noStateMovesTheText_data();
    void noStateMovesTheText();
    void thePictureIsInTheMiddle();
    void focusLeavesTheIconButtonsSize();
    void heightIsThatOfTheGrid_data();
    void heightIsThatOfTheGrid();
    void theSectionLeavesMinimumSizesToTheHost();
};

void ButtonLookTest::noStateMovesTheText_data()
{
    QTest::addColumn<int>("role");
    QTest::newRow("apply") << 0;
    QTest::newRow("cancel") << 1;
    QTest::newRow("select paging") << 2;
    QTest::newRow("nonselect paging") << 3;
    QTest::newRow("default") << 4;
    QTest::newRow("red") << 5;
}

void ButtonLookTest::noStateMovesTheText()
{
    QFETCH(int, role);
    VemoButton button("Save", role);
    const QStyleOptionButton rest = optionOf(button, kStates[0]);
    const QStyle *style = button.style();
    for (const State &state : kStates) {
        const QStyleOptionButton option = optionOf(button, state);
        QCOMPARE(style->subElementRect(QStyle::SE_PushButtonContents, &option, &button),
            style->subElementRect(QStyle::SE_PushButtonContents, &rest, &button));
        QCOMPARE(style->sizeFromContents(QStyle::CT_PushButton, &option, {50, 16}, &button),
            style->sizeFromContents(QStyle::CT_PushButton, &rest, {50, 16}, &button));
    }
}

void ButtonLookTest::thePictureIsInTheMiddle()
{
    const qreal ratio = DPIinfo::getInstance().getDPR();
    QPixmap red(QSize(scaled(16), scaled(16)) * ratio);
    red.setDevicePixelRatio(ratio);
    red.fill(Qt::red);
    VemoIconButton button(red);
    button.setAttribute(Qt::WA_DontShowOnScreen);
    button.resize(button.sizeHint());
    button.show();
    const QImage image = button.grab().toImage();
    const QRect picture =
        QRegion(QBitmap::fromImage(image.createMaskFromColor(qRgb(255, 0, 0), Qt::MaskOutColor)))
            .boundingRect();
    QCOMPARE(picture.size(), red.size());
    QCOMPARE(picture.center(), image.rect().center());
}

void ButtonLookTest::focusLeavesTheIconButtonsSize()
{
    QWidget window;
    auto *button = new VemoIconButton("bt_add");
    button->setParent(&window);
    const QSize rest = button->sizeHint();
    QVERIFY(showActive(&window));
    button->setFocus();
    QVERIFY(button->hasFocus());
    // Another picture and back drops what the button remembers of its size.
    button->setIcon({});
    button->applyNormalStyle();
    QCOMPARE(button->sizeHint(), rest);
}

void ButtonLookTest::heightIsThatOfTheGrid_data()
{
    QTest::addColumn<int>("role");
    QTest::addColumn<int>("height");
    for (const int role : {0, 1, 4, 5})
        QTest::addRow("role %d", role) << role << 32;
    for (const int role : {2, 3})
        QTest::addRow("role %d", role) << role << 28;
}

void ButtonLookTest::heightIsThatOfTheGrid()
{
    QFETCH(int, role);
    QFETCH(int, height);
    const VemoButton button("Save", role);
    QCOMPARE(button.sizeHint().height(), scaled(height));
}

void ButtonLookTest::theSectionLeavesMinimumSizesToTheHost()
{
    VemoButton button("1", VemoButton::SELECT_PAGING);
    button.setFixedHeight(24);
    button.setMinimumWidth(90);
    button.ensurePolished();
    QCOMPARE(button.minimumSize(), QSize(90, 24));
}

VEMO_TEST_MAIN(ButtonLookTest)
#include "tst_buttonlook.moc"

// SPDX-License-Identifier: MIT
#include <vemo/vemocombobox.h>

#include "support/activewindow.h"
#include "support/eventcounter.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/stylemanager.h>

#include <QAbstractItemView>
#include <QLineEdit>
#include <QScreen>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

class VemoComboBoxTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void isAComboBoxClassOfItsOwn();
    void styleIsTheFilledInSectionAndTheScrollBars();
    void paddingKeepsItsFraction();
    void rowsFollowTheStyleSheet();
    void delegateDiesWithTheBox();
    void delegateHasNoParent();
    void ownDelegateMayReplaceIt();
    void openingGivesUpTheFocus();
    void focusComesBackWhenTheListCloses_data();
    void focusComesBackWhenTheListCloses();
    void focusStaysWithWhateverTookIt();
    void boxThatCanNotHaveTheFocusTakesNone_data();
    void boxThatCanNotHaveTheFocusTakesNone();
    void listOpenedByTheHostLeavesTheFocusWhereItIs();
    void emptyBoxKeepsTheFocus();
    void mayBeDeletedWhileOpen();
    void listOpensTwoPixelsBelowAtTheLeft_data();
    void listOpensTwoPixelsBelowAtTheLeft();
    void listFollowsTheBox();
    void listIsNeverSeenElsewhere();
    void listThatUnrollsEndsBelow();
    void listIsPaintedOnceEachTimeItOpens();
    void emptyBoxOpensNothing();
    void rowIsPickedByMouseAndByKeyboard();
    void editableBoxOpensBelowToo();
};

namespace {

struct Box : VemoComboBox
{
    Box()
    {
        addItems({"Minutes", "Hours", "Days", "Weeks", "Months", "Years"});
        resize(160, 32);
    }

    QWidget *popup() const { return view()->parentWidget(); }
    QPoint expectedPosition() const { return mapToGlobal(QPoint(0, height() + 2)); }
};

void showAt(QWidget &window, const QPoint &position)
{
    window.setWindowFlag(Qt::FramelessWindowHint);
    window.move(position);
    QVERIFY(showActive(&window));
    QTRY_COMPARE(window.mapToGlobal(QPoint(0, 0)), window.pos());
}

/// A box between two fields, in an active window.
struct Form : QWidget
{
    Form()
    {
        auto *column = new QVBoxLayout(this);
        for (QWidget *field : {static_cast<QWidget *>(&before), static_cast<QWidget *>(&box),
                 static_cast<QWidget *>(&after)})
            column->addWidget(field);
        setTabOrder(&before, &box);
        setTabOrder(&box, &after);
        showAt(*this, {100, 100});
    }

    QLineEdit before {this};
    Box box;
    QLineEdit after {this};
};

using Close = void (*)(Box &box);

void pressEscape(Box &box)
{
    QTest::keyClick(box.view(), Qt::Key_Escape);
}

void pressReturn(Box &box)
{
    QTest::keyClick(box.view(), Qt::Key_Return);
}

void closeIt(Box &box)
{
    box.hidePopup();
}

} // namespace

Q_DECLARE_METATYPE(Close)

void VemoComboBoxTest::isAComboBoxClassOfItsOwn()
{
    QWidget parent;
    const VemoComboBox box(&parent);
    QCOMPARE(box.metaObject()->className(), "VemoComboBox");
    QCOMPARE(box.parentWidget(), &parent);
    QVERIFY(!VemoComboBox().parent());
}

void VemoComboBoxTest::styleIsTheFilledInSectionAndTheScrollBars()
{
    const VemoComboBox box;
    const QString section = getStyleSheet("component.combobox");
    QVERIFY(section.contains("%1") && section.contains("%2"));
    const int dpi = qEnvironmentVariableIntValue("QT_FONT_DPI");
    const QString width = dpi == 144 ? "9" : dpi == 120 ? "7.5" : "6";
    const QString padding = "padding-left: " + width + "px; \npadding-right: " + width + "px;";
    QCOMPARE(box.styleSheet(),
        section.arg(padding).arg("border: 1px solid #C8D2DC;")
            + getStyleSheet("component.scrollbar"));
}

void VemoComboBoxTest::paddingKeepsItsFraction()
{
    if (qEnvironmentVariableIntValue("QT_FONT_DPI") != 120)
        QSKIP("Only a factor of 1.25 leaves a fraction");
    QVERIFY(VemoComboBox().styleSheet().contains("padding-left: 7.5px; \npadding-right: 7.5px;"));
}

void VemoComboBoxTest::rowsFollowTheStyleSheet()
{
    const VemoComboBox box;
    QCOMPARE(box.itemDelegate()->metaObject(), &QStyledItemDelegate::staticMetaObject);
}

void VemoComboBoxTest::delegateDiesWithTheBox()
{
    auto *box = new VemoComboBox;
    const QPointer<QAbstractItemDelegate> delegate(box->itemDelegate());
    QVERIFY(delegate);
    delete box;
    QVERIFY(delegate.isNull());
}

void VemoComboBoxTest::delegateHasNoParent()
{
    const VemoComboBox box;
    QVERIFY(!box.view()->itemDelegate()->parent());
}

void VemoComboBoxTest::ownDelegateMayReplaceIt()
{
    Box box;
    const QPointer<QAbstractItemDelegate> first(box.itemDelegate());
    auto *own = new QStyledItemDelegate(&box);
    box.setItemDelegate(own);
    QCOMPARE(box.itemDelegate(), own);
    // Only Qt 5 deletes the one that it replaces.
    QCOMPARE(first.isNull(), QT_VERSION < QT_VERSION_CHECK(6, 0, 0));
}

void VemoComboBoxTest::openingGivesUpTheFocus()
{
    QWidget window;
    QLineEdit other(&window);
    Box box;
    box.setParent(&window);
    showAt(window, {100, 100});
    box.setFocus();
    QVERIFY(box.hasFocus());
    const EventCounter before(&box, QEvent::FocusOut, [&box] { return !box.popup()->isVisible(); });
    box.showPopup();
    QCOMPARE(before.count(), 1); // Before the list opens.
    QVERIFY(window.focusWidget() != &box);
    box.hidePopup();
}

void VemoComboBoxTest::focusComesBackWhenTheListCloses_data()
{
    QTest::addColumn<Close>("close");
    QTest::addColumn<bool>("isEditable");
    for (const bool isEditable : {false, true}) {
        const QByteArray kind = isEditable ? "editable, " : "";
        QTest::newRow(kind + "Escape") << Close(pressEscape) << isEditable;
        QTest::newRow(kind + "Return") << Close(pressReturn) << isEditable;
        QTest::newRow(kind + "closed by the host") << Close(closeIt) << isEditable;
    }
}

void VemoComboBoxTest::focusComesBackWhenTheListCloses()
{
    QFETCH(Close, close);
    QFETCH(bool, isEditable);
    Form form;
    form.box.setEditable(isEditable);
    form.box.setFocus();
    for (int time = 1; time <= 2; ++time) {
        form.box.showPopup();
        QVERIFY(QTest::qWaitForWindowExposed(form.box.popup()));
        close(form.box);
        QTRY_VERIFY(form.box.hasFocus());
    }
    const int before = form.box.currentIndex();
    QTest::keyClick(form.windowHandle(), Qt::Key_Down);
    QCOMPARE(form.box.currentIndex(), before + 1);
    QTest::keyClick(form.windowHandle(), Qt::Key_Tab);
    QVERIFY(form.after.hasFocus());
}

void VemoComboBoxTest::focusStaysWithWhateverTookIt()
{
    Form form;
    form.box.setFocus();
    bool isBackAlready = true;
    connect(&form.box, QOverload<int>::of(&QComboBox::activated), &form.after, [&] {
        isBackAlready = form.box.hasFocus();
        form.after.setFocus();
    });
    form.box.showPopup();
    QVERIFY(QTest::qWaitForWindowExposed(form.box.popup()));
    pressReturn(form.box);
    QVERIFY(!isBackAlready);
    QTRY_VERIFY(form.after.hasFocus());
    QCoreApplication::processEvents();
    QVERIFY(form.after.hasFocus());

    form.box.setFocus();
    form.box.showPopup();
    form.after.setFocus(); // While the list is open.
    form.box.hidePopup();
    QCoreApplication::processEvents();
    QCOMPARE(form.focusWidget(), &form.after);
}

void VemoComboBoxTest::boxThatCanNotHaveTheFocusTakesNone_data()
{
    QTest::addColumn<Close>("change");
    QTest::newRow("disabled while open") << Close([](Box &box) { box.setEnabled(false); });
    QTest::newRow("hidden while open") << Close([](Box &box) { box.hide(); });
}

void VemoComboBoxTest::boxThatCanNotHaveTheFocusTakesNone()
{
    QFETCH(Close, change);
    Form form;
    form.before.setFocusPolicy(Qt::NoFocus);
    form.after.setFocusPolicy(Qt::NoFocus);
    form.box.setFocus();
    form.box.showPopup();
    change(form.box);
    form.box.hidePopup();
    QCoreApplication::processEvents();
    QVERIFY(!form.focusWidget());
}

void VemoComboBoxTest::listOpenedByTheHostLeavesTheFocusWhereItIs()
{
    Form form;
    form.before.setFocus();
    form.box.showPopup();
    form.box.hidePopup();
    QCoreApplication::processEvents();
    QCOMPARE(form.focusWidget(), &form.before);

    for (QWidget *field : {static_cast<QWidget *>(&form.before), static_cast<QWidget *>(&form.box),
             static_cast<QWidget *>(&form.after)})
        field->setFocusPolicy(Qt::NoFocus);
    form.before.clearFocus();
    form.box.showPopup();
    form.box.hidePopup();
    QCoreApplication::processEvents();
    QVERIFY(!form.focusWidget());
}

void VemoComboBoxTest::emptyBoxKeepsTheFocus()
{
    Form form;
    form.box.clear();
    form.box.setFocus();
    QTest::keyClick(form.windowHandle(), Qt::Key_Space);
    QTRY_VERIFY(form.box.hasFocus());
}

void VemoComboBoxTest::mayBeDeletedWhileOpen()
{
    Form form;
    auto *box = new Box;
    box->setParent(&form);
    box->show();
    box->setFocus();
    box->showPopup();
    box->hidePopup();
    delete box;
    QCoreApplication::processEvents();
    QVERIFY(!form.focusWidget());
}

void VemoComboBoxTest::listOpensTwoPixelsBelowAtTheLeft_data()
{
    // From the edge of the screen: 0 at its start, 1 at its end.
    QTest::addColumn<QPointF>("place");
    QTest::newRow("middle") << QPointF(0.5, 0.3);
    QTest::newRow("left edge") << QPointF(0, 0.3);
    QTest::newRow("right edge") << QPointF(1, 0.3);
    QTest::newRow("top edge") << QPointF(0.5, 0);
    QTest::newRow("bottom edge, where the list leaves the screen") << QPointF(0.5, 1);
    QTest::newRow("top left corner") << QPointF(0, 0);
    QTest::newRow("bottom right corner") << QPointF(1, 1);
}

void VemoComboBoxTest::listOpensTwoPixelsBelowAtTheLeft()
{
    QFETCH(QPointF, place);
    QWidget window;
    Box box;
    box.setParent(&window);
    box.move(4, 6);
    window.resize(box.width() + 8, box.height() + 12);
    const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
    showAt(window,
        {qRound(place.x() * (area.width() - window.width())),
            qRound(place.y() * (area.height() - window.height()))});

    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, box.geometry().center());
    QTRY_VERIFY(box.popup()->isVisible());
    QCOMPARE(box.popup()->pos(), box.expectedPosition());
    QVERIFY(QTest::qWaitForWindowExposed(box.popup()));
    QCOMPARE(box.popup()->windowHandle()->position(), box.expectedPosition());
    box.hidePopup();
}

void VemoComboBoxTest::listFollowsTheBox()
{
    QWidget window;
    Box box;
    box.setParent(&window);
    showAt(window, {100, 100});
    box.showPopup();
    box.hidePopup();
    box.move(30, 20);
    box.resize(box.width(), box.height() + 9);
    box.showPopup();
    QCOMPARE(box.popup()->pos(), box.expectedPosition());
    box.hidePopup();
}

void VemoComboBoxTest::listIsNeverSeenElsewhere()
{
    QWidget window;
    Box box;
    box.setParent(&window);
    showAt(window, {100, 100});
    const EventCounter moves(box.popup(), QEvent::Move,
        [&box] { return box.popup()->windowHandle() && box.popup()->windowHandle()->isVisible(); });
    for (int opening = 1; opening <= 2; ++opening) {
        box.move(opening * 10, opening * 20);
        box.showPopup();
        QCOMPARE(box.popup()->pos(), box.expectedPosition());
        box.hidePopup();
    }
    QCOMPARE(moves.count(), 0);
}

void VemoComboBoxTest::listThatUnrollsEndsBelow()
{
    QWidget window;
    Box box;
    box.setParent(&window);
    box.setEditable(true); // In Fusion only lists of editable boxes are animated.
    window.resize(box.size());
    const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
    // At the lower edge of the screen, where Qt would open the list upwards.
    showAt(window, {100, area.bottom() - window.height()});
    for (const auto effect : {Qt::UI_General, Qt::UI_AnimateCombo})
        QApplication::setEffectEnabled(effect);
    box.showPopup();
    for (const auto effect : {Qt::UI_General, Qt::UI_AnimateCombo})
        QApplication::setEffectEnabled(effect, false);
    QCOMPARE(box.popup()->pos(), box.expectedPosition());
    QTRY_VERIFY(box.popup()->isVisible());
    QCOMPARE(box.popup()->pos(), box.expectedPosition());
    box.hidePopup();
}

void VemoComboBoxTest::listIsPaintedOnceEachTimeItOpens()
{
    QWidget window;
    Box box;
    box.setParent(&window);
    showAt(window, {100, 100});
    const EventCounter lists(box.view()->viewport(), QEvent::Paint);
    const EventCounter popups(box.popup(), QEvent::Paint);
    for (int opening = 1; opening <= 3; ++opening) {
        box.showPopup();
        QVERIFY(QTest::qWaitForWindowExposed(box.popup()));
        QTRY_COMPARE(lists.count(), opening);
        QCOMPARE(popups.count(), opening);
        box.hidePopup();
        QCoreApplication::processEvents();
    }
}

void VemoComboBoxTest::emptyBoxOpensNothing()
{
    VemoComboBox box;
    box.show();
    box.showPopup();
    QVERIFY(!box.view()->isVisible());
}

void VemoComboBoxTest::rowIsPickedByMouseAndByKeyboard()
{
    Box box;
    showAt(box, {100, 100});
    QSignalSpy changes(&box, SIGNAL(currentIndexChanged(int)));
    box.showPopup();
    QVERIFY(QTest::qWaitForWindowExposed(box.popup()));
    const QPoint third = box.view()->visualRect(box.model()->index(2, 0)).center();
    QTest::mouseMove(box.view()->viewport(), third);
    // Releases are ignored for a moment after the press that opened a list.
    QTRY_VERIFY((QTest::mouseClick(box.view()->viewport(), Qt::LeftButton, {}, third),
        box.currentIndex() == 2));
    box.showPopup();
    QTest::keyClick(box.view(), Qt::Key_Down);
    QTest::keyClick(box.view(), Qt::Key_Return);
    QCOMPARE(box.currentIndex(), 3);
    QCOMPARE(changes.count(), 2);
}

void VemoComboBoxTest::editableBoxOpensBelowToo()
{
    Box box;
    box.setEditable(true);
    showAt(box, {100, 100});
    box.showPopup();
    QCOMPARE(box.popup()->pos(), box.expectedPosition());
    box.hidePopup();
}

VEMO_TEST_MAIN(VemoComboBoxTest)
#include "tst_vemocombobox.moc"

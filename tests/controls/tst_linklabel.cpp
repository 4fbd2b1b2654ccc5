// SPDX-License-Identifier: MIT
#include <vemo/linklabel.h>

#include "support/activewindow.h"
#include "support/eventcounter.h"
#include "support/vemotest.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QVBoxLayout>

class LinkLabelTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void startsWithoutLinkAndTakesAnyWidgetAsItsLabelParent();
    void keepsTheLinkThatItIsGiven();
    void sharesTheMetaObjectOfTheClickableLabel();
    void reportsAClickAndOpensNothing();
    void showsHandAndUnderlineUnderThePointer();
    void withoutHoverUnderlineTheFontStays();
    void hoverUnderlineTakesEffectAtTheNextEnter();
    void otherFontTraitsSurviveTheHover();
    void disabledLabelIgnoresThePointer();
    void disabledLabelTakesLeavingForEntering();
    void labelThatIsDisabledUnderThePointerKeepsItsHand();
    void leavingTakesACursorAlsoWhereNoneWasSet();
    void everyLeaveTakesOneCursor();
    void itsDeathLeavesNoHandBehind_data();
    void itsDeathLeavesNoHandBehind();
    void itsDeathLeavesCursorsOfOthersInPlace();
    void itsDeathDoesNotTouchAHandThatIsGoneAlready();
    void followsTheRealPointer();
    void endsUnderTheRealPointerWithoutAHand_data();
    void endsUnderTheRealPointerWithoutAHand();
    void menuOpenedOnItLeavesNoHand_data();
    void menuOpenedOnItLeavesNoHand();
    void menuOpenedOnItKeepsTheHandUnderThePointer();
    void mayBeDeletedUnderItsMenu();
    void withoutAMenuTheLeavingIsLeftToQt();
};

namespace {

using Ending = void (*)(LinkLabel *&label);

void hideIt(LinkLabel *&label)
{
    label->hide();
}

void deleteIt(LinkLabel *&label)
{
    delete label;
    label = nullptr;
}

void hideItsParent(LinkLabel *&label)
{
    label->parentWidget()->hide();
}

void deleteItsParent(LinkLabel *&label)
{
    QWidget *parent = label->parentWidget();
    label->setParent(new QWidget(parent));
    label->show();
    delete label->parentWidget();
    label = nullptr;
}

void moveItToAnotherParent(LinkLabel *&label)
{
    label->setParent(label->window());
}

struct Window : QWidget
{
    Window() : label(new LinkLabel("Licence", &frame))
    {
        auto *layout = new QVBoxLayout(this);
        layout->addWidget(&frame);
        frame.setMinimumSize(200, 60);
        label->resize(100, 40);
        // Offscreen, Qt 6 sends no leave event from a window that was shown under the pointer.
        QCursor::setPos(700, 500);
        show();
    }

    void pointAtLabel()
    {
        QVERIFY(showActive(this));
        pointElsewhere();
        // Repeated, because the window manager may move the window in the meantime.
        const QPoint centre = label->rect().center();
        int attempt = 0;
        QTRY_VERIFY((pointAt(*label, centre + QPoint(++attempt % 2, 0)), label->underMouse()));
    }

    void pointElsewhere() const { pointAt(*this, {1, 1}); }

    static void pointAt(const QWidget &widget, const QPoint &position)
    {
        QCursor::setPos(widget.mapToGlobal(position));
        QCoreApplication::processEvents();
    }

    QLabel frame;
    LinkLabel *label;
};

void enter(QWidget *widget)
{
    QEvent event(QEvent::Enter);
    QApplication::sendEvent(widget, &event);
}

void leave(QWidget *widget)
{
    QEvent event(QEvent::Leave);
    QApplication::sendEvent(widget, &event);
}

/// Removes all override cursors of the application and returns them, topmost first.
QVector<Qt::CursorShape> takeOverrideCursors()
{
    QVector<Qt::CursorShape> shapes;
    while (const QCursor *cursor = QApplication::overrideCursor()) {
        shapes += cursor->shape();
        QApplication::restoreOverrideCursor();
    }
    return shapes;
}

using Shapes = QVector<Qt::CursorShape>;

using Use = void (*)(LinkLabel &label);

void clickIt(LinkLabel &label)
{
    QWindow *window = label.window()->windowHandle();
    QTest::mouseClick(window, Qt::LeftButton, {}, label.mapTo(label.window(), QPoint(50, 20)));
}

/// Only the second press of a double click: the first would open the menu.
void doubleClickIt(LinkLabel &label)
{
    const QPoint centre = label.rect().center();
    QMouseEvent event(
        QEvent::MouseButtonDblClick, centre, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&label, &event);
}

void askForItsContextMenu(LinkLabel &label)
{
    QContextMenuEvent event(QContextMenuEvent::Mouse, label.rect().center());
    QApplication::sendEvent(&label, &event);
}

/// Makes the label open a menu when it is clicked or its context menu is requested. whileOpen is
/// called while the menu is open.
void openOnClickOrRequest(LinkLabel *label, QMenu &menu, const std::function<void()> &whileOpen)
{
    const auto open = [label, &menu, whileOpen] {
        QTimer::singleShot(0, &menu, [&menu, whileOpen] {
            QVERIFY(menu.isVisible());
            whileOpen();
            menu.close();
        });
        menu.exec(label->mapToGlobal(QPoint(0, label->height())));
    };
    label->setContextMenuPolicy(Qt::CustomContextMenu);
    QObject::connect(label, &QWidget::customContextMenuRequested, &menu, open);
    QObject::connect(label, &LinkLabel::clicked, &menu, open);
}

} // namespace

Q_DECLARE_METATYPE(Ending)
Q_DECLARE_METATYPE(Use)

void LinkLabelTest::startsWithoutLinkAndTakesAnyWidgetAsItsLabelParent()
{
    QLabel parent;
    LinkLabel label(" Licence ", &parent);
    QCOMPARE(label.text(), QString(" Licence "));
    QCOMPARE(label.parentWidget(), &parent);
    QCOMPARE(label.getHyperLink(), QString());
    QCOMPARE(label.styleSheet(), QString());

    const LinkLabel plain;
    QVERIFY(!plain.parent());
    QCOMPARE(plain.text(), QString());
}

void LinkLabelTest::keepsTheLinkThatItIsGiven()
{
    LinkLabel label("Licence");
    label.setHyperLink("https://example.com/a?b=c#d");
    QCOMPARE(label.getHyperLink(), QString("https://example.com/a?b=c#d"));
    label.setHyperLink(QString());
    QCOMPARE(label.getHyperLink(), QString());
}

void LinkLabelTest::sharesTheMetaObjectOfTheClickableLabel()
{
    const LinkLabel label("Licence");
    QCOMPARE(label.metaObject(), &ClickableLabel::staticMetaObject);
}

void LinkLabelTest::reportsAClickAndOpensNothing()
{
    LinkLabel label("Licence");
    label.setHyperLink("https://example.invalid/");
    QSignalSpy clicks(&label, SIGNAL(clicked()));
    QSignalSpy opened(&label, SIGNAL(linkActivated(QString)));
    label.show();
    QTest::mouseClick(&label, Qt::LeftButton);
    QCOMPARE(clicks.count(), 1);
    QCOMPARE(opened.count(), 0);
}

void LinkLabelTest::showsHandAndUnderlineUnderThePointer()
{
    LinkLabel label("Licence");
    enter(&label);
    QVERIFY(label.font().underline());
    QVERIFY(QApplication::overrideCursor());
    QCOMPARE(QApplication::overrideCursor()->shape(), Qt::PointingHandCursor);
    leave(&label);
    QVERIFY(!label.font().underline());
    QCOMPARE(takeOverrideCursors(), Shapes());
}

void LinkLabelTest::withoutHoverUnderlineTheFontStays()
{
    LinkLabel label("Licence");
    label.setHoverUnderline(false);
    const QFont before = label.font();
    enter(&label);
    QCOMPARE(label.font(), before);
    QVERIFY(!label.testAttribute(Qt::WA_SetFont));
    QCOMPARE(QApplication::overrideCursor()->shape(), Qt::PointingHandCursor);
    leave(&label);
    QVERIFY(!label.testAttribute(Qt::WA_SetFont));
    QCOMPARE(takeOverrideCursors(), Shapes());
}

void LinkLabelTest::hoverUnderlineTakesEffectAtTheNextEnter()
{
    LinkLabel label("Licence");
    label.setHoverUnderline(false);
    enter(&label);
    label.setHoverUnderline(true);
    QVERIFY(!label.font().underline());
    leave(&label);
    enter(&label);
    QVERIFY(label.font().underline());
    label.setHoverUnderline(false);
    QVERIFY(label.font().underline());
    leave(&label);
    QVERIFY(label.font().underline()); // Leaving also depends on the flag.
}

void LinkLabelTest::otherFontTraitsSurviveTheHover()
{
    LinkLabel label("Licence");
    QFont font = label.font();
    font.setItalic(true);
    font.setPointSize(31);
    label.setFont(font);
    enter(&label);
    QVERIFY(label.font().italic());
    leave(&label);
    QCOMPARE(label.font(), font);
}

void LinkLabelTest::disabledLabelIgnoresThePointer()
{
    LinkLabel label("Licence");
    label.setEnabled(false);
    enter(&label);
    QVERIFY(!label.font().underline());
    QCOMPARE(takeOverrideCursors(), Shapes());
}

void LinkLabelTest::disabledLabelTakesLeavingForEntering()
{
    LinkLabel label("Licence");
    enter(&label);
    label.setEnabled(false);
    QApplication::setOverrideCursor(Qt::WaitCursor);
    leave(&label);
    QVERIFY(label.font().underline());
    QCOMPARE(takeOverrideCursors(), Shapes({Qt::WaitCursor, Qt::PointingHandCursor}));
}

void LinkLabelTest::labelThatIsDisabledUnderThePointerKeepsItsHand()
{
    LinkLabel label("Licence");
    enter(&label);
    label.setEnabled(false);
    QVERIFY(QApplication::overrideCursor());
    leave(&label);
    label.setEnabled(true);
    QCOMPARE(QApplication::overrideCursor()->shape(), Qt::PointingHandCursor);
    QVERIFY(label.font().underline());
    enter(&label);
    leave(&label);
    leave(&label);
    QCOMPARE(takeOverrideCursors(), Shapes());
}

void LinkLabelTest::leavingTakesACursorAlsoWhereNoneWasSet()
{
    LinkLabel label("Licence");
    label.setEnabled(false);
    enter(&label);
    label.setEnabled(true);
    QApplication::setOverrideCursor(Qt::WaitCursor);
    leave(&label);
    QCOMPARE(takeOverrideCursors(), Shapes());
    leave(&label); // Without any cursor, nothing happens.
    QCOMPARE(takeOverrideCursors(), Shapes());
}

void LinkLabelTest::everyLeaveTakesOneCursor()
{
    Window window;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    enter(window.label);
    enter(window.label);
    leave(window.label);
    QCOMPARE(QApplication::overrideCursor()->shape(), Qt::PointingHandCursor);
    window.label->hide();
    window.label->setEnabled(false);
    window.label->setEnabled(true);
    window.label->show();
    QCOMPARE(QApplication::overrideCursor()->shape(), Qt::PointingHandCursor);
    leave(window.label);
    QCOMPARE(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    leave(window.label);
    QCOMPARE(takeOverrideCursors(), Shapes());
}

void LinkLabelTest::itsDeathLeavesNoHandBehind_data()
{
    QTest::addColumn<Ending>("end");
    QTest::addColumn<bool>("isEnabled");
    QTest::newRow("deleted") << Ending(deleteIt) << true;
    QTest::newRow("deleted with its parent") << Ending(deleteItsParent) << true;
    QTest::newRow("disabled, then deleted") << Ending(deleteIt) << false;
}

void LinkLabelTest::itsDeathLeavesNoHandBehind()
{
    QFETCH(Ending, end);
    QFETCH(bool, isEnabled);
    Window window;
    enter(window.label);
    enter(window.label);
    window.label->setEnabled(isEnabled);
    QVERIFY(QApplication::overrideCursor());
    end(window.label);
    QCOMPARE(takeOverrideCursors(), Shapes());
}

void LinkLabelTest::itsDeathLeavesCursorsOfOthersInPlace()
{
    Window window;
    QApplication::setOverrideCursor(Qt::PointingHandCursor);
    QApplication::setOverrideCursor(Qt::BusyCursor);
    enter(window.label);
    QApplication::setOverrideCursor(Qt::WaitCursor);
    QApplication::setOverrideCursor(Qt::ForbiddenCursor);
    delete window.label;
    QCOMPARE(takeOverrideCursors(),
        Shapes({Qt::ForbiddenCursor, Qt::WaitCursor, Qt::BusyCursor, Qt::PointingHandCursor}));
}

void LinkLabelTest::itsDeathDoesNotTouchAHandThatIsGoneAlready()
{
    Window window;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    enter(window.label);
    QApplication::restoreOverrideCursor(); // By other code.
    delete window.label;
    QCOMPARE(takeOverrideCursors(), Shapes({Qt::WaitCursor}));
}

void LinkLabelTest::followsTheRealPointer()
{
    Window window;
    window.pointAtLabel();
    QVERIFY(window.label->font().underline());
    QCOMPARE(QApplication::overrideCursor()->shape(), Qt::PointingHandCursor);
    window.pointElsewhere();
    QTRY_VERIFY(!window.label->font().underline());
    QCOMPARE(takeOverrideCursors(), Shapes());
}

void LinkLabelTest::endsUnderTheRealPointerWithoutAHand_data()
{
    QTest::addColumn<Ending>("end");
    QTest::newRow("hidden") << Ending(hideIt);
    QTest::newRow("parent hidden") << Ending(hideItsParent);
    QTest::newRow("moved to another parent") << Ending(moveItToAnotherParent);
    QTest::newRow("deleted") << Ending(deleteIt);
}

void LinkLabelTest::endsUnderTheRealPointerWithoutAHand()
{
    QFETCH(Ending, end);
    Window window;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    window.pointAtLabel();
    end(window.label);
    // Delivers Qt's events, now and when the pointer moves.
    QCoreApplication::processEvents();
    window.pointElsewhere();
    QCOMPARE(takeOverrideCursors(), Shapes({Qt::WaitCursor}));
}

void LinkLabelTest::menuOpenedOnItLeavesNoHand_data()
{
    QTest::addColumn<Use>("use");
    QTest::newRow("by a click") << Use(clickIt);
    QTest::newRow("by a double click") << Use(doubleClickIt);
    QTest::newRow("as a context menu") << Use(askForItsContextMenu);
}

void LinkLabelTest::menuOpenedOnItLeavesNoHand()
{
    QFETCH(Use, use);
    Window window;
    QMenu menu;
    menu.addAction("Copy link");
    openOnClickOrRequest(window.label, menu, [&] { window.pointElsewhere(); });
    QApplication::setOverrideCursor(Qt::WaitCursor);
    for (int time = 1; time <= 3; ++time) {
        window.pointAtLabel();
        QCOMPARE(QApplication::overrideCursor()->shape(), Qt::PointingHandCursor);
        use(*window.label);
        QTRY_VERIFY(!window.label->font().underline());
        QCOMPARE(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    }
    window.pointElsewhere();
    QCOMPARE(takeOverrideCursors(), Shapes({Qt::WaitCursor}));
}

void LinkLabelTest::menuOpenedOnItKeepsTheHandUnderThePointer()
{
    Window window;
    QMenu menu;
    menu.addAction("Copy link");
    openOnClickOrRequest(window.label, menu, [] {});
    window.pointAtLabel();
    clickIt(*window.label);
    QTRY_VERIFY(window.label->font().underline());
    QCOMPARE(QApplication::overrideCursor()->shape(), Qt::PointingHandCursor);
    window.pointElsewhere();
    QTRY_COMPARE(takeOverrideCursors(), Shapes());
}

void LinkLabelTest::mayBeDeletedUnderItsMenu()
{
    Window window;
    QMenu menu;
    menu.addAction("Copy link");
    openOnClickOrRequest(window.label, menu, [&] { deleteIt(window.label); });
    window.pointAtLabel();
    clickIt(*window.label);
    QVERIFY(!window.label);
    QCOMPARE(takeOverrideCursors(), Shapes());
}

void LinkLabelTest::withoutAMenuTheLeavingIsLeftToQt()
{
    Window window;
    window.pointAtLabel();
    QApplication::setOverrideCursor(Qt::WaitCursor);
    // A slow slot: the pointer has left, but Qt has not handled that yet.
    const QPoint outside = window.mapToGlobal(QPoint(1, 1));
    connect(window.label, &LinkLabel::clicked, this, [outside] { QCursor::setPos(outside); });
    const EventCounter leaves(window.label, QEvent::Leave);
    QTest::mousePress(window.label, Qt::LeftButton);
    QCOMPARE(leaves.count(), 0);
    QTest::mouseRelease(window.label, Qt::LeftButton);
    Window::pointAt(window, {3, 3});
    QTRY_COMPARE(leaves.count(), 1);
    QCOMPARE(takeOverrideCursors(), Shapes({Qt::PointingHandCursor}));
}

VEMO_TEST_MAIN(LinkLabelTest)
#include "tst_linklabel.moc"

// SPDX-License-Identifier: MIT
#include <vemo/linklabel.h>

#include "support/vemotest.h"

#include <QSignalSpy>
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
    void leavingTakesACursorAlsoWhereNoneWasSet();
    void leavesNoHandBehind_data();
    void leavesNoHandBehind();
    void leavesCursorsOfOthersInPlace_data();
    void leavesCursorsOfOthersInPlace();
    void takesTheHandBackOnlyOnce_data();
    void takesTheHandBackOnlyOnce();
    void doesNotTouchAHandThatIsGoneAlready();
    void entersAfreshAfterItWasHidden();
    void followsTheRealPointer();
    void endsUnderTheRealPointerWithoutAHand_data();
    void endsUnderTheRealPointerWithoutAHand();
};

namespace {

using Ending = void (*)(LinkLabel *&label);

void hideIt(LinkLabel *&label)
{
    label->hide();
}

void disableIt(LinkLabel *&label)
{
    label->setEnabled(false);
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

void disableItsParent(LinkLabel *&label)
{
    label->parentWidget()->setEnabled(false);
}

void moveItToAnotherParent(LinkLabel *&label)
{
    label->setParent(label->window());
}

void endingRows()
{
    QTest::addColumn<Ending>("end");
    QTest::newRow("hidden") << Ending(hideIt);
    QTest::newRow("disabled") << Ending(disableIt);
    QTest::newRow("deleted") << Ending(deleteIt);
    QTest::newRow("parent hidden") << Ending(hideItsParent);
    QTest::newRow("parent disabled") << Ending(disableItsParent);
    QTest::newRow("moved to another parent") << Ending(moveItToAnotherParent);
}

struct Window : QWidget
{
    Window() : label(new LinkLabel("Licence", &frame))
    {
        auto *layout = new QVBoxLayout(this);
        layout->addWidget(&frame);
        frame.setMinimumSize(200, 60);
        label->resize(100, 40);
        show();
    }

    void pointAtLabel()
    {
        QVERIFY(QTest::qWaitForWindowExposed(this));
        QTest::mouseMove(windowHandle(), {1, 1});
        QTest::mouseMove(windowHandle(), label->mapTo(this, label->rect().center()));
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

/// The application's override cursors, top first; they are all taken away.
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

} // namespace

Q_DECLARE_METATYPE(Ending)

void LinkLabelTest::startsWithoutLinkAndTakesAnyWidgetAsItsLabelParent()
{
    QLabel parent;
    LinkLabel label("Licence", &parent);
    QCOMPARE(label.text(), QString("Licence"));
    QCOMPARE(label.parentWidget(), &parent);
    QCOMPARE(label.getHyperLink(), QString());
    QCOMPARE(label.styleSheet(), QString());
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
    QTest::mousePress(&label, Qt::LeftButton);
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
    QVERIFY(label.font().underline()); // Leaving goes by the flag, too.
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
    QCOMPARE(takeOverrideCursors(), Shapes({Qt::WaitCursor}));
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
    leave(&label); // With no cursor at all, nothing happens.
    QCOMPARE(takeOverrideCursors(), Shapes());
}

void LinkLabelTest::leavesNoHandBehind_data()
{
    endingRows();
}

void LinkLabelTest::leavesNoHandBehind()
{
    QFETCH(Ending, end);
    Window window;
    enter(window.label);
    QVERIFY(QApplication::overrideCursor());
    end(window.label);
    QCOMPARE(takeOverrideCursors(), Shapes());
}

void LinkLabelTest::leavesCursorsOfOthersInPlace_data()
{
    endingRows();
}

void LinkLabelTest::leavesCursorsOfOthersInPlace()
{
    QFETCH(Ending, end);
    Window window;
    QApplication::setOverrideCursor(Qt::PointingHandCursor);
    QApplication::setOverrideCursor(Qt::BusyCursor);
    enter(window.label);
    QApplication::setOverrideCursor(Qt::WaitCursor);
    QApplication::setOverrideCursor(Qt::ForbiddenCursor);
    end(window.label);
    QCOMPARE(takeOverrideCursors(),
        Shapes({Qt::ForbiddenCursor, Qt::WaitCursor, Qt::BusyCursor, Qt::PointingHandCursor}));
}

void LinkLabelTest::takesTheHandBackOnlyOnce_data()
{
    QTest::addColumn<Ending>("end");
    QTest::addColumn<bool>("enablesAgain");
    QTest::newRow("hidden, then left") << Ending(hideIt) << false;
    QTest::newRow("disabled, enabled, left") << Ending(disableIt) << true;
}

void LinkLabelTest::takesTheHandBackOnlyOnce()
{
    QFETCH(Ending, end);
    QFETCH(bool, enablesAgain);
    Window window;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    enter(window.label);
    end(window.label);
    if (enablesAgain)
        window.label->setEnabled(true);
    leave(window.label);
    QVERIFY(!window.label->font().underline());
    QCOMPARE(takeOverrideCursors(), Shapes({Qt::WaitCursor}));
}

void LinkLabelTest::doesNotTouchAHandThatIsGoneAlready()
{
    Window window;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    enter(window.label);
    QApplication::restoreOverrideCursor(); // By somebody else.
    window.label->hide();
    QCOMPARE(takeOverrideCursors(), Shapes({Qt::WaitCursor}));
}

void LinkLabelTest::entersAfreshAfterItWasHidden()
{
    Window window;
    enter(window.label);
    window.label->hide();
    window.label->show();
    enter(window.label);
    QVERIFY(QApplication::overrideCursor());
    leave(window.label);
    QCOMPARE(takeOverrideCursors(), Shapes());
    window.label->hide();
    window.label->show();
    QApplication::setOverrideCursor(Qt::WaitCursor);
    leave(window.label); // Unconditional again.
    QCOMPARE(takeOverrideCursors(), Shapes());
}

void LinkLabelTest::followsTheRealPointer()
{
    Window window;
    QTRY_VERIFY((window.pointAtLabel(), window.label->font().underline()));
    QCOMPARE(QApplication::overrideCursor()->shape(), Qt::PointingHandCursor);
    QTest::mouseMove(window.windowHandle(), {1, 1});
    QTRY_VERIFY(!window.label->font().underline());
    QCOMPARE(takeOverrideCursors(), Shapes());
}

void LinkLabelTest::endsUnderTheRealPointerWithoutAHand_data()
{
    endingRows();
}

void LinkLabelTest::endsUnderTheRealPointerWithoutAHand()
{
    QFETCH(Ending, end);
    Window window;
    QTRY_VERIFY((window.pointAtLabel(), window.label->font().underline()));
    QApplication::setOverrideCursor(Qt::WaitCursor);
    end(window.label);
    // Whatever Qt has to say about it, now and when the pointer moves on.
    QCoreApplication::processEvents();
    QTest::mouseMove(window.windowHandle(), {1, 1});
    QCoreApplication::processEvents();
    QCOMPARE(takeOverrideCursors(), Shapes({Qt::WaitCursor}));
}

VEMO_TEST_MAIN(LinkLabelTest)
#include "tst_linklabel.moc"

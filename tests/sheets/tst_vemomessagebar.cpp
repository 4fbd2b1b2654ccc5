// SPDX-License-Identifier: MIT
#include <vemo/vemomessagebar.h>

#include "core/scaling_p.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/componentstrings.h>
#include <vemo/imagemanager.h>
#include <vemo/stylemanager.h>

#include <QAccessible>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

using Bar = VemoMessageBar;

/// A window with a bar above a field, which has the focus.
struct Scene
{
    Scene()
    {
        auto *column = new QVBoxLayout(&window);
        bar = new Bar(&window);
        field = new QLineEdit;
        column->addWidget(bar);
        column->addWidget(field);
        column->addStretch();
        window.resize(scaled(500), scaled(300));
        window.show();
        field->setFocus();
        // Not over the bar, where it would hold the messages.
        QCursor::setPos(window.mapToGlobal(QPoint(window.width() - 5, window.height() - 5)));
    }
    QLabel *label() const
    {
        const auto labels = bar->findChildren<QLabel *>();
        return labels[0]->pixmap(Qt::ReturnByValue).isNull() ? labels[0] : labels[1];
    }
    QLabel *picture() const
    {
        const auto labels = bar->findChildren<QLabel *>();
        return labels[0] == label() ? labels[1] : labels[0];
    }
    QPushButton *action() const { return bar->findChild<QPushButton *>(); }
    QToolButton *close() const { return bar->findChild<QToolButton *>(); }

    QWidget window;
    QPointer<Bar> bar;
    QLineEdit *field;
};

} // namespace

class VemoMessageBarTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void isHiddenWithoutAMessage();
    void showsAMessageOfEachType_data();
    void showsAMessageOfEachType();
    void closeButtonAndEscapeClose_data();
    void closeButtonAndEscapeClose();
    void escapeElsewhereIsLeftAlone();
    void messagesWaitForEachOther();
    void clearForgetsThoseThatWait();
    void actionIsCalledOnceTheMessageIsClosed();
    void messageTimesOut();
    void messageIsHeldByTheFocus();
    void textIsPlainAndWraps();
    void takesNoFocus();
    void isLaidOutFromRightToLeft();
    void mayBeDeletedByEverySlot_data();
    void mayBeDeletedByEverySlot();
    void anotherLanguageChangesTheNames();
};

void VemoMessageBarTest::isHiddenWithoutAMessage()
{
    const Scene scene;
    QVERIFY(!scene.bar->isVisible());
    QVERIFY(!scene.bar->hasMessage());
    QCOMPARE(scene.bar->text(), QString());
    QCOMPARE(scene.bar->queuedCount(), 0);
    scene.bar->closeMessage(); // has no effect
    QCOMPARE(Bar().messageType(), Bar::Information);
}

void VemoMessageBarTest::showsAMessageOfEachType_data()
{
    QTest::addColumn<Bar::MessageType>("type");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("spoken");
    addRow("information", Bar::Information, QString("information"), QString("Information: Hi"));
    addRow("success", Bar::Success, QString("success"), QString("Success: Hi"));
    addRow("warning", Bar::Warning, QString("warning"), QString("Warning: Hi"));
    addRow("error", Bar::Error, QString("error"), QString("Error: Hi"));
    addRow("unknown", Bar::MessageType(4), QString("information"), QString("Information: Hi"));
}

void VemoMessageBarTest::showsAMessageOfEachType()
{
    QFETCH(Bar::MessageType, type);
    QFETCH(QString, key);
    QFETCH(QString, spoken);
    const Scene scene;
    const QSignalSpy shown(scene.bar.data(), &Bar::messageShown);
    scene.bar->showMessage(type, "Hi");
    QVERIFY(scene.bar->isVisible() && scene.bar->hasMessage());
    QCOMPARE(shown.size(), 1);
    QCOMPARE(scene.bar->messageType(), type);
    QCOMPARE(scene.bar->text(), QString("Hi"));
    QCOMPARE(scene.label()->text(), QString("Hi"));
    QCOMPARE(scene.picture()->pixmap(Qt::ReturnByValue).toImage(),
        getGlobalImage("message_" + key).toImage());
    QCOMPARE(scene.bar->styleSheet(), getStyleSheet("component.message_bar_" + key));
    QVERIFY(!scene.action()->isVisible());
    auto *accessible = QAccessible::queryAccessibleInterface(scene.bar);
    QCOMPARE(accessible->role(), QAccessible::AlertMessage);
    QCOMPARE(accessible->text(QAccessible::Name), spoken);
}

void VemoMessageBarTest::closeButtonAndEscapeClose_data()
{
    QTest::addColumn<bool>("byKey");
    addRow("close button", false);
    addRow("Escape", true);
}

void VemoMessageBarTest::closeButtonAndEscapeClose()
{
    QFETCH(bool, byKey);
    const Scene scene;
    const QSignalSpy closed(scene.bar.data(), &Bar::messagesClosed);
    scene.bar->showMessage(Bar::Warning, "Hi");
    QCOMPARE(QAccessible::queryAccessibleInterface(scene.close())->text(QAccessible::Name),
        QString("Close"));
    if (byKey)
        QTest::keyClick(scene.close(), Qt::Key_Escape);
    else
        QTest::mouseClick(scene.close(), Qt::LeftButton);
    QVERIFY(!scene.bar->isVisible() && !scene.bar->hasMessage());
    QCOMPARE(closed.size(), 1);
    QCOMPARE(scene.bar->text(), QString());
}

void VemoMessageBarTest::escapeElsewhereIsLeftAlone()
{
    const Scene scene;
    scene.bar->showMessage(Bar::Warning, "Hi");
    QTest::keyClick(scene.field, Qt::Key_Escape);
    QVERIFY(scene.bar->isVisible());
}

void VemoMessageBarTest::messagesWaitForEachOther()
{
    const Scene scene;
    const QSignalSpy closed(scene.bar.data(), &Bar::messagesClosed);
    scene.bar->showMessage(Bar::Warning, "first", "Undo", [] {});
    scene.bar->showMessage(Bar::Error, "second");
    scene.bar->showMessage(Bar::Success, "third");
    QCOMPARE(scene.bar->text(), QString("first"));
    QVERIFY(scene.action()->isVisible());
    QCOMPARE(scene.bar->queuedCount(), 2);
    scene.bar->closeMessage();
    QCOMPARE(scene.bar->text(), QString("second"));
    QCOMPARE(scene.bar->messageType(), Bar::Error);
    QVERIFY(!scene.action()->isVisible());
    scene.bar->closeMessage();
    QCOMPARE(scene.bar->text(), QString("third"));
    QCOMPARE(closed.size(), 0);
    scene.bar->closeMessage();
    QCOMPARE(closed.size(), 1);
}

void VemoMessageBarTest::clearForgetsThoseThatWait()
{
    const Scene scene;
    scene.bar->showMessage(Bar::Warning, "first");
    scene.bar->showMessage(Bar::Error, "second");
    scene.bar->clearMessages();
    QVERIFY(!scene.bar->isVisible());
    QCOMPARE(scene.bar->queuedCount(), 0);
}

void VemoMessageBarTest::actionIsCalledOnceTheMessageIsClosed()
{
    const Scene scene;
    QStringList seen;
    scene.bar->showMessage(Bar::Information, "first", "Undo", [&] { seen += scene.bar->text(); });
    scene.bar->showMessage(Bar::Information, "second");
    QCOMPARE(scene.action()->text(), QString("Undo"));
    QTest::mouseClick(scene.action(), Qt::LeftButton);
    QCOMPARE(seen, QStringList("second"));
}

void VemoMessageBarTest::messageTimesOut()
{
    const Scene scene;
    scene.bar->showMessage(Bar::Success, "first", 1);
    scene.bar->showMessage(Bar::Success, "second");
    QTRY_COMPARE(scene.bar->text(), QString("second"));
    QVERIFY(scene.bar->isVisible());
}

void VemoMessageBarTest::messageIsHeldByTheFocus()
{
    Scene scene;
    QVERIFY(QTest::qWaitForWindowActive(&scene.window));
    scene.bar->showMessage(Bar::Success, "Hi", 1);
    scene.close()->setFocus();
    QTRY_VERIFY(scene.close()->hasFocus());
    // The time-out of another bar, which starts later, has passed.
    auto *other = new Bar(&scene.window);
    other->setGeometry(0, scene.window.height() - 40, 100, 20);
    QSignalSpy closed(other, &Bar::messagesClosed);
    QCursor::setPos(scene.window.mapToGlobal(QPoint(scene.window.width() - 5, 120)));
    other->showMessage(Bar::Success, "other", 20);
    QTRY_COMPARE(closed.size(), 1);
    QVERIFY(scene.bar->hasMessage());
    scene.field->setFocus();
    QTRY_VERIFY(!scene.bar->hasMessage());
}

void VemoMessageBarTest::textIsPlainAndWraps()
{
    const Scene scene;
    scene.bar->showMessage(Bar::Error, "<b>kurz</b>");
    QCoreApplication::processEvents();
    QCOMPARE(scene.label()->textFormat(), Qt::PlainText);
    const int height = scene.bar->height();
    scene.bar->closeMessage();
    scene.bar->showMessage(Bar::Error,
        QString("Die Datenübertragung auf das Netzwerklaufwerk wurde abgebrochen. ").repeated(4));
    QTRY_VERIFY(scene.bar->height() > height);
    QTRY_VERIFY(scene.label()->height() >= scene.label()->heightForWidth(scene.label()->width()));
    QVERIFY(scene.bar->geometry().right() < scene.window.width());
}

void VemoMessageBarTest::takesNoFocus()
{
    Scene scene;
    QVERIFY(QTest::qWaitForWindowActive(&scene.window));
    scene.bar->showMessage(Bar::Information, "Hi", "Undo", [] {});
    QCOMPARE(scene.window.focusWidget(), scene.field);
    scene.action()->setFocus();
    QTest::keyClick(scene.action(), Qt::Key_Tab);
    QCOMPARE(scene.window.focusWidget(), scene.close());
    QTest::keyClick(scene.close(), Qt::Key_Space);
    QVERIFY(!scene.bar->isVisible());
    QCOMPARE(scene.window.focusWidget(), scene.field);
}

void VemoMessageBarTest::isLaidOutFromRightToLeft()
{
    Scene scene;
    scene.window.setLayoutDirection(Qt::RightToLeft);
    scene.bar->showMessage(Bar::Information, "Hi");
    QTRY_VERIFY(scene.close()->x() < scene.label()->x());
    QVERIFY(scene.label()->x() < scene.picture()->x());
}

void VemoMessageBarTest::mayBeDeletedByEverySlot_data()
{
    QTest::addColumn<QString>("where");
    for (const QString where : {"shown", "closed", "action"})
        addRow(where.toLatin1(), where);
}

void VemoMessageBarTest::mayBeDeletedByEverySlot()
{
    QFETCH(QString, where);
    Scene scene;
    const auto kill = [&scene] { scene.bar->deleteLater(); };
    if (where == "shown")
        connect(scene.bar.data(), &Bar::messageShown, scene.bar.data(), [&] { delete scene.bar; });
    if (where == "closed")
        connect(scene.bar.data(), &Bar::messagesClosed, scene.bar.data(), kill);
    scene.bar->showMessage(Bar::Information, "Hi", "Undo", [=] {
        if (where == "action")
            kill();
    });
    if (scene.bar)
        QTest::mouseClick(scene.action(), Qt::LeftButton);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!scene.bar);
}

void VemoMessageBarTest::anotherLanguageChangesTheNames()
{
    const Scene scene;
    scene.bar->showMessage(Bar::Warning, "Hallo");
    ComponentStrings &strings = ComponentStrings::getInstance();
    const QMap<QString, QString> before = strings.strings();
    QMap<QString, QString> changed = before;
    changed["accessible_close"] = "Schließen";
    changed["accessible_warning"] = "Warnung";
    strings.changeStrings(changed);
    QCoreApplication::processEvents();
    QCOMPARE(scene.close()->accessibleName(), changed["accessible_close"]);
    QCOMPARE(scene.bar->accessibleName(), QString("Warnung: Hallo"));
    strings.changeStrings(before);
}

VEMO_TEST_MAIN(VemoMessageBarTest)
#include "tst_vemomessagebar.moc"

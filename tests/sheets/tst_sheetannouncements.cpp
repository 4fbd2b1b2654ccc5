// SPDX-License-Identifier: MIT
// The announcements for screen readers when sheets are shown, change and end.
#include "sheets/anysheet.h"
#include "support/activewindow.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <QAccessible>

#include <private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

namespace {

using Announcement = QPair<QAccessible::Event, QObject *>;

QVector<Announcement> announced;

void record(QAccessibleEvent *event)
{
    announced += {event->type(), event->object()};
}

bool isModal(QWidget *sheet)
{
    return QAccessible::queryAccessibleInterface(sheet)->state().modal;
}

} // namespace

class SheetAnnouncementsTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void comesAndGoesAsADialog_data();
    void comesAndGoesAsADialog();
    void changedTextsAreAnnounced();
};

void SheetAnnouncementsTest::initTestCase()
{
    startDefaultTheme();
    // As if a screen reader were running.
    QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(true);
    QAccessible::installUpdateHandler(record);
}

void SheetAnnouncementsTest::comesAndGoesAsADialog_data()
{
    QTest::addColumn<QString>("kind");
    QTest::newRow("message") << "message";
    QTest::newRow("input") << "input";
    QTest::newRow("content") << "content";
    QTest::newRow("progress") << "progress";
}

void SheetAnnouncementsTest::comesAndGoesAsADialog()
{
    QFETCH(const QString, kind);
    QWidget window;
    QVERIFY(showActive(&window));
    const AnySheet any(kind, &window);
    QVERIFY(!isModal(any.sheet()));
    announced.clear();
    any.execUntil([&] {
        QCOMPARE(announced.count({QAccessible::DialogStart, any.sheet()}), 1);
        QCOMPARE(announced.count({QAccessible::StateChanged, any.sheet()}), 1);
        QVERIFY(isModal(any.sheet()));
        // The focus moves to the widget that is announced first.
        QVERIFY(announced.contains({QAccessible::Focus, window.focusWidget()}));
        QVERIFY(any.sheet()->isAncestorOf(window.focusWidget()));
        QCOMPARE(announced.count({QAccessible::DialogEnd, any.sheet()}), 0);
        any.done(0);
    });
    QCOMPARE(announced.count({QAccessible::DialogEnd, any.sheet()}), 1);
    QCOMPARE(announced.count({QAccessible::StateChanged, any.sheet()}), 2);
    QVERIFY(!isModal(any.sheet()));
    QCOMPARE(announced.count({QAccessible::Alert, any.sheet()}), kind == "message" ? 1 : 0);
}

void SheetAnnouncementsTest::changedTextsAreAnnounced()
{
    QWidget window;
    VemoMessageSheet sheet(VemoMessageSheet::Warning, "text", "more", &window);
    announced.clear();
    sheet.setText("other");
    QCOMPARE(announced.count({QAccessible::NameChanged, &sheet}), 1);
    sheet.setInformativeText("still more");
    QCOMPARE(announced.count({QAccessible::DescriptionChanged, &sheet}), 1);
    QCOMPARE(sheet.accessibleName(), "other");
    QCOMPARE(sheet.accessibleDescription(), "still more");
}

VEMO_TEST_MAIN(SheetAnnouncementsTest)
#include "tst_sheetannouncements.moc"

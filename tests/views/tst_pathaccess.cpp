// SPDX-License-Identifier: MIT
#include <vemo/vemobuttonpath.h>

#include "support/testhost.h"
#include "support/vemotest.h"

#include <QAccessible>

#include <private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

namespace {

QVector<QAccessibleInterface *> visibleButtonsIn(QAccessibleInterface *part)
{
    if (part->state().invisible)
        return {};
    if (part->role() == QAccessible::Button)
        return {part};
    QVector<QAccessibleInterface *> buttons;
    for (int i = 0; i < part->childCount(); ++i)
        buttons += visibleButtonsIn(part->child(i));
    return buttons;
}

} // namespace

/// The path bar for assistive tools.
class PathAccessTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void itsNamesAreButtons_data();
    void itsNamesAreButtons();
};

void PathAccessTest::itsNamesAreButtons_data()
{
    QTest::addColumn<bool>("isScreenReaderRunning");
    QTest::newRow("started later") << false;
    QTest::newRow("running") << true;
}

void PathAccessTest::itsNamesAreButtons()
{
    QFETCH(bool, isScreenReaderRunning);
    QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(
        isScreenReaderRunning);
    VemoButtonPath bar;
    QSignalSpy updates(&bar, &VemoButtonPath::sigUpdatePath);
    bar.resize(2000, bar.height());
    bar.show();
    bar.refresh("/music/albums");
    QAccessibleInterface *row = QAccessible::queryAccessibleInterface(&bar);
    QCOMPARE(row->role(), QAccessible::ToolBar);
    const auto buttons = visibleButtonsIn(row);
    QStringList names;
    for (QAccessibleInterface *button : buttons)
        names << button->text(QAccessible::Name);
    QCOMPARE(names, QStringList({"music", "albums"}));
    buttons.first()->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QTRY_COMPARE(updates.size(), 1);
    QCOMPARE(updates.first().first().toString(), bar.getPath(0));
}

VEMO_TEST_MAIN(PathAccessTest)
#include "tst_pathaccess.moc"

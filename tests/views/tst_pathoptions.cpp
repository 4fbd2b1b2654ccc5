// SPDX-License-Identifier: MIT
// The keys of a VemoButtonPath, and its options, which are off at first.
#include <vemo/vemobuttonpath.h>

#include "core/scaling_p.h"
#include "support/activewindow.h"
#include "support/realkeys.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/stylemanager.h>

#include <QAccessible>
#include <QHelpEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QTextDocument>
#include <QToolTip>

Q_DECLARE_METATYPE(const QMimeData *)
Q_DECLARE_METATYPE(Qt::Key)
Q_DECLARE_METATYPE(Qt::LayoutDirection)

namespace {

const char *const kPath = "home/projects/R&D/2026";

/// An active window with a bar between two fields.
struct Path
{
    explicit Path(int width = 600)
    {
        window.resize(scaled(700), scaled(200));
        before.setGeometry(0, scaled(100), scaled(100), scaled(30));
        bar.setGeometry(0, 0, scaled(width), bar.height());
        after.setGeometry(scaled(200), scaled(100), scaled(100), scaled(30));
        isActive = showActive(&window);
        bar.refresh(kPath);
        QCoreApplication::processEvents();
    }
    QPushButton *button(int column) const
    {
        return qobject_cast<QPushButton *>(bar.cellWidget(0, column));
    }
    QString focused() const
    {
        const auto *name = qobject_cast<QPushButton *>(window.focusWidget());
        return name ? name->text() : QString();
    }
    QLineEdit *edit() const { return bar.findChild<QLineEdit *>(); }
    QString lastPath() const { return updates.isEmpty() ? "none" : updates.last()[0].toString(); }
    static QMenu *menu() { return qobject_cast<QMenu *>(QApplication::activePopupWidget()); }

    QWidget window;
    QLineEdit before {&window};
    VemoButtonPath bar {&window};
    QLineEdit after {&window};
    QSignalSpy updates {&bar, &VemoButtonPath::sigUpdatePath};
    QSignalSpy requests {&bar, &VemoButtonPath::siblingsRequested};
    bool isActive = false;
};

QStringList textsOf(const QMenu &menu)
{
    QStringList texts;
    for (const QAction *action : menu.actions())
        texts << action->text() + (action->isChecked() ? "*" : "");
    return texts;
}

/// Moves data to a place in the row, as the window system does. Returns whether it may be dropped.
bool dragTo(const Path &path, const QPoint &place, const QMimeData &data)
{
    QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(path.bar.viewport(), &enter);
    QDragMoveEvent move(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    move.ignore();
    QCoreApplication::sendEvent(path.bar.viewport(), &move);
    return enter.isAccepted() && move.isAccepted();
}

bool dropAt(const Path &path, const QPoint &place, const QMimeData &data)
{
    QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    drop.ignore();
    QCoreApplication::sendEvent(path.bar.viewport(), &drop);
    return drop.isAccepted();
}

} // namespace

class PathOptionsTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        qRegisterMetaType<const QMimeData *>();
        qRegisterMetaType<Qt::DropAction>();
        startDefaultTheme();
    }
    void startsWithoutAnyOption();
    void movesTheFocus_data();
    void movesTheFocus();
    void scrollsToTheFocus();
    void showsToolTipsOfCutNames_data();
    void showsToolTipsOfCutNames();
    void asksForSiblings_data();
    void asksForSiblings();
    void opensTheMenuByKeyboard();
    void takesTheNamesLater();
    void survivesARefreshByAMenuEntry();
    void arrowsWithMenusAreButtons();
    void typesAPath();
    void cancelsTyping();
    void editsWhereItIsClicked();
    void keepsTypingDuringARefresh();
    void takesDrops();
    void ignoresOtherDrops_data();
    void ignoresOtherDrops();
};

void PathOptionsTest::startsWithoutAnyOption()
{
    const Path path;
    QVERIFY(!path.bar.areToolTipsEnabled());
    QVERIFY(!path.bar.areSiblingMenusEnabled());
    QVERIFY(!path.bar.isEditable());
    QVERIFY(!path.bar.isEditing());
    QVERIFY(!path.edit());
    QCOMPARE(path.bar.dropMimeTypes(), QStringList());
    QVERIFY(!path.bar.viewport()->acceptDrops());
    QCOMPARE(path.bar.columnWidth(1), scaled(6));
    QTest::mouseClick(path.button(1), Qt::LeftButton);
    QTest::mouseClick(path.bar.viewport(), Qt::LeftButton, {}, {scaled(590), 5});
    path.button(0)->setFocus();
    QTest::keyClick(path.button(0), Qt::Key_Down);
    QCOMPARE(path.requests.size(), 0);
    QVERIFY(!path.edit());
}

void PathOptionsTest::movesTheFocus_data()
{
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::addColumn<int>("from");
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<QString>("to");
    const auto both = [](const char *name, int from, Qt::Key key, Qt::Key mirrored,
                          const char *to) {
        addRow(name, Qt::LeftToRight, from, key, QString(to));
        addRow(QByteArray(name) + ", mirrored", Qt::RightToLeft, from, mirrored, QString(to));
    };
    both("forward", 0, Qt::Key_Right, Qt::Key_Left, "projects");
    both("forward from the last", 6, Qt::Key_Right, Qt::Key_Left, "2026");
    both("back", 4, Qt::Key_Left, Qt::Key_Right, "projects");
    both("back from the first", 0, Qt::Key_Left, Qt::Key_Right, "home");
    both("Home", 4, Qt::Key_Home, Qt::Key_Home, "home");
    both("End", 2, Qt::Key_End, Qt::Key_End, "2026");
}

void PathOptionsTest::movesTheFocus()
{
    QFETCH(Qt::LayoutDirection, direction);
    QFETCH(int, from);
    QFETCH(Qt::Key, key);
    QFETCH(QString, to);
    Path path;
    QVERIFY(path.isActive);
    path.window.setLayoutDirection(direction);
    path.button(from)->setFocus(Qt::TabFocusReason);
    pressRealKey(key);
    QTRY_COMPARE(path.focused(), to);
    pressRealKey(Qt::Key_Space);
    QTRY_COMPARE(path.updates.size(), 1);
    QCOMPARE(path.lastPath().section('/', -1), to);
}

void PathOptionsTest::scrollsToTheFocus()
{
    Path path(150);
    QVERIFY(path.isActive);
    path.button(6)->setFocus(Qt::TabFocusReason);
    const auto isSeen = [&path](
                            int column) { return !path.button(column)->visibleRegion().isEmpty(); };
    QVERIFY(!isSeen(0));
    pressRealKey(Qt::Key_Home);
    QTRY_VERIFY(isSeen(0));
    QVERIFY(path.button(0)->hasFocus());
    pressRealKey(Qt::Key_End);
    QTRY_VERIFY(isSeen(6) && !isSeen(0));
}

void PathOptionsTest::showsToolTipsOfCutNames_data()
{
    QTest::addColumn<bool>("isEnabled");
    QTest::addColumn<int>("width");
    QTest::addColumn<QString>("tip");
    QTest::newRow("off") << false << 150 << "";
    QTest::newRow("fits") << true << 600 << "";
    QTest::newRow("cut") << true << 150 << "some <b>R&D";
}

void PathOptionsTest::showsToolTipsOfCutNames()
{
    QFETCH(bool, isEnabled);
    QFETCH(int, width);
    QFETCH(QString, tip);
    Path path(width);
    path.bar.setToolTipsEnabled(isEnabled);
    QCOMPARE(path.bar.areToolTipsEnabled(), isEnabled);
    path.bar.refresh("home/projects/some <b>R&D/2026 and more");
    const QPushButton *name = path.button(4);
    QHelpEvent event(QEvent::ToolTip, {5, 5}, name->mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(path.button(4), &event);
    QTextDocument shown;
    shown.setHtml(QToolTip::text());
    QCOMPARE(shown.toPlainText(), tip);
    QToolTip::hideText();
    QTRY_VERIFY(!QToolTip::isVisible());
}

void PathOptionsTest::asksForSiblings_data()
{
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::addColumn<int>("arrow");
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("picked");
    addRow("first arrow", Qt::LeftToRight, 1, QString("home"), QString("home/B & C"));
    addRow("last arrow", Qt::LeftToRight, 5, QString("home/projects/R&D"),
        QString("home/projects/R&D/B & C"));
    addRow("mirrored", Qt::RightToLeft, 1, QString("home"), QString("home/B & C"));
}

void PathOptionsTest::asksForSiblings()
{
    QFETCH(Qt::LayoutDirection, direction);
    QFETCH(int, arrow);
    Path path;
    path.window.setLayoutDirection(direction);
    path.bar.setSiblingMenusEnabled(true);
    QCOMPARE(path.bar.path(), QString(kPath));
    QCOMPARE(path.bar.columnWidth(1), scaled(16));
    QCOMPARE(path.button(1)->styleSheet(), getStyleSheet("component.button_path_menu_arrow"));
    const QString part = path.bar.path().section('/', (arrow + 1) / 2, (arrow + 1) / 2);
    QTest::mouseClick(path.button(arrow), Qt::LeftButton);
    QCOMPARE(path.requests.size(), 1);
    QTEST(path.requests[0][0].toString(), "folder");
    path.bar.showSiblings({"A", "B & C", part});
    QMenu *menu = path.menu();
    QVERIFY(menu);
    QCOMPARE(menu->activeAction(), menu->actions().last());
    QCOMPARE(menu->actions().last()->text(), QString(part).replace("&", "&&"));
    QCOMPARE(textsOf(*menu).mid(0, 2), QStringList({"A", "B && C"}));
    const QPushButton *name = path.button(arrow + 1);
    const QRect below(name->mapToGlobal(QPoint(0, name->height())), QSize(name->width(), 1));
    QCOMPARE(menu->y(), below.y());
    if (direction == Qt::LeftToRight)
        QCOMPARE(menu->x(), below.x());
    else if (below.right() <= path.window.screen()->availableGeometry().right())
        QCOMPARE(menu->geometry().right(), below.right());
    // Otherwise Qt moves the menu onto the screen, which it does differently in Qt 5 and 6.
    menu->actions().at(1)->trigger();
    QTEST(path.lastPath(), "picked");
    menu->hide();
}

void PathOptionsTest::opensTheMenuByKeyboard()
{
    Path path;
    QVERIFY(path.isActive);
    path.bar.setSiblingMenusEnabled(true);
    connect(&path.bar, &VemoButtonPath::siblingsRequested, &path.bar, [&path] {
        path.bar.showSiblings({"etc", "home", "usr"});
    });
    path.button(0)->setFocus(Qt::TabFocusReason);
    pressRealKey(Qt::Key_Down);
    QTRY_VERIFY(path.menu());
    QCOMPARE(path.requests[0][0].toString(), QString());
    QCOMPARE(textsOf(*path.menu()), QStringList({"etc", "home*", "usr"}));
    pressRealKey(Qt::Key_Down);
    QTRY_COMPARE(path.menu()->activeAction(), path.menu()->actions().last());
    pressRealKey(Qt::Key_Return);
    QTRY_COMPARE(path.lastPath(), QString("usr"));
    QTRY_VERIFY(!path.menu());
}

void PathOptionsTest::takesTheNamesLater()
{
    Path path;
    path.bar.showSiblings({"A"}); // nobody asked
    QVERIFY(!path.menu());
    path.bar.setSiblingMenusEnabled(true);
    QTest::mouseClick(path.button(1), Qt::LeftButton);
    path.bar.showSiblings({});
    QVERIFY(!path.menu());
    path.bar.showSiblings({"A"});
    QVERIFY(path.menu());
    path.bar.refresh("usr/share");
    QVERIFY(!path.menu());
    path.bar.showSiblings({"A"}); // of the path before
    QVERIFY(!path.menu());
    path.bar.setSiblingMenusEnabled(false);
    QCOMPARE(path.bar.columnWidth(1), scaled(6));
}

void PathOptionsTest::survivesARefreshByAMenuEntry()
{
    Path path;
    connect(&path.bar, &VemoButtonPath::sigUpdatePath, &path.bar, &VemoButtonPath::slotUpdatePath);
    path.bar.setSiblingMenusEnabled(true);
    for (int time = 0; time < 2; ++time) {
        QTest::mouseClick(path.button(1), Qt::LeftButton);
        path.bar.showSiblings({"A", "B"});
        QTest::keyClick(path.menu(), Qt::Key_Return);
        QCOMPARE(path.bar.path(), QString("home/A"));
        QVERIFY(!path.menu());
    }
}

void PathOptionsTest::arrowsWithMenusAreButtons()
{
    Path path;
    QCOMPARE(QAccessible::queryAccessibleInterface(path.button(1))->role(), QAccessible::Separator);
    path.bar.setSiblingMenusEnabled(true);
    QAccessibleInterface *arrow = QAccessible::queryAccessibleInterface(path.button(3));
    QCOMPARE(arrow->role(), QAccessible::Button);
    QCOMPARE(arrow->text(QAccessible::Name), QString("home/projects/"));
    arrow->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QTRY_COMPARE(path.requests.size(), 1);
}

void PathOptionsTest::typesAPath()
{
    Path path;
    QVERIFY(path.isActive);
    path.bar.setAccessibleName("Folder");
    path.bar.setEditable(true);
    path.after.setFocus();
    pressRealKey(Qt::Key_L, Qt::ControlModifier);
    QTRY_VERIFY(path.bar.isEditing());
    QVERIFY(path.edit()->hasFocus());
    QCOMPARE(path.edit()->text(), QString(kPath));
    QCOMPARE(path.edit()->selectedText(), QString(kPath));
    QCOMPARE(path.edit()->geometry(), path.bar.rect());
    QCOMPARE(path.edit()->accessibleName(), QString("Folder"));
    path.bar.resize(scaled(300), path.bar.height());
    QCOMPARE(path.edit()->geometry(), path.bar.rect());
    path.edit()->setText("/usr//share/");
    pressRealKey(Qt::Key_Return);
    QTRY_COMPARE(path.lastPath(), QString("usr/share"));
    QVERIFY(!path.bar.isEditing());
    QVERIFY(path.after.hasFocus());
    QCOMPARE(path.bar.path(), QString(kPath)); // until the host refreshes it

    path.bar.setEditable(false);
    pressRealKey(Qt::Key_L, Qt::ControlModifier);
    pressRealKey(Qt::Key_A);
    QTRY_COMPARE(path.after.text(), QString("a"));
    QVERIFY(!path.bar.isEditing());
}

void PathOptionsTest::cancelsTyping()
{
    Path path;
    QVERIFY(path.isActive);
    QShortcut cancel(QKeySequence(Qt::Key_Escape), &path.window);
    const QSignalSpy cancelled(&cancel, &QShortcut::activated);
    path.button(2)->setFocus();
    path.bar.editPath();
    path.bar.editPath(); // again
    QVERIFY(path.edit()->hasFocus());
    path.edit()->setText("usr");
    pressRealKey(Qt::Key_Escape);
    QTRY_VERIFY(!path.bar.isEditing());
    QVERIFY(path.button(2)->hasFocus());
    QCOMPARE(cancelled.size(), 0);

    path.bar.editPath();
    pressRealKey(Qt::Key_Tab);
    QTRY_VERIFY(!path.bar.isEditing());
    QVERIFY(!path.edit()->hasFocus());
    QCOMPARE(path.updates.size(), 0);
}

void PathOptionsTest::editsWhereItIsClicked()
{
    Path path;
    path.bar.setEditable(true);
    QTest::mouseClick(path.bar.viewport(), Qt::RightButton, {}, {scaled(590), 5});
    QVERIFY(!path.bar.isEditing());
    QTest::mouseClick(path.bar.viewport(), Qt::LeftButton, {}, {scaled(590), 5});
    QVERIFY(path.bar.isEditing());
    path.bar.setEditable(false);
    QVERIFY(!path.bar.isEditing());
}

void PathOptionsTest::keepsTypingDuringARefresh()
{
    Path path;
    QVERIFY(path.isActive);
    path.button(2)->setFocus();
    path.bar.editPath();
    path.edit()->setText("us");
    path.bar.refresh("other/path");
    QVERIFY(path.bar.isEditing());
    QVERIFY(path.edit()->hasFocus());
    QCOMPARE(path.edit()->text(), QString("us"));
    pressRealKey(Qt::Key_Return);
    QTRY_COMPARE(path.lastPath(), QString("us"));
    QVERIFY(!path.bar.isEditing());
}

void PathOptionsTest::takesDrops()
{
    Path path;
    path.bar.setDropMimeTypes({"text/uri-list"});
    QVERIFY(path.bar.viewport()->acceptDrops());
    QMimeData files;
    files.setUrls({QUrl("file:///tmp/a")});
    QVERIFY(files.hasFormat("text/uri-list"));
    QStringList drops;
    connect(&path.bar, &VemoButtonPath::dropped, &path.bar,
        [&](const QMimeData *data, const QString &folder, Qt::DropAction action) {
            drops << data->urls().first().path() << folder << QString::number(action);
            path.bar.refresh("other/path");
        });
    const QPoint place = path.button(2)->geometry().center();
    QVERIFY(dragTo(path, place, files));
    QVERIFY(path.button(2)->isDown());
    QVERIFY(dragTo(path, path.button(4)->geometry().center(), files));
    QVERIFY(!path.button(2)->isDown());
    QVERIFY(path.button(4)->isDown());
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(path.bar.viewport(), &leave);
    QVERIFY(!path.button(4)->isDown());
    QVERIFY(dragTo(path, place, files));
    QVERIFY(dropAt(path, place, files));
    QCOMPARE(drops, QStringList({"/tmp/a", "home/projects", QString::number(Qt::CopyAction)}));
    QCOMPARE(path.updates.size(), 0);
}

void PathOptionsTest::ignoresOtherDrops_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("column"); // -1 for beside the row
    QTest::newRow("another type") << "text/plain" << 2;
    QTest::newRow("on an arrow") << "text/uri-list" << 1;
    QTest::newRow("beside the row") << "text/uri-list" << -1;
}

void PathOptionsTest::ignoresOtherDrops()
{
    QFETCH(QString, type);
    QFETCH(int, column);
    Path path;
    path.bar.setDropMimeTypes({"text/uri-list"});
    const QSignalSpy drops(&path.bar, &VemoButtonPath::dropped);
    QMimeData data;
    data.setData(type, "file:///tmp/a");
    const QPoint place =
        column < 0 ? QPoint(scaled(590), 5) : path.button(column)->geometry().center();
    QVERIFY(!dragTo(path, place, data));
    QVERIFY(!dropAt(path, place, data));
    QCOMPARE(drops.size(), 0);
}

VEMO_TEST_MAIN(PathOptionsTest)
#include "tst_pathoptions.moc"

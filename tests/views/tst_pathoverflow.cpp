// SPDX-License-Identifier: MIT
#include <vemo/vemobuttonpath.h>

#include "core/scaling_p.h"
#include "support/activewindow.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QTimer>
#include <QToolButton>

namespace {

const char *const kPath = "alpha/beta/gamma/delta/epsilon";

/// A visible bar with a row as wide or narrow as a test needs. It is inside a window, so that a
/// window manager does not control its size.
struct Path
{
    Path()
    {
        bar.resize(2000, bar.height());
        window.show();
        QCoreApplication::processEvents();
        bar.refresh(kPath);
        frame = bar.width() - bar.viewport()->width();
    }
    /// Makes the bar narrower than the row by that many pixels, and shows it again.
    void refreshWithout(int pixels)
    {
        bar.resize(rowWidth() + frame - pixels, bar.height());
        bar.refresh(kPath);
    }
    int rowWidth() const
    {
        int width = 0;
        for (int column = 0; column < bar.columnCount(); ++column)
            width += bar.columnWidth(column);
        return width;
    }
    /// The right edge of a column in the whole row.
    int right(int column) const
    {
        int right = 0;
        for (int c = 0; c <= column; ++c)
            right += bar.columnWidth(c);
        return right;
    }
    QToolButton *folder() const
    {
        return bar.findChild<QToolButton *>(QString(), Qt::FindDirectChildrenOnly);
    }
    QStringList menu() const
    {
        QStringList texts;
        for (const QAction *action : folder()->menu()->actions())
            texts << action->text();
        return texts;
    }

    QWidget window;
    VemoButtonPath bar {&window};
    QSignalSpy updates {&bar, SIGNAL(sigUpdatePath(QString))};
    int frame = 0;
};

} // namespace

class PathOverflowTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void needsNoFolderButtonForARowThatFits();
    void showsTheFolderButtonForOnePixelTooMany();
    void listsThePartsThatAreOutOfSight_data();
    void listsThePartsThatAreOutOfSight();
    void showsTheRightEndOfTheRow();
    void showsTheRightEndAtOnce();
    void showsTheRightEndOnAPageShownLater();
    void keepsAmpersandsOfAPartInTheMenu();
    void asksForThePathOfAMenuEntry();
    void opensItsMenuOnPress();
    void forgetsTheMenuOfTheLastPath();
    void mayBeRefreshedByAMenuEntry();
    void keepsTheFocusAfterAMenuEntry();
    void fitsTheMenuToANewWidth();
    void survivesItsDeletionUnderTheOpenMenu();
};

void PathOverflowTest::needsNoFolderButtonForARowThatFits()
{
    Path path;
    path.refreshWithout(0);
    QCOMPARE(path.bar.viewport()->width(), path.rowWidth());
    QVERIFY(!path.folder()->isVisible());
    QCOMPARE(path.menu(), QStringList());
    QCOMPARE(path.bar.horizontalScrollBar()->value(), 0);
}

void PathOverflowTest::showsTheFolderButtonForOnePixelTooMany()
{
    Path path;
    path.refreshWithout(1);
    QVERIFY(path.folder()->isVisible());
    QCOMPARE(path.menu(), QStringList({"alpha"}));
    QCOMPARE(path.folder()->accessibleName(), QString("alpha"));
    QCOMPARE(path.bar.horizontalScrollBar()->value(), 1);
}

void PathOverflowTest::listsThePartsThatAreOutOfSight_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("moreThanItsRightEdge");
    QTest::addColumn<QStringList>("menu");
    const QStringList one {"alpha"};
    const QStringList two {"alpha", "beta"};
    const QStringList three {"alpha", "beta", "gamma"};
    QTest::newRow("first but for a pixel") << 0 << -1 << one;
    QTest::newRow("all of the first") << 0 << 0 << two;
    QTest::newRow("the first arrow") << 1 << 0 << two;
    QTest::newRow("a pixel of the second") << 1 << 1 << two;
    QTest::newRow("the second but for a pixel") << 2 << -1 << two;
    QTest::newRow("all of the second") << 2 << 0 << three;
    QTest::newRow("part of the second arrow") << 2 << 1 << three;
    QTest::newRow("into the fourth") << 5 << 1 << QStringList {"alpha", "beta", "gamma", "delta"};
}

void PathOverflowTest::listsThePartsThatAreOutOfSight()
{
    QFETCH(int, column);
    QFETCH(int, moreThanItsRightEdge);
    Path path;
    path.refreshWithout(path.right(column) + moreThanItsRightEdge);
    QTEST(path.menu(), "menu");
}

void PathOverflowTest::showsTheRightEndOfTheRow()
{
    Path path;
    path.refreshWithout(path.right(2));
    const QScrollBar *bar = path.bar.horizontalScrollBar();
    QCOMPARE(bar->maximum(), path.right(2));
    QCOMPARE(bar->value(), bar->maximum());
    QCoreApplication::processEvents();
    const QWidget *last = path.bar.cellWidget(0, 8);
    QCOMPARE(last->x() + last->width(), path.bar.viewport()->width());
}

void PathOverflowTest::showsTheRightEndAtOnce()
{
    Path path;
    path.bar.refresh("a");
    path.bar.resize(scaled(100), path.bar.height());
    QCoreApplication::processEvents();
    path.bar.refresh(kPath);
    const int hidden = path.rowWidth() - path.bar.viewport()->width();
    QVERIFY(hidden > 0);
    QCOMPARE(path.bar.horizontalScrollBar()->value(), hidden);
}

void PathOverflowTest::showsTheRightEndOnAPageShownLater()
{
    QWidget window;
    QWidget page(&window);
    page.hide();
    window.show();
    VemoButtonPath bar;
    bar.setParent(&page);
    bar.setFixedWidth(scaled(100));
    bar.refresh(kPath);
    page.show();
    QVERIFY(bar.horizontalScrollBar()->value() > 0);
    const QWidget *last = bar.cellWidget(0, 8);
    QCOMPARE(last->x() + last->width(), bar.viewport()->width());
    QCoreApplication::processEvents();
    QCOMPARE(last->x() + last->width(), bar.viewport()->width());
}

void PathOverflowTest::keepsAmpersandsOfAPartInTheMenu()
{
    Path path;
    path.bar.resize(scaled(60), path.bar.height());
    path.bar.refresh("R&D/some longer name");
    QCOMPARE(path.menu().value(0), QString("R&&D"));
    path.folder()->menu()->actions().first()->trigger();
    QCOMPARE(path.updates.first().first().toString(), QString("R&D"));
}

void PathOverflowTest::asksForThePathOfAMenuEntry()
{
    Path path;
    path.refreshWithout(path.right(4));
    const QStringList expected {"alpha", "alpha/beta", "alpha/beta/gamma"};
    for (int entry = 0; entry < 3; ++entry) {
        path.folder()->menu()->actions().at(entry)->trigger();
        QCOMPARE(path.updates.size(), entry + 1);
        QCOMPARE(path.updates.last().first().toString(), expected.at(entry));
    }
}

void PathOverflowTest::opensItsMenuOnPress()
{
    Path path;
    QVERIFY(showActive(&path.window));
    path.refreshWithout(path.right(2));
    QMenu *menu = path.folder()->menu();
    bool wasVisible = false;
    QTimer::singleShot(0, menu, [&] {
        wasVisible = menu->isVisible();
        QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Return);
    });
    QTest::mousePress(path.folder(), Qt::LeftButton);
    QVERIFY(wasVisible);
    QCOMPARE(path.updates.size(), 1);
    QCOMPARE(path.updates.first().first().toString(), QString("alpha"));
}

void PathOverflowTest::forgetsTheMenuOfTheLastPath()
{
    Path path;
    path.refreshWithout(path.right(2));
    const QPointer<QAction> old = path.folder()->menu()->actions().first();
    path.bar.refresh("a");
    QVERIFY(!old);
    QVERIFY(!path.folder()->isVisible());
    QCOMPARE(path.menu(), QStringList());
}

void PathOverflowTest::mayBeRefreshedByAMenuEntry()
{
    Path path;
    connect(&path.bar, SIGNAL(sigUpdatePath(QString)), &path.bar, SLOT(slotUpdatePath(QString)));
    path.refreshWithout(path.right(2));
    path.folder()->menu()->actions().at(1)->trigger();
    QCOMPARE(path.bar.getPath(99), QString("alpha/beta"));
    QCOMPARE(path.updates.size(), 1);
}

void PathOverflowTest::keepsTheFocusAfterAMenuEntry()
{
    Path path;
    connect(&path.bar, SIGNAL(sigUpdatePath(QString)), &path.bar, SLOT(slotUpdatePath(QString)));
    QVERIFY(showActive(&path.window));
    path.refreshWithout(path.right(2));
    path.folder()->setFocus();
    path.folder()->menu()->actions().at(1)->trigger();
    QCOMPARE(path.bar.path(), QString("alpha/beta"));
    QCOMPARE(QApplication::focusWidget(), path.bar.cellWidget(0, 2));
}

void PathOverflowTest::fitsTheMenuToANewWidth()
{
    Path path;
    path.refreshWithout(0);
    path.bar.resize(path.bar.width() - path.right(2), path.bar.height());
    QVERIFY(path.folder()->isVisible());
    QCOMPARE(path.menu(), QStringList({"alpha", "beta", "gamma"}));
    QCOMPARE(path.bar.horizontalScrollBar()->value(), path.right(2));
    path.bar.resize(path.bar.width() + 1, path.bar.height());
    QCOMPARE(path.menu(), QStringList({"alpha", "beta"}));
    path.bar.resize(path.rowWidth() + path.frame, path.bar.height());
    QVERIFY(!path.folder()->isVisible());
    QCOMPARE(path.menu(), QStringList());
    QCOMPARE(path.updates.size(), 0);
}

void PathOverflowTest::survivesItsDeletionUnderTheOpenMenu()
{
    auto *bar = new VemoButtonPath;
    bar->resize(scaled(60), bar->height());
    bar->show();
    QCoreApplication::processEvents();
    bar->refresh(kPath);
    const QPointer<VemoButtonPath> guard(bar);
    QTimer::singleShot(0, qApp, [bar] { delete bar; });
    bar->findChild<QToolButton *>(QString(), Qt::FindDirectChildrenOnly)->showMenu();
    QVERIFY(!guard);
}

VEMO_TEST_MAIN(PathOverflowTest)
#include "tst_pathoverflow.moc"

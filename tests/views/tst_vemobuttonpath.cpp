// SPDX-License-Identifier: MIT
#include <vemo/vemobuttonpath.h>

#include "core/scaling_p.h"
#include "support/activewindow.h"
#include "support/testhost.h"
#include "support/vemotest.h"
#include "visual/boxfont.h"

#include <vemo/imagemanager.h>
#include <vemo/stylemanager.h>

#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTemporaryFile>
#include <QToolButton>
#include <QtMath>

namespace {

void setStyle(const char *key, const QString &section)
{
    QTemporaryFile file;
    QVERIFY(file.open());
    file.write(QString("== %1 ==\n%2\n").arg(key, section).toUtf8());
    file.close();
    StyleManager::getInstance().initialize({file.fileName()});
}

struct Path
{
    explicit Path(const QString &path = QString())
    {
        bar.resize(2000, bar.height());
        bar.show();
        QCoreApplication::processEvents();
        bar.refresh(path);
    }
    QPushButton *button(int column) const
    {
        return qobject_cast<QPushButton *>(bar.cellWidget(0, column));
    }
    QToolButton *folder() const { return bar.findChild<QToolButton *>(); }
    QStringList texts() const
    {
        QStringList texts;
        for (int column = 0; column < bar.columnCount(); ++column)
            texts << button(column)->text();
        return texts;
    }

    VemoButtonPath bar;
    QSignalSpy updates {&bar, SIGNAL(sigUpdatePath(QString))};
};

} // namespace

class VemoButtonPathTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void startsEmpty();
    void setsUpItsTable();
    void setsUpItsFolderButton();
    void folderButtonLeavesTheFrameAsItIs_data();
    void folderButtonLeavesTheFrameAsItIs();
    void splitsThePathAtSlashes_data();
    void splitsThePathAtSlashes();
    void doublesAmpersandsOnItsButtonsOnly_data();
    void doublesAmpersandsOnItsButtonsOnly();
    void stylesNameButtons();
    void stylesArrowButtons();
    void makesANameAsWideAsItsText_data();
    void makesANameAsWideAsItsText();
    void leavesRoomAroundChineseNames();
    void makesColumnsAsWideAsTheirButtons();
    void putsButtonsSideBySide();
    void asksForThePathOfAClickedName_data();
    void asksForThePathOfAClickedName();
    void keepsSilentAboutArrows();
    void givesThePathUpToAColumn_data();
    void givesThePathUpToAColumn();
    void deletesTheOldButtons();
    void mayBeRefreshedByItsOwnSignal();
    void survivesItsDeletionByItsOwnSignal();
    void takesTheKeyboardFromNameToName();
    void keepsItsPlaceInTheTabOrder();
    void keepsTheFocusWhenRefreshed_data();
    void keepsTheFocusWhenRefreshed();
    void takesNoFocusWhenRefreshed();
    void namesItsArrows();
    void opensNoEditor();
    void holdsLongPaths_data();
    void holdsLongPaths();
};

void VemoButtonPathTest::startsEmpty()
{
    const VemoButtonPath bar;
    QCOMPARE(bar.rowCount(), 1);
    QCOMPARE(bar.columnCount(), 0);
}

void VemoButtonPathTest::setsUpItsTable()
{
    const VemoButtonPath bar;
    QVERIFY(bar.horizontalHeader()->isHidden());
    QVERIFY(bar.verticalHeader()->isHidden());
    QVERIFY(!bar.showGrid());
    QCOMPARE(bar.selectionMode(), QAbstractItemView::NoSelection);
    QCOMPARE(bar.horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    QCOMPARE(bar.horizontalScrollMode(), QAbstractItemView::ScrollPerPixel);
    QCOMPARE(bar.focusPolicy(), Qt::NoFocus);
    QCOMPARE(bar.minimumHeight(), scaled(28));
    QCOMPARE(bar.maximumHeight(), scaled(28));
    QCOMPARE(bar.styleSheet(), getStyleSheet("component.button_path"));
}

void VemoButtonPathTest::setsUpItsFolderButton()
{
    const VemoButtonPath bar;
    const auto *folder = bar.findChild<QToolButton *>(QString(), Qt::FindDirectChildrenOnly);
    QVERIFY(folder->isHidden());
    QCOMPARE(folder->geometry(), QRect(scaled(1), scaled(1), scaled(26), scaled(26)));
    QCOMPARE(folder->minimumSize(), folder->maximumSize());
    QCOMPARE(folder->iconSize(), QSize(20, 20));
    QCOMPARE(folder->popupMode(), QToolButton::InstantPopup);
    QCOMPARE(folder->styleSheet(), getStyleSheet("component.button_path_change_folder_btn"));
    const QPixmap expected = getGlobalImage("folder");
    QCOMPARE(folder->icon().pixmap(expected.size() / expected.devicePixelRatio()).toImage(),
        expected.toImage());
    // Not enlarged.
    const QPixmap shown = folder->icon().pixmap(folder->iconSize());
    QCOMPARE(shown.devicePixelRatio(), expected.devicePixelRatio());
    QVERIFY(!folder->menu()->parent());
    QCOMPARE(folder->menu()->styleSheet(), getStyleSheet("component.menu"));
    QVERIFY(folder->menu()->isEmpty());
}

void VemoButtonPathTest::folderButtonLeavesTheFrameAsItIs_data()
{
    QTest::addColumn<int>("offset");
    // At a fractional pixel ratio the frame's inner edge is between two pixels, or within one.
    for (int offset = 0; offset < 4; ++offset)
        QTest::addRow("%d pixels down", offset) << offset;
}

void VemoButtonPathTest::folderButtonLeavesTheFrameAsItIs()
{
    QFETCH(const int, offset);
    QWidget window;
    window.resize(200, 60);
    auto *bar = new VemoButtonPath(&window);
    bar->setGeometry(0, offset, 200, bar->height());
    window.show();
    bar->refresh("first/second/third/fourth/fifth");
    const auto *folder = bar->findChild<QToolButton *>(QString(), Qt::FindDirectChildrenOnly);
    QVERIFY(folder->isVisible());

    const QImage picture = window.grab().toImage();
    const qreal ratio = picture.devicePixelRatio();
    const int atFolder = qRound(bar->rect().center().x() * 0.1 * ratio);
    const int beside = qRound(bar->width() * 0.9 * ratio);
    for (const int line : {offset, offset + bar->height() - scaled(1)}) {
        for (int y = int(line * ratio); y < qCeil((line + scaled(1)) * ratio); ++y)
            QCOMPARE(picture.pixelColor(atFolder, y), picture.pixelColor(beside, y));
    }
}

void VemoButtonPathTest::splitsThePathAtSlashes_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QStringList>("texts");
    const QStringList abc {"a", "", "b", "", "c"};
    QTest::newRow("three parts") << "a/b/c" << abc;
    QTest::newRow("slashes all over") << "//a///b/c//" << abc;
    QTest::newRow("one part") << "a" << QStringList {"a"};
    QTest::newRow("empty") << "" << QStringList {};
    QTest::newRow("null") << QString() << QStringList {};
    QTest::newRow("slash") << "/" << QStringList {};
    QTest::newRow("slashes") << "////" << QStringList {};
    QTest::newRow("blank") << " / " << QStringList {" ", "", " "};
    QTest::newRow("backslash") << "a\\b" << QStringList {"a\\b"};
    QTest::newRow("quotes") << "\"a\"/'b'" << QStringList {"\"a\"", "", "'b'"};
    const QString hebrew = QString::fromUtf8("שלום");
    const QString combining = QString::fromUtf8("e\xCC\x81");
    QTest::newRow("right to left and combining")
        << hebrew + "/" + combining << QStringList {hebrew, "", combining};
}

void VemoButtonPathTest::splitsThePathAtSlashes()
{
    QFETCH(QString, path);
    const Path bar(path);
    QTEST(bar.texts(), "texts");
    QCOMPARE(bar.bar.rowCount(), 1);
    QVERIFY(!bar.folder()->isVisible());
    QCOMPARE(bar.updates.size(), 0);
}

void VemoButtonPathTest::doublesAmpersandsOnItsButtonsOnly_data()
{
    QTest::addColumn<QString>("part");
    QTest::addColumn<QString>("text");
    addRow("one", "R&D", "R&&D");
    addRow("first", "&a", "&&a");
    addRow("last", "a&", "a&&");
    addRow("two together", "a&&b", "a&&&&b");
    addRow("three together", "&&&", "&&&&&&");
    addRow("none", "ab", "ab");
}

void VemoButtonPathTest::doublesAmpersandsOnItsButtonsOnly()
{
    QFETCH(QString, part);
    Path path("x/" + part);
    QTEST(path.button(2)->text(), "text");
    QVERIFY(path.button(2)->shortcut().isEmpty());
    QCOMPARE(path.bar.getPath(2), "x/" + part);
    QTest::mouseClick(path.button(2), Qt::LeftButton);
    QCOMPARE(path.updates.value(0).value(0).toString(), "x/" + part);
}

void VemoButtonPathTest::stylesNameButtons()
{
    const Path path("a/b");
    for (const int column : {0, 2}) {
        const QPushButton *name = path.button(column);
        QVERIFY(name->isFlat());
        QVERIFY(name->icon().isNull());
        QCOMPARE(name->styleSheet(), getStyleSheet("component.button_path_name_button"));
        QCOMPARE(name->height(), scaled(26));
        QCOMPARE(name->minimumSize(), name->maximumSize());
    }
}

void VemoButtonPathTest::stylesArrowButtons()
{
    const Path path("a/b");
    const QPushButton *arrow = path.button(1);
    QVERIFY(arrow->isFlat());
    QVERIFY(arrow->text().isEmpty());
    QCOMPARE(arrow->styleSheet(), getStyleSheet("component.button_path_arrow"));
    QCOMPARE(arrow->size(), QSize(scaled(6), scaled(28)));
    QCOMPARE(arrow->minimumSize(), arrow->maximumSize());
    const QPixmap expected = getGlobalImage("bt_next");
    QCOMPARE(arrow->iconSize(), expected.size() / expected.devicePixelRatio());
    QCOMPARE(arrow->icon().pixmap(expected.size() / expected.devicePixelRatio()).toImage(),
        expected.toImage());
}

void VemoButtonPathTest::makesANameAsWideAsItsText_data()
{
    QTest::addColumn<QString>("part");
    QTest::addColumn<QVector<int>>("widths"); // at 96, 120 and 144 dpi
    addRow("one letter", "i", QVector<int> {26, 36, 48});
    addRow("words", "My Documents 2026", QVector<int> {218, 336, 480});
    addRow("an ampersand", "My & Co", QVector<int> {98, 148, 210});
    addRow("German", QString::fromUtf8("Änderungsübersicht"), QVector<int> {230, 355, 507});
}

void VemoButtonPathTest::makesANameAsWideAsItsText()
{
    QFETCH(QString, part);
    QFETCH(QVector<int>, widths);
    const char *key = "component.button_path_name_button";
    const QString themeStyle = getStyleSheet(key, true);
    // Each character is 12, 15 or 18 pixels wide, with a margin of 1 pixel at either end of the
    // text. In real windows on Windows, Qt counts the first one as part of the text.
    setStyle(key, QString("QPushButton { font: 20px '%1'; }").arg(boxFont().family()));
    Path path(part);
    setStyle(key, themeStyle);
    QCOMPARE(path.button(0)->font().pixelSize(), scaled(20));
    const int factor = QVector<double>({1.0, 1.25, 1.5}).indexOf(DPIinfo::getInstance().getDPI());
    const int margin = QGuiApplication::platformName() == "windows" ? 1 : 0;
    QCOMPARE(path.button(0)->width(), widths.at(factor) + margin);
    path.bar.refresh(part);
    QVERIFY(path.button(0)->width() < widths.at(factor));
}

void VemoButtonPathTest::leavesRoomAroundChineseNames()
{
    const QString name = QString::fromUtf8("资料夹");
    const Path path(name);
    const QRect text = path.button(0)->fontMetrics().boundingRect(name);
    QVERIFY(path.button(0)->width() >= text.width() + scaled(16));
}

void VemoButtonPathTest::makesColumnsAsWideAsTheirButtons()
{
    const Path path("a/My Documents/c");
    for (int column = 0; column < 5; ++column)
        QCOMPARE(path.bar.columnWidth(column), path.button(column)->width());
}

void VemoButtonPathTest::putsButtonsSideBySide()
{
    const Path path("a/My Documents/c");
    QCoreApplication::processEvents();
    int left = 0;
    for (int column = 0; column < 5; ++column) {
        QCOMPARE(path.button(column)->x(), left);
        left += path.button(column)->width();
    }
}

void VemoButtonPathTest::asksForThePathOfAClickedName_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("path");
    QTest::newRow("first") << 0 << "a";
    QTest::newRow("second") << 2 << "a/b";
    QTest::newRow("last") << 4 << "a/b/c";
}

void VemoButtonPathTest::asksForThePathOfAClickedName()
{
    QFETCH(int, column);
    const Path path("/a/b/c");
    QTest::mouseClick(path.button(column), Qt::LeftButton);
    QCOMPARE(path.updates.size(), 1);
    QTEST(path.updates.first().first().toString(), "path");
}

void VemoButtonPathTest::keepsSilentAboutArrows()
{
    const Path path("a/b");
    QTest::mouseClick(path.button(1), Qt::LeftButton);
    QCOMPARE(path.updates.size(), 0);
}

void VemoButtonPathTest::givesThePathUpToAColumn_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("path");
    QTest::newRow("name") << 2 << "a/b";
    QTest::newRow("arrow") << 1 << "a/";
    QTest::newRow("below the first") << -1 << "";
    QTest::newRow("beyond the last") << 99 << "a/b/c";
}

void VemoButtonPathTest::givesThePathUpToAColumn()
{
    QFETCH(int, column);
    Path path("a/b/c");
    QTEST(path.bar.getPath(column), "path");
    path.bar.slotPathBarClicked(column);
    QCOMPARE(path.updates.size(), 1);
    QTEST(path.updates.first().first().toString(), "path");
}

void VemoButtonPathTest::deletesTheOldButtons()
{
    Path path("a/b/c");
    const QPointer<QPushButton> old = path.button(2);
    path.bar.slotUpdatePath("d/e");
    QVERIFY(!old);
    QCOMPARE(path.texts(), QStringList({"d", "", "e"}));
    QCOMPARE(path.bar.findChildren<QPushButton *>().size(), 3);
    QTest::mouseClick(path.button(2), Qt::LeftButton);
    QCOMPARE(path.updates.size(), 1);
    QCOMPARE(path.updates.first().first().toString(), QString("d/e"));
    path.bar.refresh(QString());
    QCOMPARE(path.bar.findChildren<QPushButton *>().size(), 0);
}

void VemoButtonPathTest::mayBeRefreshedByItsOwnSignal()
{
    Path path("a/b/c");
    connect(&path.bar, SIGNAL(sigUpdatePath(QString)), &path.bar, SLOT(slotUpdatePath(QString)));
    QTest::mouseClick(path.button(2), Qt::LeftButton);
    QCOMPARE(path.texts(), QStringList({"a", "", "b"}));
    path.button(0)->click();
    QCOMPARE(path.texts(), QStringList({"a"}));
    path.bar.refresh("a/b");
    QTest::keyClick(path.button(0), Qt::Key_Space);
    QCOMPARE(path.texts(), QStringList({"a"}));
    QCOMPARE(path.updates.size(), 3);
}

void VemoButtonPathTest::survivesItsDeletionByItsOwnSignal()
{
    auto *bar = new VemoButtonPath;
    bar->refresh("a/b");
    bar->show();
    connect(bar, SIGNAL(sigUpdatePath(QString)), bar, SLOT(deleteLater()));
    const QPointer<VemoButtonPath> guard(bar);
    QTest::mouseClick(bar->cellWidget(0, 0), Qt::LeftButton);
    QTRY_VERIFY(!guard);
}

void VemoButtonPathTest::takesTheKeyboardFromNameToName()
{
    Path path("a/b");
    QVERIFY(QTest::qWaitForWindowExposed(&path.bar));
    QApplication::setActiveWindow(path.bar.window());
    path.button(0)->setFocus();
    QTest::keyClick(path.bar.window()->windowHandle(), Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), path.button(2));
    QTest::keyClick(path.bar.window()->windowHandle(), Qt::Key_Backtab);
    QCOMPARE(QApplication::focusWidget(), path.button(0));
}

void VemoButtonPathTest::keepsItsPlaceInTheTabOrder()
{
    QWidget window;
    QLineEdit before(&window);
    VemoButtonPath bar(&window);
    QLineEdit after(&window);
    bar.refresh("a");
    bar.refresh("b/c");
    window.show();
    QApplication::setActiveWindow(&window);
    before.setFocus();
    for (QWidget *next :
        {bar.cellWidget(0, 0), bar.cellWidget(0, 2), static_cast<QWidget *>(&after)}) {
        QTest::keyClick(window.windowHandle(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), next);
    }
}

void VemoButtonPathTest::keepsTheFocusWhenRefreshed_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("focused"); // the field after the bar, if there is no name
    QTest::newRow("first") << 0 << "a" << 0;
    QTest::newRow("middle") << 2 << "a/b" << 2;
    QTest::newRow("to a deeper path") << 4 << "a/b/c/d" << 6;
    QTest::newRow("to an empty path") << 2 << "" << -1;
}

void VemoButtonPathTest::keepsTheFocusWhenRefreshed()
{
    QFETCH(int, column);
    QFETCH(QString, path);
    QFETCH(int, focused);
    QWidget window;
    VemoButtonPath bar(&window);
    QLineEdit after(&window);
    bar.resize(500, bar.height());
    window.show();
    bar.refresh("a/b/c");
    connect(&bar, &VemoButtonPath::sigUpdatePath, &bar, [&] { bar.refresh(path); });
    QVERIFY(showActive(&window));
    auto *name = static_cast<QPushButton *>(bar.cellWidget(0, column));
    name->setFocus();
    QTRY_COMPARE(QApplication::focusWidget(), name);
    name->click();
    QCOMPARE(bar.path(), path);
    QTRY_COMPARE(QApplication::focusWidget(), focused < 0 ? &after : bar.cellWidget(0, focused));
}

void VemoButtonPathTest::takesNoFocusWhenRefreshed()
{
    QWidget window;
    VemoButtonPath bar(&window);
    QLineEdit after(&window);
    window.show();
    bar.refresh("a/b");
    QVERIFY(showActive(&window));
    after.setFocus();
    bar.refresh("a/b/c");
    QCOMPARE(QApplication::focusWidget(), &after);
}

void VemoButtonPathTest::namesItsArrows()
{
    const Path path("a/b");
    QCOMPARE(path.button(1)->accessibleName(), QString("/"));
}

void VemoButtonPathTest::opensNoEditor()
{
    Path path("a");
    const QPoint belowTheButton(2, path.bar.viewport()->height() - 1);
    QTest::mouseDClick(path.bar.viewport(), Qt::LeftButton, {}, belowTheButton);
    QVERIFY(path.bar.findChildren<QLineEdit *>().isEmpty());
}

void VemoButtonPathTest::holdsLongPaths_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("columns");
    QStringList parts;
    for (int part = 0; part < 500; ++part)
        parts << QString::number(part);
    QTest::newRow("500 parts") << parts.join('/') << 999;
    QTest::newRow("4096 characters in one part") << QString(4096, 'm') << 1;
    QTest::newRow("4096 characters in two") << QString(2047, 'm') + "/" + QString(2048, 'm') << 3;
    QTest::newRow("4096 slashes") << QString(4096, '/') << 0;
}

void VemoButtonPathTest::holdsLongPaths()
{
    QFETCH(QString, path);
    QFETCH(int, columns);
    Path bar(path);
    QCOMPARE(bar.bar.columnCount(), columns);
    if (columns > 0) {
        QCOMPARE(bar.bar.getPath(columns - 1), path);
        QVERIFY(!bar.folder()->menu()->isEmpty());
    }
    QVERIFY(!bar.bar.grab().isNull());
}

VEMO_TEST_MAIN(VemoButtonPathTest)
#include "tst_vemobuttonpath.moc"

// SPDX-License-Identifier: MIT
#include <vemo/defaulttheme.h>

#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/stylemanager.h>
#include <vemo/uipathmanager.h>
#include <vemo/vemobutton.h>
#include <vemo/vemobuttonpath.h>
#include <vemo/vemocalanderview.h>
#include <vemo/vemocombobox.h>
#include <vemo/vemoiconbutton.h>
#include <vemo/vemomask.h>
#include <vemo/vemomessagesheet.h>
#include <vemo/vemotreewidget.h>

#include <QCalendarWidget>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QSpinBox>
#include <QTextCharFormat>

namespace {

constexpr auto kLight = DefaultThemeMode::Light;
constexpr auto kDark = DefaultThemeMode::Dark;
constexpr auto kSystem = DefaultThemeMode::System;

QImage imageOf(const QIcon &icon)
{
    return icon.pixmap(64).toImage();
}

QImage pictureOf(const char *name, ImageManager::ImageType type = ImageManager::NORMAL)
{
    return getGlobalImage(name, type).toImage();
}

/// A palette as a desktop would set it.
QPalette desktopPalette(const QColor &window, const QColor &text)
{
    QPalette palette;
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::WindowText, text);
    return palette;
}

/// Starts the theme dark, and reports on it.
int startDark(const QString &)
{
    const QTemporaryDir folder;
    const bool isDark = setDefaultThemeMode(kDark)
        && installDefaultTheme(folder.path(), "enu", ImageManager::LAZY_LOAD);
    const QString report =
        QString("<%1|%2|%3>")
            .arg(isDark)
            .arg(UIPathManager::getInstance().getPath("resource_path"))
            .arg(VemoButton("x", VemoButton::CANCEL).styleSheet().contains("#1B222A"));
    std::fputs(qPrintable(report), stderr);
    return 0;
}

/// Deletes another widget when its style changes.
struct Rival : QWidget
{
    using QWidget::QWidget;
    bool event(QEvent *event) override
    {
        if (event->type() == QEvent::StyleChange)
            delete other;
        return QWidget::event(event);
    }

    QPointer<QWidget> other;
};

} // namespace

class ThemeModeTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void cleanup();
    void itStartsInTheModeThatWasSetBefore();
    void theModeIsKnown();
    void coloursAreThoseOfTheLook();
    void thePaletteFollowsOnlyWhereItIsOurs();
    void backInLightEveryRoleIsAsBefore();
    void sectionsOfTheHostAreLoadedAfterThoseOfTheTheme();
    void sheetsWithColoursForNamesFollow();
    void widgetsMayDieWhileSheetsFollow();
    void anIconButtonFollowsInItsState();
    void picturesOfTheHostsOwnStay();
    void aPathFollows();
    void aComboBoxFollowsWithItsBorder();
    void aTreeFollows();
    void aCalendarFollows();
    void aMessageFollows();
    void aMaskFollowsUnlessItsShadeIsTheHosts();
    void stockWidgetsFollow();
    void theDesktopIsFollowed_data();
    void theDesktopIsFollowed();
    void theDesktopIsNotFollowedUnlessAskedFor();
    void aNoticeOfTheDesktopKeepsThePalette();
};

void ThemeModeTest::cleanup()
{
    qApp->setStyleSheet({});
    QApplication::setPalette(defaultThemePalette());
    setDefaultThemeMode(kLight);
    VemoTest::cleanup();
}

void ThemeModeTest::itStartsInTheModeThatWasSetBefore()
{
    const ChildResult child = runChild("dark");
    QVERIFY2(child.errorOutput.contains("<1|:/vemo/theme-dark|1>"), qPrintable(child.errorOutput));
}

void ThemeModeTest::theModeIsKnown()
{
    QCOMPARE(defaultThemeMode(), kLight);
    QVERIFY(!isDefaultThemeDark());
    QVERIFY(setDefaultThemeMode(kDark));
    QCOMPARE(defaultThemeMode(), kDark);
    QVERIFY(isDefaultThemeDark());
    QVERIFY(setDefaultThemeMode(kSystem));
    QCOMPARE(defaultThemeMode(), kSystem);
    QVERIFY(!isDefaultThemeDark());
}

void ThemeModeTest::coloursAreThoseOfTheLook()
{
    const QColor light = defaultThemeColor("surface");
    setDefaultThemeMode(kDark);
    QCOMPARE(defaultThemeColor("surface"), QColor(0x1B222A));
    QCOMPARE(withDefaultThemeColors("@surface@"), QString("#1b222a"));
    setDefaultThemeMode(kLight);
    QCOMPARE(defaultThemeColor("surface"), light);
}

void ThemeModeTest::thePaletteFollowsOnlyWhereItIsOurs()
{
    setDefaultThemeMode(kDark);
    QCOMPARE(QApplication::palette().color(QPalette::Window), defaultThemeColor("canvas"));
    QCOMPARE(QApplication::palette().color(QPalette::Text), defaultThemeColor("ink"));
    QApplication::setPalette(desktopPalette(Qt::red, Qt::black));
    setDefaultThemeMode(kLight);
    QCOMPARE(QApplication::palette().color(QPalette::Window), QColor(Qt::red));
}

void ThemeModeTest::backInLightEveryRoleIsAsBefore()
{
    const QPalette before = QApplication::palette();
    setDefaultThemeMode(kDark);
    QVERIFY(QApplication::palette() != before);
    setDefaultThemeMode(kLight);
    for (int role = 0; role < QPalette::NColorRoles; ++role) {
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
            QCOMPARE(QApplication::palette().color(group, QPalette::ColorRole(role)),
                before.color(group, QPalette::ColorRole(role)));
    }
}

void ThemeModeTest::sectionsOfTheHostAreLoadedAfterThoseOfTheTheme()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("own.qss"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(
        "== component.label ==\nQLabel { color: red; }\n== own ==\nQLabel { color: blue; }\n");
    file.close();
    QLabel label;
    label.setStyleSheet(getStyleSheet("component.label"));
    setDefaultThemeMode(kDark, {file.fileName()});
    QCOMPARE(getStyleSheet("own"), QString("\nQLabel { color: blue; }\n"));
    QCOMPARE(label.styleSheet().trimmed(), QString("QLabel { color: red; }"));
}

void ThemeModeTest::sheetsWithColoursForNamesFollow()
{
    QLabel label;
    label.setStyleSheet("QMenu {}" + withDefaultThemeColors("QLabel { color: @ink@; }"));
    setDefaultThemeMode(kDark);
    QCOMPARE(label.styleSheet(), QString("QMenu {}QLabel { color: #e4e9ef; }"));
    setDefaultThemeMode(kLight);
    QCOMPARE(label.styleSheet(), QString("QMenu {}QLabel { color: #1f2933; }"));
}

void ThemeModeTest::widgetsMayDieWhileSheetsFollow()
{
    QWidget window;
    constexpr int kPairs = 16;
    for (int i = 0; i < kPairs; ++i) {
        auto *one = new Rival(&window);
        auto *two = new Rival(&window);
        for (Rival *rival : {one, two})
            rival->setStyleSheet(withDefaultThemeColors("QWidget { color: @ink@; }"));
        one->other = two;
        two->other = one;
    }
    window.show();
    setDefaultThemeMode(kDark);
    QCOMPARE(window.findChildren<QWidget *>().size(), kPairs);
}

void ThemeModeTest::anIconButtonFollowsInItsState()
{
    VemoIconButton resting("bt_add");
    VemoIconButton hovered("bt_add");
    VemoIconButton disabled("bt_add");
    hovered.applyHoverStyle();
    disabled.setEnabled(false);
    const QImage light = pictureOf("bt_add");
    setDefaultThemeMode(kDark);
    QVERIFY(pictureOf("bt_add") != light);
    QCOMPARE(imageOf(resting.icon()), pictureOf("bt_add"));
    QCOMPARE(imageOf(hovered.icon()), pictureOf("bt_add", ImageManager::HOVER));
    QCOMPARE(imageOf(disabled.icon()), pictureOf("bt_add", ImageManager::DISABLE));
    resting.applyHoverStyle();
    QCOMPARE(imageOf(resting.icon()), pictureOf("bt_add", ImageManager::HOVER));
}

void ThemeModeTest::picturesOfTheHostsOwnStay()
{
    VemoIconButton button(getGlobalImage("bt_add"));
    VemoIconButton mixed("bt_add");
    mixed.setHoverIcon(getGlobalImage("folder"));
    const QImage picture = pictureOf("bt_add");
    setDefaultThemeMode(kDark);
    QCOMPARE(imageOf(button.icon()), picture);
    QCOMPARE(imageOf(mixed.icon()), picture);
}

void ThemeModeTest::aPathFollows()
{
    VemoButtonPath path;
    path.setPath("a/b");
    setDefaultThemeMode(kDark);
    const QList<QPushButton *> buttons = path.findChildren<QPushButton *>();
    QCOMPARE(buttons.size(), 3);
    VemoButtonPath fresh;
    fresh.setPath("a/b");
    const QList<QPushButton *> expected = fresh.findChildren<QPushButton *>();
    for (int i = 0; i < buttons.size(); ++i) {
        QCOMPARE(buttons[i]->styleSheet(), expected[i]->styleSheet());
        QCOMPARE(imageOf(buttons[i]->icon()), imageOf(expected[i]->icon()));
    }
    QCOMPARE(imageOf(path.findChild<QToolButton *>()->icon()),
        imageOf(fresh.findChild<QToolButton *>()->icon()));
}

void ThemeModeTest::aComboBoxFollowsWithItsBorder()
{
    VemoComboBox box;
    QVERIFY(box.styleSheet().contains("border: 1px solid #C8D2DC;"));
    box.setStyleSheet(box.styleSheet() + "QMenu {}");
    setDefaultThemeMode(kDark);
    QCOMPARE(box.styleSheet(), VemoComboBox().styleSheet() + "QMenu {}");
    QVERIFY(!box.styleSheet().contains("#C8D2DC"));
}

void ThemeModeTest::aTreeFollows()
{
    VemoTreeWidget tree;
    tree.setBackgroundColor(defaultThemeColor("selection"), Qt::red);
    auto *item = new QTreeWidgetItem(&tree);
    item->setIcon(0, getGlobalIcon("folder"));
    setDefaultThemeMode(kDark);
    QCOMPARE(tree.selectedColor(), defaultThemeColor("selection"));
    QCOMPARE(tree.hoverColor(), QColor(Qt::red)); // the host's own
    QCOMPARE(imageOf(item->icon(0)), pictureOf("folder"));
}

void ThemeModeTest::aCalendarFollows()
{
    VemoCalanderView view(nullptr);
    auto *calendar = view.findChild<QCalendarWidget *>();
    QTextCharFormat own;
    own.setForeground(Qt::red);
    setDefaultThemeMode(kDark);
    QCOMPARE(
        calendar->weekdayTextFormat(Qt::Sunday).foreground().color(), defaultThemeColor("ink"));
    QCOMPARE(imageOf(view.findChild<QToolButton *>("qt_calendar_nextmonth")->icon()),
        pictureOf("bt_pagebar_nextend"));
    calendar->setWeekdayTextFormat(Qt::Saturday, own);
    setDefaultThemeMode(kLight);
    QCOMPARE(calendar->weekdayTextFormat(Qt::Saturday).foreground().color(), QColor(Qt::red));
}

void ThemeModeTest::aMessageFollows()
{
    QWidget window;
    auto *sheet = new VemoMessageSheet(VemoMessageSheet::Warning, "Text", &window);
    auto *own = new VemoMessageSheet(VemoMessageSheet::Warning, "Text", &window);
    own->setIcon(getGlobalImage("folder"));
    const QImage folder = pictureOf("folder");
    setDefaultThemeMode(kDark);
    const auto shownIn = [](VemoMessageSheet *sheet) {
        for (QLabel *label : sheet->findChildren<QLabel *>()) {
            const QPixmap picture = label->pixmap(Qt::ReturnByValue);
            if (!picture.isNull())
                return picture.toImage();
        }
        return QImage();
    };
    QCOMPARE(shownIn(sheet), pictureOf("icon_warning"));
    QCOMPARE(shownIn(own), folder);
    QCOMPARE(sheet->button(QMessageBox::Ok)->styleSheet(), getStyleSheet("component.apply_button"));
}

void ThemeModeTest::aMaskFollowsUnlessItsShadeIsTheHosts()
{
    QWidget window;
    const auto colourAfter = [&](const QColor &colour) {
        setDefaultThemeMode(kLight);
        auto *sheet = new VemoMessageSheet(VemoMessageSheet::Warning, "Text", &window);
        VemoMask::createMask(sheet, &window, colour);
        setDefaultThemeMode(kDark);
        return sheet->parentWidget()->palette().color(QPalette::Window);
    };
    const QColor followed = colourAfter(QColor(0, 0, 0, 20));
    QCOMPARE(followed, StyleManager::getInstance().getColor("mask", {}));
    QCOMPARE(colourAfter(QColor(0, 0, 9, 20)), QColor(0, 0, 9, 20));
}

void ThemeModeTest::stockWidgetsFollow()
{
    applyDefaultThemeStyle(*qApp);
    QSpinBox box;
    QLineEdit edit;
    box.show();
    edit.show();
    setDefaultThemeMode(kDark);
    QCOMPARE(pixelAt(&box, {8, box.height() / 2}), defaultThemeColor("surface"));
    QCOMPARE(pixelAt(&edit, {edit.width() - 8, 8}), defaultThemeColor("surface"));
    QCOMPARE(edit.palette().color(QPalette::Text), defaultThemeColor("ink"));
}

void ThemeModeTest::theDesktopIsFollowed_data()
{
    QTest::addColumn<bool>("hasPalette");
    QTest::newRow("with our palette") << true;
    QTest::newRow("with that of the desktop") << false;
}

void ThemeModeTest::theDesktopIsFollowed()
{
    QFETCH(bool, hasPalette);
    if (!hasPalette)
        QApplication::setPalette(desktopPalette(Qt::white, Qt::black));
    setDefaultThemeMode(kSystem);
    QVERIFY(!isDefaultThemeDark());
    QApplication::setPalette(desktopPalette(Qt::black, Qt::white));
    QTRY_VERIFY(isDefaultThemeDark());
    QCOMPARE(QApplication::palette().color(QPalette::Window),
        hasPalette ? defaultThemeColor("canvas") : QColor(Qt::black));
    QApplication::setPalette(desktopPalette(Qt::white, Qt::black));
    QTRY_VERIFY(!isDefaultThemeDark());
}

void ThemeModeTest::theDesktopIsNotFollowedUnlessAskedFor()
{
    setDefaultThemeMode(kSystem);
    setDefaultThemeMode(kLight);
    QApplication::setPalette(desktopPalette(Qt::black, Qt::white));
    QCoreApplication::processEvents();
    QVERIFY(!isDefaultThemeDark());
}

void ThemeModeTest::aNoticeOfTheDesktopKeepsThePalette()
{
    setDefaultThemeMode(kSystem);
    const QPalette before = QApplication::palette();
    QWidget window;
    QEvent notice(QEvent::ThemeChange);
    QCoreApplication::sendEvent(&window, &notice);
    QCoreApplication::processEvents();
    QVERIFY(!isDefaultThemeDark());
    QCOMPARE(QApplication::palette(), before);
}

VEMO_TEST_MAIN_WITH_CHILD(ThemeModeTest, startDark)
#include "tst_thememode.moc"

// SPDX-License-Identifier: MIT
#include <vemo/vemopagingbar.h>

#include "support/activewindow.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/imagemanager.h>
#include <vemo/vemobutton.h>
#include <vemo/vemoiconbutton.h>
#include <vemo/vemopagingmodel.h>

#include <QAccessible>

namespace {

/// A shown bar of seven pages.
struct Paging
{
    Paging()
    {
        bar.setItemCount(70);
        bar.resize(600, bar.height());
        bar.show();
    }
    QList<VemoButton *> pages() const { return bar.findChildren<VemoButton *>(); }
    VemoIconButton *navigation(const QString &toolTip) const
    {
        for (VemoIconButton *button : bar.findChildren<VemoIconButton *>()) {
            if (button->toolTip() == toolTip)
                return button;
        }
        return nullptr;
    }
    QAccessibleInterface *spoken(int slot) const
    {
        return QAccessible::queryAccessibleInterface(pages().at(slot));
    }

    VemoPagingModel model {10, nullptr};
    VemoPagingBar bar {&model, nullptr};
};

QImage shown(const QIcon &icon, QIcon::Mode mode, const QSize &size)
{
    return icon.pixmap(size, mode).toImage().convertToFormat(QImage::Format_ARGB32);
}

QImage picture(const char *name, ImageManager::ImageType type)
{
    return getGlobalImage(name, type).toImage().convertToFormat(QImage::Format_ARGB32);
}

} // namespace

/// The paging bar for the keyboard, for screen readers and in right-to-left layouts.
class PagingAccessTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void reportsTheCurrentPage();
    void hidesBlankButtonsFromScreenReaders();
    void pressesAPageForAScreenReader();
    void drawsNothingOfABlankButton();
    void keepsTheFocusOnThePage();
    void mirrorsItsArrows_data();
    void mirrorsItsArrows();
};

void PagingAccessTest::reportsTheCurrentPage()
{
    Paging paging;
    paging.pages().at(3)->click();
    for (int slot = 0; slot < 5; ++slot) {
        QVERIFY(paging.spoken(slot)->state().checkable);
        QCOMPARE(bool(paging.spoken(slot)->state().checked), slot == 2);
    }
    QCOMPARE(paging.spoken(2)->text(QAccessible::Name), QString("2"));
    QCOMPARE(paging.spoken(2)->role(), QAccessible::Button);
}

void PagingAccessTest::hidesBlankButtonsFromScreenReaders()
{
    const Paging paging;
    QCOMPARE(paging.pages().at(0)->text(), QString(" "));
    QVERIFY(paging.spoken(0)->state().invisible);
    QCOMPARE(paging.spoken(0)->text(QAccessible::Name), QString());
    QVERIFY(!paging.spoken(2)->state().invisible);
    QVERIFY(!paging.spoken(3)->state().invisible);
}

void PagingAccessTest::pressesAPageForAScreenReader()
{
    const Paging paging;
    QAccessibleActionInterface *actions = paging.spoken(4)->actionInterface();
    QVERIFY(actions->actionNames().contains(QAccessibleActionInterface::pressAction()));
    actions->doAction(QAccessibleActionInterface::pressAction());
    QCOMPARE(paging.model.nowPage(), 3);
}

void PagingAccessTest::drawsNothingOfABlankButton()
{
    Paging paging;
    paging.model.setNowPage(9);
    paging.bar.setItemCount(30);
    const VemoButton *middle = paging.pages().at(2);
    QCOMPARE(middle->text(), QString(" "));
    const QImage picture = paging.bar.grab().toImage();
    const QPoint centre = middle->mapTo(&paging.bar, middle->rect().center());
    const QPoint ground = centre + QPoint(middle->width(), 0);
    QCOMPARE(picture.pixelColor(centre), picture.pixelColor(ground));
}

void PagingAccessTest::keepsTheFocusOnThePage()
{
    Paging paging;
    QVERIFY(showActive(&paging.bar));
    paging.pages().at(4)->setFocus();
    QTest::keyClick(paging.bar.windowHandle(), Qt::Key_Space);
    QCOMPARE(paging.model.nowPage(), 3);
    QCOMPARE(QApplication::focusWidget(), paging.pages().at(2));
    QCOMPARE(paging.pages().at(2)->text(), QString("3"));
}

void PagingAccessTest::mirrorsItsArrows_data()
{
    QTest::addColumn<QString>("toolTip");
    QTest::addColumn<QByteArray>("leftToRight");
    QTest::addColumn<QByteArray>("rightToLeft");
    QTest::newRow("first") << "First page" << QByteArray("bt_pagebar_backend")
                           << QByteArray("bt_pagebar_nextend");
    QTest::newRow("last") << "Last page" << QByteArray("bt_pagebar_nextend")
                          << QByteArray("bt_pagebar_backend");
    QTest::newRow("back") << "Previous 5 pages" << QByteArray("bt_pagebar_back")
                          << QByteArray("bt_pagebar_next");
    QTest::newRow("on") << "Next 5 pages" << QByteArray("bt_pagebar_next")
                        << QByteArray("bt_pagebar_back");
}

void PagingAccessTest::mirrorsItsArrows()
{
    QFETCH(QString, toolTip);
    QFETCH(QByteArray, leftToRight);
    QFETCH(QByteArray, rightToLeft);
    const auto isShown = [](const VemoIconButton *button, const QByteArray &name) {
        const bool isEnabled = button->isEnabled();
        const QImage found =
            shown(button->icon(), isEnabled ? QIcon::Normal : QIcon::Disabled, button->iconSize());
        return found == picture(name, isEnabled ? ImageManager::NORMAL : ImageManager::DISABLE);
    };
    Paging paging; // on page 1: two of the buttons are disabled
    const VemoIconButton *button = paging.navigation(toolTip);
    QVERIFY(isShown(button, leftToRight));
    paging.bar.setLayoutDirection(Qt::RightToLeft);
    QVERIFY(isShown(button, rightToLeft));
    paging.bar.setLayoutDirection(Qt::LeftToRight);
    QVERIFY(isShown(button, leftToRight));
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    const Paging other;
    const bool isMirrored = isShown(other.navigation(toolTip), rightToLeft);
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
    QVERIFY(isMirrored);
}

VEMO_TEST_MAIN(PagingAccessTest)
#include "tst_pagingaccess.moc"

// SPDX-License-Identifier: MIT
#include <vemo/vemopagingbar.h>

#include "core/scaling_p.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/componentstrings.h>
#include <vemo/imagemanager.h>
#include <vemo/stylemanager.h>
#include <vemo/vemobutton.h>
#include <vemo/vemoiconbutton.h>
#include <vemo/vemopagingmodel.h>

#include <QBoxLayout>
#include <QLabel>

#include <limits>

namespace {

constexpr int kLowest = std::numeric_limits<int>::min();
constexpr int kHighest = std::numeric_limits<int>::max();

/// A bar with its own model, and its parts, found by their accessible names.
struct Paging
{
    VemoPagingModel model {10, nullptr};
    VemoPagingBar bar {&model, nullptr};
    QSignalSpy changes {&bar, SIGNAL(sigPageChanged())};

    QWidget *border() const { return bar.findChild<QWidget *>("PAGINGBARBORDER"); }
    QBoxLayout *row() const { return static_cast<QBoxLayout *>(border()->layout()); }
    QBoxLayout *footer() const
    {
        return static_cast<QBoxLayout *>(row()->itemAt(row()->count() - 1)->layout());
    }
    QList<VemoButton *> pages() const { return bar.findChildren<VemoButton *>(); }
    VemoIconButton *navigation(const char *key) const
    {
        for (VemoIconButton *button : bar.findChildren<VemoIconButton *>()) {
            if (button->toolTip() == ComponentStrings::getInstance().getString(key))
                return button;
        }
        return nullptr;
    }
    VemoIconButton *refresh() const
    {
        return static_cast<VemoIconButton *>(footer()->itemAt(0)->widget());
    }
    QStringList texts() const
    {
        QStringList texts;
        for (const VemoButton *button : pages())
            texts << button->text();
        return texts;
    }
    QList<bool> enabledNavigation() const
    {
        return {navigation("first_page")->isEnabled(), navigation("prev_5_pages")->isEnabled(),
            navigation("next_5_pages")->isEnabled(), navigation("last_page")->isEnabled()};
    }
    void setPages(int pageCount, int nowPage)
    {
        model.setNowPage(nowPage);
        bar.setItemCount(pageCount * 10);
    }
};

} // namespace

class VemoPagingBarTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void startsTheModelAfresh();
    void showsNoNumbersBeforeTheFirstCount();
    void laysOutItsRow();
    void takesItsPictures_data();
    void takesItsPictures();
    void stylesItsPageButtonsByTheirSlot();
    void measuresItsPartsInDesignPixels();
    void emitsRefreshOnItsClick();
    void hidesTheRefreshButton();
    void showsThePagesAroundTheCurrentOne_data();
    void showsThePagesAroundTheCurrentOne();
    void keepsAPageBeyondTheLast();
    void keepsThePageAndEmitsNothingWhenItemsAreSet();
    void navigates_data();
    void navigates();
    void goesToTheClickedPage_data();
    void goesToTheClickedPage();
    void goesToPageOneOnReset();
    void showsOnePageWithoutARowLimit();
    void doesNothingButWarnWithoutAModel();
    void buildsOnlyOnce();
};

void VemoPagingBarTest::startsTheModelAfresh()
{
    VemoPagingModel model(10, nullptr);
    model.setNowPage(7);
    model.setItemCount(700);
    const VemoPagingBar bar(&model, nullptr);
    QCOMPARE(model.nowPage(), 1);
    QCOMPARE(model.itemCount(), 0);
    QVERIFY(!model.parent());
}

void VemoPagingBarTest::showsNoNumbersBeforeTheFirstCount()
{
    const Paging paging;
    QCOMPARE(paging.texts(), QStringList({"", "", "1", "", ""}));
    for (const QAbstractButton *button : paging.bar.findChildren<QAbstractButton *>())
        QVERIFY(button->isEnabled());
}

void VemoPagingBarTest::laysOutItsRow()
{
    const Paging paging;
    QList<QWidget *> expected {
        paging.navigation("first_page"), nullptr, paging.navigation("prev_5_pages")};
    for (VemoButton *page : paging.pages()) {
        if (expected.size() > 3)
            expected << nullptr;
        expected << page;
    }
    expected << paging.navigation("next_5_pages") << paging.navigation("last_page") << nullptr
             << nullptr << nullptr;
    expected.prepend(nullptr);
    QList<QWidget *> found;
    for (int i = 0; i < paging.row()->count(); ++i)
        found << paging.row()->itemAt(i)->widget();
    QCOMPARE(found, expected);

    const QList<int> gaps {
        scaled(8), scaled(4), scaled(4), scaled(4), scaled(4), scaled(4), 0, scaled(50)};
    QList<int> foundGaps;
    for (int i = 0; i < paging.row()->count(); ++i) {
        if (QSpacerItem *gap = paging.row()->itemAt(i)->spacerItem())
            foundGaps << gap->sizeHint().width();
    }
    QCOMPARE(foundGaps, gaps);
    QCOMPARE(paging.row()->contentsMargins(), QMargins(0, scaled(1), 0, 0));
    QCOMPARE(paging.row()->spacing(), 0);
    QCOMPARE(paging.row()->alignment(), Qt::AlignVCenter);
    for (int i = 0; i < paging.row()->count(); ++i)
        QCOMPARE(paging.row()->stretch(i), 0);
    for (const VemoButton *page : paging.pages())
        QCOMPARE(page->minimumWidth(), scaled(24));
    QCOMPARE(paging.row()->itemAt(1)->alignment(), Qt::AlignLeft | Qt::AlignVCenter);
    QCOMPARE(paging.row()->itemAt(3)->alignment(), Qt::AlignLeft | Qt::AlignVCenter);
    QCOMPARE(paging.row()->itemAt(4)->alignment(), Qt::AlignHCenter | Qt::AlignVCenter);
    QCOMPARE(paging.row()->itemAt(13)->alignment(), Qt::AlignRight | Qt::AlignVCenter);
    QCOMPARE(paging.row()->itemAt(14)->alignment(), Qt::AlignRight | Qt::AlignVCenter);
    QCOMPARE(paging.bar.layout()->count(), 1);
    QCOMPARE(paging.bar.layout()->contentsMargins(), QMargins());
    QCOMPARE(paging.bar.layout()->spacing(), 0);
    QCOMPARE(paging.footer()->direction(), QBoxLayout::RightToLeft);
    QCOMPARE(paging.footer()->alignment(), Qt::AlignRight | Qt::AlignVCenter);
    QCOMPARE(paging.footer()->contentsMargins(), QMargins());
    QCOMPARE(paging.footer()->spacing(), scaled(4));
    QCOMPARE(paging.footer()->itemAt(0)->alignment(), Qt::AlignHCenter | Qt::AlignVCenter);
}

void VemoPagingBarTest::takesItsPictures_data()
{
    QTest::addColumn<QString>("toolTipKey");
    QTest::addColumn<QString>("picture");
    addRow("first page", "first_page", "bt_pagebar_backend");
    addRow("five back", "prev_5_pages", "bt_pagebar_back");
    addRow("five on", "next_5_pages", "bt_pagebar_next");
    addRow("last page", "last_page", "bt_pagebar_nextend");
    addRow("refresh", "", "bt_pagebar_refresh");
}

void VemoPagingBarTest::takesItsPictures()
{
    QFETCH(QString, toolTipKey);
    QFETCH(QString, picture);
    const Paging paging;
    const VemoIconButton *button =
        toolTipKey.isEmpty() ? paging.refresh() : paging.navigation(qPrintable(toolTipKey));
    QVERIFY(button);
    QVERIFY(!button->accessibleName().isEmpty());
    const QPixmap expected = getGlobalImage(picture);
    QCOMPARE(button->icon().pixmap(expected.size() / expected.devicePixelRatio()).toImage(),
        expected.toImage());
}

void VemoPagingBarTest::stylesItsPageButtonsByTheirSlot()
{
    const Paging paging;
    for (int slot = 0; slot < 5; ++slot) {
        QCOMPARE(paging.pages().at(slot)->styleSheet(),
            getStyleSheet(slot == 2 ? "component.select_paging_button"
                                    : "component.nonselect_paging_button"));
    }
    QCOMPARE(paging.border()->styleSheet(), getStyleSheet("component.paging_bar_border"));
}

void VemoPagingBarTest::measuresItsPartsInDesignPixels()
{
    Paging paging;
    QCOMPARE(paging.border()->minimumHeight(), scaled(32));
    QCOMPARE(paging.border()->maximumHeight(), scaled(32));
    paging.bar.show();
    for (const VemoButton *page : paging.pages()) {
        QCOMPARE(page->height(), scaled(24));
        QVERIFY(page->width() >= scaled(24));
    }
    QCOMPARE(paging.refresh()->size(), QSize(scaled(24), scaled(24)));
}

void VemoPagingBarTest::emitsRefreshOnItsClick()
{
    Paging paging;
    QSignalSpy refreshes(&paging.bar, SIGNAL(sigRefresh()));
    QTest::mouseClick(paging.refresh(), Qt::LeftButton);
    QCOMPARE(refreshes.size(), 1);
    QCOMPARE(paging.changes.size(), 0);
    QCOMPARE(paging.refresh()->accessibleName(),
        ComponentStrings::getInstance().getString("pagebar_refresh"));
    QVERIFY(paging.refresh()->toolTip().isEmpty());
}

void VemoPagingBarTest::hidesTheRefreshButton()
{
    Paging paging;
    paging.bar.setRefreshButtonHidden(true);
    paging.bar.show();
    QVERIFY(!paging.refresh()->isVisible());
    paging.bar.setRefreshButtonHidden(false);
    QVERIFY(paging.refresh()->isVisible());
}

void VemoPagingBarTest::showsThePagesAroundTheCurrentOne_data()
{
    QTest::addColumn<int>("pageCount");
    QTest::addColumn<int>("nowPage");
    QTest::addColumn<QStringList>("texts");
    QTest::addColumn<QList<bool>>("navigation"); // first, five back, five on, last
    const QList<bool> none {false, false, false, false};
    const QList<bool> back {true, true, false, false};
    const QList<bool> on {false, false, true, true};
    const QList<bool> all {true, true, true, true};
    const QStringList blank {" ", " ", " ", " ", " "};
    QTest::newRow("no items") << 0 << 1 << QStringList {" ", " ", "1", " ", " "} << none;
    QTest::newRow("first of 7") << 7 << 1 << QStringList {" ", " ", "1", "2", "3"} << on;
    QTest::newRow("second of 7") << 7 << 2 << QStringList {" ", "1", "2", "3", "4"} << all;
    QTest::newRow("fourth of 7") << 7 << 4 << QStringList {"2", "3", "4", "5", "6"} << all;
    QTest::newRow("last of 7") << 7 << 7 << QStringList {"5", "6", "7", " ", " "} << back;
    QTest::newRow("beyond the last") << 3 << 5 << QStringList {"3", " ", " ", " ", " "} << back;
    QTest::newRow("far beyond") << 3 << 1000 << blank << back;
    QTest::newRow("page 0") << 7 << 0 << QStringList {" ", " ", " ", "1", "2"} << all;
    QTest::newRow("negative page") << 7 << -5 << blank << all;
    QTest::newRow("highest page") << 7 << kHighest << blank << back;
    QTest::newRow("lowest page") << 7 << kLowest << blank << all;
    QTest::newRow("a million pages")
        << 100'000 << 99'999 << QStringList {"99997", "99998", "99999", "100000", " "} << all;
}

void VemoPagingBarTest::showsThePagesAroundTheCurrentOne()
{
    QFETCH(int, pageCount);
    QFETCH(int, nowPage);
    QFETCH(QStringList, texts);
    Paging paging;
    paging.setPages(pageCount, nowPage);
    QCOMPARE(paging.texts(), texts);
    for (int slot = 0; slot < 5; ++slot)
        QCOMPARE(paging.pages().at(slot)->isEnabled(), texts.at(slot) != " ");
    QTEST(paging.enabledNavigation(), "navigation");
    QCOMPARE(paging.changes.size(), 0);
}

void VemoPagingBarTest::keepsAPageBeyondTheLast()
{
    Paging paging;
    paging.setPages(3, 1000);
    QCOMPARE(paging.model.nowPage(), 1000);
}

void VemoPagingBarTest::keepsThePageAndEmitsNothingWhenItemsAreSet()
{
    Paging paging;
    paging.setPages(7, 5);
    paging.bar.setItemCount(21);
    QCOMPARE(paging.model.itemCount(), 21);
    QCOMPARE(paging.model.nowPage(), 5);
    QCOMPARE(paging.texts(), QStringList({"3", " ", " ", " ", " "}));
    QVERIFY(!paging.pages().at(2)->isEnabled());
    QCOMPARE(paging.changes.size(), 0);
}

void VemoPagingBarTest::navigates_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<int>("pageCount");
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::newRow("to the first") << QByteArray("first_page") << 7 << 6 << 1;
    QTest::newRow("to the first again") << QByteArray("first_page") << 7 << 1 << 1;
    QTest::newRow("to the last") << QByteArray("last_page") << 7 << 2 << 7;
    QTest::newRow("to the last again") << QByteArray("last_page") << 7 << 7 << 7;
    QTest::newRow("five on") << QByteArray("next_5_page") << 20 << 3 << 8;
    QTest::newRow("five on, to the last") << QByteArray("next_5_page") << 5 << 3 << 5;
    QTest::newRow("five on, on the last") << QByteArray("next_5_page") << 5 << 5 << 5;
    QTest::newRow("five on, beyond the last") << QByteArray("next_5_page") << 5 << 9 << 5;
    QTest::newRow("five on, highest") << QByteArray("next_5_page") << 5 << kHighest << 5;
    QTest::newRow("five on, negative") << QByteArray("next_5_page") << 5 << -9 << -4;
    QTest::newRow("five back") << QByteArray("prev_5_page") << 20 << 8 << 3;
    QTest::newRow("five back, to the first") << QByteArray("prev_5_page") << 20 << 4 << 1;
    QTest::newRow("five back, on the first") << QByteArray("prev_5_page") << 20 << 1 << 1;
    QTest::newRow("five back, lowest") << QByteArray("prev_5_page") << 20 << kLowest << 1;
}

void VemoPagingBarTest::navigates()
{
    const QHash<QByteArray, const char *> buttons {{"first_page", "first_page"},
        {"last_page", "last_page"}, {"next_5_page", "next_5_pages"},
        {"prev_5_page", "prev_5_pages"}};
    QFETCH(QByteArray, slot);
    QFETCH(int, pageCount);
    QFETCH(int, from);
    QFETCH(int, to);
    Paging paging;
    paging.setPages(pageCount, from);
    QVERIFY(QMetaObject::invokeMethod(&paging.bar, slot.constData()));
    QCOMPARE(paging.model.nowPage(), to);
    QCOMPARE(paging.changes.size(), 1);

    paging.setPages(pageCount, from);
    VemoIconButton *button = paging.navigation(buttons.value(slot));
    button->setEnabled(true);
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(paging.model.nowPage(), to);
    QCOMPARE(paging.changes.size(), 2);
}

void VemoPagingBarTest::goesToTheClickedPage_data()
{
    QTest::addColumn<int>("slot");
    QTest::addColumn<int>("page");
    for (int slot = 0; slot < 5; ++slot)
        QTest::addRow("slot %d", slot) << slot << 2 + slot;
}

void VemoPagingBarTest::goesToTheClickedPage()
{
    QFETCH(int, slot);
    Paging paging;
    paging.setPages(7, 4);
    QTest::mouseClick(paging.pages().at(slot), Qt::LeftButton);
    QTEST(paging.model.nowPage(), "page");
    QCOMPARE(paging.changes.size(), 1);
}

void VemoPagingBarTest::goesToPageOneOnReset()
{
    Paging paging;
    paging.setPages(7, 4);
    paging.bar.reset();
    QCOMPARE(paging.model.nowPage(), 1);
    QCOMPARE(paging.texts(), QStringList({" ", " ", "1", "2", "3"}));
    QCOMPARE(paging.changes.size(), 1);
    paging.bar.reset();
    QCOMPARE(paging.changes.size(), 2);
}

void VemoPagingBarTest::showsOnePageWithoutARowLimit()
{
    Paging paging;
    paging.model.setRowLimit(0);
    paging.bar.setItemCount(50);
    QCOMPARE(paging.texts(), QStringList({" ", " ", "1", " ", " "}));
    QCOMPARE(messages.take(), QStringList("Paging model has row limit 0"));
}

void VemoPagingBarTest::doesNothingButWarnWithoutAModel()
{
    auto *model = new VemoPagingModel(10, nullptr);
    VemoPagingBar bar(model, nullptr);
    const QSignalSpy changes(&bar, SIGNAL(sigPageChanged()));
    bar.setItemCount(70);
    delete model;
    bar.setItemCount(80);
    bar.reset();
    for (const char *slot : {"first_page", "last_page", "next_5_page", "prev_5_page"})
        QVERIFY(QMetaObject::invokeMethod(&bar, slot));
    bar.findChildren<VemoButton *>().at(2)->click();
    bar.setFooterText("80 items");
    QCOMPARE(changes.size(), 0);
    const VemoPagingBar barOfNothing(nullptr, nullptr);
    const QStringList warnings = messages.take();
    QCOMPARE(warnings.size(), 8);
    QCOMPARE(warnings.count("Paging bar has no model"), 8);
}

void VemoPagingBarTest::buildsOnlyOnce()
{
    Paging paging;
    const int parts = paging.bar.findChildren<QWidget *>().size();
    paging.bar.initializeUI();
    QCOMPARE(paging.bar.findChildren<QWidget *>().size(), parts);
}

VEMO_TEST_MAIN(VemoPagingBarTest)
#include "tst_vemopagingbar.moc"

// SPDX-License-Identifier: MIT
#include "gallery/commandline.h"
#include "gallery/page.h"
#include "gallery/pagelist.h"

#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/accessiblefilter.h>

#include <QComboBox>

/// The gallery's page that draws the focus order of any other page.
class FocusPageTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void offersEveryOtherPage();
    void marksEachWidgetOfTheOrder_data();
    void marksEachWidgetOfTheOrder();
    void numbersOfNestedWidgetsAreSideBySide();
    void followsTheChosenLevel();
};

namespace {

const QColor kAccent(0x17, 0x69, 0xE0);

struct FocusPage : Page
{
    FocusPage() : Page("Focus order", kOptions)
    {
        pages()[static_cast<size_t>(pageIndex("Focus order"))].build(*this);
        show();
    }

    QComboBox *boxNamed(const QString &name) const
    {
        for (QComboBox *box : findChildren<QComboBox *>()) {
            if (box->accessibleName() == name)
                return box;
        }
        return nullptr;
    }

    void choose(const QString &page) { boxNamed("Page")->setCurrentText(page); }
    Page *shownPage() const { return findChildren<Page *>().first(); }

    static const Options kOptions;
};

const Options FocusPage::kOptions {};

} // namespace

void FocusPageTest::offersEveryOtherPage()
{
    const FocusPage page;
    const QComboBox *box = page.boxNamed("Page");
    QStringList offered;
    for (int i = 0; i < box->count(); ++i)
        offered += box->itemText(i);
    QStringList others = pageTitles();
    others.removeAll("Focus order");
    QCOMPARE(offered, others);
}

void FocusPageTest::marksEachWidgetOfTheOrder_data()
{
    QTest::addColumn<QString>("title");
    for (const char *title : {"Buttons", "Fields", "Choices", "Foot bar"})
        QTest::newRow(title) << title;
}

void FocusPageTest::marksEachWidgetOfTheOrder()
{
    QFETCH(QString, title);
    FocusPage page;
    page.choose(title);
    page.resize(page.sizeHint());
    QCoreApplication::processEvents();
    const QImage picture = page.grab().toImage();
    const QList<QWidget *> order =
        accessibleList(page.shownPage(), AccessibleFilter({}, Qt::TabFocus));
    QVERIFY(order.size() > 3);
    for (const QWidget *widget : order) {
        // The badge outside the widget, whatever its number leaves of it.
        const QPoint centre = widget->mapTo(&page, QPoint(0, 0));
        int accents = 0;
        for (int y = -6; y < 0; ++y) {
            for (int x = -6; x < 0; ++x)
                accents += picture.pixelColor(centre + QPoint(x, y)) == kAccent;
        }
        QVERIFY(accents > 8);
    }
}

/// A composite widget and its first part begin at the same corner.
void FocusPageTest::numbersOfNestedWidgetsAreSideBySide()
{
    FocusPage page;
    page.choose("Fields");
    page.resize(page.sizeHint());
    QCoreApplication::processEvents();
    const QImage picture = page.grab().toImage();
    const QList<QWidget *> order =
        accessibleList(page.shownPage(), AccessibleFilter({}, Qt::TabFocus));
    int nested = 0;
    for (int i = 1; i < order.size(); ++i) {
        const QPoint corner = order[i]->mapTo(&page, QPoint(0, 0));
        if (corner != order[i - 1]->mapTo(&page, QPoint(0, 0)))
            continue;
        ++nested;
        QCOMPARE(picture.pixelColor(corner + QPoint(0, -7)), kAccent);
        QCOMPARE(picture.pixelColor(corner + QPoint(18, -7)), kAccent);
    }
    QVERIFY(nested > 3);
}

void FocusPageTest::followsTheChosenLevel()
{
    FocusPage page;
    page.choose("Fields");
    page.resize(page.sizeHint());
    QCoreApplication::processEvents();
    const QImage byTab = page.grab().toImage();
    page.boxNamed("Least focus policy")->setCurrentIndex(0);
    QVERIFY(page.grab().toImage() != byTab);
}

VEMO_TEST_MAIN(FocusPageTest)
#include "tst_focuspage.moc"

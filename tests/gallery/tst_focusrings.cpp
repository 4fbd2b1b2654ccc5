// SPDX-License-Identifier: MIT
#include "gallery/commandline.h"
#include "gallery/look.h"
#include "gallery/page.h"
#include "gallery/pagelist.h"

#include "support/focusring.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/defaulttheme.h>
#include <vemo/dpiinfo.h>
#include <vemo/stylemanager.h>
#include <vemo/vemoinputsheet.h>
#include <vemo/vemomessagesheet.h>

#include <QPushButton>
#include <QVBoxLayout>

/// That the keyboard focus is seen wherever the Tab key goes.
class FocusRingsTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyStopOfAPageShowsTheFocus_data();
    void everyStopOfAPageShowsTheFocus();
    void everyStopOfASheetShowsTheFocus_data();
    void everyStopOfASheetShowsTheFocus();
    void aRingThatIsTooPaleOrTooThinIsFound();
};

void FocusRingsTest::initTestCase()
{
    startDefaultTheme();
    applyDefaultThemeStyle(*qApp);
    installGalleryStyle();
    QApplication::setCursorFlashTime(0);
    QApplication::setEffectEnabled(Qt::UI_General, false);
}

void FocusRingsTest::everyStopOfAPageShowsTheFocus_data()
{
    QTest::addColumn<int>("index");
    for (int index = 0; index < pageTitles().size(); ++index)
        QTest::newRow(qPrintable(pageTitles().at(index))) << index;
}

void FocusRingsTest::everyStopOfAPageShowsTheFocus()
{
    QFETCH(int, index);
    const Options options;
    const PageEntry entry = pages()[static_cast<size_t>(index)];
    Page page(entry.title, options);
    page.setStyleSheet(galleryStyle());
    entry.build(page);
    page.resize(page.sizeHint());
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    QApplication::setActiveWindow(&page);
    verifyRings(&page, 0);
}

void FocusRingsTest::everyStopOfASheetShowsTheFocus_data()
{
    QTest::addColumn<int>("type");
    for (const int type : {VemoMessageSheet::Information, VemoMessageSheet::WarningConfirm,
             VemoMessageSheet::ConfirmReset})
        QTest::addRow("message sheet %d", type) << type;
    QTest::newRow("input sheet") << -1;
}

void FocusRingsTest::everyStopOfASheetShowsTheFocus()
{
    QFETCH(int, type);
    QWidget window;
    window.resize(700, 500);
    VemoSheet *sheet = nullptr;
    if (type < 0) {
        sheet = new VemoInputSheet("Name of the new folder:", &window);
    } else {
        auto *message = new VemoMessageSheet(static_cast<VemoMessageSheet::MessageType>(type),
            "Delete the folder?", "Nobody can bring it back.", &window);
        message->setDoubleConfirmCheckBox(type == VemoMessageSheet::WarningConfirm, "I know.");
        sheet = message;
    }
    window.show();
    sheet->show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QApplication::setActiveWindow(&window);
    verifyRings(&window, 2);
}

void FocusRingsTest::aRingThatIsTooPaleOrTooThinIsFound()
{
    QWidget window;
    QVBoxLayout layout(&window);
    const QString wide = QString("%1px solid ").arg(DPIinfo::scaled(2));
    const QMap<QString, QString> rings {{"dark", wide + "#0B469E"}, {"pale", wide + "#C8D2DC"},
        {"none", wide + "white"}, {"thin", "1px solid #0B469E"}};
    for (auto ring = rings.begin(); ring != rings.end(); ++ring) {
        auto *button = new QPushButton(ring.key());
        button->setStyleSheet(QString("QPushButton { border: 2px solid white; background: white; "
                                      "outline: none; padding: 4px; } "
                                      "QPushButton:focus { border: %1; }")
                                  .arg(*ring));
        layout.addWidget(button);
    }
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QApplication::setActiveWindow(&window);
    QMap<QString, bool> isSeen;
    for (const FocusRing &ring : walkedRings(&window))
        isSeen.insert(ring.widget.section('"', 1, 1), ring.isSeen());
    const QMap<QString, bool> expected {
        {"dark", true}, {"none", false}, {"pale", false}, {"thin", false}};
    QCOMPARE(isSeen, expected);
}

VEMO_TEST_MAIN(FocusRingsTest)
#include "tst_focusrings.moc"

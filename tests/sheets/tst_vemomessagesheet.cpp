// SPDX-License-Identifier: MIT
#include <vemo/vemomessagesheet.h>

#include "core/scaling_p.h"
#include "sheets/messagesheetparts.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/clickablelabel.h>
#include <vemo/componentstrings.h>
#include <vemo/imagemanager.h>
#include <vemo/stylemanager.h>
#include <vemo/vemomask.h>

#include <QCheckBox>
#include <QLayout>
#include <QMovie>
#include <QPointer>
#include <QPushButton>
#include <QStyle>
#include <QTemporaryDir>

#include <memory>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

namespace {

using Sheet = VemoMessageSheet;
using Button = QDialogButtonBox;

const QString kBusy = QStringLiteral(":/vemo/theme/images/busy.gif");

} // namespace

class VemoMessageSheetTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void typeChoosesIconButtonsAndStyle_data();
    void typeChoosesIconButtonsAndStyle();
    void newTypeTakesTheLookOfThatType_data();
    void newTypeTakesTheLookOfThatType();
    void captionsAreTheDefaultOnes_data();
    void captionsAreTheDefaultOnes();
    void customCaptionsReplaceTheDefaultOnes_data();
    void customCaptionsReplaceTheDefaultOnes();
    void rebuildForgetsCustomCaptions_data();
    void rebuildForgetsCustomCaptions();
    void buttonsHaveTheirSizesAndStyles();
    void buttonsAreInTheOrderOfWindows();
    void buttonsThatDoNotFitAreStacked_data();
    void buttonsThatDoNotFitAreStacked();
    void busySheetShowsItsMovie();
    void movieIsDrawnInThePixelsOfTheScreen();
    void aMovieMayBeReplacedByAPipe();
    void movieOutlivesItsSheet();
    void movieMayDieWhileItsSheetRuns();
    void busySheetWithoutAMovieFileStillWorks();
    void hiddenIconLeavesItsPlace();
    void iconSetByHandTakesPartInTheLayout();
    void widthComesFromTheParent_data();
    void widthComesFromTheParent();
    void widthIsTruncatedBeforeItIsScaled();
    void widthIsCappedWithoutAParent();
    void contentIsInsideTheBandAndTheMargins();
    void clickAfterRebuildsFinishesOnce();
};

void VemoMessageSheetTest::typeChoosesIconButtonsAndStyle_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("icon");
    QTest::addColumn<int>("buttons");
    QTest::addColumn<QString>("style");
    const QString processing = "component.message_sheet_processing";
    const QString other = "component.message_sheet_other";
    const int confirm = Button::Apply | Button::Discard;
    QTest::newRow("App") << 0 << "app_img" << 0 << processing;
    QTest::newRow("Information") << 1 << "icon_information" << int(Button::Ok) << other;
    QTest::newRow("Warning") << 2 << "icon_warning" << int(Button::Ok) << other;
    QTest::newRow("Confirm") << 3 << "icon_question" << confirm << other;
    QTest::newRow("ConfirmReset") << 4 << "icon_question" << (confirm | Button::Reset) << other;
    QTest::newRow("Upgrading") << 5 << "icon_information" << confirm << other;
    QTest::newRow("WarningConfirm") << 6 << "icon_warning" << confirm << other;
    QTest::newRow("Processing") << 7 << QString() << 0 << processing;
    QTest::newRow("above the last") << 8 << QString() << 0 << other;
    QTest::newRow("far above") << 4711 << QString() << 0 << other;
    QTest::newRow("negative") << -1 << QString() << 0 << other;
}

void VemoMessageSheetTest::typeChoosesIconButtonsAndStyle()
{
    QFETCH(const int, type);
    QFETCH(const QString, icon);
    QFETCH(const int, buttons);
    QFETCH(const QString, style);
    QWidget window;
    const Sheet sheet(Sheet::MessageType(type), "text", &window);
    QCOMPARE(iconImage(sheet), icon.isEmpty() ? QImage() : getGlobalImage(icon).toImage());
    QCOMPARE(iconOf(sheet)->isVisibleTo(&sheet), !icon.isEmpty());
    QCOMPARE(buttonsOf(sheet), buttons);
    QCOMPARE(sheet.styleSheet(), getStyleSheet(style));
    QVERIFY(labelOf(sheet, "text"));
}

void VemoMessageSheetTest::newTypeTakesTheLookOfThatType_data()
{
    typeChoosesIconButtonsAndStyle_data();
}

void VemoMessageSheetTest::newTypeTakesTheLookOfThatType()
{
    QFETCH(const int, type);
    QFETCH(const QString, icon);
    QFETCH(const int, buttons);
    QFETCH(const QString, style);
    QWidget window;
    Sheet sheet(Sheet::ConfirmReset, &window);
    sheet.setMessageType(Sheet::MessageType(type));
    QCOMPARE(iconImage(sheet), icon.isEmpty() ? QImage() : getGlobalImage(icon).toImage());
    QCOMPARE(buttonsOf(sheet), buttons);
    QCOMPARE(sheet.styleSheet(), getStyleSheet(style));
}

void VemoMessageSheetTest::captionsAreTheDefaultOnes_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("button");
    QTest::addColumn<QString>("caption");
    QTest::newRow("OK") << 1 << int(Button::Ok) << string("ok");
    QTest::newRow("Apply") << 3 << int(Button::Apply) << string("ok");
    QTest::newRow("Discard") << 3 << int(Button::Discard) << string("cancel");
    QTest::newRow("Reset") << 4 << int(Button::Reset) << string("reset");
    QTest::newRow("Upgrade") << 5 << int(Button::Apply) << string("wizard_client_upgrade");
    QTest::newRow("no Upgrade") << 5 << int(Button::Discard) << string("cancel");
}

void VemoMessageSheetTest::captionsAreTheDefaultOnes()
{
    QFETCH(const int, type);
    QFETCH(const int, button);
    QFETCH(const QString, caption);
    QWidget window;
    const Sheet sheet(Sheet::MessageType(type), "text", &window);
    QCOMPARE(buttonOf(sheet, button)->text(), caption);
    QCOMPARE(buttonOf(sheet, Button::YesToAll), nullptr);
}

void VemoMessageSheetTest::customCaptionsReplaceTheDefaultOnes_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QStringList>("given");
    QTest::addColumn<QStringList>("shown"); // of Apply or Ok, Discard, Reset
    const QString ok = string("ok");
    const QString cancel = string("cancel");
    const QString reset = string("reset");
    QTest::newRow("OK") << 1 << QStringList {"Fine", "x", "x"} << QStringList {"Fine"};
    QTest::newRow("both") << 3 << QStringList {"Yes", "No", {}} << QStringList {"Yes", "No"};
    QTest::newRow("one") << 3 << QStringList {{}, "No", {}} << QStringList {ok, "No"};
    QTest::newRow("none") << 4 << QStringList {{}, {}, {}} << QStringList {ok, cancel, reset};
    QTest::newRow("all") << 4 << QStringList {"A", "B", "C"} << QStringList {"A", "B", "C"};
    QTest::newRow("upgrade") << 5 << QStringList {"Go", {}, {}} << QStringList {"Go", cancel};
}

void VemoMessageSheetTest::customCaptionsReplaceTheDefaultOnes()
{
    QFETCH(const int, type);
    QFETCH(const QStringList, given);
    QFETCH(const QStringList, shown);
    MsgBoxCustomBtnText captions(given[0], given[1]);
    QVERIFY(captions.resetText.isEmpty());
    captions.resetText = given[2];
    QWidget window;
    const Sheet sheet(Sheet::MessageType(type), "text", captions, &window);
    QStringList texts;
    for (const int which : {Button::Ok, Button::Apply, Button::Discard, Button::Reset}) {
        if (const QPushButton *button = buttonOf(sheet, which))
            texts += button->text();
    }
    QCOMPARE(texts, shown);
}

void VemoMessageSheetTest::rebuildForgetsCustomCaptions_data()
{
    QTest::addColumn<int>("setter");
    QTest::newRow("setIconVisible") << 0;
    QTest::newRow("setMessageType") << 1;
    QTest::newRow("setDoubleConfirmCheckBox") << 2;
}

void VemoMessageSheetTest::rebuildForgetsCustomCaptions()
{
    QFETCH(const int, setter);
    QWidget window;
    Sheet sheet(Sheet::Confirm, "text", MsgBoxCustomBtnText("Yes", "No"), &window);
    if (setter == 0)
        sheet.setIconVisible(true);
    else if (setter == 1)
        sheet.setMessageType(Sheet::Confirm);
    else
        sheet.setDoubleConfirmCheckBox(false, QString());
    QCOMPARE(buttonOf(sheet, Button::Apply)->text(), string("ok"));
    QCOMPARE(buttonOf(sheet, Button::Discard)->text(), string("cancel"));
    QVERIFY(labelOf(sheet, "text"));
}

void VemoMessageSheetTest::buttonsHaveTheirSizesAndStyles()
{
    QWidget window;
    const Sheet sheet(Sheet::ConfirmReset, "text", &window);
    const Sheet information(Sheet::Information, "text", &window);
    const QPushButton *sized[] = {buttonOf(information, Button::Ok), buttonOf(sheet, Button::Apply),
        buttonOf(sheet, Button::Discard)};
    for (const QPushButton *button : sized) {
        QCOMPARE(button->minimumHeight(), scaled(32));
        QCOMPARE(button->maximumHeight(), scaled(32));
        QCOMPARE(button->minimumWidth(), scaled(100));
    }
    const QPushButton *reset = buttonOf(sheet, Button::Reset);
    QCOMPARE(reset->minimumSize(), QSize(0, 0));
    QCOMPARE(reset->maximumHeight(), QWIDGETSIZE_MAX);
    QVERIFY(buttonOf(information, Button::Ok)->isDefault());
    QVERIFY(buttonOf(sheet, Button::Apply)->isDefault());
    QVERIFY(!buttonOf(sheet, Button::Discard)->isDefault());
    QCOMPARE(sized[0]->styleSheet(), getStyleSheet("component.apply_button"));
    QCOMPARE(sized[1]->styleSheet(), getStyleSheet("component.apply_button"));
    QCOMPARE(sized[2]->styleSheet(), getStyleSheet("component.cancel_button"));
    QCOMPARE(reset->styleSheet(), getStyleSheet("component.reset_button"));
}

void VemoMessageSheetTest::buttonsAreInTheOrderOfWindows()
{
    QWidget window;
    window.resize(scaled(600), scaled(400));
    Sheet sheet(Sheet::ConfirmReset, "text", &window);
    const auto *box = sheet.findChild<QDialogButtonBox *>();
    QCOMPARE(box->style()->styleHint(QStyle::SH_DialogButtonLayout, nullptr, box),
        int(QDialogButtonBox::WinLayout));
    QCOMPARE(box->style()->styleHint(QStyle::SH_DialogButtonBox_ButtonsHaveIcons),
        QApplication::style()->styleHint(QStyle::SH_DialogButtonBox_ButtonsHaveIcons));
    window.show();
    sheet.show();
    QVERIFY(buttonOf(sheet, Button::Reset)->x() < buttonOf(sheet, Button::Discard)->x());
    QVERIFY(buttonOf(sheet, Button::Discard)->x() < buttonOf(sheet, Button::Apply)->x());
}

void VemoMessageSheetTest::buttonsThatDoNotFitAreStacked_data()
{
    QTest::addColumn<bool>("hasMask");
    QTest::newRow("with a mask") << true;
    QTest::newRow("without") << false;
}

void VemoMessageSheetTest::buttonsThatDoNotFitAreStacked()
{
    QFETCH(const bool, hasMask);
    QWidget window;
    window.resize(scaled(300), scaled(600));
    Sheet sheet(Sheet::ConfirmReset, "text", &window);
    if (hasMask)
        VemoMask::createMask(&sheet, &window, QColor(0, 0, 0, 20));
    window.show();
    sheet.show();
    const QRect apply = buttonOf(sheet, Button::Apply)->geometry();
    const QRect discard = buttonOf(sheet, Button::Discard)->geometry();
    const QRect reset = buttonOf(sheet, Button::Reset)->geometry();
    QVERIFY(apply.bottom() < discard.top());
    QVERIFY(discard.bottom() < reset.top());
    // As wide as the texts above them.
    const QMargins margins = sheet.contentsMargins();
    const int width = sheet.width() - margins.left() - margins.right() - 2 * scaled(20);
    for (const QRect &button : {apply, discard, reset}) {
        QCOMPARE(button.width(), width);
        QCOMPARE(button.x(), 0);
    }
    QCOMPARE(buttonOf(sheet, Button::Apply)->parentWidget()->x(), margins.left() + scaled(20));
    sheet.setMessageType(Sheet::Information);
    QCOMPARE(sheet.findChild<QDialogButtonBox *>()->orientation(), Qt::Horizontal);
}

void VemoMessageSheetTest::busySheetShowsItsMovie()
{
    QWidget window;
    window.resize(600, 400);
    Sheet sheet("Working", kBusy, &window);
    QMovie *movie = iconOf(sheet)->movie();
    const std::unique_ptr<QMovie> owned(movie);
    QVERIFY(movie && movie->isValid());
    QCOMPARE(sheet.movie(), movie);
    QCOMPARE(movie->scaledSize(), QSize(scaled(32), scaled(32)));
    QCOMPARE(movie->state(), QMovie::NotRunning);
    QCOMPARE(iconOf(sheet)->sizeHint(), movie->scaledSize());
    QVERIFY(labelOf(sheet, "Working"));
    QCOMPARE(buttonsOf(sheet), 0);
    // Rebuilding keeps it; only hiding the icon removes it, and showing the icon restores it.
    sheet.setMessageType(Sheet::Processing);
    QCOMPARE(iconOf(sheet)->movie(), movie);
    sheet.setIconVisible(false);
    QCOMPARE(iconOf(sheet)->movie(), nullptr);
    sheet.setIconVisible(true);
    QCOMPARE(iconOf(sheet)->movie(), movie);

    bool wasRunning = false;
    QTimer::singleShot(0, &sheet, [&] {
        wasRunning = movie->state() == QMovie::Running;
        sheet.done(7);
    });
    QCOMPARE(sheet.exec(), 7);
    QVERIFY(wasRunning);
    QCOMPARE(movie->state(), QMovie::NotRunning);
}

void VemoMessageSheetTest::movieIsDrawnInThePixelsOfTheScreen()
{
    QWidget window;
    window.resize(600, 400);
    Sheet sheet("Working", kBusy, &window);
    const std::unique_ptr<QMovie> movie(sheet.movie());
    QLabel *icon = iconOf(sheet);
    icon->resize(movie->scaledSize());
    QMovie expected(kBusy);
    for (QMovie *each : {movie.get(), &expected})
        each->setCacheMode(QMovie::CacheAll); // to go back and to leave frames out
    expected.setScaledSize(movie->scaledSize() * icon->devicePixelRatioF());
    for (const int number : {0, 1, 5, 2}) {
        QVERIFY(movie->jumpToFrame(number));
        QVERIFY(expected.jumpToFrame(number));
        QImage shown(expected.scaledSize(), QImage::Format_ARGB32_Premultiplied);
        shown.setDevicePixelRatio(icon->devicePixelRatioF());
        shown.fill(Qt::transparent);
        icon->render(&shown, QPoint(), QRegion(), QWidget::DrawChildren);
        shown.setDevicePixelRatio(1); // as that of the movie
        QCOMPARE(shown.convertToFormat(expected.currentImage().format()), expected.currentImage());
    }
}

void VemoMessageSheetTest::aMovieMayBeReplacedByAPipe()
{
#ifdef Q_OS_UNIX
    const QTemporaryDir folder;
    const QString path = folder.filePath("busy.gif");
    QVERIFY(QFile::copy(kBusy, path));
    QWidget window;
    Sheet sheet("Working", path, &window);
    const std::unique_ptr<QMovie> movie(sheet.movie());
    QVERIFY(QFile::remove(path));
    QCOMPARE(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    QVERIFY(!iconOf(sheet)->grab().isNull());
#else
    QSKIP("Named pipes have names of their own.");
#endif
}

void VemoMessageSheetTest::movieOutlivesItsSheet()
{
    QWidget window;
    auto *sheet = new Sheet("Working", kBusy, &window);
    const QPointer<QMovie> movie = sheet->movie();
    QCOMPARE(movie->parent(), nullptr);
    delete sheet;
    QVERIFY(movie);
    delete movie;
}

void VemoMessageSheetTest::movieMayDieWhileItsSheetRuns()
{
    QWidget window;
    Sheet sheet("Working", kBusy, &window);
    QTimer::singleShot(0, &sheet, [&] {
        delete sheet.movie();
        QCOMPARE(sheet.movie(), nullptr);
        sheet.setText("Still working");
        QVERIFY(!iconOf(sheet)->isVisible());
        sheet.setMessageType(Sheet::Processing);
        sheet.done(7);
    });
    QCOMPARE(sheet.exec(), 7);
    QTimer::singleShot(0, &sheet, SLOT(quit()));
    QCOMPARE(sheet.exec(), 0);
}

void VemoMessageSheetTest::busySheetWithoutAMovieFileStillWorks()
{
    QWidget window;
    Sheet sheet("Working", "no/such.gif", &window);
    const std::unique_ptr<QMovie> owned(sheet.movie());
    QVERIFY(labelOf(sheet, "Working"));
    QTimer::singleShot(0, &sheet, SLOT(quit()));
    QCOMPARE(sheet.exec(), 0);
}

void VemoMessageSheetTest::hiddenIconLeavesItsPlace()
{
    QWidget window;
    window.resize(600, 400);
    Sheet sheet(Sheet::Warning, "text", &window, false);
    QVERIFY(iconImage(sheet).isNull());
    QVERIFY(!iconOf(sheet)->isVisibleTo(&sheet));
    window.show();
    sheet.show();
    const int edge = sheet.contentsMargins().left() + scaled(20);
    QCOMPARE(labelOf(sheet, "text")->x(), edge);
    sheet.setIconVisible(true);
    QTRY_COMPARE(labelOf(sheet, "text")->x(), edge + scaled(32) + scaled(20));
    QCOMPARE(iconOf(sheet)->pos(), QPoint(edge, edge));
    sheet.setIconVisible(false);
    QVERIFY(iconImage(sheet).isNull());
}

void VemoMessageSheetTest::iconSetByHandTakesPartInTheLayout()
{
    QWidget window;
    Sheet sheet(Sheet::Processing, "text", &window);
    QVERIFY(!iconOf(sheet)->isVisibleTo(&sheet));
    const int height = sheet.height();
    QPixmap icon(10, 200);
    icon.fill(Qt::red);
    sheet.setIcon(icon);
    QVERIFY(iconOf(sheet)->isVisibleTo(&sheet));
    QVERIFY(sheet.height() > height);
    sheet.setIcon(QPixmap());
    QVERIFY(!iconOf(sheet)->isVisibleTo(&sheet));
    QCOMPARE(sheet.height(), height);
}

void VemoMessageSheetTest::widthComesFromTheParent_data()
{
    QTest::addColumn<int>("parentWidth"); // both in design pixels
    QTest::addColumn<int>("width");
    QTest::newRow("wide") << 1000 << 540;
    QTest::newRow("narrow") << 500 << 460;
    QTest::newRow("exactly the widest") << 540 << 480;
    QTest::newRow("a little less") << 536 << 496;
    QTest::newRow("a little more") << 544 << 504;
    QTest::newRow("as wide as possible") << 580 << 540;
    QTest::newRow("forty") << 40 << 0;
    QTest::newRow("less than forty") << 10 << 0;
}

void VemoMessageSheetTest::widthComesFromTheParent()
{
    QFETCH(const int, parentWidth);
    QFETCH(const int, width);
    QWidget window;
    window.resize(scaled(parentWidth), 300);
    const Sheet sheet(Sheet::Confirm, "text", &window);
    QCOMPARE(sheet.width(), scaled(width));
    QCOMPARE(sheet.minimumWidth(), sheet.maximumWidth());
    QCOMPARE(sheet.sizePolicy(), QSizePolicy(QSizePolicy::Fixed, QSizePolicy::Maximum));
}

void VemoMessageSheetTest::widthIsTruncatedBeforeItIsScaled()
{
    const QHash<int, int> widths {{96, 540}, {120, 586}, {144, 576}};
    const int dpi = qRound(DPIinfo::getInstance().getDPI() * 96);
    QVERIFY(widths.contains(dpi));
    QWidget window;
    window.resize(637, 300);
    QCOMPARE(Sheet(Sheet::Confirm, "text", &window).width(), widths[dpi]);
}

void VemoMessageSheetTest::widthIsCappedWithoutAParent()
{
    const Sheet sheet(Sheet::Confirm, "text", nullptr);
    QCOMPARE(sheet.width(), scaled(540));
}

void VemoMessageSheetTest::contentIsInsideTheBandAndTheMargins()
{
    QWidget window;
    window.resize(scaled(700), scaled(500));
    Sheet sheet(Sheet::Warning, "text", "more", &window);
    window.show();
    sheet.show();
    const int band = scaled(22);
    const QLabel *text = labelOf(sheet, "text");
    const QLabel *informative = labelOf(sheet, "more");
    const auto *box = sheet.findChild<QDialogButtonBox *>();
    QCOMPARE(iconOf(sheet)->pos(), QPoint(band + scaled(20), band + scaled(20)));
    QCOMPARE(text->x(), iconOf(sheet)->geometry().right() + 1 + scaled(20));
    QCOMPARE(text->y(), band + scaled(20));
    QCOMPARE(text->geometry().right() + 1, sheet.width() - band - scaled(20));
    QCOMPARE(informative->y(), text->geometry().bottom() + 1 + scaled(10));
    QCOMPARE(informative->x(), text->x());
    const int rowBottom =
        qMax(informative->geometry().bottom(), iconOf(sheet)->geometry().bottom());
    QCOMPARE(box->y(), rowBottom + 1 + scaled(20));
    QCOMPARE(sheet.height() - box->geometry().bottom() - 1, band + scaled(10));
}

void VemoMessageSheetTest::clickAfterRebuildsFinishesOnce()
{
    QWidget window;
    Sheet sheet(Sheet::Confirm, "text", &window);
    sheet.setIconVisible(false);
    sheet.setMessageType(Sheet::ConfirmReset);
    sheet.setDoubleConfirmCheckBox(true, "sure");
    QSignalSpy finished(&sheet, SIGNAL(finished(int)));
    buttonOf(sheet, Button::Reset)->click();
    QCOMPARE(finished, QList<QVariantList> {{int(Button::Reset)}});
}

VEMO_TEST_MAIN(VemoMessageSheetTest)
#include "tst_vemomessagesheet.moc"

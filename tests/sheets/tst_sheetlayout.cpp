// SPDX-License-Identifier: MIT
// Message and input sheets fit their size to the content when their style changes.
#include "core/scaling_p.h"
#include "support/iswindows.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/messageshortcuts.h>
#include <vemo/vemocountdownmessagebox.h>
#include <vemo/vemoinputsheet.h>
#include <vemo/vemomask.h>
#include <vemo/vemomessagesheet.h>

#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QTimer>

namespace {

const QString kText = QString("many words ").repeated(30).trimmed();

VemoSheet *newSheet(const QString &kind, QWidget *window)
{
    if (kind == "input")
        return new VemoInputSheet(kText, window);
    return new VemoMessageSheet(VemoMessageSheet::ConfirmReset, kText, kText, window);
}

/// The geometry of all widgets in a sheet.
QVector<QRect> placesIn(const QWidget *sheet)
{
    QVector<QRect> places {QRect(QPoint(), sheet->size())};
    for (const QWidget *part : sheet->findChildren<QWidget *>()) {
        if (part->isVisibleTo(sheet))
            places += {part->mapTo(sheet, QPoint()), part->size()};
    }
    return places;
}

} // namespace

class SheetLayoutTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void fitsItsContentAfterAChangeOfStyle_data();
    void fitsItsContentAfterAChangeOfStyle();
    void buttonsHaveNoStockIcons_data();
    void buttonsHaveNoStockIcons();
    void boxesHaveNoStockIcons();
    void inputHasTheButtonsOfAMessage();
};

void SheetLayoutTest::fitsItsContentAfterAChangeOfStyle_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("change");
    QTest::addColumn<bool>("hasMask");
    QTest::addColumn<bool>("isHidden");
    for (const char *kind : {"message", "input"}) {
        for (const char *change : {"larger font", "smaller font"}) {
            QTest::addRow("%s, %s, shown", kind, change) << kind << change << true << false;
            QTest::addRow("%s, %s, shown without a mask", kind, change)
                << kind << change << false << false;
            QTest::addRow("%s, %s, while hidden", kind, change) << kind << change << true << true;
            QTest::addRow("%s, %s, while hidden without a mask", kind, change)
                << kind << change << false << true;
        }
    }
}

void SheetLayoutTest::fitsItsContentAfterAChangeOfStyle()
{
    QFETCH(const QString, kind);
    QFETCH(const QString, change);
    QFETCH(const bool, hasMask);
    QFETCH(const bool, isHidden);
    QWidget window;
    window.resize(scaled(500), 3000);
    const auto show = [&](VemoSheet *sheet) {
        if (hasMask)
            VemoMask::createMask(sheet, &window, QColor(0, 0, 0, 20));
        sheet->show();
        QTest::qWait(0);
    };
    window.show();
    VemoSheet *sheet = newSheet(kind, &window);
    show(sheet);
    const QVector<QRect> before = placesIn(sheet);
    sheet->setHidden(isHidden);
    const int size = change == "larger font" ? 30 : 8;
    window.setStyleSheet(QString("QLabel, QPushButton { font-size: %1px; }").arg(size));
    sheet->show();
    QTest::qWait(0);
    QVERIFY(placesIn(sheet) != before);
    VemoSheet *fresh = newSheet(kind, &window);
    show(fresh);
    QCOMPARE(placesIn(sheet), placesIn(fresh));
}

void SheetLayoutTest::buttonsHaveNoStockIcons_data()
{
    QTest::addColumn<QString>("kind");
    QTest::newRow("message") << "message";
    QTest::newRow("input") << "input";
}

/// Can only fail on desktops that use icons, such as X11.
void SheetLayoutTest::buttonsHaveNoStockIcons()
{
    QFETCH(const QString, kind);
    QWidget window;
    const VemoSheet *sheet = newSheet(kind, &window);
    const auto buttons = sheet->findChildren<QPushButton *>();
    QVERIFY(buttons.size() >= 2);
    for (const QPushButton *button : buttons)
        QVERIFY(button->icon().isNull());
}

void SheetLayoutTest::boxesHaveNoStockIcons()
{
    const VemoCountdownMessageBox countdown;
    QVERIFY(countdown.button(QMessageBox::Ok)->icon().isNull());
    QTimer::singleShot(0, [] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        for (const QAbstractButton *button : box->buttons())
            QVERIFY(button->icon().isNull());
        box->reject();
    });
    showConfirmMsg("title", "text", nullptr);
    if (kIsWindows) { // Wine lacks some of the system's pictures.
        for (const QString &message : messages.take())
            QVERIFY2(message.contains("QPixmap::fromWinHICON"), qPrintable(message));
    }
}

void SheetLayoutTest::inputHasTheButtonsOfAMessage()
{
    QWidget window;
    window.resize(scaled(500), scaled(400));
    VemoMessageSheet message(VemoMessageSheet::Confirm, "text", &window);
    VemoInputSheet input("text", &window);
    window.show();
    message.show();
    input.show();
    const auto fromTheRight = [](const VemoSheet &sheet, const QAbstractButton *button) {
        const auto *box = sheet.findChild<QDialogButtonBox *>();
        return button->geometry().translated(-box->width(), 0);
    };
    QCOMPARE(fromTheRight(input, input.button(QMessageBox::Ok)),
        fromTheRight(message, message.button(QMessageBox::Apply)));
    QCOMPARE(fromTheRight(input, input.button(QMessageBox::Discard)),
        fromTheRight(message, message.button(QMessageBox::Discard)));
    // Independent of the desktop's own order.
    const auto *box = input.findChild<QDialogButtonBox *>();
    QCOMPARE(box->style()->styleHint(QStyle::SH_DialogButtonLayout, nullptr, box),
        int(QDialogButtonBox::GnomeLayout));
}

VEMO_TEST_MAIN(SheetLayoutTest)
#include "tst_sheetlayout.moc"

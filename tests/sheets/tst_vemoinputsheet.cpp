// SPDX-License-Identifier: MIT
#include <vemo/vemoinputsheet.h>

#include "core/scaling_p.h"
#include "support/sheetdriver.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/componentstrings.h>
#include <vemo/stylemanager.h>
#include <vemo/vemomask.h>

#include <QDialogButtonBox>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QPushButton>

namespace {

using Button = QDialogButtonBox;

constexpr int kNothing = -1; // The key does not end the sheet.

QPushButton *buttonOf(const VemoInputSheet &sheet, int which)
{
    return static_cast<QPushButton *>(sheet.button(QMessageBox::StandardButton(which)));
}

QLabel *promptOf(const VemoInputSheet &sheet)
{
    return sheet.findChildren<QLabel *>(QString(), Qt::FindDirectChildrenOnly).constFirst();
}

/// Runs the sheet, calls act, and returns how the sheet ended; kNothing if it did not.
int resultOf(VemoInputSheet &sheet, const std::function<void()> &act)
{
    bool didEnd = false;
    const SheetDriver driver([&] {
        QSignalSpy finished(&sheet, SIGNAL(finished(int)));
        act();
        didEnd = !finished.isEmpty();
        if (!didEnd)
            sheet.quit();
    });
    const int code = sheet.exec();
    return didEnd ? code : kNothing;
}

} // namespace

class VemoInputSheetTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void hasAFieldAndTwoButtons();
    void promptIsRichTextWithAScaledLineHeight_data();
    void promptIsRichTextWithAScaledLineHeight();
    void startsWithoutAPrompt();
    void widthComesFromTheParent_data();
    void widthComesFromTheParent();
    void widthIsTruncatedBeforeItIsScaled();
    void widthIsCappedWithoutAParent();
    void contentIsInsideTheBandAndTheMargins();
    void heightFollowsThePrompt();
    void keyEndsTheSheet_data();
    void keyEndsTheSheet();
    void keysOfTheWindowAreTakenEvenWhileHidden();
    void returnInTheFieldKeepsTheText();
    void buttonsEndTheSheet_data();
    void buttonsEndTheSheet();
    void quitAndDoneEndTheSheet();
    void focusIsInTheField_data();
    void focusIsInTheField();
    void defaultButtonCanBeSet();
    void closingTheWindowIsRefusedUnlessAllowed();
};

void VemoInputSheetTest::hasAFieldAndTwoButtons()
{
    QWidget window;
    const VemoInputSheet sheet("Name", &window);
    QCOMPARE(int(sheet.findChild<QDialogButtonBox *>()->standardButtons()),
        int(Button::Ok | Button::Discard));
    const QPushButton *ok = buttonOf(sheet, Button::Ok);
    const QPushButton *cancel = buttonOf(sheet, Button::Discard);
    QCOMPARE(ok->text(), ComponentStrings::getInstance().getString("ok"));
    QCOMPARE(cancel->text(), ComponentStrings::getInstance().getString("cancel"));
    QVERIFY(ok->isDefault() && !cancel->isDefault());
    QCOMPARE(ok->styleSheet(), getStyleSheet("component.apply_button"));
    QCOMPARE(cancel->styleSheet(), getStyleSheet("component.cancel_button"));
    QCOMPARE(buttonOf(sheet, Button::Cancel), nullptr);
    QCOMPARE(sheet.styleSheet(), getStyleSheet("component.message_sheet_other"));
    QCOMPARE(sheet.getLineEdit()->styleSheet(), getStyleSheet("component.lineedit"));
    QCOMPARE(sheet.getLineEdit()->minimumHeight(), scaled(28));
    QCOMPARE(sheet.getLineEdit()->maximumHeight(), scaled(28));
    QCOMPARE(sheet.getContent(), QString());
}

void VemoInputSheetTest::promptIsRichTextWithAScaledLineHeight_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shown"); // %1: the scaled line height
    addRow("plain", "Name", "<p style='line-height: %1px;'>Name</p>");
    addRow("markup", "<b>Name</b> & more", "<p style='line-height: %1px;'><b>Name</b> & more</p>");
    addRow("length", "at most 8px wide", "<p style='line-height: %1px;'>at most %2px wide</p>");
    addRow("place marker", "100 %1 of it", "<p style='line-height: %1px;'>100 %%1 of it</p>");
    addRow("empty", QString(), "<p style='line-height: %1px;'></p>");
}

void VemoInputSheetTest::promptIsRichTextWithAScaledLineHeight()
{
    QFETCH(const QString, text);
    QFETCH(QString, shown);
    shown.replace("%%1", "\1");
    shown.replace("%1", QString::number(scaled(20))).replace("%2", QString::number(scaled(8)));
    shown.replace("\1", "%1");
    QWidget window;
    VemoInputSheet sheet("before", &window);
    sheet.setText(text);
    const QLabel *prompt = promptOf(sheet);
    QCOMPARE(prompt->text(), shown);
    QVERIFY(prompt->wordWrap());
    QCOMPARE(prompt->alignment() & Qt::AlignVertical_Mask, Qt::AlignTop);
    QCOMPARE(prompt->sizePolicy().horizontalPolicy(), QSizePolicy::Minimum);
    QCOMPARE(prompt->sizePolicy().verticalPolicy(), QSizePolicy::Maximum);
    const VemoInputSheet same(text, &window);
    QCOMPARE(promptOf(same)->text(), shown);
}

void VemoInputSheetTest::startsWithoutAPrompt()
{
    QWidget window;
    window.resize(scaled(600), scaled(400));
    VemoInputSheet sheet(&window);
    QCOMPARE(promptOf(sheet)->text(), QString());
    window.show();
    sheet.show();
    QCoreApplication::processEvents();
    const int without = sheet.height();
    sheet.setText("Name");
    QVERIFY(sheet.height() > without);
}

void VemoInputSheetTest::widthComesFromTheParent_data()
{
    QTest::addColumn<int>("parentWidth"); // both in design pixels
    QTest::addColumn<int>("width");
    QTest::newRow("wide") << 600 << 480;
    QTest::newRow("wider") << 1000 << 480;
    QTest::newRow("narrow") << 500 << 460;
    QTest::newRow("a little less than the widest") << 516 << 476;
    QTest::newRow("exactly") << 520 << 480;
    QTest::newRow("forty") << 40 << 0;
    QTest::newRow("less than forty") << 10 << 0;
    if (DPIinfo::getInstance().getDPI() == 1.0)
        QTest::newRow("one less than the widest") << 519 << 479;
}

void VemoInputSheetTest::widthComesFromTheParent()
{
    QFETCH(const int, parentWidth);
    QFETCH(const int, width);
    QWidget window;
    window.resize(scaled(parentWidth), 300);
    const VemoInputSheet sheet("Name", &window);
    QCOMPARE(sheet.width(), scaled(width));
    QCOMPARE(sheet.minimumWidth(), sheet.maximumWidth());
    QCOMPARE(sheet.sizePolicy(), QSizePolicy(QSizePolicy::Fixed, QSizePolicy::Maximum));
}

void VemoInputSheetTest::widthIsTruncatedBeforeItIsScaled()
{
    const QHash<int, int> widths {{96, 480}, {120, 586}, {144, 576}};
    const int dpi = qRound(DPIinfo::getInstance().getDPI() * 96);
    QVERIFY(widths.contains(dpi));
    QWidget window;
    window.resize(637, 300);
    QCOMPARE(VemoInputSheet("Name", &window).width(), widths[dpi]);
}

void VemoInputSheetTest::widthIsCappedWithoutAParent()
{
    const VemoInputSheet sheet("Name", nullptr);
    QCOMPARE(sheet.width(), scaled(480));
}

void VemoInputSheetTest::contentIsInsideTheBandAndTheMargins()
{
    QWidget window;
    window.resize(scaled(600), scaled(400));
    VemoInputSheet sheet("Name", &window);
    window.show();
    sheet.show();
    const int edge = scaled(22) + scaled(10);
    const QLabel *prompt = promptOf(sheet);
    const QLineEdit *field = sheet.getLineEdit();
    const auto *box = sheet.findChild<QDialogButtonBox *>();
    QCOMPARE(prompt->pos(), QPoint(edge, edge));
    QCOMPARE(field->pos(), QPoint(edge, prompt->geometry().bottom() + 1 + scaled(8)));
    QCOMPARE(field->width(), sheet.width() - 2 * edge);
    QCOMPARE(box->y(), field->geometry().bottom() + 1 + scaled(24));
    QCOMPARE(sheet.height() - box->geometry().bottom() - 1, edge);
}

void VemoInputSheetTest::heightFollowsThePrompt()
{
    QWidget window;
    window.resize(scaled(600), 3000);
    VemoInputSheet sheet("short", &window);
    window.show();
    sheet.show();
    const int low = sheet.height();
    sheet.setText(QString("long words ").repeated(100));
    QVERIFY(sheet.height() > low + 4 * scaled(20));
    QCOMPARE(promptOf(sheet)->height(), promptOf(sheet)->heightForWidth(promptOf(sheet)->width()));
    sheet.setText("short");
    QCOMPARE(sheet.height(), low);
}

void VemoInputSheetTest::keyEndsTheSheet_data()
{
    QTest::addColumn<bool>("isInField");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("result");
    QTest::addColumn<QString>("content");
    const int ok = Button::Ok;
    const int discard = Button::Discard;
    QTest::newRow("window, Escape") << false << int(Qt::Key_Escape) << discard << QString();
    QTest::newRow("window, Return") << false << int(Qt::Key_Return) << ok << QString();
    QTest::newRow("window, Enter") << false << int(Qt::Key_Enter) << ok << QString();
    QTest::newRow("window, Space") << false << int(Qt::Key_Space) << ok << QString();
    QTest::newRow("window, Tab") << false << int(Qt::Key_Tab) << kNothing << QString();
    QTest::newRow("window, A") << false << int(Qt::Key_A) << kNothing << QString();
    QTest::newRow("window, F5") << false << int(Qt::Key_F5) << kNothing << QString();
    QTest::newRow("field, Escape") << true << int(Qt::Key_Escape) << discard << QString();
    QTest::newRow("field, Return") << true << int(Qt::Key_Return) << ok << QString();
    QTest::newRow("field, Enter") << true << int(Qt::Key_Enter) << ok << QString();
    QTest::newRow("field, Space") << true << int(Qt::Key_Space) << kNothing << QString(" ");
    QTest::newRow("field, A") << true << int(Qt::Key_A) << kNothing << QString("a");
    QTest::newRow("field, Down") << true << int(Qt::Key_Down) << kNothing << QString();
}

void VemoInputSheetTest::keyEndsTheSheet()
{
    QFETCH(const bool, isInField);
    QFETCH(const int, key);
    QFETCH(const int, result);
    QFETCH(const QString, content);
    class Listener : public QWidget
    {
    public:
        void keyPressEvent(QKeyEvent * /*event*/) override { ++keys; }
        int keys = 0;
    };
    Listener window;
    VemoInputSheet sheet("Name", &window);
    window.show();
    const int code = resultOf(sheet, [&] {
        QWidget *target = isInField ? static_cast<QWidget *>(sheet.getLineEdit()) : &window;
        QTest::keyClick(target, Qt::Key(key));
    });
    QCOMPARE(code, result);
    QCOMPARE(sheet.getContent(), content);
    QCOMPARE(window.keys, 0);
}

void VemoInputSheetTest::keysOfTheWindowAreTakenEvenWhileHidden()
{
    QWidget window;
    VemoInputSheet sheet("Name", &window);
    window.show();
    const int code = resultOf(sheet, [&] {
        sheet.hide();
        QTest::keyClick(&window, Qt::Key_Return);
    });
    QCOMPARE(code, int(Button::Ok));
}

void VemoInputSheetTest::returnInTheFieldKeepsTheText()
{
    QWidget window;
    VemoInputSheet sheet("Name", &window);
    window.show();
    const int code = resultOf(sheet, [&] {
        QTest::keyClicks(sheet.getLineEdit(), "Reports 2026");
        QTest::keyClick(sheet.getLineEdit(), Qt::Key_Return);
    });
    QCOMPARE(code, 1024);
    QVERIFY(!sheet.isVisible());
    QCOMPARE(sheet.getContent(), "Reports 2026");
}

void VemoInputSheetTest::buttonsEndTheSheet_data()
{
    QTest::addColumn<int>("button");
    QTest::newRow("OK") << 1024;
    QTest::newRow("cancel") << int(Button::Discard);
}

void VemoInputSheetTest::buttonsEndTheSheet()
{
    QFETCH(const int, button);
    QWidget window;
    VemoInputSheet sheet("Name", &window);
    window.show();
    QSignalSpy finished(&sheet, SIGNAL(finished(int)));
    const int code =
        resultOf(sheet, [&] { QTest::mouseClick(buttonOf(sheet, button), Qt::LeftButton); });
    QCOMPARE(code, button);
    QCOMPARE(finished, QList<QVariantList> {{button}});
}

void VemoInputSheetTest::quitAndDoneEndTheSheet()
{
    QWidget window;
    VemoInputSheet sheet("Name", &window);
    window.show();
    QCOMPARE(resultOf(sheet, [&] { sheet.quit(); }), 0);
    QCOMPARE(resultOf(sheet, [&] { sheet.done(77); }), 77);
    QCOMPARE(resultOf(sheet, [&] { sheet.buttonClick(nullptr); }), 0);
}

void VemoInputSheetTest::focusIsInTheField_data()
{
    QTest::addColumn<bool>("isModal");
    QTest::newRow("exec") << true;
    QTest::newRow("showSheet") << false;
}

void VemoInputSheetTest::focusIsInTheField()
{
    QFETCH(const bool, isModal);
    QWidget window;
    QLineEdit behind(&window);
    VemoInputSheet sheet("Name", &window);
    window.show();
    behind.setFocus();
    if (isModal) {
        resultOf(sheet, [&] { QCOMPARE(window.focusWidget(), sheet.getLineEdit()); });
    } else {
        sheet.showSheet();
        QCOMPARE(window.focusWidget(), sheet.getLineEdit());
        QTest::keyClick(&window, Qt::Key_Return);
        QVERIFY(!sheet.isVisible());
    }
    QCOMPARE(window.focusWidget(), &behind);
}

void VemoInputSheetTest::defaultButtonCanBeSet()
{
    QWidget window;
    VemoInputSheet sheet("Name", &window);
    sheet.setDefaultButton(nullptr);
    QVERIFY(buttonOf(sheet, Button::Ok)->isDefault());
    sheet.setDefaultButton(buttonOf(sheet, Button::Discard));
    QVERIFY(buttonOf(sheet, Button::Discard)->isDefault());
    QVERIFY(buttonOf(sheet, Button::Ok)->isDefault());
}

void VemoInputSheetTest::closingTheWindowIsRefusedUnlessAllowed()
{
    QWidget window;
    QWidget other; // So that the application does not quit.
    VemoInputSheet sheet("Name", &window);
    window.show();
    other.show();
    QCOMPARE(resultOf(sheet, [&] { QVERIFY(!window.close()); }), kNothing);
    QVERIFY(window.isVisible());
    sheet.setBlockWindowButton(false);
    resultOf(sheet, [&] { QVERIFY(window.close()); });
    QVERIFY(!window.isVisible());
}

VEMO_TEST_MAIN(VemoInputSheetTest)
#include "tst_vemoinputsheet.moc"

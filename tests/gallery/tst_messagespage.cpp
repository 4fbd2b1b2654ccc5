// SPDX-License-Identifier: MIT
#include "gallery/commandline.h"
#include "gallery/page.h"
#include "gallery/pagelist.h"

#include "support/sheetdriver.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/vemobutton.h>

#include <QLabel>

/// The gallery's pages of messages and sheets, live.
class MessagesPageTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void buttonShowsItsSheetAndTheResult_data();
    void buttonShowsItsSheetAndTheResult();
    void ownSheetOpensAndCloses();
};

namespace {

struct ShownPage : Page
{
    explicit ShownPage(const QString &title) : Page(title, kOptions)
    {
        pages()[static_cast<size_t>(pageIndex(title))].build(*this);
        show();
    }

    VemoButton *buttonNamed(const QString &caption) const
    {
        for (VemoButton *button : findChildren<VemoButton *>()) {
            if (button->text() == caption)
                return button;
        }
        return nullptr;
    }

    bool hasText(const QString &text) const
    {
        for (const QLabel *label : findChildren<QLabel *>()) {
            if (label->text() == text)
                return true;
        }
        return false;
    }

    static const Options kOptions;
};

const Options ShownPage::kOptions {};

} // namespace

void MessagesPageTest::buttonShowsItsSheetAndTheResult_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("result"); // of Return
    const QString ok = "Result: Ok (1024)";
    const QString apply = "Result: Apply (33554432)";
    const QString none = "Result: none (0)";
    const QVector<QPair<QString, QString>> rows {{"App", none}, {"Information", ok},
        {"Warning", ok}, {"Confirm", apply}, {"ConfirmReset", apply}, {"Upgrading", apply},
        {"WarningConfirm", apply}, {"Processing", none}, {"Double confirm", none},
        {"Deutsch", apply}, {"中文", apply}, {"Rich text", apply}, {"Long text", apply},
        {"showConfirmMsg", apply}, {"showConfirmMsgCustomBtn", apply}, {"showInfoMsg", none},
        {"showWarningMsg", none}, {"showUpgradingMsg", none}};
    for (const auto &row : rows)
        QTest::newRow(qPrintable(row.first)) << "Messages" << row.first << row.second;
    QTest::newRow("input") << "Sheets"
                           << "Ask for a name" << ok;
}

void MessagesPageTest::buttonShowsItsSheetAndTheResult()
{
    QFETCH(const QString, page);
    QFETCH(const QString, caption);
    QFETCH(const QString, result);
    ShownPage shown(page);
    VemoButton *button = shown.buttonNamed(caption);
    QVERIFY(button);
    const SheetDriver driver([&] {
        QVERIFY(sheetOver(&shown));
        QTest::keyClick(&shown, Qt::Key_Return);
        // What Return does not end.
        if (VemoSheet *sheet = sheetOver(&shown))
            QMetaObject::invokeMethod(sheet, "quit");
    });
    button->click();
    QVERIFY(driver.hasActed());
    QVERIFY(shown.hasText(result));
}

void MessagesPageTest::ownSheetOpensAndCloses()
{
    ShownPage shown("Sheets");
    shown.buttonNamed("Show a sheet of our own")->click();
    QVERIFY(sheetOver(&shown));
    shown.buttonNamed("Close")->click();
    QTRY_VERIFY(!sheetOver(&shown));
}

VEMO_TEST_MAIN(MessagesPageTest)
#include "tst_messagespage.moc"

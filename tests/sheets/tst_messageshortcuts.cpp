// SPDX-License-Identifier: MIT
#include <vemo/messageshortcuts.h>

#include "support/activewindow.h"
#include "support/sheetdriver.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/componentstrings.h>
#include <vemo/imagemanager.h>
#include <vemo/stylemanager.h>
#include <vemo/vemomask.h>
#include <vemo/vemomessagesheet.h>

#include <QLabel>
#include <QPushButton>

namespace {

using Button = QDialogButtonBox;

constexpr int kNoResult = -1;
const QString kTitle = QStringLiteral("the title");
const QString kText = QStringLiteral("the text");

/// A message function, called with or without a parent.
using Call = std::function<int(QWidget *parent, bool showIcon)>;

int noResult()
{
    return kNoResult;
}

struct Shortcut
{
    const char *name;
    Call call;
    const char *sheetIcon;
    int sheetButtons;
    QMessageBox::Icon boxIcon;
    const char *boxStyleKey;
    const char *boxPicture;
    QString more = {};
    QStringList captions = {}; // Apply or OK, then cancel; the default ones if empty.
};

QVector<Shortcut> shortcuts()
{
    const int confirm = Button::Apply | Button::Discard;
    const MsgBoxCustomBtnText half(QString(), "No");
    const QString ok = ComponentStrings::getInstance().getString("ok");
    return {
        {"showConfirmMsg",
            [](auto *p, bool icon) { return showConfirmMsg(kTitle, kText, p, icon); },
            "icon_question", confirm, QMessageBox::Question, "component.confirm_message_box",
            "icon_question"},
        {"showConfirmMsgCustomBtn",
            [](auto *p, bool icon) {
                return showConfirmMsgCustomBtn(kTitle, kText, {"Yes", "No"}, p, icon);
            },
            "icon_question", confirm, QMessageBox::Question, "component.confirm_message_box",
            "icon_question", {}, {"Yes", "No"}},
        {"showConfirmMsgCustomBtn, one caption",
            [=](auto *p, bool icon) {
                return showConfirmMsgCustomBtn(kTitle, kText, half, p, icon);
            },
            "icon_question", confirm, QMessageBox::Question, "component.confirm_message_box",
            "icon_question", {}, {ok, "No"}},
        {"showInfoMsg",
            [](auto *p, bool icon) { return showInfoMsg(kTitle, kText, p, icon), noResult(); },
            "icon_information", Button::Ok, QMessageBox::Information, "component.info_message_box",
            "icon_information"},
        {"showUpgradingMsg",
            [](auto *p, bool icon) { return showUpgradingMsg(kTitle, kText, p, icon), noResult(); },
            "icon_information", confirm, QMessageBox::Warning, "component.upgrading_message_box",
            "icon_warning"},
        {"showWarningMsg with more",
            [](auto *p, bool icon) {
                return showWarningMsg(kTitle, kText, "more", p, icon), noResult();
            },
            "icon_warning", Button::Ok, QMessageBox::Warning, "component.warning_message_box",
            "icon_warning", "more"},
        {"showWarningMsg",
            [](auto *p, bool icon) { return showWarningMsg(kTitle, kText, p, icon), noResult(); },
            "icon_warning", Button::Ok, QMessageBox::Warning, "component.warning_message_box",
            "icon_warning"},
    };
}

QStringList textsOf(const QWidget *sheet)
{
    QStringList texts;
    for (const QLabel *label : sheet->findChildren<QLabel *>()) {
        if (!label->text().isEmpty())
            texts += label->text();
    }
    for (const QPushButton *button : sheet->findChildren<QPushButton *>())
        texts += button->text();
    return texts;
}

QMessageBox *shownBox()
{
    return qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
}

} // namespace

Q_DECLARE_METATYPE(const Shortcut *)

class MessageShortcutsTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void withAParentItIsASheet_data() { addShortcuts(); }
    void withAParentItIsASheet();
    void withoutAParentItIsABox_data() { addShortcuts(); }
    void withoutAParentItIsABox();
    void iconCanBeLeftOut_data() { addShortcuts(); }
    void iconCanBeLeftOut();
    void aConfirmationReturnsTheAnswer_data();
    void aConfirmationReturnsTheAnswer();
    void aBoxReturnsTheAnswer_data();
    void aBoxReturnsTheAnswer();
    void eachCallLeavesOneHiddenMask();
    void shadeIsBlackAtTwenty();
    void coversTheWindowOfAnInnerParent();
    void unseenWindowIsShownFirst_data();
    void unseenWindowIsShownFirst();
    void windowMayDieAsItIsShown();
    void sheetLooksLikeOneMadeByHand_data();
    void sheetLooksLikeOneMadeByHand();

private:
    static void addShortcuts();
};

void MessageShortcutsTest::addShortcuts()
{
    static const QVector<Shortcut> all = shortcuts();
    QTest::addColumn<const Shortcut *>("shortcut");
    for (const Shortcut &shortcut : all)
        QTest::newRow(shortcut.name) << &shortcut;
}

void MessageShortcutsTest::withAParentItIsASheet()
{
    QFETCH(const Shortcut *, shortcut);
    QWidget window;
    window.resize(600, 400);
    window.show();
    QPointer<VemoMessageSheet> shown;
    const SheetDriver driver([&] {
        auto *sheet = qobject_cast<VemoMessageSheet *>(sheetOver(&window));
        shown = sheet;
        const auto *box = sheet->findChild<QDialogButtonBox *>();
        QCOMPARE(int(box->standardButtons()), shortcut->sheetButtons);
        QCOMPARE(sheet->findChild<QLabel *>()->pixmap(Qt::ReturnByValue).toImage(),
            getGlobalImage(shortcut->sheetIcon).toImage());
        const QStringList texts = textsOf(sheet);
        QVERIFY(texts.contains(kText));
        QVERIFY(!texts.contains(kTitle));
        QVERIFY(shortcut->more.isEmpty() || texts.contains(shortcut->more));
        for (const QString &caption : shortcut->captions)
            QVERIFY(texts.contains(caption));
        sheet->quit();
    });
    QVERIFY(shortcut->call(&window, true) <= 0);
    QVERIFY(driver.hasActed());
    QVERIFY(!shown);
    QVERIFY(window.windowTitle() != kTitle);
}

void MessageShortcutsTest::withoutAParentItIsABox()
{
    QFETCH(const Shortcut *, shortcut);
    const bool isConfirm = shortcut->boxIcon == QMessageBox::Question;
    const SheetDriver driver([&] {
        QMessageBox *box = shownBox();
        QVERIFY(box);
        QCOMPARE(box->parentWidget(), nullptr);
        QCOMPARE(box->icon(), shortcut->boxIcon);
        const auto *picture = box->findChild<QLabel *>("qt_msgboxex_icon_label");
        QCOMPARE(picture->pixmap(Qt::ReturnByValue).toImage(),
            getGlobalImage(shortcut->boxPicture).toImage());
        QCOMPARE(box->windowTitle(), kTitle);
        QCOMPARE(box->text(), kText);
        QCOMPARE(box->informativeText(), shortcut->more);
        QCOMPARE(box->styleSheet(), getStyleSheet(shortcut->boxStyleKey));
        const auto yes = isConfirm ? QMessageBox::Apply : QMessageBox::Ok;
        const QMessageBox::StandardButtons all = isConfirm ? yes | QMessageBox::Cancel : yes;
        QCOMPARE(box->standardButtons(), all);
        QCOMPARE(box->button(yes)->text(),
            shortcut->captions.value(0, ComponentStrings::getInstance().getString("ok")));
        QCOMPARE(box->button(yes)->styleSheet(), getStyleSheet("component.apply_button"));
        if (isConfirm) {
            const QAbstractButton *cancel = box->button(QMessageBox::Cancel);
            QCOMPARE(cancel->text(),
                shortcut->captions.value(1, ComponentStrings::getInstance().getString("cancel")));
            QCOMPARE(cancel->styleSheet(), getStyleSheet("component.cancel_button"));
            // In the order in which they were added.
            QCOMPARE(box->findChildren<QPushButton *>().constFirst(), cancel);
        }
        for (const QWidget *widget : QApplication::allWidgets())
            QVERIFY(!qobject_cast<const VemoSheet *>(widget)
                && !qobject_cast<const VemoMask *>(widget));
        box->button(yes)->click();
    });
    QCOMPARE(shortcut->call(nullptr, true), isConfirm ? int(QMessageBox::Apply) : kNoResult);
    QVERIFY(driver.hasActed());
}

void MessageShortcutsTest::iconCanBeLeftOut()
{
    QFETCH(const Shortcut *, shortcut);
    QWidget window;
    window.show();
    const SheetDriver overWindow([&] {
        auto *sheet = qobject_cast<VemoMessageSheet *>(sheetOver(&window));
        QVERIFY(sheet->findChild<QLabel *>()->pixmap(Qt::ReturnByValue).isNull());
        sheet->quit();
    });
    shortcut->call(&window, false);
    const SheetDriver alone([&] {
        QCOMPARE(shownBox()->icon(), QMessageBox::NoIcon);
        shownBox()->reject();
    });
    shortcut->call(nullptr, false);
    QVERIFY(overWindow.hasActed() && alone.hasActed());
}

void MessageShortcutsTest::aConfirmationReturnsTheAnswer_data()
{
    QTest::addColumn<bool>("isCustom");
    QTest::addColumn<int>("button");
    QTest::addColumn<int>("result");
    for (const bool isCustom : {false, true}) {
        const char *name = isCustom ? "custom" : "plain";
        QTest::addRow("%s, yes", name) << isCustom << int(Button::Apply) << 0x2000000;
        QTest::addRow("%s, no", name) << isCustom << int(Button::Discard) << int(Button::Discard);
        QTest::addRow("%s, quit", name) << isCustom << 0 << 0;
    }
}

void MessageShortcutsTest::aConfirmationReturnsTheAnswer()
{
    QFETCH(const bool, isCustom);
    QFETCH(const int, button);
    QFETCH(const int, result);
    QWidget window;
    window.show();
    const SheetDriver driver([&] {
        auto *sheet = qobject_cast<VemoMessageSheet *>(sheetOver(&window));
        if (button == 0)
            sheet->quit();
        else
            sheet->button(QMessageBox::StandardButton(button))->click();
    });
    QCOMPARE(isCustom ? showConfirmMsgCustomBtn(kTitle, kText, {"Yes", "No"}, &window)
                      : showConfirmMsg(kTitle, kText, &window),
        result);
}

void MessageShortcutsTest::aBoxReturnsTheAnswer_data()
{
    QTest::addColumn<int>("button");
    QTest::newRow("yes") << int(QMessageBox::Apply);
    QTest::newRow("no") << int(QMessageBox::Cancel);
}

void MessageShortcutsTest::aBoxReturnsTheAnswer()
{
    QFETCH(const int, button);
    const SheetDriver driver(
        [&] { shownBox()->button(QMessageBox::StandardButton(button))->click(); });
    QCOMPARE(showConfirmMsg(kTitle, kText, nullptr), button);
}

void MessageShortcutsTest::eachCallLeavesOneHiddenMask()
{
    QWidget window;
    window.show();
    for (int calls = 1; calls <= 2; ++calls) {
        const SheetDriver driver([&] { QTest::keyClick(&window, Qt::Key_Return); });
        showInfoMsg(kTitle, kText, &window);
        const auto masks = window.findChildren<VemoMask *>();
        QCOMPARE(masks.size(), calls);
        for (const VemoMask *mask : masks)
            QVERIFY(!mask->isVisible());
        QVERIFY(window.findChildren<VemoSheet *>().isEmpty());
    }
}

void MessageShortcutsTest::shadeIsBlackAtTwenty()
{
    QWidget window;
    window.show();
    const SheetDriver driver([&] {
        QCOMPARE(
            window.findChild<VemoMask *>()->palette().color(QPalette::Window), QColor(0, 0, 0, 20));
        QTest::keyClick(&window, Qt::Key_Return);
    });
    showInfoMsg(kTitle, kText, &window);
    QVERIFY(driver.hasActed());
}

void MessageShortcutsTest::coversTheWindowOfAnInnerParent()
{
    QWidget window;
    window.resize(500, 400);
    QWidget inner(&window);
    inner.resize(300, 30);
    window.show();
    const SheetDriver driver([&] {
        const auto *mask = window.findChild<VemoMask *>();
        QCOMPARE(mask->parentWidget(), &window);
        QCOMPARE(mask->size(), window.size());
        QTest::keyClick(&window, Qt::Key_Return);
    });
    showInfoMsg(kTitle, kText, &inner);
    QVERIFY(driver.hasActed());
}

void MessageShortcutsTest::unseenWindowIsShownFirst_data()
{
    QTest::addColumn<QString>("before");
    for (const char *before :
        {"never shown", "hidden", "minimised", "minimised and hidden", "minimised from maximised"})
        QTest::newRow(before) << before;
}

void MessageShortcutsTest::unseenWindowIsShownFirst()
{
    QFETCH(const QString, before);
    QWidget window;
    QWidget inner(&window);
    window.resize(600, 400);
    if (before == "minimised from maximised")
        window.showMaximized();
    else if (before != "never shown")
        window.show();
    if (before.contains("minimised"))
        window.setWindowState(window.windowState() | Qt::WindowMinimized);
    if (before.contains("hidden"))
        window.hide();
    const SheetDriver driver([&] {
        QVERIFY(window.isVisible());
        QVERIFY(!window.isMinimized());
        QCOMPARE(window.isMaximized(), before.contains("maximised"));
        QVERIFY(sheetOver(&window));
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QTest::keyClick(&window, Qt::Key_Return);
    });
    showInfoMsg(kTitle, kText, &inner);
    QVERIFY(driver.hasActed());
    QVERIFY(window.isVisible());
}

void MessageShortcutsTest::windowMayDieAsItIsShown()
{
    class Window : public QWidget
    {
    public:
        void showEvent(QShowEvent * /*event*/) override { delete child; }
        QWidget *child = new QWidget(this);
    };
    Window window;
    QCOMPARE(showConfirmMsg(kTitle, kText, window.child), 0);
    QVERIFY(window.findChildren<VemoMask *>().isEmpty());
}

void MessageShortcutsTest::sheetLooksLikeOneMadeByHand_data()
{
    QTest::addColumn<int>("parentWidth");
    QTest::newRow("wide") << 700;
    QTest::newRow("narrow") << 420;
}

void MessageShortcutsTest::sheetLooksLikeOneMadeByHand()
{
    QFETCH(const int, parentWidth);
    const auto look = [](QWidget &window) {
        QTest::qWait(0); // So that layout and focus of both are complete.
        return sheetOver(&window)->grab().toImage();
    };
    QImage ours;
    QImage byHand;
    QWidget window;
    window.resize(800, 600);
    QWidget parent(&window);
    parent.resize(parentWidth, 30);
    QVERIFY(showActive(&window));
    const SheetDriver first([&] {
        ours = look(window);
        QTest::keyClick(&window, Qt::Key_Return);
    });
    showWarningMsg(kTitle, kText, "more", &parent);

    VemoMessageSheet sheet(VemoMessageSheet::Warning, kText, "more", &parent);
    VemoMask::createMask(&sheet, &window, QColor(0, 0, 0, 20));
    const SheetDriver second([&] {
        byHand = look(window);
        QTest::keyClick(&window, Qt::Key_Return);
    });
    sheet.exec();
    QCOMPARE(ours.size(), byHand.size());
    QCOMPARE(ours, byHand);
}

VEMO_TEST_MAIN(MessageShortcutsTest)
#include "tst_messageshortcuts.moc"

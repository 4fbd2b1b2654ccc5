// SPDX-License-Identifier: MIT
#include "gallery/demotexts.h"
#include "gallery/page.h"
#include "gallery/pages/pages.h"
#include "gallery/sheetstage.h"

#include <vemo/defaulttheme.h>
#include <vemo/messageshortcuts.h>
#include <vemo/vemobutton.h>
#include <vemo/vemocountdownmessagebox.h>
#include <vemo/vemomessagebar.h>
#include <vemo/vemomessagesheet.h>

#include <QLabel>
#include <QMovie>
#include <QPushButton>
#include <QTimer>

namespace {

using Sheet = VemoMessageSheet;

constexpr int kBusyTime = 3000; // Milliseconds.
constexpr QSize kStage(400, 320);
constexpr QSize kHighStage(400, 344); // The details are shown in full.
constexpr QSize kNarrowStage(270, 320);

const char *const kGerman =
    "Die Verbindungseinstellungen wurden geändert. Möchten Sie die Änderungen übernehmen oder alle "
    "Einstellungen auf die Werkseinstellungen zurücksetzen?";
const char *const kChinese = "无法连接到服务器。请检查您的网络连接，然后重试。如果问题仍然存在，"
                             "请联系系统管理员以获取更多信息和帮助。";

QString longText()
{
    return QString("This message is long, and the sheet grows with it. ").repeated(40).left(2000);
}

Sheet *newDoubleConfirm(QWidget *window)
{
    auto *sheet =
        new Sheet(Sheet::WarningConfirm, demo("delete_folder"), demo("files_removed"), window);
    sheet->setDoubleConfirmCheckBox(true, demo("no_way_back"));
    return sheet;
}

Sheet *newBusy(const QString &text, QWidget *window)
{
    auto *sheet = new Sheet(text, defaultThemeBusyAnimation(), window);
    sheet->movie()->setParent(sheet);
    return sheet;
}

int runBusy(QWidget *window)
{
    auto *sheet = newBusy("Copying 1,204 files ...", window);
    QTimer::singleShot(kBusyTime, sheet, SLOT(quit()));
    return sheet->execAndDelete();
}

/// A button that shows a message of a type.
QWidget *newTypeButton(const QString &caption, Sheet::MessageType type, QLabel *result)
{
    return newAskingButton(caption, result, [=](QWidget *window) {
        auto *sheet = new Sheet(type, "Shall the 1,204 files be sent to the archive?",
            QString("This is a message of the type %1.").arg(caption), window);
        // These two have no buttons.
        if (type == Sheet::App || type == Sheet::Processing)
            QTimer::singleShot(kBusyTime, sheet, SLOT(quit()));
        return sheet->execAndDelete();
    });
}

void addTypes(Page &page)
{
    auto *result = text("Result: none yet");
    page.addSection("Types, live",
        "Each opens over this window, takes its keys (Return, Escape, Tab) and tells its result. "
        "Those without buttons go by themselves.");
    page.addRow({newTypeButton("App", Sheet::App, result),
        newTypeButton("Information", Sheet::Information, result),
        newTypeButton("Warning", Sheet::Warning, result),
        newTypeButton("Confirm", Sheet::Confirm, result)});
    page.addRow({newTypeButton("ConfirmReset", Sheet::ConfirmReset, result),
        newTypeButton("Upgrading", Sheet::Upgrading, result),
        newTypeButton("WarningConfirm", Sheet::WarningConfirm, result),
        newAskingButton("Processing", result, runBusy),
        newAskingButton("Double confirm", result,
            [](QWidget *window) { return newDoubleConfirm(window)->execAndDelete(); })});
    page.add(result);
    page.addCode(
        R"(auto *sheet = new VemoMessageSheet(VemoMessageSheet::Confirm, tr("Delete it?"), window);
if (sheet->execAndDelete() == QDialogButtonBox::Apply)
    deleteIt();)");
}

QWidget *newTextButton(const QString &caption, const QString &text, QLabel *result)
{
    return newAskingButton(caption, result, [=](QWidget *window) {
        return (new Sheet(Sheet::Confirm, text, window))->execAndDelete();
    });
}

void addTexts(Page &page)
{
    auto *result = text("Result: none yet");
    page.addSection("Texts, live", "Links open in the browser; the height follows the text.");
    page.addRow({newTextButton("Deutsch", kGerman, result), newTextButton("中文", kChinese, result),
        newTextButton("Rich text",
            "<b>Version 2</b> is here. See the <a href='https://vemo.invalid'>notes</a>:<ul>"
            "<li>faster</li><li>smaller</li></ul>",
            result),
        newTextButton("Long text", longText(), result)});
    page.add(result);
}

void addShortcuts(Page &page)
{
    const QString title = "Vemo";
    auto *result = text("Result: none yet");
    const auto newShortcut = [=](const QString &caption, const std::function<int(QWidget *)> &ask) {
        return newAskingButton(caption, result, ask);
    };
    page.addSection("Shortcuts, live", "One call each. Without a parent it is a message box.");
    page.addRow({newShortcut("showConfirmMsg",
                     [=](QWidget *w) { return showConfirmMsg(title, "Send the report?", w); }),
        newShortcut("showConfirmMsgCustomBtn",
            [=](QWidget *w) {
                return showConfirmMsgCustomBtn(title, "Send the report?", {"Send", "Keep"}, w);
            }),
        newShortcut("showInfoMsg",
            [=](QWidget *w) { return showInfoMsg(title, "The report is sent.", w), 0; }),
        newShortcut("showWarningMsg", [=](QWidget *w) {
            return showWarningMsg(title, "The report was not sent.", "No network.", w), 0;
        })});
    page.addRow(
        {newShortcut("showUpgradingMsg",
             [=](QWidget *w) { return showUpgradingMsg(title, "Version 2 is here.", w), 0; }),
            newShortcut("Without a parent",
                [=](QWidget *) { return showConfirmMsg(title, "Send the report?", nullptr); }),
            newShortcut("Countdown", [](QWidget *window) {
                VemoCountdownMessageBox box(window);
                box.setText("The computer is about to restart.");
                box.setStartValue(5);
                return box.exec();
            })});
    page.add(result);
    page.addCode(R"(if (showConfirmMsg(tr("Vemo"), tr("Send the report?"), window)
    == QDialogButtonBox::Apply)
    send();)");
}

QLabel *stage(const QSize &size, const std::function<VemoSheet *(QWidget *)> &newSheet)
{
    return picture([=] { return sheetOverWindow(size, newSheet); });
}

Sheet *newWithOptions(QWidget *window)
{
    auto *sheet = new Sheet(Sheet::WarningConfirm, demo("delete_folder"), window);
    sheet->setDontAskAgainCheckBox(true);
    sheet->setDetailedText("2026-03-01.log\n2026-03-02.log\n2026-03-03.log");
    sheet->setDefaultButton(QMessageBox::Discard);
    return sheet;
}

Sheet *newUnfolded(QWidget *window)
{
    Sheet *sheet = newWithOptions(window);
    const QList<QPushButton *> buttons = sheet->findChildren<QPushButton *>();
    for (QPushButton *button : buttons) {
        if (!qobject_cast<QDialogButtonBox *>(button->parent()))
            button->click();
    }
    return sheet;
}

void addOptions(Page &page)
{
    auto *result = text("Result: none yet");
    page.addSection("Options",
        "A check box that the host reads at the end, details that unfold, and a default button.");
    page.addRow({newAskingButton("Ask with options", result,
                     [](QWidget *window) { return newWithOptions(window)->execAndDelete(); }),
        result});
    page.addRow({stage(kHighStage, newWithOptions), stage(kHighStage, newUnfolded)});
    page.addCode(R"(sheet->setDontAskAgainCheckBox(true);
sheet->setDetailedText(fileNames.join('\n'));
sheet->setDefaultButton(QMessageBox::Discard);)");
}

void addMessageBar(Page &page)
{
    auto *bar = new VemoMessageBar;
    page.addSection(
        "Message bar", "For messages that need no answer. Those that come in the meantime wait.");
    const auto newButton = [bar](const QString &caption, const std::function<void()> &show) {
        auto *button = new VemoButton(caption, VemoButton::DEFAULT);
        QObject::connect(button, &VemoButton::clicked, bar, show);
        return button;
    };
    page.addRow({newButton("Warning",
                     [bar] { bar->showMessage(VemoMessageBar::Warning, demo("files_removed")); }),
        newButton("Three seconds",
            [bar] { bar->showMessage(VemoMessageBar::Success, demo("copying"), kBusyTime); })});
    page.add(bar);
    for (const auto type : {VemoMessageBar::Information, VemoMessageBar::Success,
             VemoMessageBar::Warning, VemoMessageBar::Error}) {
        auto *shown = new VemoMessageBar;
        page.add(shown);
        if (type == VemoMessageBar::Information)
            shown->showMessage(type, demo("archive_note"), demo("restore"), [] {});
        else
            shown->showMessage(type, demo("files_removed"));
    }
    page.addCode(R"(auto *bar = new VemoMessageBar(page);
layout->insertWidget(0, bar);
bar->showMessage(VemoMessageBar::Success, tr("The backup is done."), 5000);
bar->showMessage(VemoMessageBar::Information, tr("Deleted."), tr("Undo"), [this] { undo(); });)");
}

void addLooks(Page &page)
{
    page.addSection("As they look");
    page.addRow({stage(kStage,
                     [](QWidget *w) { return new Sheet(Sheet::Confirm, demo("send_report"), w); }),
        stage(kStage, newDoubleConfirm)});
    page.addRow({stage(kStage,
                     [](QWidget *w) {
                         return new Sheet(Sheet::ConfirmReset, kGerman,
                             MsgBoxCustomBtnText("Änderungen übernehmen", "Verwerfen"), w);
                     }),
        stage(kStage, [](QWidget *w) { return new Sheet(Sheet::Warning, kChinese, w); })});
    page.addRow({stage(kStage, [](QWidget *w) { return newBusy(demo("copying"), w); }),
        stage(kNarrowStage,
            [](QWidget *w) { return new Sheet(Sheet::ConfirmReset, demo("keep_settings"), w); })});
}

} // namespace

void buildMessagesPage(Page &page)
{
    page.addSummary("Messages drawn as a sheet over their window, and shortcuts for them.");
    addTypes(page);
    addTexts(page);
    addShortcuts(page);
    addOptions(page);
    addMessageBar(page);
    addLooks(page);
}

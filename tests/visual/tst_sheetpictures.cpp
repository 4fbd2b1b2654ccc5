// SPDX-License-Identifier: MIT
#include "core/scaling_p.h"
#include "visual/baselinetest.h"

#include <vemo/stylemanager.h>
#include <vemo/vemoinputsheet.h>
#include <vemo/vemomask.h>
#include <vemo/vemomessagebar.h>
#include <vemo/vemomessagesheet.h>
#include <vemo/vemoprogresssheet.h>

#include <QCheckBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

namespace {

using Message = VemoMessageSheet;

constexpr QSize kWindow(376, 200); // design pixels
constexpr QSize kHigherWindow(376, 240);
constexpr QSize kHighestWindow(376, 320);
constexpr QSize kContent(64, 32);

using NewSheet = std::function<VemoSheet *(QWidget *)>;
using Change = std::function<void(Stage &, VemoSheet *)>;

/// The picture of a window with a sheet, its mask, and two bars below them.
QImage sheetOverWindow(const NewSheet &make, const Change &change = {}, const QSize &size = kWindow)
{
    auto *window = new QWidget;
    Stage stage(window, size);
    for (const int y : {20, 160}) {
        auto *bar = new QWidget(window);
        bar->setAutoFillBackground(true);
        bar->setPalette(QPalette(QColor(0x52606D)));
        bar->setGeometry(0, scaled(y), window->width(), scaled(4));
        bar->show();
    }
    VemoSheet *sheet = make(window);
    const QColor shade = StyleManager::getInstance().getColor("mask", QColor(0, 0, 0, 20));
    QWidget *mask = VemoMask::createMask(sheet, window, shade);
    mask->setGeometry(window->rect());
    sheet->show();
    if (change)
        change(stage, sheet);
    return stage.picture();
}

VemoSheet *newFrame(QWidget *window)
{
    auto *content = new QWidget;
    content->setFixedSize(scaled(kContent.width()), scaled(kContent.height()));
    content->setAutoFillBackground(true);
    content->setPalette(QPalette(QColor(0x1769E0)));
    auto *sheet = new VemoSheet(window);
    sheet->setWidget(content);
    sheet->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    return sheet;
}

VemoSheet *newMessage(Message::MessageType type, QWidget *window)
{
    return new Message(type, "ab", MsgBoxCustomBtnText("cd", "ef"), window);
}

VemoSheet *newDoubleConfirm(QWidget *window)
{
    auto *sheet =
        new Message(Message::WarningConfirm, "ab", MsgBoxCustomBtnText("cd", "ef"), window);
    sheet->setInformativeText("gh ij");
    sheet->setDoubleConfirmCheckBox(true, "kl");
    return sheet;
}

void addMessages(Looks &looks)
{
    const QVector<QPair<Message::MessageType, const char *>> types {{Message::App, "app"},
        {Message::Information, "information"}, {Message::Warning, "warning"},
        {Message::Confirm, "confirm"}, {Message::Processing, "processing"}};
    for (const auto &[type, name] : types)
        looks.append({name, [type = type] {
                          return sheetOverWindow(
                              [type](QWidget *window) { return newMessage(type, window); });
                      }});
}

void addDoubleConfirms(Looks &looks)
{
    const auto add = [&looks](const char *name, const Change &change) {
        looks.append(
            {name, [=] { return sheetOverWindow(newDoubleConfirm, change, kHigherWindow); }});
    };
    add("double-confirm", {});
    add("double-confirm-checked",
        [](Stage &, VemoSheet *sheet) { sheet->findChild<QCheckBox *>()->setChecked(true); });
    add("double-confirm-focus", [](Stage &stage, VemoSheet *sheet) {
        stage.put(State::Focus, sheet->findChild<QCheckBox *>());
    });
}

VemoSheet *newInput(QWidget *window)
{
    auto *sheet = new VemoInputSheet("ab", window);
    for (const auto which : {QMessageBox::Ok, QMessageBox::Cancel, QMessageBox::Discard}) {
        if (QAbstractButton *button = sheet->button(which))
            button->setText("cd");
    }
    return sheet;
}

VemoSheet *newMessageWithOptions(QWidget *window)
{
    auto *sheet = new Message(Message::Confirm, "ab", MsgBoxCustomBtnText("cd", "ef"), window);
    sheet->setDontAskAgainCheckBox(true, "gh");
    sheet->setDetailedText("ij");
    auto *button = sheet->findChild<QPlainTextEdit *>()->parent()->findChild<QPushButton *>();
    button->click();
    button->setText("kl");
    return sheet;
}

VemoSheet *newInputWithOptions(QWidget *window)
{
    auto *sheet = static_cast<VemoInputSheet *>(newInput(window));
    sheet->setMultiLine(true);
    sheet->setCheck([](const QString &text) { return text.isEmpty(); });
    sheet->setErrorText("gh");
    sheet->setContent("ij");
    return sheet;
}

VemoSheet *newContent(QWidget *window)
{
    auto *content = new QWidget;
    content->setFixedSize(scaled(kContent.width()) * 4, scaled(kContent.height()));
    content->setAutoFillBackground(true);
    content->setPalette(QPalette(QColor(0x1769E0)));
    auto *sheet = new VemoContentSheet(content, window);
    sheet->button(QMessageBox::Ok)->setText("ab");
    sheet->button(QMessageBox::Discard)->setText("cd");
    return sheet;
}

VemoSheet *newProgress(QWidget *window, bool isCanceled)
{
    auto *sheet = new VemoProgressSheet("ab", window);
    sheet->setCancelButtonText("cd");
    sheet->setValue(60);
    if (isCanceled)
        sheet->cancel();
    return sheet;
}

void addBars(Looks &looks)
{
    const QVector<QPair<VemoMessageBar::MessageType, const char *>> types {
        {VemoMessageBar::Information, "bar-information"}, {VemoMessageBar::Success, "bar-success"},
        {VemoMessageBar::Warning, "bar-warning"}, {VemoMessageBar::Error, "bar-error"}};
    for (const auto &[type, name] : types) {
        addStates(looks, name,
            [type = type] {
                auto *bar = new VemoMessageBar;
                bar->showMessage(type, "ab", "cd", [] {});
                return bar;
            },
            {State::Rest}, {200, 0});
    }
}

void addRunning(Looks &looks)
{
    looks.append({"content", [] { return sheetOverWindow(newContent); }});
    for (const bool isCanceled : {false, true}) {
        looks.append({isCanceled ? "progress-canceled" : "progress", [isCanceled] {
                          return sheetOverWindow([isCanceled](QWidget *window) {
                              return newProgress(window, isCanceled);
                          });
                      }});
    }
}

void addOptions(Looks &looks)
{
    const auto add = [&looks](const char *name, const NewSheet &make, const Change &change = {}) {
        looks.append({name, [=] { return sheetOverWindow(make, change, kHighestWindow); }});
    };
    const auto focus = [](Stage &stage, VemoSheet *sheet) {
        stage.put(State::Focus, sheet->findChild<QPlainTextEdit *>());
    };
    add("message-options", newMessageWithOptions);
    add("message-options-focus", newMessageWithOptions, focus);
    add("input-options", newInputWithOptions);
    add("input-options-focus", newInputWithOptions, focus);
    addStates(looks, "details", [] {
        auto *button = new QPushButton("ab");
        button->setStyleSheet(getStyleSheet("component.message_sheet_details_button"));
        return button;
    });
}

/// The sheet's own buttons and boxes, in all their states.
void addParts(Looks &looks)
{
    addStates(looks, "reset", [] {
        auto *button = new QPushButton("ab");
        button->setStyleSheet(getStyleSheet("component.reset_button"));
        return button;
    });
    for (const bool isChecked : {false, true}) {
        addStates(looks, isChecked ? "warning-box-on" : "warning-box-off", [isChecked] {
            auto *box = new QCheckBox;
            box->setStyleSheet(getStyleSheet("component.checkbox_warning"));
            box->setChecked(isChecked);
            return box;
        });
    }
}

} // namespace

class SheetPictures : public BaselineTest
{
    Q_OBJECT

public:
    SheetPictures() : BaselineTest("sheet") { }

protected:
    Looks looks() const override;
};

Looks SheetPictures::looks() const
{
    Looks looks;
    looks.append({"frame", [] { return sheetOverWindow(newFrame); }});
    addMessages(looks);
    addDoubleConfirms(looks);
    looks.append({"input", [] { return sheetOverWindow(newInput); }});
    addOptions(looks);
    addRunning(looks);
    addBars(looks);
    addParts(looks);
    return looks;
}

VEMO_TEST_MAIN(SheetPictures)
#include "tst_sheetpictures.moc"

// SPDX-License-Identifier: MIT
#include <vemo/messageshortcuts.h>

#include "sheets/sheetparts_p.h"

#include <vemo/componentstrings.h>
#include <vemo/vemomask.h>
#include <vemo/vemomessagesheet.h>

#include <QMessageBox>
#include <QPointer>

namespace {

const QColor kShade(0, 0, 0, 20);

/// What one shortcut shows, whichever way it goes.
struct Message
{
    VemoMessageSheet::MessageType type;
    QMessageBox::Icon boxIcon;
    const char *boxStyleKey;
    QString title; ///< of the box; a sheet has none
    QString text;
    bool showIcon;
    MsgBoxCustomBtnText captions = {};
    QString informativeText = {};
};

QString captionOr(const QString &custom, const char *key)
{
    return custom.isEmpty() ? ComponentStrings::getInstance().getString(QLatin1String(key))
                            : custom;
}

int runSheet(VemoMessageSheet *sheet, const QWidget *parent)
{
    // On the heap, since it may die with its window while it runs.
    const QPointer<VemoMessageSheet> held = sheet;
    VemoMask::createMask(sheet, parent->window(), kShade);
    const int result = sheet->exec();
    delete held.data();
    return result;
}

void addConfirmButtons(QMessageBox &box, const MsgBoxCustomBtnText &captions)
{
    QPushButton *cancel = box.addButton(QMessageBox::Cancel);
    QPushButton *apply = box.addButton(QMessageBox::Apply);
    dressButton(apply, captionOr(captions.applyText, "ok"), "component.apply_button");
    dressButton(cancel, captionOr(captions.cancelText, "cancel"), "component.cancel_button");
}

void addOkButton(QMessageBox &box)
{
    box.setStandardButtons(QMessageBox::Ok);
    dressButton(static_cast<QPushButton *>(box.button(QMessageBox::Ok)), captionOr({}, "ok"),
        "component.apply_button");
}

int runBox(const Message &message)
{
    QMessageBox box;
    if (message.showIcon)
        box.setIcon(message.boxIcon);
    box.setWindowTitle(message.title);
    box.setText(message.text);
    box.setInformativeText(message.informativeText);
    box.setStyleSheet(getStyleSheet(message.boxStyleKey));
    if (message.type == VemoMessageSheet::Confirm)
        addConfirmButtons(box, message.captions);
    else
        addOkButton(box);
    return box.exec();
}

} // namespace

int showConfirmMsg(const QString &title, const QString &text, QWidget *parent, bool showIcon)
{
    return showConfirmMsgCustomBtn(title, text, {}, parent, showIcon);
}

int showConfirmMsgCustomBtn(const QString &title, const QString &text,
    const MsgBoxCustomBtnText &buttons, QWidget *parent, bool showIcon)
{
    constexpr auto type = VemoMessageSheet::Confirm;
    if (parent)
        return runSheet(new VemoMessageSheet(type, text, buttons, parent, showIcon), parent);
    return runBox({type, QMessageBox::Question, "component.confirm_message_box", title, text,
        showIcon, buttons});
}

void showInfoMsg(const QString &title, const QString &text, QWidget *parent, bool showIcon)
{
    constexpr auto type = VemoMessageSheet::Information;
    if (parent)
        runSheet(new VemoMessageSheet(type, text, parent, showIcon), parent);
    else
        runBox(
            {type, QMessageBox::Information, "component.info_message_box", title, text, showIcon});
}

void showUpgradingMsg(const QString &title, const QString &text, QWidget *parent, bool showIcon)
{
    constexpr auto type = VemoMessageSheet::Upgrading;
    if (parent)
        runSheet(new VemoMessageSheet(type, text, parent, showIcon), parent);
    else // Deliberate: the box warns.
        runBox(
            {type, QMessageBox::Warning, "component.upgrading_message_box", title, text, showIcon});
}

void showWarningMsg(const QString &title, const QString &text, const QString &informativeText,
    QWidget *parent, bool showIcon)
{
    constexpr auto type = VemoMessageSheet::Warning;
    if (parent)
        runSheet(new VemoMessageSheet(type, text, informativeText, parent, showIcon), parent);
    else
        runBox({type, QMessageBox::Warning, "component.warning_message_box", title, text, showIcon,
            {}, informativeText});
}

void showWarningMsg(const QString &title, const QString &text, QWidget *parent, bool showIcon)
{
    showWarningMsg(title, text, QString(), parent, showIcon);
}

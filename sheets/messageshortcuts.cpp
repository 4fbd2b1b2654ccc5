// SPDX-License-Identifier: MIT
#include <vemo/messageshortcuts.h>

#include "core/stringof_p.h"
#include "sheets/onecall_p.h"
#include "sheets/sheetparts_p.h"
#include "sheets/vemomessagesheet_p.h"

#include <vemo/imagemanager.h>

#include <QLabel>
#include <QMessageBox>
#include <QPointer>

namespace {

/// The content of a message, with or without a parent.
struct Message
{
    VemoMessageSheet::MessageType type;
    QMessageBox::Icon boxIcon;
    const char *boxStyleKey;
    const char *boxPicture;
    QString title; ///< of the box; sheets have no title
    QString text;
    bool showIcon;
    MsgBoxCustomBtnText captions = {};
    QString informativeText = {};
};

QString captionOr(const QString &custom, const char *key)
{
    return custom.isEmpty() ? stringOf(key) : custom;
}

int runSheet(const Message &message, QWidget *parent)
{
    const QPointer<QWidget> heldParent = parent;
    showWindow(parent->window());
    if (!heldParent)
        return 0;
    // On the heap, because it may be deleted with its window while it runs.
    const QPointer<VemoMessageSheet> sheet = VemoMessageSheetPrivate::newMaskedSheet(message.type,
        message.text, message.informativeText, message.captions, parent, message.showIcon);
    const int result = sheet->exec();
    delete sheet.data();
    return result;
}

void addConfirmButtons(QMessageBox &box, const MsgBoxCustomBtnText &captions)
{
    QPushButton *cancel = box.addButton(QMessageBox::Cancel);
    QPushButton *apply = box.addButton(QMessageBox::Apply);
    styleButton(apply, captionOr(captions.applyText, "ok"), "component.apply_button");
    styleButton(cancel, captionOr(captions.cancelText, "cancel"), "component.cancel_button");
}

void addOkButton(QMessageBox &box)
{
    box.setStandardButtons(QMessageBox::Ok);
    styleButton(static_cast<QPushButton *>(box.button(QMessageBox::Ok)), captionOr({}, "ok"),
        "component.apply_button");
}

/// Replaces Qt's stock icon, which is coarse and has a different look.
void showPicture(QMessageBox &box, const char *name)
{
    auto *label = box.findChild<QLabel *>(QStringLiteral("qt_msgboxex_icon_label"));
    const QPixmap picture =
        ImageManager::getInstance().isInitialized() ? getGlobalImage(name) : QPixmap();
    if (label && !picture.isNull())
        label->setPixmap(picture);
}

int runBox(const Message &message)
{
    QMessageBox box;
    box.setWindowTitle(message.title);
    box.setText(message.text);
    box.setInformativeText(message.informativeText);
    box.setStyleSheet(getStyleSheet(message.boxStyleKey));
    if (message.showIcon) {
        box.setIcon(message.boxIcon);
        showPicture(box, message.boxPicture);
    }
    if (message.type == VemoMessageSheet::Confirm)
        addConfirmButtons(box, message.captions);
    else
        addOkButton(box);
    return box.exec();
}

int run(const Message &message, QWidget *parent)
{
    return parent ? runSheet(message, parent) : runBox(message);
}

} // namespace

int showConfirmMsg(const QString &title, const QString &text, QWidget *parent, bool showIcon)
{
    return showConfirmMsgCustomBtn(title, text, {}, parent, showIcon);
}

int showConfirmMsgCustomBtn(const QString &title, const QString &text,
    const MsgBoxCustomBtnText &buttons, QWidget *parent, bool showIcon)
{
    return run({VemoMessageSheet::Confirm, QMessageBox::Question, "component.confirm_message_box",
                   "icon_question", title, text, showIcon, buttons},
        parent);
}

void showInfoMsg(const QString &title, const QString &text, QWidget *parent, bool showIcon)
{
    run({VemoMessageSheet::Information, QMessageBox::Information, "component.info_message_box",
            "icon_information", title, text, showIcon},
        parent);
}

void showUpgradingMsg(const QString &title, const QString &text, QWidget *parent, bool showIcon)
{
    // Deliberate: the box has the warning icon.
    run({VemoMessageSheet::Upgrading, QMessageBox::Warning, "component.upgrading_message_box",
            "icon_warning", title, text, showIcon},
        parent);
}

void showWarningMsg(const QString &title, const QString &text, const QString &informativeText,
    QWidget *parent, bool showIcon)
{
    run({VemoMessageSheet::Warning, QMessageBox::Warning, "component.warning_message_box",
            "icon_warning", title, text, showIcon, {}, informativeText},
        parent);
}

void showWarningMsg(const QString &title, const QString &text, QWidget *parent, bool showIcon)
{
    showWarningMsg(title, text, QString(), parent, showIcon);
}

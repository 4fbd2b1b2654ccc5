// SPDX-License-Identifier: MIT
#include "sheets/vemomessagesheet_p.h"

#include "core/resourcefile_p.h"
#include "core/scaling_p.h"
#include "core/stringof_p.h"
#include "sheets/buttonboxstyle_p.h"
#include "sheets/checkrow_p.h"
#include "sheets/detailspane_p.h"
#include "sheets/iconlabel_p.h"
#include "sheets/sheetparts_p.h"

#include <vemo/clickablelabel.h>
#include <vemo/imagemanager.h>
#include <vemo/vemomask.h>

#include <QCheckBox>
#include <QLayout>
#include <QMovie>
#include <QStyle>

#include <iterator>
#include <utility>

namespace {

using Button = QDialogButtonBox;

// In design pixels.
constexpr double kMovieSize = 32;

constexpr const char *kProcessingSheet = "component.message_sheet_processing";
constexpr const char *kOtherSheet = "component.message_sheet_other";
constexpr const char *kText = "component.message_sheet_text";
constexpr const char *kInformativeText = "component.message_sheet_informative_text";

struct TypeLook
{
    const char *icon; ///< a catalogue name; null if there is none
    int buttons;
    const char *styleKey;
};

constexpr int kConfirmButtons = Button::Apply | Button::Discard;
constexpr TypeLook kLooks[] = {
    {"app_img", Button::NoButton, kProcessingSheet},
    {"icon_information", Button::Ok, kOtherSheet},
    {"icon_warning", Button::Ok, kOtherSheet},
    {"icon_question", kConfirmButtons, kOtherSheet},
    {"icon_question", kConfirmButtons | Button::Reset, kOtherSheet},
    {"icon_information", kConfirmButtons, kOtherSheet},
    {"icon_warning", kConfirmButtons, kOtherSheet},
    {nullptr, Button::NoButton, kProcessingSheet},
};
constexpr TypeLook kUnknownLook {nullptr, Button::NoButton, kOtherSheet};

const TypeLook &lookOf(int type)
{
    const bool isKnown = type >= 0 && type < static_cast<int>(std::size(kLooks));
    return isKnown ? kLooks[type] : kUnknownLook;
}

} // namespace

VemoMessageSheetPrivate::VemoMessageSheetPrivate(
    VemoMessageSheet *sheet, VemoMessageSheet::MessageType messageType, bool isIconShown)
    : QObject(sheet), q(sheet), iconLabel(new IconLabel(sheet)), type(messageType),
      buttonBox(new QDialogButtonBox(sheet)), run(sheet), showIcon(isIconShown),
      confirmContainer(new QWidget(sheet))
{
    confirmContainer->hide();
    buttonBox->setStyle(buttonBoxStyle(Button::WinLayout));
    buttonBox->installEventFilter(this);
    // As wide as the sheet, even if the buttons are stacked.
    buttonBox->setSizePolicy(QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed));
    connect(buttonBox, SIGNAL(clicked(QAbstractButton*)), q, SLOT(buttonClick(QAbstractButton*)));
}

VemoMessageSheet *VemoMessageSheetPrivate::newMaskedSheet(VemoMessageSheet::MessageType type,
    const QString &text, const QString &informativeText, const MsgBoxCustomBtnText &captions,
    QWidget *parent, bool showIcon)
{
    auto *sheet = new VemoMessageSheet(parent, type, showIcon);
    VemoMask::createMask(sheet, parent->window(), maskShade());
    sheet->m_d->build(captions, text, informativeText, parent);
    return sheet;
}

void VemoMessageSheetPrivate::build(const MsgBoxCustomBtnText &captions, const QString &text,
    const QString &informativeText, const QWidget *over)
{
    updateStyle(captions);
    changeText(text);
    changeInformativeText(informativeText, {});
    layOut(over);
}

void VemoMessageSheetPrivate::updateStyle(const MsgBoxCustomBtnText &captions)
{
    const TypeLook &look = lookOf(type);
    q->setStyleSheet(getStyleSheet(look.styleKey));
    showTypeIcon();
    buttonBox->setStandardButtons(Button::StandardButtons(look.buttons));
    styleButtons(captions);
    if (doubleConfirm)
        styleConfirmRow();
    else
        removeConfirmRow();
    styleLabels();
    for (const auto which : {Button::Ok, Button::Apply, Button::Discard, Button::Reset}) {
        if (QPushButton *present = button(which))
            present->installEventFilter(q);
    }
}

void VemoMessageSheetPrivate::rebuild()
{
    updateStyle({});
    layOut();
}

void VemoMessageSheetPrivate::showTypeIcon()
{
    const TypeLook &look = lookOf(type);
    if (showIcon && look.icon)
        showTypePicture(getGlobalImage(look.icon));
    else if (showIcon && type == VemoMessageSheet::Processing && movie)
        iconLabel->setMovie(movie);
    else
        iconLabel->clear();
}

void VemoMessageSheetPrivate::showTypePicture(const QPixmap &picture)
{
    iconLabel->setPixmap(picture);
    typePictureKey = picture.cacheKey();
}

void VemoMessageSheetPrivate::reloadTypeIcon()
{
    const QPixmap shown = iconLabel->pixmap(Qt::ReturnByValue);
    // A picture of the host's own stays.
    if (!shown.isNull() && shown.cacheKey() == typePictureKey)
        showTypeIcon();
}

QString VemoMessageSheetPrivate::typeCaption(Button::StandardButton which) const
{
    if (which == Button::Discard)
        return stringOf("cancel");
    if (which == Button::Reset)
        return stringOf("reset");
    const bool isUpgrading = type == VemoMessageSheet::Upgrading;
    return stringOf(isUpgrading ? "wizard_client_upgrade" : "ok");
}

void VemoMessageSheetPrivate::translate()
{
    for (const auto which : {Button::Ok, Button::Apply, Button::Discard, Button::Reset}) {
        if (shownCaptions.contains(which))
            followLanguage(button(which), {"text"}, &shownCaptions[which], typeCaption(which));
    }
    translateExtras();
    fitLater();
}

void VemoMessageSheetPrivate::styleButtons(const MsgBoxCustomBtnText &captions)
{
    shownCaptions.clear();
    const auto caption = [this](const QString &custom, Button::StandardButton which) {
        return custom.isEmpty() ? shownCaptions[which] = typeCaption(which) : custom;
    };
    for (const auto which : {Button::Ok, Button::Apply}) {
        QPushButton *apply = button(which);
        if (!apply)
            continue;
        styleButton(apply, caption(captions.applyText, which), "component.apply_button");
        apply->setDefault(true);
        setButtonSize(apply);
    }
    if (QPushButton *cancel = button(Button::Discard)) {
        styleButton(
            cancel, caption(captions.cancelText, Button::Discard), "component.cancel_button");
        setButtonSize(cancel);
    }
    // Deliberate: only this button keeps its natural size.
    if (QPushButton *reset = button(Button::Reset))
        styleButton(reset, caption(captions.resetText, Button::Reset), "component.reset_button");
    if (defaultWhich != Button::NoButton)
        showDefaultButton();
}

void VemoMessageSheetPrivate::styleConfirmRow()
{
    removeConfirmRow();
    if (QPushButton *apply = button(Button::Apply))
        apply->setEnabled(false);
    const CheckRow row = newCheckRow(
        confirmContainer, "component.checkbox_warning", "component.label_checkbox_warning");
    confirmCheckBox = row.box;
    confirmLabel = row.label;
    connect(confirmCheckBox, SIGNAL(stateChanged(int)), q, SLOT(slotChangeApplyButtonStatus(int)));
}

void VemoMessageSheetPrivate::removeConfirmRow()
{
    if (!confirmCheckBox)
        return;
    disconnect(confirmCheckBox, nullptr, q, nullptr);
    discard(confirmCheckBox);
    discard(confirmLabel);
    confirmCheckBox = nullptr;
    confirmLabel = nullptr;
    delete confirmContainer->layout();
    confirmContainer->hide();
}

void VemoMessageSheetPrivate::styleLabels()
{
    if (textLabel)
        textLabel->setStyleSheet(getStyleSheet(kText));
    // Deliberate: this replaces a style set for the informative text.
    if (informativeLabel)
        informativeLabel->setStyleSheet(getStyleSheet(kInformativeText));
}

void VemoMessageSheetPrivate::showMovie(const QString &path)
{
    movie = new QMovie;
    const QFileInfo file(path);
    if (!file.exists() || isResourceFile(file, kMaxPictureBytes))
        movie->setFileName(path);
    movie->setScaledSize({scaled(kMovieSize), scaled(kMovieSize)});
    // A movie that does not run has no size before this call.
    movie->jumpToFrame(0);
    iconLabel->setMovie(movie);
}

void VemoMessageSheetPrivate::changeText(const QString &text)
{
    if (text.isEmpty()) {
        if (textLabel)
            discard(std::exchange(textLabel, nullptr));
    } else {
        if (!textLabel) {
            textLabel = newLabel(getStyleSheet(kText));
            textLabel->setAlignment(Qt::AlignTop);
            textLabel->setTextInteractionFlags(Qt::TextSelectableByMouse
                | Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
            // Setting the interaction flags also changes the focus policy.
            textLabel->setFocusPolicy(Qt::StrongFocus);
        }
        textLabel->setTextFormat(textFormat);
        textLabel->setText(text);
    }
    q->setAccessibleName(spoken(text, textFormat));
    if (details)
        details->setTextName(q->accessibleName());
}

void VemoMessageSheetPrivate::changeInformativeText(const QString &text, const QString &styleSheet)
{
    if (text.isEmpty()) {
        if (informativeLabel)
            discard(std::exchange(informativeLabel, nullptr));
    } else {
        if (!informativeLabel) {
            informativeLabel =
                newLabel(styleSheet.isEmpty() ? getStyleSheet(kInformativeText) : styleSheet);
            informativeLabel->setAlignment(Qt::AlignLeft | Qt::AlignTop);
            informativeLabel->setTextInteractionFlags(Qt::TextInteractionFlags(
                q->style()->styleHint(QStyle::SH_MessageBox_TextInteractionFlags, nullptr, q)));
            informativeLabel->setFocusPolicy(Qt::StrongFocus);
        }
        informativeLabel->setTextFormat(textFormat);
        informativeLabel->setText(text);
    }
    q->setAccessibleDescription(spoken(text, textFormat));
}

MessageLabel *VemoMessageSheetPrivate::newLabel(const QString &styleSheet)
{
    auto *label = new MessageLabel(q);
    label->setStyleSheet(styleSheet);
    label->setWordWrap(true);
    label->setOpenExternalLinks(true);
    label->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Maximum);
    label->installEventFilter(q);
    return label;
}

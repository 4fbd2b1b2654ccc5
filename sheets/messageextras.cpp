// SPDX-License-Identifier: MIT
// The third part of the companion: the parts of a message that are off by default.
#include "sheets/vemomessagesheet_p.h"

#include "core/stringof_p.h"
#include "sheets/checkrow_p.h"
#include "sheets/detailspane_p.h"
#include "sheets/sheetparts_p.h"

#include <vemo/clickablelabel.h>

#include <QBoxLayout>
#include <QCheckBox>

#include <utility>

namespace {

QString defaultCaption()
{
    return stringOf("dont_ask_again");
}

} // namespace

void VemoMessageSheetPrivate::setDontAskAgain(bool on, const QString &text)
{
    if (!on) {
        if (dontAskRow)
            discard(std::exchange(dontAskRow, nullptr));
        dontAskBox = nullptr;
        dontAskLabel = nullptr;
        return;
    }
    if (!dontAskRow) {
        dontAskRow = new QWidget(q);
        const CheckRow row = newCheckRow(dontAskRow, "component.checkbox", "component.label");
        // The row has a spacing of its own.
        row.box->setStyleSheet(
            row.box->styleSheet() + QStringLiteral("QCheckBox { spacing: 0px; }"));
        dontAskBox = row.box;
        dontAskLabel = row.label;
        dontAskFrame = frameWidth(dontAskBox, QStyle::SE_CheckBoxIndicator);
        static_cast<QBoxLayout *>(dontAskRow->layout())->addSpacing(dontAskFrame);
    }
    isDontAskCaptionOurs = text.isEmpty();
    setCaption({dontAskBox, dontAskLabel}, text.isEmpty() ? defaultCaption() : text);
}

void VemoMessageSheetPrivate::setDetails(const QString &text)
{
    if (text.isEmpty()) {
        if (details)
            discard(std::exchange(details, nullptr));
        return;
    }
    if (!details)
        details = new DetailsPane(q, [this] { fit(); });
    details->setText(text);
    details->setTextName(q->accessibleName());
}

void VemoMessageSheetPrivate::translateExtras()
{
    if (dontAskRow && isDontAskCaptionOurs)
        setCaption({dontAskBox, dontAskLabel}, defaultCaption());
    if (details)
        details->translate();
}

QWidgetList VemoMessageSheetPrivate::extraStops() const
{
    QWidgetList stops {dontAskBox};
    if (details)
        stops << details->button() << details->textWidget();
    return stops;
}

void VemoMessageSheetPrivate::setTextFormat(Qt::TextFormat format)
{
    textFormat = format;
    if (textLabel)
        changeText(textLabel->text());
    if (informativeLabel)
        changeInformativeText(informativeLabel->text(), {});
}

void VemoMessageSheetPrivate::setDefaultButton(QDialogButtonBox::StandardButton which)
{
    defaultWhich = which;
    showDefaultButton();
}

void VemoMessageSheetPrivate::showDefaultButton() const
{
    const QPushButton *chosen = button(defaultWhich);
    for (const auto which : {QDialogButtonBox::Ok, QDialogButtonBox::Apply,
             QDialogButtonBox::Discard, QDialogButtonBox::Reset}) {
        const bool isAffirmative =
            which == QDialogButtonBox::Ok || which == QDialogButtonBox::Apply;
        if (QPushButton *present = button(which))
            present->setDefault(chosen ? present == chosen : isAffirmative);
    }
}

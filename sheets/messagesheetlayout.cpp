// SPDX-License-Identifier: MIT
// The second half of the companion: the layout of its parts and their keyboard handling.
#include "sheets/vemomessagesheet_p.h"

#include "core/scaling_p.h"
#include "sheets/checkrow_p.h"
#include "sheets/detailspane_p.h"
#include "sheets/sheetkeys_p.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QKeyEvent>
#include <QMovie>
#include <QPushButton>

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

using Button = QDialogButtonBox;

// In design pixels.
constexpr double kMargin = 20;
constexpr double kBottomMargin = 10;
constexpr double kIconGap = 20;
constexpr double kInformativeGap = 10;
constexpr double kConfirmGap = 10;
constexpr double kButtonGap = 20;
constexpr double kWidest = 540;
constexpr double kOverWidest = 480;
constexpr double kParentMargin = 40;

template <typename Layout> Layout *tight(Layout *layout)
{
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    return layout;
}

/// The place of a part with a frame that is only drawn with the focus or under the pointer. The
/// frame is in the margins, so that what is always visible is in line with the other parts. A
/// layout cannot have negative margins.
class Outdented : public QWidgetItem
{
public:
    Outdented(QWidget *part, int frame) : QWidgetItem(part), m_frame(frame) { }

    void setGeometry(const QRect &place) override
    {
        QWidgetItem::setGeometry(place.adjusted(-m_frame, 0, m_frame, 0));
    }
    int heightForWidth(int width) const override
    {
        return QWidgetItem::heightForWidth(width + 2 * m_frame);
    }
    QSize sizeHint() const override { return QWidgetItem::sizeHint() - around(); }
    QSize minimumSize() const override { return QWidgetItem::minimumSize() - around(); }

private:
    QSize around() const { return {2 * m_frame, 0}; }

    int m_frame;
};

/// The width of a sheet over a parent of the given width, both in design pixels.
int widthOver(double parentWidth)
{
    // Deliberate: over a parent with exactly this width it is narrower than over slightly smaller
    // and larger ones.
    if (parentWidth == kWidest)
        return truncToInt(kOverWidest);
    return std::max(0, truncToInt(std::min(kWidest, parentWidth - kParentMargin)));
}

} // namespace

void VemoMessageSheetPrivate::layOut(const QWidget *over)
{
    delete q->layout();
    auto *column = tight(new QVBoxLayout(q));
    column->setContentsMargins(
        scaled(kMargin), scaled(kMargin), scaled(kMargin), scaled(kBottomMargin));
    auto *row = tight(new QHBoxLayout);
    auto *texts = tight(new QVBoxLayout);

    iconLabel->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Maximum);
    iconLabel->setVisible(hasIcon());
    if (hasIcon()) {
        row->addWidget(iconLabel, 0, Qt::AlignTop);
        row->addSpacing(scaled(kIconGap));
    }
    row->addLayout(texts);
    if (textLabel)
        texts->addWidget(textLabel);
    if (informativeLabel) {
        texts->addSpacing(scaled(kInformativeGap));
        texts->addWidget(informativeLabel);
    }

    column->addLayout(row);
    if (doubleConfirm) {
        column->addSpacing(scaled(kConfirmGap));
        column->addWidget(confirmContainer);
    }
    if (dontAskRow) {
        column->addSpacing(scaled(kConfirmGap));
        column->addItem(new Outdented(dontAskRow, dontAskFrame));
    }
    if (details) {
        column->addSpacing(scaled(kConfirmGap));
        column->addItem(new Outdented(details, details->frame()));
    }
    if (!buttonBox->buttons().isEmpty()) {
        column->addSpacing(scaled(kButtonGap));
        column->addWidget(buttonBox);
    }
    updateSize(over);
}

/// Otherwise new parts of a visible sheet would be shown, and considered in the layout, later.
void VemoMessageSheetPrivate::showNewParts() const
{
    QWidgetList parts {textLabel, informativeLabel, dontAskRow, details};
    const auto buttons = buttonBox->buttons();
    std::copy(buttons.begin(), buttons.end(), std::back_inserter(parts));
    for (QWidget *part : qAsConst(parts)) {
        if (part)
            part->show();
    }
}

void VemoMessageSheetPrivate::updateSize(const QWidget *over)
{
    if (q->isVisible())
        showNewParts();
    q->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Maximum);
    const double factor = DPIinfo::getInstance().getDPI();
    q->setFixedWidth(scaled(over ? widthOver(over->width() / factor) : kWidest));
    // Polish first: the margins and the fonts of the labels are not set before.
    q->ensurePolished();
    for (MessageLabel *label : {textLabel, informativeLabel}) {
        if (label)
            label->forgetSize();
    }
    fit();
}

void VemoMessageSheetPrivate::fit()
{
    isStale = false;
    fitButtons();
    fitLabels();
    orderFocus();
    // Otherwise Qt would notify the layout of the stacked buttons later.
    buttonBox->updateGeometry();
    q->updateGeometry();
    q->adjustSize();
}

void VemoMessageSheetPrivate::fitLater()
{
    // The parts of the sheet get their new fonts after the sheet.
    if (!std::exchange(isStale, true) && q->isVisible())
        QMetaObject::invokeMethod(
            this, [this] { fit(); }, Qt::QueuedConnection);
}

bool VemoMessageSheetPrivate::eventFilter(QObject *watched, QEvent *event)
{
    // The box would give its buttons Qt's own captions.
    if (watched == buttonBox && event->type() == QEvent::LanguageChange)
        return true;
    const bool isReordered = watched == buttonBox && event->type() == QEvent::StyleChange
        && buttonBox->orientation() == Qt::Vertical;
    if (!isReordered)
        return QObject::eventFilter(watched, event);
    // At each change of style, including that with a new parent, the box arranges its buttons in
    // its own order. So we let it handle the event, and then arrange them again.
    watched->event(event);
    stackButtons();
    return true;
}

int VemoMessageSheetPrivate::contentWidth() const
{
    const QMargins band = q->contentsMargins();
    return std::max(0, q->width() - band.left() - band.right() - 2 * scaled(kMargin));
}

/// Side by side, but stacked if they would overlap.
void VemoMessageSheetPrivate::fitButtons()
{
    buttonBox->setOrientation(Qt::Horizontal);
    const bool fits = buttonBox->sizeHint().width() <= contentWidth();
    if (fits) {
        orderButtons({Button::Ok, Button::Discard, Button::Apply, Button::Reset});
        return;
    }
    buttonBox->setOrientation(Qt::Vertical);
    stackButtons();
}

/// The affirmative button first; the box would put Discard above Apply.
void VemoMessageSheetPrivate::stackButtons()
{
    auto *column = static_cast<QBoxLayout *>(buttonBox->layout());
    if (QPushButton *apply = button(Button::Apply)) {
        column->removeWidget(apply);
        column->insertWidget(0, apply);
    }
    orderButtons({Button::Ok, Button::Apply, Button::Discard, Button::Reset});
    QWidget::setTabOrder(button(Button::Apply), button(Button::Discard));
    QWidget::setTabOrder(button(Button::Discard), button(Button::Reset));
}

/// When Tab wraps, it starts again at the first child, so the order of the children matters.
void VemoMessageSheetPrivate::orderButtons(
    std::initializer_list<Button::StandardButton> order) const
{
    for (const auto which : order) {
        if (QPushButton *present = button(which))
            present->raise();
    }
}

/// Tab moves from the last button to the texts and then to the check box, regardless of the order
/// in which they were created.
void VemoMessageSheetPrivate::orderFocus() const
{
    for (QWidget *part : {confirmContainer, dontAskRow, static_cast<QWidget *>(details)}) {
        if (part)
            part->raise();
    }
    const bool isStacked = buttonBox->orientation() == Qt::Vertical;
    QWidget *last = nullptr;
    for (const auto which : {Button::Reset, Button::Ok, Button::Discard, Button::Apply}) {
        if (QPushButton *present = button(which))
            last = present;
    }
    if (isStacked)
        last = button(Button::Reset) ? button(Button::Reset) : button(Button::Discard);
    const QWidgetList parts =
        QWidgetList {textLabel, informativeLabel, confirmCheckBox} + extraStops();
    for (QWidget *part : parts) {
        if (part && last)
            QWidget::setTabOrder(last, part);
        last = part ? part : last;
    }
}

/// Sets the heights of the labels before the layout, so that the first layout is correct.
void VemoMessageSheetPrivate::fitLabels()
{
    const int iconWidth = hasIcon() ? iconLabel->sizeHint().width() + scaled(kIconGap) : 0;
    for (MessageLabel *label : {textLabel, informativeLabel}) {
        if (label)
            label->fitTo(std::max(0, contentWidth() - iconWidth));
    }
    if (dontAskRow)
        fitCaption({dontAskBox, dontAskLabel}, contentWidth() + dontAskFrame);
}

bool VemoMessageSheetPrivate::hasIcon() const
{
    return iconLabel->movie() || !iconLabel->pixmap(Qt::ReturnByValue).isNull();
}

QPushButton *VemoMessageSheetPrivate::button(QDialogButtonBox::StandardButton which) const
{
    return buttonBox->button(which);
}

bool VemoMessageSheetPrivate::begin(bool greysCloseItem)
{
    const QPointer<VemoMessageSheet> self(q);
    run.begin(greysCloseItem);
    if (self)
        takeFocus();
    if (!self)
        return false;
    QMovie *animation = type == VemoMessageSheet::Processing ? iconLabel->movie() : nullptr;
    if (animation && animation->isValid())
        animation->start();
    return true;
}

void VemoMessageSheetPrivate::takeFocus()
{
    QPushButton *chosen = button(defaultWhich);
    if (chosen && chosen->isEnabled()) {
        chosen->setFocus(Qt::TabFocusReason);
        return;
    }
    if (textLabel) {
        textLabel->setFocus(Qt::TabFocusReason);
        return;
    }
    // Without a text the keys would be passed on to the widgets below the sheet.
    collectFocus();
    QWidget *taker = firstFocus ? firstFocus : q;
    taker->setFocus(Qt::TabFocusReason);
}

void VemoMessageSheetPrivate::collectFocus()
{
    focusList = focusStops(q);
    firstFocus = focusList.isEmpty() ? nullptr : focusList.first();
    lastFocus = focusList.isEmpty() ? nullptr : focusList.last();
}

void VemoMessageSheetPrivate::restrictedFocus(QObject *from, QKeyEvent *key)
{
    if (from->isWidgetType())
        moveFocus(static_cast<QWidget *>(from), key->key() == Qt::Key_Tab);
}

void VemoMessageSheetPrivate::moveFocus(QWidget *from, bool isForward)
{
    collectFocus();
    ::moveFocus(q, focusList, from, isForward);
}

void VemoMessageSheetPrivate::press(QKeyEvent *key)
{
    switch (key->key()) {
    case Qt::Key_Escape:
        clickFirst({QDialogButtonBox::Discard});
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        confirm(key->key());
        break;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        restrictedFocus(q->window(), key);
        break;
    default:
        break;
    }
}

void VemoMessageSheetPrivate::confirm(int key)
{
    QPushButton *focused = isOneCall && key != Qt::Key_Space ? focusedButton(q) : nullptr;
    QPushButton *chosen = focused ? focused : button(defaultWhich);
    if (chosen)
        chosen->click();
    else
        clickFirst({QDialogButtonBox::Ok, QDialogButtonBox::Apply});
}

void VemoMessageSheetPrivate::clickFirst(
    std::initializer_list<QDialogButtonBox::StandardButton> candidates) const
{
    for (const auto which : candidates) {
        if (QPushButton *present = button(which)) {
            present->click();
            return;
        }
    }
}

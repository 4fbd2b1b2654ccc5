// SPDX-License-Identifier: MIT
#include <vemo/vemocontentsheet.h>

#include "core/scaling_p.h"
#include "core/stringof_p.h"
#include "sheets/buttonboxstyle_p.h"
#include "sheets/modalrun_p.h"
#include "sheets/onecall_p.h"
#include "sheets/sheetkeys_p.h"
#include "sheets/sheetparts_p.h"

#include <QKeyEvent>
#include <QMap>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace {

using Button = QDialogButtonBox;

// In design pixels.
constexpr double kMargin = 20;
constexpr double kBottomMargin = 10;
constexpr double kButtonGap = 20;

struct ButtonLook
{
    Button::StandardButton which;
    const char *caption; ///< key of a string
    const char *style;
};

constexpr ButtonLook kLooks[] = {
    {Button::Reset, "reset", "component.reset_button"},
    {Button::Discard, "cancel", "component.cancel_button"},
    {Button::Apply, "ok", "component.apply_button"},
    {Button::Ok, "ok", "component.apply_button"},
};

} // namespace

class VemoContentSheetPrivate : public QObject
{
public:
    explicit VemoContentSheetPrivate(VemoContentSheet *sheet);

    void setButtons(Button::StandardButtons buttons);
    void layOut() const;
    /// After another language was chosen: captions of the host's own stay.
    void translate();

    /// Shows the sheet and gives it the focus. Whether it survived.
    bool begin();
    void takeFocus() const;
    /// Tab moves from the content to the buttons, which were created before it.
    void orderFocus() const;
    /// Handles the keys sent to the window.
    void press(const QKeyEvent *key) const;
    void clickFirst(std::initializer_list<Button::StandardButton> candidates) const;

    bool eventFilter(QObject *watched, QEvent *event) override;

    VemoContentSheet *q;
    QDialogButtonBox *buttonBox;
    QPointer<QWidget> content;
    ModalRun run;
    bool isOneCall = false; ///< execAndDelete() or open()

private:
    QMap<Button::StandardButton, QString> shownCaptions; ///< those of the library
};

VemoContentSheetPrivate::VemoContentSheetPrivate(VemoContentSheet *sheet)
    : QObject(sheet), q(sheet), buttonBox(new QDialogButtonBox(sheet)), run(sheet)
{
    q->setStyleSheet(getStyleSheet("component.message_sheet_other"));
    q->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Maximum);
    // This order puts Discard before Ok, as in a message.
    buttonBox->setStyle(buttonBoxStyle(Button::GnomeLayout));
    buttonBox->installEventFilter(this);
    connect(buttonBox, &Button::clicked, this,
        [this](QAbstractButton *clicked) { q->answer(buttonBox->standardButton(clicked)); });
}

void VemoContentSheetPrivate::setButtons(Button::StandardButtons buttons)
{
    buttonBox->setStandardButtons(buttons);
    // Otherwise its focus policy would be that of its first button, which is its focus proxy.
    buttonBox->setFocusProxy(nullptr);
    buttonBox->setFocusPolicy(Qt::NoFocus);
    shownCaptions.clear();
    for (const ButtonLook &look : kLooks) {
        QPushButton *button = buttonBox->button(look.which);
        if (!button)
            continue;
        shownCaptions[look.which] = stringOf(look.caption);
        styleButton(button, shownCaptions[look.which], look.style);
        setButtonSize(button);
        button->setDefault(look.which == Button::Ok || look.which == Button::Apply);
        button->setFocusPolicy(Qt::StrongFocus);
        // Shift+Tab wraps to the last child.
        button->raise();
    }
}

void VemoContentSheetPrivate::layOut() const
{
    delete q->layout();
    auto *column = new QVBoxLayout(q);
    column->setContentsMargins(
        scaled(kMargin), scaled(kMargin), scaled(kMargin), scaled(kBottomMargin));
    column->setSpacing(0);
    if (content) {
        column->addWidget(content, 1);
        content->show();
        // Tab wraps to the first child.
        content->lower();
    }
    if (!buttonBox->buttons().isEmpty()) {
        column->addSpacing(scaled(kButtonGap));
        column->addWidget(buttonBox);
    }
    // Polish first: the margins are not set before.
    q->ensurePolished();
    q->updateGeometry();
    q->adjustSize();
}

void VemoContentSheetPrivate::translate()
{
    for (const ButtonLook &look : kLooks) {
        if (shownCaptions.contains(look.which))
            followLanguage(buttonBox->button(look.which), {"text"}, &shownCaptions[look.which],
                stringOf(look.caption));
    }
}

bool VemoContentSheetPrivate::begin()
{
    const QPointer<VemoContentSheet> self(q);
    orderFocus();
    run.begin(q->m_block_window_button);
    if (self)
        takeFocus();
    return self;
}

void VemoContentSheetPrivate::takeFocus() const
{
    const QList<QWidget *> stops = focusStops(q);
    QWidget *taker = stops.isEmpty() ? q : stops.first();
    taker->setFocus(Qt::TabFocusReason);
}

void VemoContentSheetPrivate::orderFocus() const
{
    QWidget *last = content && content->focusPolicy() != Qt::NoFocus ? content.data() : nullptr;
    QWidget *next = content ? content->nextInFocusChain() : nullptr;
    for (; next && next != content; next = next->nextInFocusChain()) {
        if (content->isAncestorOf(next) && next->focusPolicy() != Qt::NoFocus)
            last = next;
    }
    for (const ButtonLook &look : kLooks) {
        QPushButton *button = buttonBox->button(look.which);
        if (button && last)
            QWidget::setTabOrder(last, button);
        last = button ? button : last;
    }
}

void VemoContentSheetPrivate::press(const QKeyEvent *key) const
{
    switch (key->key()) {
    case Qt::Key_Escape:
        clickFirst({Button::Discard});
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (QPushButton *focused = focusedButton(q))
            focused->click();
        else
            clickFirst({Button::Ok, Button::Apply});
        break;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        moveFocus(q, focusStops(q), q->window(), key->key() == Qt::Key_Tab);
        break;
    default:
        break;
    }
}

void VemoContentSheetPrivate::clickFirst(
    std::initializer_list<Button::StandardButton> candidates) const
{
    for (const auto which : candidates) {
        if (QPushButton *present = buttonBox->button(which)) {
            present->click();
            return;
        }
    }
}

bool VemoContentSheetPrivate::eventFilter(QObject *watched, QEvent *event)
{
    // The box would give its buttons Qt's own captions.
    return (watched == buttonBox && event->type() == QEvent::LanguageChange)
        || QObject::eventFilter(watched, event);
}

VemoContentSheet::VemoContentSheet(QWidget *content, QWidget *parent)
    : VemoSheet(parent), m_d(new VemoContentSheetPrivate(this))
{
    m_d->setButtons(Button::Ok | Button::Discard);
    setContent(content);
}

VemoContentSheet::~VemoContentSheet()
{
    m_d->run.abandon();
}

void VemoContentSheet::setContent(QWidget *content)
{
    if (m_d->content && m_d->content != content)
        discard(m_d->content);
    m_d->content = content;
    if (content) {
        content->setParent(this);
        setAccessibleName(content->windowTitle());
    }
    m_d->layOut();
}

QWidget *VemoContentSheet::content() const
{
    return m_d->content;
}

void VemoContentSheet::setStandardButtons(QDialogButtonBox::StandardButtons buttons)
{
    m_d->setButtons(buttons);
    m_d->layOut();
}

QDialogButtonBox::StandardButtons VemoContentSheet::standardButtons() const
{
    return m_d->buttonBox->standardButtons();
}

QPushButton *VemoContentSheet::button(QMessageBox::StandardButton which) const
{
    return m_d->buttonBox->button(static_cast<Button::StandardButton>(which));
}

int VemoContentSheet::exec()
{
    return m_d->begin() ? m_d->run.exec() : 0;
}

int VemoContentSheet::execAndDelete(const std::function<void(int)> &atEnd)
{
    if (std::exchange(m_d->isOneCall, true))
        return exec();
    return execOnce(
        this, [this] { return exec(); }, atEnd);
}

void VemoContentSheet::open(const std::function<void(int)> &atEnd)
{
    if (std::exchange(m_d->isOneCall, true))
        return;
    openOnce(
        this, [this] { m_d->begin(); }, atEnd);
}

void VemoContentSheet::showSheet()
{
    m_d->begin();
}

void VemoContentSheet::setBlockWindowButton(bool isBlocked)
{
    m_block_window_button = isBlocked;
}

bool VemoContentSheet::eventFilter(QObject *watched, QEvent *event)
{
    switch (sheetEvent(this, watched, event, m_block_window_button)) {
    case SheetEvent::Other:
        return VemoSheet::eventFilter(watched, event);
    case SheetEvent::FocusLost:
        m_d->takeFocus();
        break;
    case SheetEvent::Key:
        m_d->press(static_cast<QKeyEvent *>(event));
        break;
    case SheetEvent::Blocked:
        break;
    }
    return true;
}

void VemoContentSheet::done(int ret)
{
    m_d->run.end(ret, m_block_window_button);
}

void VemoContentSheet::quit()
{
    done(0);
}

void VemoContentSheet::answer(QDialogButtonBox::StandardButton which)
{
    done(which);
}

void VemoContentSheet::changeEvent(QEvent *event)
{
    VemoSheet::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        m_d->translate();
}

bool VemoContentSheet::focusNextPrevChild(bool next)
{
    if (!isVisible())
        return VemoSheet::focusNextPrevChild(next);
    moveFocus(this, focusStops(this), window(), next);
    return true;
}

// SPDX-License-Identifier: MIT
#include <vemo/vemomessagesheet.h>

#include "sheets/checkrow_p.h"
#include "sheets/detailspane_p.h"
#include "sheets/onecall_p.h"
#include "sheets/sheetkeys_p.h"
#include "sheets/vemomessagesheet_p.h"

#include <vemo/stylemanager.h>

#include <QAccessible>
#include <QCheckBox>
#include <QKeyEvent>
#include <QMovie>
#include <QPushButton>

#include <utility>

VemoMessageSheet::VemoMessageSheet(QWidget *parent, MessageType type, bool showIcon)
    : VemoSheet(parent), m_d(new VemoMessageSheetPrivate(this, type, showIcon))
{
}

VemoMessageSheet::VemoMessageSheet(const QString &text, const QString &moviePath, QWidget *parent)
    : VemoMessageSheet(parent, Processing, true)
{
    m_d->updateStyle({});
    m_d->showMovie(moviePath);
    m_d->changeText(text);
    m_d->layOut();
}

VemoMessageSheet::VemoMessageSheet(MessageType type, const QString &text,
    const QString &informativeText, QWidget *parent, bool showIcon)
    : VemoMessageSheet(parent, type, showIcon)
{
    m_d->build({}, text, informativeText, parent);
}

VemoMessageSheet::VemoMessageSheet(MessageType type, const QString &text,
    const MsgBoxCustomBtnText &captions, QWidget *parent, bool showIcon)
    : VemoMessageSheet(parent, type, showIcon)
{
    m_d->build(captions, text, QString(), parent);
}

VemoMessageSheet::VemoMessageSheet(
    MessageType type, const QString &text, QWidget *parent, bool showIcon)
    : VemoMessageSheet(parent, type, showIcon)
{
    m_d->build({}, text, QString(), parent);
}

VemoMessageSheet::VemoMessageSheet(MessageType type, QWidget *parent, bool showIcon)
    : VemoMessageSheet(parent, type, showIcon)
{
    m_d->build({}, QString(), QString(), parent);
}

VemoMessageSheet::~VemoMessageSheet()
{
    m_d->run.abandon();
}

int VemoMessageSheet::exec()
{
    return m_d->begin(m_block_window_button) ? m_d->run.exec() : 0;
}

int VemoMessageSheet::execAndDelete(const std::function<void(int)> &atEnd)
{
    if (std::exchange(m_d->isOneCall, true))
        return exec();
    return execOnce(
        this, [this] { return exec(); }, atEnd);
}

void VemoMessageSheet::open(const std::function<void(int)> &atEnd)
{
    if (std::exchange(m_d->isOneCall, true))
        return;
    openOnce(
        this, [this] { m_d->begin(m_block_window_button); }, atEnd);
}

void VemoMessageSheet::showSheet()
{
    m_d->run.begin(false);
}

QAbstractButton *VemoMessageSheet::button(QMessageBox::StandardButton which) const
{
    return m_d->button(static_cast<QDialogButtonBox::StandardButton>(which));
}

QMovie *VemoMessageSheet::movie() const
{
    return m_d->movie;
}

void VemoMessageSheet::setText(const QString &text)
{
    m_d->changeText(text);
    m_d->layOut();
}

void VemoMessageSheet::setInformativeText(const QString &text, const QString &styleSheet)
{
    m_d->changeInformativeText(text, styleSheet);
    m_d->layOut();
}

void VemoMessageSheet::setIcon(const QPixmap &icon)
{
    m_d->iconLabel->setPixmap(icon);
    m_d->layOut();
}

void VemoMessageSheet::setIconVisible(bool isVisible)
{
    m_d->showIcon = isVisible;
    m_d->rebuild();
}

void VemoMessageSheet::setMessageType(MessageType type)
{
    m_d->type = type;
    m_d->rebuild();
}

void VemoMessageSheet::setDoubleConfirmCheckBox(bool on, const QString &text)
{
    m_d->doubleConfirm = on;
    m_d->rebuild();
    if (!on)
        return;
    setCaption({m_d->confirmCheckBox, m_d->confirmLabel}, text);
}

void VemoMessageSheet::setDontAskAgainCheckBox(bool on, const QString &text)
{
    m_d->setDontAskAgain(on, text);
    m_d->layOut();
}

bool VemoMessageSheet::isDontAskAgainChecked() const
{
    return m_d->dontAskBox && m_d->dontAskBox->isChecked();
}

void VemoMessageSheet::setDetailedText(const QString &text)
{
    m_d->setDetails(text);
    m_d->layOut();
}

QString VemoMessageSheet::detailedText() const
{
    return m_d->details ? m_d->details->text() : QString();
}

void VemoMessageSheet::setTextFormat(Qt::TextFormat format)
{
    m_d->setTextFormat(format);
    m_d->layOut();
}

Qt::TextFormat VemoMessageSheet::textFormat() const
{
    return m_d->textFormat;
}

void VemoMessageSheet::setDefaultButton(QMessageBox::StandardButton which)
{
    m_d->setDefaultButton(static_cast<QDialogButtonBox::StandardButton>(which));
}

void VemoMessageSheet::setBlockWindowButton(bool isBlocked)
{
    m_block_window_button = isBlocked;
}

bool VemoMessageSheet::eventFilter(QObject *watched, QEvent *event)
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

void VemoMessageSheet::done(int ret)
{
    if (m_d->movie)
        m_d->movie->stop();
    m_d->run.end(ret, m_block_window_button);
}

void VemoMessageSheet::quit()
{
    done(0);
}

void VemoMessageSheet::buttonClick(QAbstractButton *which)
{
    done(m_d->buttonBox->standardButton(which));
}

void VemoMessageSheet::changeEvent(QEvent *event)
{
    VemoSheet::changeEvent(event);
    if (event->type() == QEvent::StyleChange || event->type() == QEvent::FontChange)
        m_d->fitLater();
    if (event->type() == QEvent::LanguageChange)
        m_d->translate();
}

void VemoMessageSheet::customEvent(QEvent *event)
{
    if (event->type() == StyleManager::reloadEvent())
        m_d->reloadTypeIcon();
    VemoSheet::customEvent(event);
}

bool VemoMessageSheet::focusNextPrevChild(bool next)
{
    // A hidden sheet has no stops, so the focus would remain in it, invisible.
    if (!isVisible())
        return VemoSheet::focusNextPrevChild(next);
    // Qt moves the focus before the window ever sees the Tab key.
    m_d->moveFocus(window(), next);
    return true;
}

void VemoMessageSheet::showEvent(QShowEvent *event)
{
    // Otherwise its focus policy would become that of its first button, which is its focus proxy.
    m_d->buttonBox->setFocusProxy(nullptr);
    m_d->buttonBox->setFocusPolicy(Qt::NoFocus);
    for (const auto which : {QDialogButtonBox::Ok, QDialogButtonBox::Discard}) {
        if (QPushButton *button = m_d->button(which))
            button->setFocusPolicy(Qt::StrongFocus);
    }
    if (m_d->isStale)
        m_d->fit();
    m_d->collectFocus();
    VemoSheet::showEvent(event);
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void VemoMessageSheet::slotChangeApplyButtonStatus(int state)
{
    if (QPushButton *apply = m_d->button(QDialogButtonBox::Apply))
        apply->setEnabled(state == Qt::Checked);
}

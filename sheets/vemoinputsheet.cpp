// SPDX-License-Identifier: MIT
#include <vemo/vemoinputsheet.h>

#include "core/scaling_p.h"
#include "core/stringof_p.h"
#include "sheets/buttonboxstyle_p.h"
#include "sheets/messagelabel_p.h"
#include "sheets/onecall_p.h"
#include "sheets/sheetkeys_p.h"
#include "sheets/sheetparts_p.h"
#include "sheets/vemoinputsheet_p.h"

#include <QBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>

#include <algorithm>
#include <utility>

namespace {

// In design pixels.
constexpr double kMargin = 10;
constexpr double kPromptGap = 8;
constexpr double kFieldHeight = 28;
constexpr double kButtonGap = 24;
constexpr double kWidest = 480;
constexpr double kParentMargin = 40;

/// The width of a sheet over a parent of the given width, both in design pixels. Deliberate:
/// differs from that of a message.
int widthOver(double parentWidth)
{
    return truncToInt(std::clamp(parentWidth - kParentMargin, 0.0, kWidest));
}

} // namespace

VemoInputSheetPrivate::VemoInputSheetPrivate(VemoInputSheet *sheet)
    : QObject(sheet), q(sheet), label(new MessageLabel(sheet)), lineEdit(new QLineEdit(sheet)),
      buttonBox(new QDialogButtonBox(sheet)), run(sheet)
{
}

void VemoInputSheetPrivate::build()
{
    q->setStyleSheet(getStyleSheet("component.message_sheet_other"));
    styleButtons();
    connect(buttonBox, SIGNAL(clicked(QAbstractButton*)), q, SLOT(buttonClick(QAbstractButton*)));
    connect(lineEdit, &QLineEdit::textChanged, this, [this] { contentChanged(); });
}

void VemoInputSheetPrivate::styleButtons()
{
    // This order puts Discard before Ok, as in a message.
    buttonBox->setStyle(buttonBoxStyle(QDialogButtonBox::GnomeLayout));
    buttonBox->installEventFilter(this);
    // Deliberate: the cancel button is Discard, as in a message.
    buttonBox->setStandardButtons(QDialogButtonBox::Ok | QDialogButtonBox::Discard);
    QPushButton *ok = buttonBox->button(QDialogButtonBox::Ok);
    QPushButton *cancel = buttonBox->button(QDialogButtonBox::Discard);
    okText = stringOf("ok");
    cancelText = stringOf("cancel");
    styleButton(ok, okText, "component.apply_button");
    ok->setDefault(true);
    styleButton(cancel, cancelText, "component.cancel_button");
    setButtonSize(ok);
    setButtonSize(cancel);
    // Shift+Tab wraps to the last child.
    ok->raise();
}

bool VemoInputSheetPrivate::eventFilter(QObject *watched, QEvent *event)
{
    // The box would give its buttons Qt's own captions.
    return (watched == buttonBox && event->type() == QEvent::LanguageChange)
        || QObject::eventFilter(watched, event);
}

void VemoInputSheetPrivate::translate()
{
    followLanguage(buttonBox->button(QDialogButtonBox::Ok), {"text"}, &okText, stringOf("ok"));
    followLanguage(
        buttonBox->button(QDialogButtonBox::Discard), {"text"}, &cancelText, stringOf("cancel"));
    fitLater();
}

void VemoInputSheetPrivate::changeText(const QString &text)
{
    // Deliberate: lengths in the host's own text are scaled as well.
    const QString prompt = QStringLiteral("<p style='line-height: 20px;'>%1</p>").arg(text);
    label->setText(DPIinfo::getInstance().getScaledStyleSheet(prompt));
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignTop);
    label->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Maximum);
    q->setAccessibleName(spoken(text, Qt::RichText));
    lineEdit->setAccessibleName(q->accessibleName());
    if (textEdit)
        textEdit->setAccessibleName(q->accessibleName());
}

void VemoInputSheetPrivate::layOut()
{
    delete q->layout();
    auto *column = new QVBoxLayout(q);
    const int margin = scaled(kMargin);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(0);
    setHeight(lineEdit, kFieldHeight);
    lineEdit->setStyleSheet(getStyleSheet("component.lineedit"));
    column->addWidget(label);
    column->addSpacing(scaled(kPromptGap));
    column->addWidget(lineEdit);
    if (textEdit)
        column->addWidget(textEdit);
    if (errorLabel)
        column->addWidget(errorLabel);
    if (!buttonBox->buttons().isEmpty()) {
        column->addSpacing(scaled(kButtonGap));
        column->addWidget(buttonBox);
    }
    updateSize();
}

void VemoInputSheetPrivate::updateSize()
{
    q->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Maximum);
    const QWidget *parent = q->parentWidget();
    const double factor = DPIinfo::getInstance().getDPI();
    q->setFixedWidth(scaled(parent ? widthOver(parent->width() / factor) : kWidest));
    label->forgetSize();
    fit();
}

void VemoInputSheetPrivate::fit()
{
    isStale = false;
    // Polish first: the margins and the font of the prompt are not set before.
    q->ensurePolished();
    const QMargins band = q->contentsMargins();
    const int width = q->width() - band.left() - band.right() - 2 * scaled(kMargin);
    label->fitTo(std::max(0, width));
    if (errorLabel)
        errorLabel->fitTo(std::max(0, width));
    q->updateGeometry();
    q->adjustSize();
}

void VemoInputSheetPrivate::fitLater()
{
    // The parts of the sheet get their new fonts after the sheet.
    if (!std::exchange(isStale, true) && q->isVisible())
        QMetaObject::invokeMethod(
            this, [this] { fit(); }, Qt::QueuedConnection);
}

void VemoInputSheetPrivate::click(QDialogButtonBox::StandardButton which) const
{
    if (QPushButton *present = buttonBox->button(which))
        present->click();
}

bool VemoInputSheetPrivate::begin(bool greysCloseItem)
{
    const QPointer<VemoInputSheet> self(q);
    run.begin(greysCloseItem);
    if (self)
        q->setFocus(Qt::TabFocusReason);
    if (self)
        field()->setFocus(Qt::OtherFocusReason);
    return self;
}

void VemoInputSheetPrivate::confirm(int key) const
{
    QPushButton *focused = isOneCall && key != Qt::Key_Space ? focusedButton(q) : nullptr;
    if (focused)
        focused->click();
    else
        click(QDialogButtonBox::Ok);
}

VemoInputSheet::VemoInputSheet(const QString &text, QWidget *parent)
    : VemoSheet(parent), m_d(new VemoInputSheetPrivate(this))
{
    m_d->build();
    m_d->changeText(text);
    m_d->layOut();
}

VemoInputSheet::VemoInputSheet(QWidget *parent)
    : VemoSheet(parent), m_d(new VemoInputSheetPrivate(this))
{
    m_d->build();
    m_d->layOut();
}

VemoInputSheet::~VemoInputSheet()
{
    m_d->run.abandon();
}

int VemoInputSheet::exec()
{
    return m_d->begin(m_block_window_button) ? m_d->run.exec() : 0;
}

int VemoInputSheet::execAndDelete(const std::function<void(int)> &atEnd)
{
    if (std::exchange(m_d->isOneCall, true))
        return exec();
    return execOnce(
        this, [this] { return exec(); }, atEnd);
}

void VemoInputSheet::open(const std::function<void(int)> &atEnd)
{
    if (std::exchange(m_d->isOneCall, true))
        return;
    openOnce(
        this, [this] { m_d->begin(m_block_window_button); }, atEnd);
}

void VemoInputSheet::showSheet()
{
    const QPointer<VemoInputSheet> self(this);
    m_d->run.begin(false);
    if (self)
        m_d->field()->setFocus(Qt::OtherFocusReason);
}

QString VemoInputSheet::getContent() const
{
    return m_d->content();
}

void VemoInputSheet::setContent(const QString &text)
{
    m_d->setContent(text);
}

QLineEdit *VemoInputSheet::getLineEdit() const
{
    return m_d->lineEdit;
}

QAbstractButton *VemoInputSheet::button(QMessageBox::StandardButton which) const
{
    return m_d->buttonBox->button(static_cast<QDialogButtonBox::StandardButton>(which));
}

void VemoInputSheet::setText(const QString &text)
{
    m_d->changeText(text);
    m_d->layOut();
}

void VemoInputSheet::setDefaultButton(QPushButton *button)
{
    if (button)
        button->setDefault(true);
}

void VemoInputSheet::setEchoMode(QLineEdit::EchoMode mode)
{
    m_d->lineEdit->setEchoMode(mode);
}

QLineEdit::EchoMode VemoInputSheet::echoMode() const
{
    return m_d->lineEdit->echoMode();
}

void VemoInputSheet::setMultiLine(bool on)
{
    m_d->setMultiLine(on);
    m_d->layOut();
}

QPlainTextEdit *VemoInputSheet::getTextEdit() const
{
    return m_d->textEdit;
}

void VemoInputSheet::setCheck(const std::function<bool(const QString &)> &check)
{
    m_d->setCheck(check);
}

void VemoInputSheet::setErrorText(const QString &text)
{
    m_d->setErrorText(text);
    m_d->layOut();
}

QString VemoInputSheet::errorText() const
{
    return m_d->errorLabel ? m_d->errorLabel->text() : QString();
}

void VemoInputSheet::setBlockWindowButton(bool isBlocked)
{
    m_block_window_button = isBlocked;
}

bool VemoInputSheet::eventFilter(QObject *watched, QEvent *event)
{
    if (m_block_window_button && event->type() == QEvent::Close) {
        event->ignore();
        return true;
    }
    if (overridesShortcut(this, watched, event))
        return true;
    if (isFocusLostToWindow(this, watched, event)) {
        m_d->field()->setFocus(Qt::OtherFocusReason);
        return true;
    }
    if (event->type() != QEvent::KeyPress || watched != window())
        return VemoSheet::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent *>(event)->key();
    switch (key) {
    case Qt::Key_Escape:
        m_d->click(QDialogButtonBox::Discard);
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        m_d->confirm(key);
        break;
    default:
        break;
    }
    // Consumes every key, so that the window below the sheet receives none.
    return true;
}

void VemoInputSheet::done(int ret)
{
    m_d->run.end(ret, m_block_window_button);
}

void VemoInputSheet::quit()
{
    done(0);
}

void VemoInputSheet::buttonClick(QAbstractButton *which)
{
    done(m_d->buttonBox->standardButton(which));
}

void VemoInputSheet::changeEvent(QEvent *event)
{
    VemoSheet::changeEvent(event);
    if (event->type() == QEvent::StyleChange || event->type() == QEvent::FontChange)
        m_d->fitLater();
    if (event->type() == QEvent::LanguageChange)
        m_d->translate();
}

void VemoInputSheet::showEvent(QShowEvent *event)
{
    if (m_d->isStale)
        m_d->fit();
    VemoSheet::showEvent(event);
}

bool VemoInputSheet::focusNextPrevChild(bool next)
{
    if (!isVisible())
        return VemoSheet::focusNextPrevChild(next);
    moveFocus(this, focusStops(this), window(), next);
    return true;
}

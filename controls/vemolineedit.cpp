// SPDX-License-Identifier: MIT
#include <vemo/vemolineedit.h>

#include "controls/placeholderink_p.h"
#include "controls/spokentooltip_p.h"
#include "core/scaling_p.h"

#include <vemo/stylemanager.h>

#include <QAccessible>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QStyle>
#include <QVariant>

namespace {

template <typename Part> Part *styled(const char *key)
{
    auto *part = new Part;
    part->setStyleSheet(getStyleSheet(key));
    return part;
}

constexpr const char *kLabelKey = "component.lineedit_label";

/// A label's text for assistive tools: without mark-up and mnemonic.
QString spokenText(QLabel *label)
{
    if (label->text().isEmpty())
        return {};
    return QAccessible::queryAccessibleInterface(label)->text(QAccessible::Name);
}

/// The text of the label whose buddy is widget, as in a form.
QString textOfBuddyLabel(const QWidget &widget)
{
    if (!widget.parentWidget())
        return {};
    const auto siblings =
        widget.parentWidget()->findChildren<QLabel *>(QString(), Qt::FindDirectChildrenOnly);
    for (QLabel *label : siblings) {
        if (label->buddy() == &widget)
            return spokenText(label);
    }
    return {};
}

} // namespace

VemoLineEdit::VemoLineEdit(QWidget *parent)
    : QWidget(parent), m_layout(nullptr), m_pre_label(styled<QLabel>(kLabelKey)),
      m_post_label(nullptr), m_line_edit(styled<QLineEdit>("component.lineedit"))
{
    m_post_label = styled<QLabel>(kLabelKey);
    m_layout = new QHBoxLayout(this);
    m_layout->setAlignment(Qt::AlignLeft);
    setSpacing(0);
    setMargins(0, 0, 0, 0);
    m_layout->addWidget(m_pre_label);
    m_layout->addWidget(m_line_edit);
    m_layout->addWidget(m_post_label);
    palePlaceholder(m_line_edit);
    m_line_edit->installEventFilter(this);
    for (QWidget *part : {static_cast<QWidget *>(this), static_cast<QWidget *>(m_line_edit)})
        speakToolTip(part);
    // Set the policy first: a label's mnemonic checks the focus policy of its buddy, not of the
    // proxy.
    setFocusPolicy(m_line_edit->focusPolicy());
    setFocusProxy(m_line_edit);
}

QString VemoLineEdit::getEditText() const
{
    return m_line_edit->text();
}

void VemoLineEdit::setEditText(const QString &text)
{
    m_line_edit->setText(text);
}

QString VemoLineEdit::preText() const
{
    return m_pre_label->text();
}

void VemoLineEdit::setPreText(const QString &text)
{
    m_pre_label->setText(text);
}

QString VemoLineEdit::postText() const
{
    return m_post_label->text();
}

void VemoLineEdit::setPostText(const QString &text)
{
    m_post_label->setText(text);
}

QString VemoLineEdit::placeholderText() const
{
    return m_line_edit->placeholderText();
}

void VemoLineEdit::setPlaceholderText(const QString &text)
{
    m_line_edit->setPlaceholderText(text);
}

void VemoLineEdit::setError(bool error)
{
    m_line_edit->setProperty("error", error);
    m_line_edit->style()->polish(m_line_edit);
    m_line_edit->update();
}

bool VemoLineEdit::hasError() const
{
    return m_line_edit->property("error").toBool();
}

void VemoLineEdit::setValidator(bool (*validator)(const QString &))
{
    m_validator = validator;
}

bool VemoLineEdit::validate() const
{
    return !m_validator || m_validator(getEditText());
}

void VemoLineEdit::setMargins(int left, int top, int right, int bottom)
{
    m_layout->setContentsMargins(scaled(left), scaled(top), scaled(right), scaled(bottom));
}

void VemoLineEdit::setSpacing(int spacing)
{
    m_layout->setSpacing(scaled(spacing));
}

bool VemoLineEdit::event(QEvent *event)
{
    // QLabel has no signal for a changed text, but requests a new layout if it is visible.
    if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::Show)
        announceCaption();
    return QWidget::event(event);
}

bool VemoLineEdit::eventFilter(QObject *watched, QEvent *event)
{
    // The label of a form posts its layout request to its own parent, so update the name again
    // before the field is announced.
    if (watched == m_line_edit && event->type() == QEvent::FocusIn)
        announceCaption();
    return QWidget::eventFilter(watched, event);
}

void VemoLineEdit::announceCaption()
{
    if (m_line_edit->accessibleName() != m_announced)
        return; // Set by the host.
    m_announced = accessibleName();
    if (m_announced.isEmpty())
        m_announced = spokenText(m_pre_label);
    if (m_announced.isEmpty())
        m_announced = textOfBuddyLabel(*this);
    m_line_edit->setAccessibleName(m_announced);
}

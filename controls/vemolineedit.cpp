// SPDX-License-Identifier: MIT
#include <vemo/vemolineedit.h>

#include "controls/placeholderink_p.h"
#include "core/scaling_p.h"

#include <vemo/stylemanager.h>

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
    // A label has no signal for a new text, but asks for a new layout once it is shown.
    if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::Show)
        announceCaption();
    return QWidget::event(event);
}

void VemoLineEdit::announceCaption()
{
    if (m_line_edit->accessibleName() != m_announced)
        return; // The host has named it.
    m_announced = m_pre_label->text();
    m_line_edit->setAccessibleName(m_announced);
}

// SPDX-License-Identifier: MIT
#include <vemo/vemolineedit.h>

#include "controls/fieldbuttons_p.h"
#include "controls/growntofont_p.h"
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
#include <QStyleOptionFrame>
#include <QVariant>

#include <utility>

namespace {

/// A field that is high enough for a line of its font.
class Field : public QLineEdit
{
public:
    QSize sizeHint() const override { return grown(QLineEdit::sizeHint()); }
    QSize minimumSizeHint() const override { return grown(QLineEdit::minimumSizeHint()); }

private:
    QSize grown(const QSize &hint) const
    {
        QStyleOptionFrame option;
        initStyleOption(&option);
        return grownToFont(hint, *this, &option, [this, &option] {
            return style()->subElementRect(QStyle::SE_LineEditContents, &option, this);
        });
    }
};

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

/// The name of field if it has one of its own: given to it, or the text of the label in front.
QString ownCaption(const QWidget &field, QLabel *label)
{
    return field.accessibleName().isEmpty() ? spokenText(label) : field.accessibleName();
}

/// The text of the label whose buddy is widget, as in a form.
QString textOfBuddyLabel(const QWidget &widget)
{
    if (!widget.parentWidget())
        return {};
    for (QObject *sibling : widget.parentWidget()->children()) {
        auto *label = qobject_cast<QLabel *>(sibling);
        if (label && label->buddy() == &widget)
            return spokenText(label);
    }
    return {};
}

} // namespace

VemoLineEdit::VemoLineEdit(QWidget *parent)
    : QWidget(parent), m_layout(nullptr), m_pre_label(styled<QLabel>(kLabelKey)),
      m_post_label(nullptr), m_line_edit(styled<Field>("component.lineedit"))
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

QString VemoLineEdit::text() const
{
    return getEditText();
}

void VemoLineEdit::setText(const QString &text)
{
    setEditText(text);
}

void VemoLineEdit::clear()
{
    m_line_edit->clear();
}

void VemoLineEdit::selectAll()
{
    m_line_edit->selectAll();
}

bool VemoLineEdit::isReadOnly() const
{
    return m_line_edit->isReadOnly();
}

void VemoLineEdit::setReadOnly(bool readOnly)
{
    m_line_edit->setReadOnly(readOnly);
}

int VemoLineEdit::maxLength() const
{
    return m_line_edit->maxLength();
}

void VemoLineEdit::setMaxLength(int length)
{
    m_line_edit->setMaxLength(length);
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

void VemoLineEdit::setCaptionsVisible(bool visible)
{
    m_pre_label->setVisible(visible);
    m_post_label->setVisible(visible);
}

bool VemoLineEdit::areCaptionsVisible() const
{
    return !m_pre_label->isHidden() || !m_post_label->isHidden();
}

void VemoLineEdit::setClearButtonEnabled(bool enabled)
{
    setNamedClearButton(m_line_edit, enabled);
}

bool VemoLineEdit::isClearButtonEnabled() const
{
    return m_line_edit->isClearButtonEnabled();
}

void VemoLineEdit::setPasswordButtonEnabled(bool enabled)
{
    setPasswordButton(m_line_edit, enabled);
}

bool VemoLineEdit::isPasswordButtonEnabled() const
{
    return passwordButtonAction(m_line_edit);
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

void VemoLineEdit::setErrorText(const QString &text)
{
    m_error_text = text;
    if (!m_error_label && !text.isEmpty()) {
        m_error_label = styled<QLabel>("component.lineedit_error");
        m_error_label->setTextFormat(Qt::PlainText);
        m_error_label->setIndent(0); // A label with a style sheet indents its text.
        m_error_label->setWordWrap(true);
        m_error_label->hide();
        m_error_label->setParent(this);
    }
    showErrorText();
}

void VemoLineEdit::setValidator(bool (*validator)(const QString &))
{
    m_validator = validator;
}

void VemoLineEdit::setCheck(std::function<bool(const QString &)> check)
{
    m_check = std::move(check);
}

bool VemoLineEdit::validate() const
{
    const QString text = getEditText();
    return (!m_validator || m_validator(text)) && (!m_check || m_check(text));
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
    // Without a caption of its own, before or now, the field is named by a label elsewhere, which a
    // layout of this widget does not change: in a large form it takes time to find.
    const bool isLaidOut = event->type() == QEvent::LayoutRequest
        && !(m_announced.isEmpty() && ownCaption(*this, m_pre_label).isEmpty());
    if (isLaidOut || event->type() == QEvent::Show)
        announceCaption();
    return QWidget::event(event);
}

bool VemoLineEdit::eventFilter(QObject *watched, QEvent *event)
{
    // The label of a form posts its layout request to its own parent, so update the name again
    // before the field is announced.
    if (watched == m_line_edit && event->type() == QEvent::FocusIn)
        announceCaption();
    if (watched == m_line_edit && event->type() == QEvent::DynamicPropertyChange)
        showErrorText();
    const bool isMoved = event->type() == QEvent::Move || event->type() == QEvent::Resize;
    if (watched == m_line_edit && isMoved)
        placeErrorText();
    return QWidget::eventFilter(watched, event);
}

void VemoLineEdit::announceCaption()
{
    if (m_line_edit->accessibleName() != m_announced)
        return; // Set by the host.
    m_announced = ownCaption(*this, m_pre_label);
    if (m_announced.isEmpty())
        m_announced = textOfBuddyLabel(*this);
    m_line_edit->setAccessibleName(m_announced);
}

void VemoLineEdit::showErrorText()
{
    if (!m_error_label)
        return;
    const bool isShown = hasError() && !m_error_text.isEmpty();
    m_error_label->setText(m_error_text);
    m_error_label->setVisible(isShown);
    placeErrorText();
    if (isShown && !m_is_error_described)
        m_own_description = m_line_edit->accessibleDescription();
    if (isShown)
        m_line_edit->setAccessibleDescription(m_error_text);
    else if (m_is_error_described)
        m_line_edit->setAccessibleDescription(m_own_description);
    m_is_error_described = isShown;
}

/// Below the field and as wide as the row from there on; the widget's lower margin is its room.
void VemoLineEdit::placeErrorText()
{
    if (!m_error_label)
        return;
    int height = 0;
    if (!m_error_label->isHidden()) {
        const QRect field = m_line_edit->geometry();
        const int left = isRightToLeft() ? 0 : field.left();
        const int right = isRightToLeft() ? field.right() + 1 : width();
        m_error_label->ensurePolished();
        height = m_error_label->heightForWidth(right - left);
        m_error_label->setGeometry(left, field.bottom() + 1, right - left, height);
    }
    // The host may have margins of its own.
    QMargins margins = contentsMargins();
    margins.setBottom(margins.bottom() + height - m_error_height);
    m_error_height = height;
    setContentsMargins(margins);
}

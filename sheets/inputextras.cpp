// SPDX-License-Identifier: MIT
// The second half of the companion: what an input sheet can do that is off by default.
#include "sheets/vemoinputsheet_p.h"

#include "core/scaling_p.h"
#include "sheets/messagelabel_p.h"
#include "sheets/sheetparts_p.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QStyle>
#include <QTextOption>

#include <utility>

namespace {

// In design pixels.
constexpr double kTextHeight = 112;

/// Shows the error state by a rule of the style sheet.
void setError(QWidget *field, bool hasError)
{
    if (field->property("error").toBool() == hasError)
        return;
    field->setProperty("error", hasError);
    field->style()->polish(field);
    field->update();
}

/// QPlainTextEdit aligns every text with the left edge. Aligns it as QLineEdit does: with the edge
/// where its language begins, or that of the layout as long as it is empty.
void alignText(QPlainTextEdit *edit)
{
    const QString text = edit->toPlainText();
    const bool isFromRight = text.isEmpty() ? edit->isRightToLeft() : text.isRightToLeft();
    QTextOption option = edit->document()->defaultTextOption();
    const Qt::Alignment alignment = isFromRight ? Qt::AlignRight : Qt::AlignLeft;
    if (option.alignment() == alignment)
        return;
    option.setAlignment(alignment);
    edit->document()->setDefaultTextOption(option);
}

} // namespace

QString VemoInputSheetPrivate::content() const
{
    return textEdit ? textEdit->toPlainText() : lineEdit->text();
}

void VemoInputSheetPrivate::setContent(const QString &text)
{
    if (textEdit)
        textEdit->setPlainText(text);
    else
        lineEdit->setText(text);
}

QWidget *VemoInputSheetPrivate::field() const
{
    return textEdit ? static_cast<QWidget *>(textEdit) : lineEdit;
}

void VemoInputSheetPrivate::setMultiLine(bool on)
{
    if (on == bool(textEdit))
        return;
    const QString text = content();
    if (on) {
        textEdit = new QPlainTextEdit(q);
        textEdit->setStyleSheet(
            getStyleSheet("component.input_sheet_text") + getStyleSheet("component.scrollbar"));
        textEdit->setFixedHeight(scaled(kTextHeight));
        textEdit->setTabChangesFocus(true);
        textEdit->setAccessibleName(q->accessibleName());
        // Shift+Tab wraps to the last child, which is OK.
        textEdit->stackUnder(buttonBox);
        QWidget::setTabOrder(lineEdit, textEdit);
        alignText(textEdit);
        connect(textEdit, &QPlainTextEdit::textChanged, this, [this, edit = textEdit] {
            alignText(edit);
            contentChanged();
        });
    } else {
        discard(std::exchange(textEdit, nullptr));
    }
    lineEdit->setVisible(!on);
    if (textEdit)
        textEdit->show(); // A layout would show it later.
    setContent(text);
}

void VemoInputSheetPrivate::setCheck(const std::function<bool(const QString &)> &newCheck)
{
    check = newCheck;
    hasChanged = false;
    // The host may have disabled the button of a sheet without a check.
    if (QPushButton *ok = buttonBox->button(QDialogButtonBox::Ok); ok && !check)
        ok->setEnabled(true);
    showValidity();
}

void VemoInputSheetPrivate::setErrorText(const QString &text)
{
    if (!errorLabel && !text.isEmpty()) {
        errorLabel = new MessageLabel(q);
        errorLabel->setStyleSheet(getStyleSheet("component.lineedit_error"));
        errorLabel->setTextFormat(Qt::PlainText);
        errorLabel->setIndent(0); // A label with a style sheet indents its text.
        errorLabel->setWordWrap(true);
        errorLabel->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Maximum);
        errorLabel->hide();
    }
    if (errorLabel) {
        errorLabel->setText(text);
        errorLabel->forgetSize();
    }
    showValidity();
}

void VemoInputSheetPrivate::contentChanged()
{
    hasChanged = true;
    if (check)
        showValidity();
}

bool VemoInputSheetPrivate::isValid() const
{
    return !check || ((textEdit || lineEdit->hasAcceptableInput()) && check(content()));
}

void VemoInputSheetPrivate::showValidity()
{
    const bool valid = isValid();
    if (QPushButton *ok = buttonBox->button(QDialogButtonBox::Ok); ok && check)
        ok->setEnabled(valid);
    const bool hasError = !valid && hasChanged;
    setError(field(), hasError);
    if (!errorLabel)
        return;
    const bool isShown = hasError && !errorLabel->text().isEmpty();
    field()->setAccessibleDescription(isShown ? errorLabel->text() : QString());
    if (isShown == errorLabel->isVisibleTo(q))
        return;
    errorLabel->setVisible(isShown);
    fit();
}

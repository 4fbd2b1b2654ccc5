// SPDX-License-Identifier: MIT
#include <vemo/vemoprogresssheet.h>

#include "core/scaling_p.h"
#include "sheets/messagelabel_p.h"

#include <vemo/stylemanager.h>

#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {

// In design pixels.
constexpr double kBarGap = 12;
constexpr double kWidest = 480;
constexpr double kParentMargin = 40;

/// The width of a sheet over parent, in screen pixels.
int widthOver(const QWidget *parent)
{
    if (!parent)
        return scaled(kWidest);
    return std::clamp(parent->width() - scaled(kParentMargin), 0, scaled(kWidest));
}

} // namespace

class VemoProgressSheetPrivate : public QWidget
{
public:
    explicit VemoProgressSheetPrivate(VemoProgressSheet *sheet);

    void setText(const QString &text);
    QPushButton *cancelButton() const { return q->button(QMessageBox::Discard); }

    VemoProgressSheet *q;
    MessageLabel *label;
    QProgressBar *bar;
    bool wasCanceled = false;
};

VemoProgressSheetPrivate::VemoProgressSheetPrivate(VemoProgressSheet *sheet)
    : q(sheet), label(new MessageLabel(this)), bar(new QProgressBar(this))
{
    label->setStyleSheet(getStyleSheet("component.message_sheet_text"));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    // Screen readers read the text when the sheet opens.
    label->setFocusPolicy(Qt::StrongFocus);
    bar->setStyleSheet(getStyleSheet("component.progress_bar"));
    bar->setTextVisible(false);
    bar->setValue(bar->minimum());
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(scaled(kBarGap));
    column->addWidget(label);
    column->addWidget(bar);
}

void VemoProgressSheetPrivate::setText(const QString &text)
{
    label->setText(text);
    const QMargins around = q->contentsMargins() + q->layout()->contentsMargins();
    label->forgetSize();
    label->fitTo(std::max(0, q->width() - around.left() - around.right()));
    bar->setAccessibleName(text);
    q->setAccessibleName(text);
    layout()->activate();
    updateGeometry();
    q->adjustSize();
}

VemoProgressSheet::VemoProgressSheet(const QString &text, QWidget *parent)
    : VemoContentSheet(nullptr, parent), m_d(new VemoProgressSheetPrivate(this))
{
    setFixedWidth(widthOver(parent));
    setStandardButtons(QDialogButtonBox::Discard);
    setContent(m_d);
    setLabelText(text);
}

VemoProgressSheet::~VemoProgressSheet() = default;

QString VemoProgressSheet::labelText() const
{
    return m_d->label->text();
}

int VemoProgressSheet::minimum() const
{
    return m_d->bar->minimum();
}

int VemoProgressSheet::maximum() const
{
    return m_d->bar->maximum();
}

int VemoProgressSheet::value() const
{
    return m_d->bar->value();
}

void VemoProgressSheet::setRange(int minimum, int maximum)
{
    m_d->bar->setRange(minimum, maximum);
}

void VemoProgressSheet::setCancelButtonText(const QString &text)
{
    if (text.isEmpty()) {
        setStandardButtons(QDialogButtonBox::NoButton);
        return;
    }
    if (!m_d->cancelButton())
        setStandardButtons(QDialogButtonBox::Discard);
    m_d->cancelButton()->setText(text);
    m_d->cancelButton()->setEnabled(!m_d->wasCanceled);
}

bool VemoProgressSheet::wasCanceled() const
{
    return m_d->wasCanceled;
}

void VemoProgressSheet::setLabelText(const QString &text)
{
    m_d->setText(text);
}

void VemoProgressSheet::setValue(int value)
{
    m_d->bar->setValue(value);
}

void VemoProgressSheet::cancel()
{
    if (m_d->wasCanceled)
        return;
    m_d->wasCanceled = true;
    // A disabled button would pass the focus on to the window below the sheet.
    if (QPushButton *button = m_d->cancelButton()) {
        if (button->hasFocus())
            m_d->label->setFocus(Qt::OtherFocusReason);
        button->setEnabled(false);
    }
    Q_EMIT canceled();
}

void VemoProgressSheet::reset()
{
    m_d->wasCanceled = false;
    setValue(minimum());
    if (QPushButton *button = m_d->cancelButton())
        button->setEnabled(true);
}

void VemoProgressSheet::answer(QDialogButtonBox::StandardButton /*which*/)
{
    cancel();
}

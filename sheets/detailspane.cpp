// SPDX-License-Identifier: MIT
#include "sheets/detailspane_p.h"

#include "core/scaling_p.h"
#include "core/stringof_p.h"
#include "sheets/sheetparts_p.h"

#include <vemo/stylemanager.h>

#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace {

// In design pixels.
constexpr double kGap = 4;
constexpr double kHeight = 120;
constexpr double kMinHeight = 48;

/// As high as a few lines, and lower if the window is too low for the sheet.
class DetailsText : public QPlainTextEdit
{
public:
    using QPlainTextEdit::QPlainTextEdit;

    QSize sizeHint() const override { return {0, scaled(kHeight)}; }
    QSize minimumSizeHint() const override { return {0, scaled(kMinHeight)}; }
};

} // namespace

DetailsPane::DetailsPane(QWidget *parent, std::function<void()> toggled)
    : QWidget(parent), m_button(new QPushButton(this)), m_text(new DetailsText(this)),
      m_toggled(std::move(toggled))
{
    m_button->setStyleSheet(getStyleSheet("component.message_sheet_details_button"));
    // Otherwise Return would press it in a dialog.
    m_button->setAutoDefault(false);
    m_button->setFlat(true); // in a theme without a style for it, too
    m_frame = frameWidth(m_button, QStyle::SE_PushButtonContents);
    m_text->setStyleSheet(
        getStyleSheet("component.message_sheet_details") + getStyleSheet("component.scrollbar"));
    m_text->setReadOnly(true);
    m_text->setTabChangesFocus(true);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_text->hide();

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(scaled(kGap));
    column->addWidget(m_button, 0, Qt::AlignLeft);
    auto *row = new QHBoxLayout;
    row->setContentsMargins(m_frame, 0, m_frame, 0);
    row->addWidget(m_text);
    column->addLayout(row);
    translate();
    connect(m_button, &QPushButton::clicked, this, [this] { toggle(); });
}

void DetailsPane::setText(const QString &text)
{
    m_text->setPlainText(text);
}

QString DetailsPane::text() const
{
    return m_text->toPlainText();
}

void DetailsPane::setTextName(const QString &name)
{
    m_text->setAccessibleName(name);
}

QWidget *DetailsPane::textWidget() const
{
    return m_text;
}

void DetailsPane::translate()
{
    m_button->setText(stringOf(m_text->isHidden() ? "show_details" : "hide_details"));
}

void DetailsPane::toggle()
{
    m_text->setVisible(m_text->isHidden());
    translate();
    layout()->activate();
    updateGeometry();
    m_toggled();
}

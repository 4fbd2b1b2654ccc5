// SPDX-License-Identifier: MIT
#include "datetime/dateclearing_p.h"

#include "controls/namediconbutton_p.h"

#include <vemo/vemodateselector.h>

#include <QEvent>
#include <QKeyEvent>
#include <QStyleOptionComboBox>

namespace {

/// Where the style draws the arrow, with all that is clicked with it.
QRect arrowRect(const QWidget &field)
{
    QStyleOptionComboBox option;
    option.initFrom(&field);
    return field.style()->subControlRect(
        QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, &field);
}

} // namespace

DateClearing::DateClearing(VemoDateSelector *field)
    : QObject(field), m_field(field),
      m_button(new NamedIconButton(QStringLiteral("bt_close"), "accessible_clear", field))
{
    m_button->setFocusPolicy(Qt::NoFocus);
    m_button->setCursor(Qt::ArrowCursor);
    m_button->adjustSize();
    connect(m_button, &VemoIconButton::clicked, this, [this] { clearDate(); });
    connect(field, qOverload<int>(&QComboBox::currentIndexChanged), this, [this] { showButton(); });
    field->installEventFilter(this);
    showButton();
}

DateClearing::~DateClearing()
{
    delete m_button;
}

QString DateClearing::roomForButton() const
{
    // Qt mirrors the arrow, but not the padding of a style sheet. Styles may have another padding
    // with the focus.
    const char *side = m_field->isRightToLeft() ? "left" : "right";
    return QStringLiteral("QComboBox, QComboBox:focus { padding-%1: %2px; }")
        .arg(QLatin1String(side))
        .arg(m_button->width());
}

bool DateClearing::eventFilter(QObject * /*watched*/, QEvent *event)
{
    switch (event->type()) {
    case QEvent::KeyPress: {
        const int key = static_cast<QKeyEvent *>(event)->key();
        // Typing deletes characters with these keys.
        if (m_field->isTypingEnabled())
            return false;
        if ((key != Qt::Key_Delete && key != Qt::Key_Backspace) || !m_field->date().isValid())
            return false;
        clearDate();
        return true;
    }
    case QEvent::LayoutDirectionChange:
        m_field->setUpStyle();
        placeButton();
        return false;
    case QEvent::Show:
    case QEvent::Resize:
    case QEvent::StyleChange:
        placeButton();
        return false;
    default:
        return false;
    }
}

void DateClearing::clearDate()
{
    m_field->clearDate();
}

void DateClearing::showButton()
{
    m_button->setVisible(m_field->date().isValid());
    placeButton();
}

void DateClearing::placeButton()
{
    const QRect arrow = arrowRect(*m_field);
    const int x = m_field->isRightToLeft() ? arrow.right() + 1 : arrow.left() - m_button->width();
    m_button->move(x, (m_field->height() - m_button->height()) / 2);
}

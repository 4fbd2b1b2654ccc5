// SPDX-License-Identifier: MIT
#include <vemo/linklabel.h>

#include <QEvent>
#include <QGuiApplication>
#include <QVector>

namespace {

/// Takes the topmost pointing hand out of the application's override cursors and leaves those that
/// were set after it in place.
void removeTopmostHand()
{
    QVector<QCursor> above;
    const QCursor *top = QGuiApplication::overrideCursor();
    while (top && top->shape() != Qt::PointingHandCursor) {
        above.append(*top);
        QGuiApplication::restoreOverrideCursor();
        top = QGuiApplication::overrideCursor();
    }
    if (top)
        QGuiApplication::restoreOverrideCursor();
    while (!above.isEmpty())
        QGuiApplication::setOverrideCursor(above.takeLast());
}

} // namespace

LinkLabel::LinkLabel(const QString &text, QLabel *parent) : ClickableLabel(text, parent) { }

LinkLabel::~LinkLabel()
{
    takeHandsBack();
}

void LinkLabel::enterEvent(QEvent *event)
{
    if (isEnabled()) {
        QGuiApplication::setOverrideCursor(Qt::PointingHandCursor);
        ++m_hands;
        if (m_hoverUnderline)
            setUnderlined(true);
    }
    ClickableLabel::enterEvent(event);
}

void LinkLabel::leaveEvent(QEvent *event)
{
    if (!isEnabled()) {
        m_hands_taken_back = 0;
        // Deliberate: a disabled label takes the leaving for an entering.
        ClickableLabel::enterEvent(event);
        return;
    }
    // Deliberate: takes a cursor away also where none was set, as on a label that was enabled under
    // the pointer. Only a hand that is back already is not taken twice.
    if (m_hands_taken_back > 0) {
        --m_hands_taken_back;
    } else {
        QGuiApplication::restoreOverrideCursor();
        m_hands = qMax(0, m_hands - 1);
    }
    if (m_hoverUnderline)
        setUnderlined(false);
    ClickableLabel::leaveEvent(event);
}

void LinkLabel::showEvent(QShowEvent *event)
{
    m_hands_taken_back = 0;
    ClickableLabel::showEvent(event);
}

void LinkLabel::hideEvent(QHideEvent *event)
{
    // Qt may or may not send a leave event after this one.
    takeHandsBack();
    ClickableLabel::hideEvent(event);
}

void LinkLabel::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::EnabledChange && !isEnabled())
        takeHandsBack();
    ClickableLabel::changeEvent(event);
}

void LinkLabel::setUnderlined(bool on)
{
    QFont underlined = font();
    underlined.setUnderline(on);
    setFont(underlined);
}

void LinkLabel::takeHandsBack()
{
    m_hands_taken_back += m_hands;
    for (; m_hands > 0; --m_hands)
        removeTopmostHand();
}

// SPDX-License-Identifier: MIT
#include <vemo/linklabel.h>

#include <QAccessibleWidget>
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

/// Tells assistive tools that a label is a link, and lets them press it.
class AccessibleLink : public QAccessibleWidget
{
public:
    explicit AccessibleLink(LinkLabel *label) : QAccessibleWidget(label, QAccessible::Link) { }

    QString text(QAccessible::Text kind) const override
    {
        const QString given = QAccessibleWidget::text(kind);
        return kind == QAccessible::Name && given.isEmpty() ? label()->text() : given;
    }

    QStringList actionNames() const override { return {pressAction()}; }

    void doAction(const QString &name) override
    {
        if (name == pressAction() && label()->isEnabled())
            Q_EMIT label()->clicked();
    }

private:
    LinkLabel *label() const { return static_cast<LinkLabel *>(widget()); }
};

QAccessibleInterface *newAccessibleLink(const QString &className, QObject *object)
{
    // Deliberate: a link label has no meta-object of its own, so it goes by its base's name.
    if (className != QLatin1String(ClickableLabel::staticMetaObject.className()))
        return nullptr;
    auto *label = dynamic_cast<LinkLabel *>(object);
    return label ? new AccessibleLink(label) : nullptr;
}

} // namespace

LinkLabel::LinkLabel(const QString &text, QLabel *parent) : ClickableLabel(QString(), parent)
{
    // Qt keeps a factory only once.
    QAccessible::installFactory(newAccessibleLink);
    // Not before: at its first text Qt settles what a label is to assistive tools.
    setText(text);
}

LinkLabel::LinkLabel(QWidget *parent) : LinkLabel(QString())
{
    setParent(parent);
}

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

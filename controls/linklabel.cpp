// SPDX-License-Identifier: MIT
#include <vemo/linklabel.h>

#include "controls/spokentext_p.h"
#include "core/qtcompat_p.h"

#include <QAccessibleWidget>
#include <QApplication>
#include <QEvent>
#include <QPointer>
#include <QVector>

#include <utility>

namespace {

/// Removes the topmost pointing hand from the stack of override cursors and keeps those set after
/// it.
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

/// Detects whether a pop-up opens during its lifetime.
class PopupWatch : public QObject
{
public:
    PopupWatch() { qApp->installEventFilter(this); }

    bool hasOpened() const { return m_has_opened; }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Show && watched->isWidgetType())
            m_has_opened |= static_cast<QWidget *>(watched)->windowType() == Qt::Popup;
        return false;
    }

private:
    bool m_has_opened = false;
};

bool mayOpenAMenu(QEvent::Type type)
{
    return type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick
        || type == QEvent::ContextMenu;
}

/// Presents a label to assistive tools as a link that can be pressed.
class AccessibleLink : public QAccessibleWidget
{
public:
    explicit AccessibleLink(LinkLabel *label) : QAccessibleWidget(label, QAccessible::Link) { }

    QString text(QAccessible::Text kind) const override
    {
        const QString given = QAccessibleWidget::text(kind);
        const bool isUnnamed = kind == QAccessible::Name && given.isEmpty();
        return isUnnamed ? spoken(label()->text(), label()->textFormat()) : given;
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
    // Deliberate: LinkLabel has no meta-object, so it reports the class name of its base.
    if (className != QLatin1String(ClickableLabel::staticMetaObject.className()))
        return nullptr;
    auto *label = dynamic_cast<LinkLabel *>(object);
    return label ? new AccessibleLink(label) : nullptr;
}

} // namespace

LinkLabel::LinkLabel(const QString &text, QLabel *parent) : ClickableLabel(QString(), parent)
{
    // Installing the factory again is a no-op.
    QAccessible::installFactory(newAccessibleLink);
    // Only now: QLabel creates its accessible interface on the first setText().
    setText(text);
}

LinkLabel::LinkLabel(QWidget *parent) : LinkLabel(QString())
{
    setParent(parent);
}

LinkLabel::~LinkLabel()
{
    // Qt sends no leave event to a widget that is destroyed under the pointer.
    for (; m_cursorsSet > 0; --m_cursorsSet)
        removeTopmostHand();
}

bool LinkLabel::event(QEvent *event)
{
    if (!mayOpenAMenu(event->type()))
        return ClickableLabel::event(event);
    const QPointer<LinkLabel> self(this);
    const PopupWatch popups;
    const bool isHandled = ClickableLabel::event(event);
    // A menu opened in between can swallow the leave event. Otherwise Qt sends it later.
    if (self && popups.hasOpened())
        leaveUnlessUnderPointer();
    return isHandled;
}

void LinkLabel::enterEvent(VemoEnterEvent *event)
{
    m_has_left = false;
    if (isEnabled()) {
        QGuiApplication::setOverrideCursor(Qt::PointingHandCursor);
        ++m_cursorsSet;
        if (m_hoverUnderline)
            setUnderlined(true);
    }
    ClickableLabel::enterEvent(event);
}

void LinkLabel::leaveEvent(QEvent *event)
{
    if (std::exchange(m_has_left, false)) {
        // Qt has sent a leave event after all.
        ClickableLabel::leaveEvent(event);
        return;
    }
    if (!isEnabled()) {
        // Deliberate: a disabled label forwards the leave event as an enter event, and keeps the
        // cursor that it has set.
        ClickableLabel::enterEvent(LeaveAsEnter(event).event());
        return;
    }
    // Deliberate: restores a cursor even if this label has set none, for instance because it was
    // enabled under the pointer.
    QGuiApplication::restoreOverrideCursor();
    m_cursorsSet = qMax(0, m_cursorsSet - 1);
    if (m_hoverUnderline)
        setUnderlined(false);
    ClickableLabel::leaveEvent(event);
}

void LinkLabel::setUnderlined(bool on)
{
    QFont underlined = font();
    underlined.setUnderline(on);
    setFont(underlined);
}

void LinkLabel::leaveUnlessUnderPointer()
{
    if (!underMouse() || rect().contains(mapFromGlobal(QCursor::pos())))
        return;
    const QPointer<LinkLabel> self(this);
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(this, &leave);
    if (self)
        m_has_left = true;
}

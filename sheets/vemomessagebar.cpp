// SPDX-License-Identifier: MIT
#include <vemo/vemomessagebar.h>

#include "core/scaling_p.h"
#include "core/stringof_p.h"
#include "sheets/sheetparts_p.h"

#include <vemo/imagemanager.h>
#include <vemo/vemoiconbutton.h>

#include <QAccessibleWidget>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QQueue>
#include <QTimer>

#include <iterator>

namespace {

// In design pixels.
constexpr double kMargin = 8;
constexpr double kSpacing = 8;

/// A message that appears without being asked for. By default screen readers treat a frame as a
/// border.
class AccessibleBar : public QAccessibleWidget
{
public:
    explicit AccessibleBar(QWidget *bar) : QAccessibleWidget(bar, QAccessible::AlertMessage) { }
};

QAccessibleInterface *accessibleBar(const QString &className, QObject *object)
{
    auto *bar = className == QLatin1String("VemoMessageBar")
        ? qobject_cast<VemoMessageBar *>(object)
        : nullptr;
    return bar ? new AccessibleBar(bar) : nullptr;
}

struct BarMessage
{
    VemoMessageBar::MessageType type = VemoMessageBar::Information;
    QString text;
    QString actionText;
    std::function<void()> action;
    int timeout = 0; ///< milliseconds
};

/// What a type looks up.
struct TypeLook
{
    const char *style;
    const char *picture;
    const char *name; ///< key of the string that screen readers announce
};

constexpr TypeLook kLooks[] = {
    {"component.message_bar_information", "message_information", "accessible_information"},
    {"component.message_bar_success", "message_success", "accessible_success"},
    {"component.message_bar_warning", "message_warning", "accessible_warning"},
    {"component.message_bar_error", "message_error", "accessible_error"},
};

const TypeLook &lookOf(int type)
{
    const bool isKnown = type >= 0 && type < static_cast<int>(std::size(kLooks));
    return kLooks[isKnown ? type : 0];
}

} // namespace

class VemoMessageBarPrivate : public QObject
{
public:
    explicit VemoMessageBarPrivate(VemoMessageBar *bar);

    void add(const BarMessage &message);
    void close();
    void showPicture() const;
    /// Sets the names for assistive tools.
    void nameParts() const;

    VemoMessageBar *q;
    QLabel *picture;
    QLabel *label;
    QPushButton *actionButton;
    VemoIconButton *closeButton;
    BarMessage current;
    bool isShown = false;
    QQueue<BarMessage> waiting;
    QTimer timer;

private:
    void layOut() const;
    void showMessage(const BarMessage &message);
    void act();
    void timeOut();
};

VemoMessageBarPrivate::VemoMessageBarPrivate(VemoMessageBar *bar)
    : QObject(bar), q(bar), picture(new QLabel(bar)), label(new QLabel(bar)),
      actionButton(new QPushButton(bar)), closeButton(new VemoIconButton("bt_close", bar))
{
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Minimum);
    actionButton->setStyleSheet(getStyleSheet("component.message_bar_button"));
    // Otherwise Return would press it in a dialog.
    actionButton->setAutoDefault(false);
    closeButton->setFocusPolicy(Qt::StrongFocus);
    timer.setSingleShot(true);
    layOut();
    connect(actionButton, &QPushButton::clicked, this, [this] { act(); });
    connect(closeButton, &QToolButton::clicked, q, &VemoMessageBar::closeMessage);
    connect(&timer, &QTimer::timeout, this, [this] { timeOut(); });
}

void VemoMessageBarPrivate::layOut() const
{
    auto *row = new QHBoxLayout(q);
    const int margin = scaled(kMargin);
    row->setContentsMargins(margin, margin, margin, margin);
    row->setSpacing(scaled(kSpacing));
    row->addWidget(picture);
    row->addWidget(label, 1);
    row->addWidget(actionButton);
    row->addWidget(closeButton);
}

void VemoMessageBarPrivate::add(const BarMessage &message)
{
    if (isShown)
        waiting.enqueue(message);
    else
        showMessage(message);
}

void VemoMessageBarPrivate::showMessage(const BarMessage &message)
{
    current = message;
    isShown = true;
    q->setStyleSheet(getStyleSheet(lookOf(message.type).style));
    showPicture();
    label->setText(message.text);
    actionButton->setText(message.actionText);
    actionButton->setVisible(!message.actionText.isEmpty());
    nameParts();
    q->show();
    if (message.timeout > 0)
        timer.start(message.timeout);
    QAccessibleEvent alert(q, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
    Q_EMIT q->messageShown(message.text);
}

void VemoMessageBarPrivate::showPicture() const
{
    picture->setPixmap(getGlobalImage(lookOf(current.type).picture));
}

void VemoMessageBarPrivate::nameParts() const
{
    closeButton->setAccessibleName(stringOf("accessible_close"));
    closeButton->setToolTip(closeButton->accessibleName());
    const QString type = stringOf(lookOf(current.type).name);
    q->setAccessibleName(type + QStringLiteral(": ") + current.text);
}

void VemoMessageBarPrivate::close()
{
    timer.stop();
    isShown = false;
    current.text.clear();
    current.action = {};
    if (!waiting.isEmpty()) {
        showMessage(waiting.dequeue());
        return;
    }
    q->hide();
    Q_EMIT q->messagesClosed();
}

void VemoMessageBarPrivate::act()
{
    // A slot or the action itself may delete the bar.
    const std::function<void()> action = current.action;
    close();
    if (action)
        action();
}

void VemoMessageBarPrivate::timeOut()
{
    const QWidget *focus = q->window()->focusWidget();
    const bool hasFocus = focus && q->isAncestorOf(focus) && focus->hasFocus();
    if (q->underMouse() || hasFocus || !q->isVisible())
        timer.start(current.timeout);
    else
        close();
}

VemoMessageBar::VemoMessageBar(QWidget *parent)
    : QFrame(parent), m_d(new VemoMessageBarPrivate(this))
{
    // Installing the factory again is a no-op.
    QAccessible::installFactory(accessibleBar);
    hide();
}

VemoMessageBar::~VemoMessageBar() = default;

void VemoMessageBar::showMessage(MessageType type, const QString &text, int timeout)
{
    m_d->add({type, text, {}, {}, timeout});
}

void VemoMessageBar::showMessage(MessageType type, const QString &text, const QString &actionText,
    const std::function<void()> &action, int timeout)
{
    m_d->add({type, text, actionText, action, timeout});
}

bool VemoMessageBar::hasMessage() const
{
    return m_d->isShown;
}

VemoMessageBar::MessageType VemoMessageBar::messageType() const
{
    return m_d->current.type;
}

QString VemoMessageBar::text() const
{
    return m_d->current.text;
}

int VemoMessageBar::queuedCount() const
{
    return m_d->waiting.size();
}

void VemoMessageBar::closeMessage()
{
    if (m_d->isShown)
        m_d->close();
}

void VemoMessageBar::clearMessages()
{
    m_d->waiting.clear();
    closeMessage();
}

void VemoMessageBar::changeEvent(QEvent *event)
{
    QFrame::changeEvent(event);
    if (event->type() == QEvent::LanguageChange && m_d->isShown)
        m_d->nameParts();
}

void VemoMessageBar::customEvent(QEvent *event)
{
    if (event->type() == StyleManager::reloadEvent() && m_d->isShown)
        m_d->showPicture();
    QFrame::customEvent(event);
}

void VemoMessageBar::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && m_d->isShown)
        closeMessage();
    else
        QFrame::keyPressEvent(event);
}

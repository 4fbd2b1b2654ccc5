// SPDX-License-Identifier: MIT
#include <vemo/vemobadge.h>

#include "controls/spokentooltip_p.h"
#include "core/scaling_p.h"

#include <vemo/stylemanager.h>

#include <QEvent>
#include <QLocale>
#include <QSplitter>

#include <iterator>

namespace {

constexpr int kInset = 4; // of the centre from the edges of the target; in design pixels

constexpr const char *kStyleKeys[] = {
    "component.badge_accent", "component.badge_danger", "component.badge_neutral"};

bool isKnown(int kind)
{
    return kind >= 0 && kind < static_cast<int>(std::size(kStyleKeys));
}

/// A splitter would make a pane of the badge, and a window has no parent to put it into.
QWidget *parentFor(QWidget *target)
{
    QWidget *parent = target->parentWidget();
    return target->isWindow() || qobject_cast<QSplitter *>(parent) ? target : parent;
}

} // namespace

VemoBadge::VemoBadge(QWidget *parent) : QLabel(parent)
{
    speakToolTip(this);
    setTextFormat(Qt::PlainText);
    setAlignment(Qt::AlignCenter);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setStyleSheet(getStyleSheet(kStyleKeys[m_kind]));
    hide();
}

VemoBadge::~VemoBadge()
{
    if (m_target)
        speakBadge(m_target, {});
}

void VemoBadge::attachTo(QWidget *target)
{
    if (target == m_target || target == this)
        return;
    leaveTarget();
    m_target = target;
    setAttribute(Qt::WA_TransparentForMouseEvents, target != nullptr);
    if (!target)
        return;
    target->installEventFilter(this);
    connect(target, &QObject::destroyed, this, [this] {
        // Still set. If a dying widget is described, Qt keeps a new accessible interface of it.
        m_target.clear();
        delete this;
    });
    followParent();
    describeTarget();
}

QWidget *VemoBadge::target() const
{
    return m_target;
}

int VemoBadge::count() const
{
    return m_count;
}

void VemoBadge::setCount(int count)
{
    m_count = qMax(0, count);
    refresh();
}

int VemoBadge::maximum() const
{
    return m_maximum;
}

void VemoBadge::setMaximum(int maximum)
{
    m_maximum = qMax(1, maximum);
    refresh();
}

bool VemoBadge::isZeroVisible() const
{
    return m_zero_visible;
}

void VemoBadge::setZeroVisible(bool visible)
{
    m_zero_visible = visible;
    refresh();
}

QString VemoBadge::text() const
{
    return m_text;
}

void VemoBadge::setText(const QString &text)
{
    m_text = text;
    refresh();
}

bool VemoBadge::isDot() const
{
    return m_dot;
}

void VemoBadge::setDot(bool dot)
{
    if (dot == m_dot)
        return;
    m_dot = dot;
    // Selectors of properties are only matched again when the sheet is set.
    setStyleSheet(styleSheet());
    refresh();
}

VemoBadge::Kind VemoBadge::kind() const
{
    return m_kind;
}

void VemoBadge::setKind(Kind kind)
{
    const Kind known = isKnown(kind) ? kind : Accent;
    if (known == m_kind)
        return;
    m_kind = known;
    setStyleSheet(getStyleSheet(kStyleKeys[m_kind]));
}

bool VemoBadge::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Move || event->type() == QEvent::Resize)
        place();
    if (watched != m_target)
        return false;
    switch (event->type()) {
    case QEvent::LayoutDirectionChange:
        place();
        break;
    case QEvent::ShowToParent:
    case QEvent::HideToParent:
        refreshVisibility();
        break;
    case QEvent::EnabledChange:
        setEnabled(m_target->isEnabledTo(parentWidget()));
        break;
    case QEvent::ZOrderChange:
        raise();
        break;
    case QEvent::ParentAboutToChange:
        parentWidget()->removeEventFilter(this);
        // The parent may be the target, whose other events are still of interest.
        m_target->installEventFilter(this);
        break;
    case QEvent::ParentChange:
        followParent();
        break;
    default:
        break;
    }
    return false;
}

void VemoBadge::changeEvent(QEvent *event)
{
    QLabel::changeEvent(event);
    switch (event->type()) {
    case QEvent::LocaleChange:
        refresh();
        break;
    case QEvent::FontChange:
    case QEvent::StyleChange:
        place();
        break;
    default:
        break;
    }
}

QString VemoBadge::shownText() const
{
    if (m_dot)
        return {};
    if (!m_text.isEmpty())
        return m_text;
    if (m_count == 0 && !m_zero_visible)
        return {};
    if (m_count > m_maximum)
        return locale().toString(m_maximum) + QLatin1Char('+');
    return locale().toString(m_count);
}

bool VemoBadge::isEmpty() const
{
    return !m_dot && shownText().isEmpty();
}

void VemoBadge::refresh()
{
    QLabel::setText(shownText());
    refreshVisibility();
    describeTarget();
}

void VemoBadge::refreshVisibility()
{
    const bool isShown = !isEmpty();
    if (m_target) {
        setVisible(isShown && (m_target == parentWidget() || !m_target->isHidden()));
        place();
    } else if (isShown != m_is_shown) {
        // Without a parent it would become a window: it is left to the layout to show it.
        if (isShown && isWindow())
            setAttribute(Qt::WA_WState_ExplicitShowHide, false);
        else
            setVisible(isShown);
    }
    m_is_shown = isShown;
}

void VemoBadge::describeTarget() const
{
    if (!m_target)
        return;
    const QString name = accessibleName().isEmpty() ? shownText() : accessibleName();
    speakBadge(m_target, isEmpty() ? QString() : name);
}

void VemoBadge::leaveTarget()
{
    if (!m_target)
        return;
    speakBadge(m_target, {});
    m_target->disconnect(this);
    m_target->removeEventFilter(this);
    parentWidget()->removeEventFilter(this);
    setEnabled(true);
    hide();
    m_is_shown = false;
}

void VemoBadge::followParent()
{
    QWidget *parent = parentFor(m_target);
    setParent(parent);
    // Its size limits the place of the badge.
    parent->installEventFilter(this);
    setEnabled(m_target->isEnabledTo(parent));
    raise();
    refreshVisibility();
}

void VemoBadge::place()
{
    if (!m_target || isHidden())
        return;
    resize(sizeHint());
    const QRect box = m_target == parentWidget() ? m_target->rect() : m_target->geometry();
    const QSize room = parentWidget()->size() - size();
    const int inset = scaled(kInset);
    // A longer text grows outwards, because it would cover a small target.
    const int inside = inset + qMin(width(), height()) / 2;
    const int x =
        m_target->isRightToLeft() ? box.left() + inside - width() : box.right() + 1 - inside;
    const int y = box.top() + inset - height() / 2;
    move(qBound(0, x, qMax(0, room.width())), qBound(0, y, qMax(0, room.height())));
}

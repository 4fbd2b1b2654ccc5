// SPDX-License-Identifier: MIT
#include <vemo/vemoiconbutton.h>

#include "controls/spokentooltip_p.h"

#include <vemo/dpiinfo.h>
#include <vemo/imagemanager.h>
#include <vemo/stylemanager.h>

#include <QAccessibleWidget>
#include <QMenu>
#include <QMouseEvent>
#include <QPointer>
#include <QTimer>

namespace {

/// Prevents Qt from greying a picture that was drawn for the disabled state.
QIcon asDrawn(const QPixmap &disabledPicture)
{
    QIcon icon(disabledPicture);
    icon.addPixmap(disabledPicture, QIcon::Disabled);
    return icon;
}

/// A button that assistive tools can press. In the pop-up mode in which a menu opens immediately,
/// Qt provides no press action, even if there is no menu.
class AccessibleIconButton : public QAccessibleWidget
{
public:
    explicit AccessibleIconButton(VemoIconButton *button) : QAccessibleWidget(button) { }

    QAccessible::Role role() const override
    {
        if (button()->menu())
            return QAccessible::ButtonMenu;
        return button()->isCheckable() ? QAccessible::CheckBox : QAccessible::PushButton;
    }

    QString text(QAccessible::Text kind) const override
    {
        const QString text = QAccessibleWidget::text(kind);
        return kind == QAccessible::Name && text.isEmpty() ? button()->text() : text;
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = button()->isCheckable();
        state.checked = button()->isChecked();
        state.pressed = button()->isDown();
        state.hasPopup = button()->menu() != nullptr;
        return state;
    }

    QStringList actionNames() const override
    {
        QStringList names;
        if (button()->isEnabled())
            names += pressAction();
        if (button()->isEnabled() && button()->menu())
            names += showMenuAction();
        return names + QAccessibleWidget::actionNames();
    }

    void doAction(const QString &name) override
    {
        if (!actionNames().contains(name))
            return;
        if (name != pressAction() && name != showMenuAction())
            QAccessibleWidget::doAction(name);
        else if (button()->menu())
            // Queued, because the menu runs its own event loop.
            QTimer::singleShot(0, button(), &QToolButton::showMenu);
        else
            button()->click();
    }

private:
    VemoIconButton *button() const { return static_cast<VemoIconButton *>(object()); }
};

QAccessibleInterface *newAccessibleIconButton(const QString &className, QObject *object)
{
    if (className != QLatin1String(VemoIconButton::staticMetaObject.className()))
        return nullptr;
    return new AccessibleIconButton(static_cast<VemoIconButton *>(object));
}

} // namespace

VemoIconButton::VemoIconButton(const QPixmap &picture) : VemoIconButton(picture, nullptr) { }

VemoIconButton::VemoIconButton(const QPixmap &picture, QWidget *parent) : QToolButton(parent)
{
    setDefaultIcon(picture);
    initialize();
}

VemoIconButton::VemoIconButton(const QString &name) : VemoIconButton(name, nullptr) { }

VemoIconButton::VemoIconButton(const QString &name, QWidget *parent) : QToolButton(parent)
{
    setAllIcon(name);
    initialize();
}

VemoIconButton::VemoIconButton(QWidget *parent) : QToolButton(parent)
{
    initialize();
}

void VemoIconButton::setAllIcon(const QString &name)
{
    m_name = name;
    loadPictures();
    setIcon(m_defaultIcon);
}

void VemoIconButton::loadPictures()
{
    const QPixmap normal = getGlobalImage(m_name);
    m_defaultIcon = normal;
    m_hoverIcon = getGlobalImage(m_name, ImageManager::HOVER);
    m_pressIcon = getGlobalImage(m_name, ImageManager::CLICK);
    const QPixmap disabled = getGlobalImage(m_name, ImageManager::DISABLE);
    m_disableIcon = disabled.cacheKey() == normal.cacheKey() ? m_defaultIcon : asDrawn(disabled);
    m_iconSize = normal.size() / DPIinfo::getInstance().getDPR();
}

void VemoIconButton::setDefaultIcon(const QPixmap &picture)
{
    m_name.clear();
    m_defaultIcon = m_hoverIcon = m_pressIcon = m_disableIcon = picture;
    m_iconSize = picture.size() / DPIinfo::getInstance().getDPR();
    applyNormalStyle();
}

void VemoIconButton::setHoverIcon(const QPixmap &picture)
{
    m_name.clear();
    m_hoverIcon = picture;
}

void VemoIconButton::setPressIcon(const QPixmap &picture)
{
    m_name.clear();
    m_pressIcon = picture;
}

void VemoIconButton::setDisableIcon(const QPixmap &picture)
{
    m_name.clear();
    m_disableIcon = asDrawn(picture);
}

void VemoIconButton::applyHoverStyle()
{
    showIcon(m_hoverIcon);
}

void VemoIconButton::applyNormalStyle()
{
    showIcon(m_defaultIcon);
}

void VemoIconButton::mousePressEvent(QMouseEvent *event)
{
    if (isEnabled())
        showIcon(m_pressIcon);
    const bool opensMenu = event->button() == Qt::LeftButton && (menu() || !actions().isEmpty());
    const QPointer<VemoIconButton> self(this);
    QToolButton::mousePressEvent(event);
    // The button's menu has run in the meantime and has received the release event.
    if (opensMenu && self && isEnabled() && !isDown())
        applyNormalStyle();
}

void VemoIconButton::mouseReleaseEvent(QMouseEvent *event)
{
    // Deliberate: on release the normal picture is shown, although the pointer is still over the
    // button.
    if (isEnabled())
        applyNormalStyle();
    QToolButton::mouseReleaseEvent(event);
}

void VemoIconButton::enterEvent(VemoEnterEvent *event)
{
    if (isEnabled())
        applyHoverStyle();
    QToolButton::enterEvent(event);
}

void VemoIconButton::leaveEvent(QEvent *event)
{
    // Deliberate: a button with the keyboard focus stays highlighted.
    if (isEnabled() && !hasFocus())
        applyNormalStyle();
    QToolButton::leaveEvent(event);
}

void VemoIconButton::showEvent(QShowEvent *event)
{
    applyEnabledStyle();
    QToolButton::showEvent(event);
}

void VemoIconButton::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::EnabledChange)
        applyEnabledStyle();
    QToolButton::changeEvent(event);
}

void VemoIconButton::customEvent(QEvent *event)
{
    if (event->type() == StyleManager::reloadEvent() && !m_name.isEmpty()) {
        const qint64 shown = icon().cacheKey();
        const QIcon *const shownIcon = [&]() -> const QIcon * {
            for (const QIcon *each : {&m_defaultIcon, &m_hoverIcon, &m_pressIcon, &m_disableIcon}) {
                if (each->cacheKey() == shown)
                    return each;
            }
            return nullptr;
        }();
        loadPictures();
        // One that the host has set itself stays.
        if (shownIcon)
            showIcon(*shownIcon);
    }
    QToolButton::customEvent(event);
}

void VemoIconButton::initialize()
{
    // Installing the factory again is a no-op.
    QAccessible::installFactory(newAccessibleIconButton);
    speakToolTip(this);
    setToolButtonStyle(Qt::ToolButtonIconOnly);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setStyleSheet(getStyleSheet("component.icon_button"));
    setPopupMode(QToolButton::InstantPopup);
}

void VemoIconButton::showIcon(const QIcon &icon)
{
    setIcon(icon);
    setIconSize(m_iconSize);
}

void VemoIconButton::applyEnabledStyle()
{
    showIcon(isEnabled() ? m_defaultIcon : m_disableIcon);
}

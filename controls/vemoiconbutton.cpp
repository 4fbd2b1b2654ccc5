// SPDX-License-Identifier: MIT
#include <vemo/vemoiconbutton.h>

#include <vemo/dpiinfo.h>
#include <vemo/imagemanager.h>
#include <vemo/stylemanager.h>

#include <QMouseEvent>
#include <QPointer>

namespace {

/// Left to itself, Qt would grey a picture that was drawn for the disabled state.
QIcon asDrawn(const QPixmap &disabledPicture)
{
    QIcon icon(disabledPicture);
    icon.addPixmap(disabledPicture, QIcon::Disabled);
    return icon;
}

} // namespace

VemoIconButton::VemoIconButton(const QPixmap &picture)
{
    setDefaultIcon(picture);
    initialize();
}

VemoIconButton::VemoIconButton(const QString &name)
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
    const QPixmap normal = getGlobalImage(name);
    m_defaultIcon = normal;
    m_hoverIcon = getGlobalImage(name, ImageManager::HOVER);
    m_pressIcon = getGlobalImage(name, ImageManager::CLICK);
    const QPixmap disabled = getGlobalImage(name, ImageManager::DISABLE);
    m_disableIcon = disabled.cacheKey() == normal.cacheKey() ? m_defaultIcon : asDrawn(disabled);
    m_iconSize = normal.size() / DPIinfo::getInstance().getDPR();
    setIcon(m_defaultIcon);
}

void VemoIconButton::setDefaultIcon(const QPixmap &picture)
{
    m_defaultIcon = m_hoverIcon = m_pressIcon = m_disableIcon = picture;
    m_iconSize = picture.size() / DPIinfo::getInstance().getDPR();
    applyNormalStyle();
}

void VemoIconButton::setHoverIcon(const QPixmap &picture)
{
    m_hoverIcon = picture;
}

void VemoIconButton::setPressIcon(const QPixmap &picture)
{
    m_pressIcon = picture;
}

void VemoIconButton::setDisableIcon(const QPixmap &picture)
{
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
    // The button's menu has run until here and has kept the release to itself.
    if (opensMenu && self && isEnabled() && !isDown())
        applyNormalStyle();
}

void VemoIconButton::mouseReleaseEvent(QMouseEvent *event)
{
    // Deliberate: the release shows the resting picture, although the pointer is still there.
    if (isEnabled())
        applyNormalStyle();
    QToolButton::mouseReleaseEvent(event);
}

void VemoIconButton::enterEvent(QEvent *event)
{
    if (isEnabled())
        applyHoverStyle();
    QToolButton::enterEvent(event);
}

void VemoIconButton::leaveEvent(QEvent *event)
{
    // Deliberate: with the keyboard focus the button stays highlighted.
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

void VemoIconButton::initialize()
{
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

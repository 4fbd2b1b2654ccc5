// SPDX-License-Identifier: MIT
#include "views/pathbuttons_p.h"

#include "controls/growntofont_p.h"
#include "core/scaling_p.h"
#include "views/owndirection_p.h"

#include <vemo/tooltiptext.h>

#include <QHelpEvent>
#include <QKeyEvent>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <QToolTip>

namespace {

// In design pixels.
constexpr int kArrowWidth = 6;
constexpr int kMenuArrowWidth = 16;
constexpr int kArrowHeight = 28;
constexpr int kNameHeight = 26;
constexpr int kNamePadding = 16;

QString partOf(QString caption)
{
    return caption.replace(QLatin1String("&&"), QLatin1String("&"));
}

} // namespace

/// QPushButton's constructor and setFlat() ask the style for sizes, which takes long with a style
/// sheet, so the button gets its parent and its sheet after that. With its final parent and not yet
/// visible, it evaluates its sheet only once.
PathButton::PathButton(QWidget *viewport, const QWidget *cover, const QString &style)
    : m_cover(cover)
{
    setFlat(true);
    setParent(viewport);
    m_is_set_up = true;
    setStyleSheet(style);
}

bool PathButton::event(QEvent *event)
{
    // setParent() reports the parent's style, which is not yet the button's own: QPushButton would
    // evaluate it, and again when it is polished.
    const bool isPremature = !m_is_set_up && event->type() == QEvent::StyleChange;
    return isPremature || QPushButton::event(event);
}

QRect PathButton::shownRect() const
{
    QRect shown = rect();
    const QRect row = parentWidget()->rect().translated(-pos());
    const QRect cover = m_cover->geometry().translated(-parentWidget()->pos() - pos());
    const bool isCovered = !m_cover->isHidden();
    if (isRightToLeft())
        shown.setRight(qMin(shown.right(), isCovered ? cover.left() - 1 : row.right()));
    else
        shown.setLeft(qMax(shown.left(), isCovered ? cover.right() + 1 : row.left()));
    return shown;
}

PathName::PathName(QWidget *viewport, const QWidget *cover, const QString &style)
    : PathButton(viewport, cover, style)
{
}

QString PathName::captionOf(QString part)
{
    return part.replace(QLatin1Char('&'), QLatin1String("&&"));
}

QString PathName::part() const
{
    return partOf(text());
}

void PathName::setPart(const QString &part)
{
    setText(captionOf(part));
    ensurePolished(); // may change the font
    const int textWidth = fontMetrics().boundingRect(part).width();
    setFixedSize(scaled(textWidth + kNamePadding), scaled(kNameHeight));
}

bool PathName::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip || !m_has_tool_tip)
        return PathButton::event(event);
    const QPoint place = static_cast<QHelpEvent *>(event)->globalPos();
    if (shownRect().width() < width())
        QToolTip::showText(place, getHtmlEscapedStringForToolTip(part()), this);
    return true;
}

void PathName::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_Down:
        // For the row. QAbstractButton would look for the nearest button in that direction.
        event->ignore();
        return;
    default:
        PathButton::keyPressEvent(event);
    }
}

void PathName::paintEvent(QPaintEvent * /*event*/)
{
    QStyleOptionButton option;
    initStyleOption(&option);
    option.rect = shownRect();
    if (option.rect.width() < width()) {
        // Without the dots, the end of a name would look like another name.
        const int room = option.rect.width() - scaled(kNamePadding);
        const QString rest = fontMetrics().elidedText(part(), Qt::ElideLeft, room);
        if (rest.size() < 2)
            return;
        option.text = inOwnDirection(captionOf(rest), option.direction);
    }
    const QRect area = style()->subElementRect(QStyle::SE_PushButtonContents, &option, this);
    QStylePainter painter(this);
    painter.setFont(fontForHeight(font(), area.height()));
    painter.drawControl(QStyle::CE_PushButton, option);
}

PathArrow::PathArrow(
    QWidget *viewport, const QWidget *cover, const QString &style, const QPixmap &picture)
    : PathButton(viewport, cover, style)
{
    setUp(QStringLiteral("/"), picture); // as in a path, and in every language
}

PathArrow::PathArrow(QWidget *viewport, const QWidget *cover, const QString &style,
    const QPixmap &picture, const QString &folder)
    : PathButton(viewport, cover, style), m_has_menu(true)
{
    setUp(folder, picture);
}

void PathArrow::setUp(const QString &name, const QPixmap &picture)
{
    setFocusPolicy(Qt::NoFocus);
    setAccessibleName(name);
    setFixedSize(scaled(m_has_menu ? kMenuArrowWidth : kArrowWidth), scaled(kArrowHeight));
    setPicture(picture);
}

void PathArrow::setPicture(const QPixmap &picture)
{
    m_picture = picture;
    // With a larger icon size Qt would draw a picture with a high pixel ratio larger and coarser.
    setIconSize(picture.size() / picture.devicePixelRatio());
    showPicture();
}

void PathArrow::changeEvent(QEvent *event)
{
    PathButton::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange)
        showPicture();
}

void PathArrow::paintEvent(QPaintEvent *event)
{
    if (shownRect() == rect())
        PathButton::paintEvent(event);
}

void PathArrow::showPicture()
{
    setIcon(isRightToLeft() ? m_picture.transformed(QTransform::fromScale(-1, 1)) : m_picture);
}

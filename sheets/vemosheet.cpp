// SPDX-License-Identifier: MIT
#include <vemo/vemosheet.h>

#include "core/pixelgrid_p.h"
#include "core/scaling_p.h"
#include "sheets/modalrun_p.h"

#include <vemo/imagemanager.h>
#include <vemo/stylemanager.h>

#include <QAccessibleWidget>
#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>

namespace {

constexpr Qt::GlobalColor kBody = Qt::white; // Deliberate: in every theme that names no other.
constexpr double kShadowWidth = 22.0;

/// A dialog, modal while it runs. By default screen readers treat a frame as a border.
class AccessibleSheet : public QAccessibleWidget
{
public:
    explicit AccessibleSheet(VemoSheet *sheet)
        : QAccessibleWidget(sheet, QAccessible::Dialog), m_sheet(sheet)
    {
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.modal = ModalRun::isOpenFor(m_sheet);
        return state;
    }

private:
    const VemoSheet *m_sheet; ///< only compared
};

QAccessibleInterface *accessibleSheet(const QString &className, QObject *object)
{
    auto *sheet =
        className == QLatin1String("VemoSheet") ? qobject_cast<VemoSheet *>(object) : nullptr;
    return sheet ? new AccessibleSheet(sheet) : nullptr;
}

void drawOnGrid(QPainter &painter, const QRect &place, const QPixmap &picture)
{
    painter.drawPixmap(onPixelGrid(painter, place), picture, QRectF());
}

} // namespace

VemoSheet::VemoSheet(QWidget *parent) : QFrame(parent), m_shadow_width(scaled(kShadowWidth))
{
    // Installing the factory again is a no-op.
    QAccessible::installFactory(accessibleSheet);
    reserveBand();
}

VemoSheet::~VemoSheet() = default;

void VemoSheet::setWidget(QWidget *widget)
{
    delete layout();
    auto *row = new QHBoxLayout(this);
    row->addWidget(widget, 0, Qt::AlignCenter);
    // The contents margins are only in effect after polishing, so polish before measuring.
    ensurePolished();
    updateGeometry();
    adjustSize();
}

bool VemoSheet::event(QEvent *event)
{
    const bool isHandled = QFrame::event(event);
    const QEvent::Type type = event->type();
    // At each of these events QFrame resets its contents margins to the width of its line.
    if (type == QEvent::Polish || type == QEvent::ParentChange || type == QEvent::StyleChange)
        reserveBand();
    return isHandled;
}

void VemoSheet::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    drawShadow(painter);
    const int band = m_shadow_width;
    const QRect body(band, band, width() - 2 * band, height() - 2 * band);
    // QPainter would normalise a negative size and draw it.
    if (body.isEmpty())
        return;
    painter.setPen(Qt::NoPen);
    painter.setBrush(StyleManager::getInstance().getColor(QStringLiteral("sheet-body"), kBody));
    painter.drawRect(onPixelGrid(painter, body));
}

void VemoSheet::showEvent(QShowEvent *event)
{
    reserveBand();
    QWidget::showEvent(event);
}

void VemoSheet::reserveBand()
{
    setContentsMargins(m_shadow_width, m_shadow_width, m_shadow_width, m_shadow_width);
}

void VemoSheet::drawShadow(QPainter &painter)
{
    // Looked up at each paint event, so that a reloaded catalogue takes effect immediately.
    const QPixmap left = getGlobalImage("bg_tutorial_l");
    const QPixmap right = getGlobalImage("bg_tutorial_r");
    const QPixmap top = getGlobalImage("bg_tutorial_t");
    const QPixmap bottom = getGlobalImage("bg_tutorial_b");
    const QPixmap leftTop = getGlobalImage("bg_tutorial_lt");
    const QPixmap rightTop = getGlobalImage("bg_tutorial_rt");
    const QPixmap leftBottom = getGlobalImage("bg_tutorial_lb");
    const QPixmap rightBottom = getGlobalImage("bg_tutorial_rb");

    const int band = m_shadow_width;
    const int farX = width() - band;
    const int farY = height() - band;
    drawOnGrid(painter, {0, 0, band, band}, leftTop);
    drawOnGrid(painter, {farX, 0, band, band}, rightTop);
    drawOnGrid(painter, {0, farY, band, band}, leftBottom);
    drawOnGrid(painter, {farX, farY, band, band}, rightBottom);

    drawEdge(painter, {0, band, band, farY - band}, left, m_edges[0]);
    drawEdge(painter, {farX, band, band, farY - band}, right, m_edges[1]);
    drawEdge(painter, {band, 0, farX - band, band}, top, m_edges[2]);
    drawEdge(painter, {band, farY, farX - band, band}, bottom, m_edges[3]);
}

void VemoSheet::drawEdge(
    QPainter &painter, const QRect &strip, const QPixmap &picture, StretchedEdge &stretched) const
{
    if (picture.isNull() || strip.isEmpty())
        return;
    if (stretched.sourceKey != picture.cacheKey() || stretched.size != strip.size())
        stretched = {picture.cacheKey(), strip.size(),
            picture.scaled(strip.size(), Qt::IgnoreAspectRatio, Qt::FastTransformation)};
    // With a target size: the stretched picture has kept its pixel ratio and would only fill half
    // the strip.
    drawOnGrid(painter, strip, stretched.picture);
}

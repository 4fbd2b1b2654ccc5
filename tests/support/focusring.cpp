// SPDX-License-Identifier: MIT
#include "support/focusring.h"

#include "support/contrast.h"

#include <vemo/dpiinfo.h>

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QWindow>
#include <QtTest>

namespace {

constexpr double kVisible = 3.0;
constexpr int kMinPixels = 40; // in design pixels of length, one wide
constexpr int kRingWidth = 2; // in design pixels
constexpr int kMargin = 4;
constexpr int kMaxStops = 400;

QString nameOf(const QWidget *widget)
{
    QString text = widget->accessibleName();
    if (const auto *button = qobject_cast<const QAbstractButton *>(widget);
        button && text.isEmpty())
        text = button->text();
    if (const auto *label = qobject_cast<const QLabel *>(widget); label && text.isEmpty())
        text = label->text();
    if (text.isEmpty())
        text = widget->objectName();
    return QString("%1 \"%2\"").arg(widget->metaObject()->className(), text.left(30));
}

/// The widget that passes its focus on to this one shows the focus.
QWidget *shower(QWidget *widget)
{
    QWidget *shower = widget;
    for (QWidget *parent = widget->parentWidget(); parent; parent = parent->parentWidget()) {
        if (parent->focusProxy() == widget)
            shower = parent;
    }
    return shower;
}

QImage pictureOf(QWidget *window, const QRect &area)
{
    return window->grab(area).toImage().convertToFormat(QImage::Format_RGB32);
}

/// Whether a square of pixels differs that is as wide as a ring.
bool isSquareChanged(const QImage &one, const QImage &other, QPoint corner)
{
    const int width = DPIinfo::scaled(kRingWidth);
    const QRect square(corner, QSize(width, width));
    if (!one.rect().contains(square))
        return false;
    for (int y = square.top(); y <= square.bottom(); ++y) {
        for (int x = square.left(); x <= square.right(); ++x) {
            if (one.pixel(x, y) == other.pixel(x, y))
                return false;
        }
    }
    return true;
}

FocusRing compared(const QImage &with, const QImage &without)
{
    FocusRing ring;
    double most = 1;
    double sum = 0;
    for (int y = 0; y < with.height(); ++y) {
        for (int x = 0; x < with.width(); ++x) {
            if (with.pixel(x, y) == without.pixel(x, y))
                continue;
            const double change = contrast(with.pixel(x, y), without.pixel(x, y));
            ++ring.pixels;
            ring.length += isSquareChanged(with, without, QPoint(x, y)) ? 1 : 0;
            most = qMax(most, change);
            if (change >= kVisible) {
                ++ring.contrasting;
                sum += change;
            }
        }
    }
    ring.contrast = ring.contrasting ? sum / ring.contrasting : most;
    return ring;
}

void pressTab(QWidget *window)
{
    QTest::keyClick(window->windowHandle(), Qt::Key_Tab);
    QCoreApplication::processEvents();
}

} // namespace

bool FocusRing::isSeen() const
{
    return contrasting >= kMinPixels && length >= kMinPixels;
}

QString FocusRing::text() const
{
    return QString("%1 px changed, %2 by 3:1, %3 : 1, %4 px long, %5")
        .arg(pixels, 5)
        .arg(contrasting, 5)
        .arg(contrast, 5, 'f', 2)
        .arg(length)
        .arg(widget);
}

QVector<FocusRing> walkedRings(QWidget *window)
{
    QVector<FocusRing> rings;
    QList<QWidget *> seen;
    pressTab(window);
    while (QWidget *widget = QApplication::focusWidget()) {
        if (seen.contains(widget) || seen.size() > kMaxStops || widget->window() != window)
            break;
        seen += widget;
        const QWidget *area = shower(widget);
        const QRect rect = QRect(area->mapTo(window, QPoint(0, 0)), area->size())
                               .marginsAdded({kMargin, kMargin, kMargin, kMargin})
            & window->rect();
        const QImage with = pictureOf(window, rect);
        const QString name = nameOf(widget);
        pressTab(window);
        if (QApplication::focusWidget() == widget)
            widget->clearFocus();
        FocusRing ring = compared(with, pictureOf(window, rect));
        ring.widget = name;
        rings += ring;
    }
    return rings;
}

void verifyRings(QWidget *window, int minStops)
{
    const QVector<FocusRing> rings = walkedRings(window);
    QStringList unseen;
    for (const FocusRing &ring : rings) {
        qInfo("%s", qPrintable(ring.text()));
        if (!ring.isSeen())
            unseen += ring.text();
    }
    QVERIFY(rings.size() >= minStops);
    QVERIFY2(unseen.isEmpty(), qPrintable('\n' + unseen.join('\n')));
}

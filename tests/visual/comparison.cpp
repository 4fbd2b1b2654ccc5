// SPDX-License-Identifier: MIT
#include "visual/comparison.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QPainter>

namespace {

constexpr int kTolerance = 3; // of 255, in each channel
constexpr int kMinWidth = 240; // of a magnified picture
constexpr int kMaxMagnified = 8;
constexpr int kGap = 16;
constexpr int kColours = 256;

QImage withoutRatio(const QImage &picture)
{
    QImage plain = picture.convertToFormat(QImage::Format_ARGB32);
    plain.setDevicePixelRatio(1);
    return plain;
}

int distance(QRgb a, QRgb b)
{
    return std::max({qAbs(qRed(a) - qRed(b)), qAbs(qGreen(a) - qGreen(b)),
        qAbs(qBlue(a) - qBlue(b)), qAbs(qAlpha(a) - qAlpha(b))});
}

/// A pale shade of a pixel, so that differences stand out.
QRgb faint(QRgb pixel)
{
    const int shade = 192 + qGray(pixel) / 4;
    return qRgb(shade, shade, shade);
}

/// With a palette where its colours allow it, which takes half the bytes.
QImage reduced(const QImage &picture)
{
    QHash<QRgb, int> indices;
    QVector<QRgb> colours;
    QImage result(picture.size(), QImage::Format_Indexed8);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb colour = picture.pixel(x, y);
            auto index = indices.constFind(colour);
            if (index == indices.constEnd()) {
                if (colours.size() == kColours)
                    return picture.convertToFormat(QImage::Format_RGB32);
                index = indices.insert(colour, colours.size());
                colours.append(colour);
            }
            result.scanLine(y)[x] = uchar(*index);
        }
    }
    result.setColorTable(colours);
    for (const QString &key : picture.textKeys())
        result.setText(key, picture.text(key));
    return result;
}

} // namespace

Comparison compared(const QImage &expected, const QImage &actual)
{
    const QImage a = withoutRatio(expected);
    const QImage b = withoutRatio(actual);
    Comparison result;
    result.difference = QImage(a.size().expandedTo(b.size()), QImage::Format_RGB32);
    for (int y = 0; y < result.difference.height(); ++y) {
        for (int x = 0; x < result.difference.width(); ++x) {
            const bool isInBoth = a.valid(x, y) && b.valid(x, y);
            const int difference = isInBoth ? distance(a.pixel(x, y), b.pixel(x, y)) : 255;
            const bool isWrong = difference > kTolerance;
            result.differing += isWrong ? 1 : 0;
            result.largest = qMax(result.largest, difference);
            result.difference.setPixel(x, y, isWrong ? qRgb(255, 0, 0) : faint(a.pixel(x, y)));
        }
    }
    return result;
}

QImage sideBySide(const QImage &expected, const QImage &actual, const QImage &difference)
{
    const int times = qBound(1, kMinWidth / qMax(1, difference.width()), kMaxMagnified);
    const QSize size = difference.size() * times;
    QImage sheet(size.width() * 3 + kGap * 4, size.height() + kGap * 2, QImage::Format_RGB32);
    sheet.fill(qRgb(255, 0, 255));
    QPainter painter(&sheet);
    int x = kGap;
    for (const QImage &picture : {expected, actual, difference}) {
        const QImage plain = withoutRatio(picture);
        painter.drawImage(x, kGap, plain.scaled(plain.size() * times));
        x += size.width() + kGap;
    }
    return sheet;
}

QString compareWithFile(const QImage &actual, const QString &path, const QString &differencePath)
{
    return compareWithStored(actual, QImage(path), path, differencePath);
}

QString compareWithStored(const QImage &actual, const QImage &expected, const QString &path,
    const QString &differencePath)
{
    if (expected.isNull())
        return QString("There is no stored picture \"%1\".").arg(path);
    const Comparison found = compared(expected, actual);
    if (found.isEqual()) {
        QFile::remove(differencePath);
        return {};
    }
    if (!storePicture(sideBySide(expected, actual, found.difference), differencePath))
        return QString("Cannot write \"%1\".").arg(differencePath);
    return QString("%1 pixels differ from \"%2\", by up to %3 of 255: see \"%4\".")
        .arg(found.differing)
        .arg(path)
        .arg(found.largest)
        .arg(differencePath);
}

bool storePicture(const QImage &picture, const QString &path)
{
    constexpr int kSmallest = 0; // of what the writer calls quality
    QImage stored = reduced(withoutRatio(picture));
    stored.setDotsPerMeterX(0);
    stored.setDotsPerMeterY(0);
    return QDir().mkpath(QFileInfo(path).path()) && stored.save(path, "PNG", kSmallest);
}

// SPDX-License-Identifier: MIT
#include "benchmarks/fingerprint.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QIODevice>
#include <QWidget>

namespace {

template <typename Value> QByteArray hashOf(const Value &value)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << value;
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha1);
}

} // namespace

QByteArray bench::fingerprint(qint64 number)
{
    return hashOf(number);
}

QByteArray bench::fingerprint(const QString &text)
{
    return hashOf(text);
}

QByteArray bench::fingerprint(const QImage &picture)
{
    return hashOf(picture.convertToFormat(QImage::Format_ARGB32))
        + hashOf(picture.devicePixelRatio());
}

QByteArray bench::fingerprint(const QPixmap &picture)
{
    return fingerprint(picture.toImage());
}

QByteArray bench::fingerprint(const std::map<QString, QString> &texts)
{
    QByteArray all;
    for (const auto &[key, text] : texts)
        all += hashOf(key) + hashOf(text);
    return all;
}

QByteArray bench::fingerprint(const std::unique_ptr<QWidget> &widget)
{
    return fingerprint(widget->grab());
}

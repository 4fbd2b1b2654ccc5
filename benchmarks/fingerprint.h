// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QImage>
#include <QPixmap>
#include <QString>

#include <map>
#include <memory>
#include <vector>

class QWidget;

/// A value that is equal for two results if and only if they are the same: the pixels of a picture,
/// the look of a widget. Add overloads for the types of your own cases here.
namespace bench {

QByteArray fingerprint(qint64 number);
QByteArray fingerprint(const QString &text);
QByteArray fingerprint(const QImage &picture);
QByteArray fingerprint(const QPixmap &picture);
QByteArray fingerprint(const std::map<QString, QString> &texts);
QByteArray fingerprint(const std::unique_ptr<QWidget> &widget);

template <typename Result> QByteArray fingerprint(const std::vector<Result> &results)
{
    QByteArray all;
    for (const Result &result : results)
        all += fingerprint(result);
    return all;
}

} // namespace bench

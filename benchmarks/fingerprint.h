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

/// What two results have in common exactly when they are the same: of a picture its pixels, of a
/// widget what it looks like. Add an overload for a type of your own cases here.
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

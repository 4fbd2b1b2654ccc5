// SPDX-License-Identifier: MIT
#include "help/webreply_p.h"

#include "core/logging_p.h"

#include <QNetworkReply>

namespace {

constexpr qint64 kMargin = qint64(1024) * 1024;

} // namespace

void limitReply(QNetworkReply *reply, qint64 maxBytes)
{
    if (!isWebUrl(reply->url()))
        return; // Local files are trusted, and their replies do not support abort().
    // This also stops the network thread, which decompresses the body on its own. It may stop a
    // block before the buffer is full: because of the margin, the excess is still reported by
    // readyRead().
    reply->setReadBufferSize(maxBytes + kMargin);
    QObject::connect(reply, &QIODevice::readyRead, reply, [reply, maxBytes] {
        if (reply->bytesAvailable() <= maxBytes || reply->isFinished())
            return;
        qCWarning(vemoLog) << "Too much data from" << reply->url().toString();
        reply->abort();
    });
}

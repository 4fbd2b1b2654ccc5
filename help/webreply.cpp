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
        return; // Files of the user's own: no server to distrust, and their replies can't abort.
    // Stops the network's thread, too, which inflates a compressed body on its own. It stops as
    // much as a block short of a full buffer: the margin makes sure that readyRead() tells of the
    // excess.
    reply->setReadBufferSize(maxBytes + kMargin);
    QObject::connect(reply, &QIODevice::readyRead, reply, [reply, maxBytes] {
        if (reply->bytesAvailable() <= maxBytes || reply->isFinished())
            return;
        qCWarning(vemoLog) << "Too much data from" << reply->url().toString();
        reply->abort();
    });
}

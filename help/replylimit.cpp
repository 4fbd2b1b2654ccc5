// SPDX-License-Identifier: MIT
#include "help/replylimit_p.h"

#include "core/logging_p.h"
#include "help/weburl_p.h"

#include <QNetworkReply>

namespace {

constexpr qint64 kMargin = qint64(1024) * 1024;

} // namespace

void limitReply(QNetworkReply *reply, qint64 mostBytes)
{
    if (!isWebUrl(reply->url()))
        return; // Files of the user's own: no server to distrust, and their replies can't abort.
    // Stops the network's thread, too, which inflates a compressed body on its own. It stops as
    // much as a block short of a full buffer: the margin makes sure that readyRead() tells of the
    // excess.
    reply->setReadBufferSize(mostBytes + kMargin);
    QObject::connect(reply, &QIODevice::readyRead, reply, [reply, mostBytes] {
        if (reply->bytesAvailable() <= mostBytes || reply->isFinished())
            return;
        qCWarning(vemoLog) << "Too much data from" << reply->url().toString();
        reply->abort();
    });
}

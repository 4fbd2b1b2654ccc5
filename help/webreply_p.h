// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QUrl>

class QNetworkReply;

/// Whether a page from the network may fetch url.
inline bool isWebUrl(const QUrl &url)
{
    return url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
}

/// Aborts reply with a warning as soon as the server has sent more than maxBytes. The caller must
/// not read from reply before it has finished.
void limitReply(QNetworkReply *reply, qint64 maxBytes);

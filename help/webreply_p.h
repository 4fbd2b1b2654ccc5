// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QUrl>

class QNetworkReply;

/// Whether url is one that a page from the network may have fetched.
inline bool isWebUrl(const QUrl &url)
{
    return url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
}

/// Aborts reply, with a warning, as soon as more than maxBytes have come from a server. Nothing
/// may be read from reply before it has finished.
void limitReply(QNetworkReply *reply, qint64 maxBytes);

// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QtGlobal>

class QNetworkReply;

/// Aborts reply, with a warning, as soon as more than mostBytes have come from a server. Nothing
/// may be read from reply before it has finished.
void limitReply(QNetworkReply *reply, qint64 mostBytes);

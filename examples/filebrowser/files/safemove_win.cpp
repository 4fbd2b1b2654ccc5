// SPDX-License-Identifier: MIT
#include "safemove.h"

#include "windowspath.h"

int moveWithoutReplacing(const QByteArray &from, const QByteArray &to)
{
    // Without flags it neither replaces anything nor copies to another drive.
    const bool isMoved = MoveFileExW(windowsPath(from).c_str(), windowsPath(to).c_str(), 0);
    return isMoved ? 0 : errorNumberOf(GetLastError());
}

int moveByReserving(const QByteArray &from, const QByteArray &to)
{
    return moveWithoutReplacing(from, to);
}

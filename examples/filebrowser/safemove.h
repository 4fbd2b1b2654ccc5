// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

/// Gives a file, link or folder another path on its file system. What already has that path stays
/// whatever happens: there is no moment between looking and moving. Yields 0 or an error number,
/// EEXIST among them.
int moveWithoutReplacing(const QByteArray &from, const QByteArray &to);

/// The same for file systems that can't promise it themselves: a file gets a second name before it
/// loses the first; a folder takes the place of an empty one that was made for it. EOPNOTSUPP where
/// there are no second names.
int moveByReserving(const QByteArray &from, const QByteArray &to);

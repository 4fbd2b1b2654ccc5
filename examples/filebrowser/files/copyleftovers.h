// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

/// An open file.
using CopyMark = qintptr;
constexpr CopyMark kNoCopyMark = -1;

/// How the hidden name begins that a copy has until it is complete.
constexpr char kUnfinishedCopyPrefix[] = ".copying-";

/// A new name of that kind, never met twice.
QByteArray unfinishedCopyName();

/// Marks the unfinished copy at path as being worked on, until the mark is closed or the process
/// ends in whatever way. kNoCopyMark if it can't be marked, as a link can't.
CopyMark markUnfinishedCopy(const QByteArray &path);
void closeCopyMark(CopyMark mark);

/// Whether a name is one of unfinishedCopyName().
bool isUnfinishedCopyName(const QByteArray &name);

/// Whether path is an unfinished copy of the user's own that nobody works on any more: the program
/// was killed, or the machine went down. Where the file system has no marks it never is, except for
/// links.
bool isLeftoverCopy(const QByteArray &path);

// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <functional>

class QWidget;

/// What the user is told and asked, by sheets over the window. Each may outlive the window: look
/// whether it is still there before going on.

/// Whether a sheet is open over the window, which then takes nothing else.
bool isSheetOpen(const QWidget *window);

/// Both are rich text, as richText() makes it.
void tell(QWidget *window, const QString &message, const QString &reason = {});

/// One name is asked for until it is one that can be given, or the user cancels: then the result is
/// null. prompt and hint, the line below it, are plain text. problemOf says what is wrong with a
/// name, in plain text, which takes the place of the hint; nothing if the name is right.
QString askName(QWidget *window, const QString &prompt, const QString &hint, const QString &name,
    const std::function<QString(const QString &)> &problemOf);

/// Whether the entries may go; asked twice, by the check box.
bool askTrash(QWidget *window, const QStringList &names);

/// How a copy went.
struct CopyOutcome
{
    QStringList copied; ///< paths of the copies
    QStringList problems; ///< plain sentences
};

/// Copies under a sheet that tells how far it is and can end it.
CopyOutcome copyUnderSheet(QWidget *window, const QStringList &sources, const QString &target);

// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <functional>

class QWidget;

/// Messages and questions, shown as sheets over the window. The window may be deleted while they
/// run: check afterwards whether it still exists.

/// Whether a sheet is open over the window, which then accepts no other input.
bool isSheetOpen(const QWidget *window);

/// Both are rich text, as returned by richText().
void tell(QWidget *window, const QString &message, const QString &reason = {});

/// Asks for a name until it is valid or the user cancels; then the result is null. prompt, and hint
/// in the line below it, are plain text. problemOf returns the problem with a name as plain text,
/// which replaces the hint; empty if the name is valid.
QString askName(QWidget *window, const QString &prompt, const QString &hint, const QString &name,
    const std::function<QString(const QString &)> &problemOf);

/// Asks whether to move the entries to the trash; a check box must be ticked first.
bool askTrash(QWidget *window, const QStringList &names);

/// Asks whether to move the remains of aborted copies to the trash.
bool askTrashLeftovers(QWidget *window, const QStringList &names);

/// The result of a copy.
struct CopyOutcome
{
    QStringList copied; ///< paths of the copies
    QStringList problems; ///< plain sentences
};

/// Copies while a sheet shows the progress and a button to cancel.
CopyOutcome copyUnderSheet(QWidget *window, const QStringList &sources, const QString &target);

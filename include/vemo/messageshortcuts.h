// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QString>

class QWidget;
struct MsgBoxCustomBtnText;

/// \file
/// One call to tell or ask the user something, and wait for it.
///
/// With a parent the message is a VemoMessageSheet over the parent's window, dimmed by a VemoMask;
/// give a widget as wide as the window, since the sheet's width comes from it. The title is not
/// shown. A hidden or minimised window is shown first, and stays shown: nobody could answer
/// otherwise. Window and parent may be deleted while the message is open. Each call leaves its
/// hidden mask behind in the window until that is deleted: 2.8 KB, and 0.3 us at each later resize
/// of the window.
///
/// Without a parent it is a styled QMessageBox with the same picture, or with Qt's own if the
/// catalogue was never initialised or has none.
///
/// Initialise strings, pictures and style files before: a missing string shows its key, a missing
/// picture or style is left out, each with a warning. What looks like rich text in a text is shown
/// as such: escape what is not yours.
///
/// A confirmation returns QDialogButtonBox::Apply for yes, on both ways. Compare with nothing else:
/// no is Discard from a sheet, Cancel from a message box, and 0 from a sheet that ended unanswered.
///
///     if (showConfirmMsg(tr("Delete"), tr("Delete %1?").arg(name), window)
///         == QDialogButtonBox::Apply)
///         deleteIt();

/// Asks whether to go on: type Confirm, without a parent "component.confirm_message_box". showIcon
/// false leaves out the picture. Returns the answer, as said above.
VEMO_EXPORT int showConfirmMsg(
    const QString &title, const QString &text, QWidget *parent, bool showIcon = true);

/// showConfirmMsg() with captions of your own. An empty caption means the default; resetText is not
/// used.
VEMO_EXPORT int showConfirmMsgCustomBtn(const QString &title, const QString &text,
    const MsgBoxCustomBtnText &buttons, QWidget *parent, bool showIcon = true);

/// Tells something: type Information, without a parent "component.info_message_box".
VEMO_EXPORT void showInfoMsg(
    const QString &title, const QString &text, QWidget *parent, bool showIcon = true);

/// Asks whether to upgrade, and deliberately drops the answer: type Upgrading, without a parent
/// "component.upgrading_message_box" and the warning picture.
VEMO_EXPORT void showUpgradingMsg(
    const QString &title, const QString &text, QWidget *parent, bool showIcon = true);

/// Warns, with a second text below the first: type Warning, without a parent
/// "component.warning_message_box".
VEMO_EXPORT void showWarningMsg(const QString &title, const QString &text,
    const QString &informativeText, QWidget *parent, bool showIcon = true);
/// The same without the second text.
VEMO_EXPORT void showWarningMsg(
    const QString &title, const QString &text, QWidget *parent, bool showIcon = true);

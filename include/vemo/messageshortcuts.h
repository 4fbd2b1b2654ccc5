// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QString>

class QWidget;
struct MsgBoxCustomBtnText;

/// \file
/// Functions that show a message or ask a question, and wait for the answer.
///
/// With a parent, the message is a VemoMessageSheet over the parent's window, which a VemoMask
/// dims. The sheet's width depends on the parent, so pass a widget as wide as the window. The title
/// is not shown. A hidden or minimised window is shown first and remains visible. Window and parent
/// may be deleted while the message is open. After each call a hidden mask remains in the window:
/// it costs 2.8 KB, and 0.3 us each time the window is resized.
///
/// Without a parent, the message is a styled QMessageBox with the same picture, or with Qt's own if
/// the catalogue is not initialised or lacks the picture.
///
/// Requires: strings, pictures, style files. A missing string shows its key, a missing picture or
/// style is left out, each with a warning. Texts that look like rich text are shown as rich text:
/// escape texts from outside.
///
/// A confirmation returns QDialogButtonBox::Apply for yes, with and without a parent. Only compare
/// with that: a refusal is Discard from a sheet, Cancel from a message box, and 0 from a sheet that
/// ended without an answer.
///
///     if (showConfirmMsg(tr("Delete"), tr("Delete %1?").arg(name), window)
///         == QDialogButtonBox::Apply)
///         deleteIt();

/// Asks for confirmation: type Confirm; section "component.confirm_message_box" if parent is null.
/// If showIcon is false, there is no picture. Returns the answer as described above.
VEMO_EXPORT int showConfirmMsg(
    const QString &title, const QString &text, QWidget *parent, bool showIcon = true);

/// Same as showConfirmMsg(), with your own captions. An empty caption selects the default;
/// resetText is not used.
VEMO_EXPORT int showConfirmMsgCustomBtn(const QString &title, const QString &text,
    const MsgBoxCustomBtnText &buttons, QWidget *parent, bool showIcon = true);

/// Shows information: type Information; section "component.info_message_box" if parent is null.
VEMO_EXPORT void showInfoMsg(
    const QString &title, const QString &text, QWidget *parent, bool showIcon = true);

/// Asks whether to upgrade; deliberately discards the answer. Type Upgrading; section
/// "component.upgrading_message_box" and the warning picture if parent is null.
VEMO_EXPORT void showUpgradingMsg(
    const QString &title, const QString &text, QWidget *parent, bool showIcon = true);

/// Shows a warning with a second text below the first: type Warning; section
/// "component.warning_message_box" if parent is null.
VEMO_EXPORT void showWarningMsg(const QString &title, const QString &text,
    const QString &informativeText, QWidget *parent, bool showIcon = true);
/// The same without a second text.
VEMO_EXPORT void showWarningMsg(
    const QString &title, const QString &text, QWidget *parent, bool showIcon = true);

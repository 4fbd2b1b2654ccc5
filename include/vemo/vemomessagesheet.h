// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>
#include <vemo/vemosheet.h>

#include <QDialogButtonBox>
#include <QMessageBox>

#include <functional>

class QMovie;
class VemoMessageSheetPrivate;

/// Captions for the buttons of a message; an empty one means the default.
///
///     const MsgBoxCustomBtnText captions(tr("Replace"), tr("Keep both"));
///     showConfirmMsgCustomBtn(tr("Copy"), tr("The file exists."), captions, window);
///
/// \image html messages-as-they-look.png
struct VEMO_EXPORT MsgBoxCustomBtnText
{
    /// Selects all default captions.
    MsgBoxCustomBtnText() = default;
    /// Sets the captions of two buttons; that of Reset remains empty.
    MsgBoxCustomBtnText(const QString &apply, const QString &cancel)
        : applyText(apply), cancelText(cancel)
    {
    }

    QString applyText; ///< of the OK or the Apply button
    QString cancelText; ///< of the button that cancels
    QString resetText; ///< of the Reset button
};

/// A message box drawn as a sheet over its window: an icon, a text, an optional informative text,
/// an optional check box that must be ticked first, and buttons. Off by default are a check box
/// "Don't ask again", details that unfold, plain text, and a default button.
///
/// exec() runs it modally: it receives the keys of its window, blocks the window's Close events and
/// disables its Close item (on Windows), restores the keyboard focus at the end, and returns the
/// pressed button, a QDialogButtonBox::StandardButton, or 0. Escape presses the cancel button,
/// which deliberately is Discard; Return, Enter and Space press OK or Apply. Tab cycles inside the
/// sheet. While it is visible, shortcuts and mnemonics of the window are blocked.
///
/// execAndDelete() and open() also put a mask over the window, and delete the mask and the sheet at
/// the end. For a plain question use showConfirmMsg(). To run a sheet more than once, put it into a
/// VemoMask and call exec(), which hides it at the end.
///
/// The sheet and the window may be deleted while it runs; the result is then 0. Create the sheet
/// with new, never on the stack.
///
/// The width is that of the parent less 40 design pixels, at most 540, but deliberately 480 over a
/// parent of exactly 540. It is set by the constructor and again by each setter of a text, picture
/// or type, then from the mask, which is as wide as the window. So pass the window to the
/// constructor. Buttons that do not fit side by side are stacked. The height is that of the
/// content: if the window is too low, the sheet is squeezed.
///
/// Requires: style files, pictures, strings ("ok", "cancel", "reset", "wizard_client_upgrade"). A
/// missing string shows its key, a missing style or picture is left out, each with a warning.
///
///     auto *sheet = new VemoMessageSheet(VemoMessageSheet::Confirm, tr("Delete it?"), window);
///     sheet->setInformativeText(tr("It can't be brought back."));
///     if (sheet->execAndDelete() == QDialogButtonBox::Apply)
///         deleteIt();
///
/// \image html messages-as-they-look.png
class VEMO_EXPORT VemoMessageSheet : public VemoSheet
{
    Q_OBJECT

public:
    /// Types, with their pictures and buttons. The numbers are part of the interface.
    enum MessageType : int {
        App = 0, ///< the application's picture, "app_img"; no buttons
        Information = 1, ///< "icon_information"; OK
        Warning = 2, ///< "icon_warning"; OK
        Confirm = 3, ///< "icon_question"; Apply and Discard
        ConfirmReset = 4, ///< "icon_question"; Apply, Discard and Reset
        Upgrading = 5, ///< "icon_information"; Apply ("wizard_client_upgrade") and Discard
        WarningConfirm = 6, ///< "icon_warning"; Apply and Discard
        Processing = 7, ///< no icon unless one is set; no buttons
    };

    /// Creates a sheet for work in progress. moviePath is a file for QMovie, shown 32 design pixels
    /// wide and high; if it is unreadable, not a regular file or larger than 64 MiB, there is no
    /// picture. End the sheet with done() or quit(). Deliberate: the sheet never deletes the movie,
    /// see movie().
    VemoMessageSheet(const QString &text, const QString &moviePath, QWidget *parent);
    /// Creates a sheet with a second text below the first. If showIcon is false, there is no
    /// picture. The width depends on parent: pass the window.
    VemoMessageSheet(MessageType type, const QString &text, const QString &informativeText,
        QWidget *parent, bool showIcon = true);
    /// Creates a sheet with your own captions.
    VemoMessageSheet(MessageType type, const QString &text, const MsgBoxCustomBtnText &captions,
        QWidget *parent, bool showIcon = true);
    /// Creates a sheet with the captions of its type.
    VemoMessageSheet(MessageType type, const QString &text, QWidget *parent, bool showIcon = true);
    /// Creates a sheet without a text.
    explicit VemoMessageSheet(MessageType type, QWidget *parent, bool showIcon = true);
    ~VemoMessageSheet() override;

    /// Shows the sheet and waits for its end. Returns the pressed button or the argument of done();
    /// 0 after quit(), if the sheet was deleted, and if the application quits.
    int exec();

    /// Calls exec() over a mask with the default colour, which is created if the sheet has none,
    /// and deletes both at the end. Return and Enter press the focused button; otherwise they
    /// confirm. A hidden or minimised window is shown first.
    ///
    /// atEnd is called with the result while the sheet still exists, but not if it was deleted. The
    /// sheet and the window may be deleted at any time.
    int execAndDelete(const std::function<void(int result)> &atEnd = {});

    /// The same without waiting: returns immediately, and calls atEnd when the sheet has ended.
    ///
    ///     auto *sheet = new VemoMessageSheet(VemoMessageSheet::Confirm, tr("Delete it?"), window);
    ///     sheet->open([this](int result) {
    ///         if (result == QDialogButtonBox::Apply)
    ///             deleteIt();
    ///     });
    void open(const std::function<void(int result)> &atEnd = {});

    /// Shows the sheet and returns immediately; it emits finished() at its end. Does not disable
    /// the Close item and does not start the busy animation.
    virtual void showSheet();

    /// The Ok, Apply, Discard or Reset button, which belongs to the sheet and is valid until the
    /// sheet is rebuilt; null if its type has no such button.
    QAbstractButton *button(QMessageBox::StandardButton which) const;

    /// The busy animation, or null. It has no parent and outlives the sheet: delete it at any time,
    /// or give it a parent such as the sheet.
    QMovie *movie() const;

    /// Sets the text. Texts that look like rich text are shown as rich text: escape texts from
    /// outside. Links open in the browser. An empty text removes its label.
    void setText(const QString &text);
    /// Sets the second text in the same way. styleSheet, unless empty, replaces the section
    /// "component.message_sheet_informative_text" when the label is created, until a setter
    /// rebuilds the sheet.
    void setInformativeText(const QString &text, const QString &styleSheet = {});
    /// Sets the picture; if it is null, the text uses its space.
    void setIcon(const QPixmap &icon);

    /// Shows or hides the picture. This and the next two functions rebuild the sheet, which
    /// deliberately discards custom captions and the picture of setIcon().
    void setIconVisible(bool isVisible);
    /// Changes the type, and with it the picture and the buttons.
    void setMessageType(MessageType type);
    /// If on, adds a check box with this text, initially unchecked; Apply is only enabled while it
    /// is checked. Off by default.
    void setDoubleConfirmCheckBox(bool on, const QString &text);

    /// If on, adds a check box below the texts, initially unchecked, with this text or, if it is
    /// empty, the string "dont_ask_again". Off by default. The host reads isDontAskAgainChecked()
    /// at the end, for example in the function passed to open(), and stores the answer itself.
    /// Looks up the sections "component.checkbox" and "component.label".
    void setDontAskAgainCheckBox(bool on, const QString &text = {});
    /// Whether that check box is checked; false without one.
    bool isDontAskAgainChecked() const;

    /// Sets a plain text that a button of the sheet unfolds and folds; initially empty, which means
    /// none. The unfolded text is 120 design pixels high, or less if the window is too low. Looks
    /// up the sections "component.message_sheet_details", "component.message_sheet_details_button"
    /// and "component.scrollbar", and the strings "show_details" and "hide_details".
    void setDetailedText(const QString &text);
    QString detailedText() const; ///< the text of the details

    /// Sets the format of text and informative text, initially Qt::AutoText. Set Qt::PlainText for
    /// texts from outside instead of escaping them.
    void setTextFormat(Qt::TextFormat format);
    Qt::TextFormat textFormat() const; ///< format of text and informative text

    /// Sets the button that has the focus at first and that Return, Enter and Space press. By
    /// default, and if the type has no such button, the text has the focus, and the keys press OK
    /// or Apply. It remains set if the sheet is rebuilt.
    ///
    ///     sheet->setDefaultButton(QMessageBox::Discard); // Return cancels
    void setDefaultButton(QMessageBox::StandardButton which);

    /// Sets whether the window's Close item and Close events are blocked, by default true. Call it
    /// before exec().
    void setBlockWindowButton(bool isBlocked);

    bool eventFilter(QObject *watched, QEvent *event) override;

public Q_SLOTS:
    /// Ends the sheet: exec() returns ret, finished(ret) is emitted, and the window receives keys
    /// again.
    void done(int ret);
    /// Calls done() with 0.
    void quit();
    /// Calls done() with the code of that button; the sheet's own buttons are connected to it.
    void buttonClick(QAbstractButton *which);

protected:
    void changeEvent(QEvent *event) override;
    /// Takes the picture of a reloaded theme.
    void customEvent(QEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    void showEvent(QShowEvent *event) override;

private Q_SLOTS:
    void slotChangeApplyButtonStatus(int state);

private:
    friend class VemoMessageSheetPrivate;

    /// Creates a sheet without any content.
    VemoMessageSheet(QWidget *parent, MessageType type, bool showIcon);

    VemoMessageSheetPrivate *m_d;
    bool m_block_window_button = true;
};

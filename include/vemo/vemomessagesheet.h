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
    /// All captions by default.
    MsgBoxCustomBtnText() = default;
    /// Captions for two buttons; that of Reset stays empty.
    MsgBoxCustomBtnText(const QString &apply, const QString &cancel)
        : applyText(apply), cancelText(cancel)
    {
    }

    QString applyText; ///< of the OK or the Apply button
    QString cancelText; ///< of the button that cancels
    QString resetText; ///< of the Reset button
};

/// A message box drawn as a sheet over its window: an icon, a text, an optional informative text,
/// an optional check box that must be ticked first, and buttons.
///
/// exec() runs it modally: it takes the keys and the Close events of its window, greys out the
/// window's Close item (on Windows), gives the keyboard focus back at the end, and returns the
/// pressed button, a QDialogButtonBox::StandardButton, or 0. Escape presses the cancel button,
/// which deliberately is Discard; Return, Enter and Space press OK or Apply. Tab goes round inside
/// the sheet. While it is visible, no shortcut or mnemonic of the window fires: only its own do.
///
/// execAndDelete() and open() do all that a sheet needs: they lay a mask over the window and delete
/// mask and sheet at the end. For a plain question there is showConfirmMsg(). To run a sheet more
/// than once, lay it into a VemoMask and call exec(), which hides it at the end.
///
/// Sheet and window may be deleted while it runs: the result is 0 then. Create it with new, never
/// on the stack.
///
/// The width is that of the parent less 40 design pixels, at most 540, but deliberately 480 over a
/// parent of exactly 540. It is taken by the constructor and again by each setter of a text,
/// picture or type: from the mask, which is as wide as the window, after VemoMask::createMask(). So
/// give the constructor the window. Buttons that do not fit side by side are stacked. The height is
/// what the text needs: a window too low for it squeezes the sheet.
///
/// Load the style files, the strings ("ok", "cancel", "reset", "wizard_client_upgrade") and the
/// catalogue before: a missing string shows its key, a missing style or picture is left out, each
/// with a warning.
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
    /// Which picture and which buttons a sheet has; the numbers are part of the interface.
    enum MessageType : int {
        App = 0, ///< the application's picture, "app_img"; no buttons
        Information = 1, ///< "icon_information"; OK
        Warning = 2, ///< "icon_warning"; OK
        Confirm = 3, ///< "icon_question"; Apply and Discard
        ConfirmReset = 4, ///< "icon_question"; Apply, Discard and Reset
        Upgrading = 5, ///< "icon_information"; Apply ("wizard_client_upgrade") and Discard
        WarningConfirm = 6, ///< "icon_warning"; Apply and Discard
        Processing = 7, ///< no icon but what is set, no buttons
    };

    /// A sheet for work that goes on: moviePath is a file that QMovie reads, shown 32 design pixels
    /// wide and high; one that it can't read, that is not an ordinary file or has more than 64 MiB
    /// leaves no picture. It ends with done() or quit(). Deliberate: the sheet never deletes the
    /// movie, see movie().
    VemoMessageSheet(const QString &text, const QString &moviePath, QWidget *parent);
    /// With a second text below the first. showIcon false leaves out the type's picture. The parent
    /// gives the width: take the window.
    VemoMessageSheet(MessageType type, const QString &text, const QString &informativeText,
        QWidget *parent, bool showIcon = true);
    /// With captions of your own.
    VemoMessageSheet(MessageType type, const QString &text, const MsgBoxCustomBtnText &captions,
        QWidget *parent, bool showIcon = true);
    /// With the type's own captions.
    VemoMessageSheet(MessageType type, const QString &text, QWidget *parent, bool showIcon = true);
    /// Without a text.
    explicit VemoMessageSheet(MessageType type, QWidget *parent, bool showIcon = true);
    ~VemoMessageSheet() override;

    /// Shows the sheet and waits for its end. Returns the pressed button or what done() was given;
    /// 0 after quit(), after the sheet's own death, and where the application quits meanwhile.
    int exec();

    /// exec() over a mask in the usual shade, which is laid under the sheet if it has none; at the
    /// end both are deleted. Return and Enter press a focused button; without one they confirm. A
    /// hidden or minimised window is shown first.
    ///
    /// atEnd is called with the result while the sheet still exists; not if it was deleted. Sheet
    /// and window may be deleted at any time.
    int execAndDelete(const std::function<void(int result)> &atEnd = {});

    /// The same without waiting: returns at once, and calls atEnd when the sheet has ended.
    ///
    ///     auto *sheet = new VemoMessageSheet(VemoMessageSheet::Confirm, tr("Delete it?"), window);
    ///     sheet->open([this](int result) {
    ///         if (result == QDialogButtonBox::Apply)
    ///             deleteIt();
    ///     });
    void open(const std::function<void(int result)> &atEnd = {});

    /// Shows the sheet and returns at once; finished() tells the end. The Close item stays as it
    /// is, and the busy animation stands still.
    virtual void showSheet();

    /// The Ok, Apply, Discard or Reset button, which stay the sheet's, until it is built anew; null
    /// where its type has no such button.
    QAbstractButton *button(QMessageBox::StandardButton which) const;

    /// The busy animation, or null. It has no parent and outlives the sheet: delete it, at any
    /// time, or give it a parent such as the sheet.
    QMovie *movie() const;

    /// Plain or rich text, as it looks: escape what is not yours. Links open in the browser. An
    /// empty text removes its label.
    void setText(const QString &text);
    /// The second text, as the first. styleSheet, if not empty, replaces
    /// "component.message_sheet_informative_text" when the label is made, until the next of the
    /// setters that build the sheet anew.
    void setInformativeText(const QString &text, const QString &styleSheet = {});
    /// Any picture; a null one leaves its place to the text.
    void setIcon(const QPixmap &icon);

    /// Whether the picture is shown. This and the next two build the sheet anew; deliberately,
    /// custom captions are lost by it, and so is what setIcon() set.
    void setIconVisible(bool isVisible);
    /// Another picture, other buttons.
    void setMessageType(MessageType type);
    /// on: Apply is enabled only while the box with this text is checked, which it is not at first.
    /// Off by default.
    void setDoubleConfirmCheckBox(bool on, const QString &text);

    /// Whether the window's Close item and Close events are blocked; true from the start. Set it
    /// before exec().
    void setBlockWindowButton(bool isBlocked);

    bool eventFilter(QObject *watched, QEvent *event) override;

public Q_SLOTS:
    /// Ends the sheet: exec() returns ret, finished(ret) is emitted, the window gets its keys back.
    void done(int ret);
    /// done() with 0.
    void quit();
    /// done() with the code of that button; the sheet's own buttons are connected to it.
    void buttonClick(QAbstractButton *which);

protected:
    void changeEvent(QEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    void showEvent(QShowEvent *event) override;

private Q_SLOTS:
    void slotChangeApplyButtonStatus(int state);

private:
    friend class VemoMessageSheetPrivate;

    /// Without any content yet.
    VemoMessageSheet(QWidget *parent, MessageType type, bool showIcon);

    VemoMessageSheetPrivate *m_d;
    bool m_block_window_button = true;
};

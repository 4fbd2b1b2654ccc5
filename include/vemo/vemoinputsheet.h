// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>
#include <vemo/vemosheet.h>

#include <QMessageBox>

#include <functional>

class QLineEdit;
class VemoInputSheetPrivate;

/// A sheet that asks for one line of text: a prompt, a line edit, OK and cancel.
///
/// exec() runs it modally as a message sheet does, and returns QDialogButtonBox::Ok, Discard (which
/// deliberately is the cancel button) or 0. Return and Enter press OK also from the line edit. Tab
/// goes round among the line edit and the buttons. The sheet checks nothing: set a validator on
/// getLineEdit() if you need one.
///
/// execAndDelete() and open() do all that a sheet needs: they lay a mask over the window and delete
/// mask and sheet at the end. To run a sheet more than once, lay it into a VemoMask and call
/// exec(), which hides it at the end. Sheet and window may be deleted while it runs: the result is
/// 0 then. Create it with new, never on the stack.
///
/// Its width is that of the parent less 40 design pixels, at most 480. It is taken by the
/// constructor and again by setText(): from the mask, which is as wide as the window, after
/// VemoMask::createMask(). So give the constructor the window. Load the style files, the catalogue
/// and the strings "ok" and "cancel" before: a missing string shows its key, a missing style or
/// picture is left out, each with a warning.
///
///     auto *sheet = new VemoInputSheet(tr("Name of the folder:"), window);
///     sheet->open([=](int result) {
///         if (result == QDialogButtonBox::Ok)
///             makeFolder(sheet->getContent());
///     });
///
/// \image html sheets-input-sheet.png
class VEMO_EXPORT VemoInputSheet : public VemoSheet
{
    Q_OBJECT

public:
    /// With a prompt, as setText() takes it. The parent gives the width: take the window.
    VemoInputSheet(const QString &text, QWidget *parent);
    /// Without a prompt.
    explicit VemoInputSheet(QWidget *parent);
    ~VemoInputSheet() override;

    /// Shows the sheet and waits for its end. Returns the pressed button or what done() was given;
    /// 0 after quit(), after the sheet's own death, and where the application quits meanwhile.
    int exec();

    /// exec() over a mask in the usual shade, which is laid under the sheet if it has none; at the
    /// end both are deleted. Return and Enter press a focused button; without one they press OK. A
    /// hidden or minimised window is shown first.
    ///
    /// atEnd is called with the result while the sheet, and getContent(), still exists; not if it
    /// was deleted. Sheet and window may be deleted at any time.
    int execAndDelete(const std::function<void(int result)> &atEnd = {});

    /// The same without waiting: returns at once, and calls atEnd when the sheet has ended.
    void open(const std::function<void(int result)> &atEnd = {});

    /// Shows the sheet, its line edit focused, and returns at once; finished() tells the end. The
    /// Close item stays as it is.
    virtual void showSheet();

    /// The text of the line edit, also after the end.
    QString getContent() const;
    /// The line edit, which stays the sheet's.
    QLineEdit *getLineEdit() const;

    /// The Ok or the Discard button, which stay the sheet's; null for any other.
    QAbstractButton *button(QMessageBox::StandardButton which) const;

    /// The prompt, as rich text: escape what is not yours. Deliberately, a length such as "12px" in
    /// it is scaled for the screen like those of a style sheet.
    void setText(const QString &text);

    /// Makes button a default one, as OK is from the start; Return in the line edit still presses
    /// OK. Null is ignored. Other buttons stay as they are.
    void setDefaultButton(QPushButton *button);

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

private:
    VemoInputSheetPrivate *m_d;
    bool m_block_window_button = true;
};

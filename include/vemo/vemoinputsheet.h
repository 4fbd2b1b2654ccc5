// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>
#include <vemo/vemosheet.h>

#include <QLineEdit>
#include <QMessageBox>

#include <functional>

class QPlainTextEdit;
class VemoInputSheetPrivate;

/// A sheet that asks for one line of text: a prompt, a line edit, OK and Cancel.
///
/// exec() runs it modally like a message sheet, and returns QDialogButtonBox::Ok, Discard (which
/// deliberately is the cancel button) or 0. Return and Enter press OK, even in the line edit. Tab
/// cycles through the line edit and the buttons. By default the sheet does not validate the text:
/// set a validator on getLineEdit(), or call setCheck(), which disables OK while the text is
/// invalid. Also off by default are an error text, hidden text, and several lines.
///
/// execAndDelete() and open() also put a mask over the window, and delete the mask and the sheet at
/// the end. To run a sheet more than once, put it into a VemoMask and call exec(), which hides it
/// at the end. The sheet and the window may be deleted while it runs; the result is then 0. Create
/// the sheet with new, never on the stack.
///
/// Its width is that of the parent less 40 design pixels, at most 480. It is set by the constructor
/// and again by setText(), then from the mask, which is as wide as the window. So pass the window
/// to the constructor. Requires: style files, pictures, the strings "ok" and "cancel". A missing
/// string shows its key, a missing style or picture is left out, each with a warning.
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
    /// Creates a sheet with a prompt, as for setText(). The width depends on parent: pass the
    /// window.
    VemoInputSheet(const QString &text, QWidget *parent);
    /// Creates a sheet without a prompt.
    explicit VemoInputSheet(QWidget *parent);
    ~VemoInputSheet() override;

    /// Shows the sheet and waits for its end. Returns the pressed button or the argument of done();
    /// 0 after quit(), if the sheet was deleted, and if the application quits.
    int exec();

    /// Calls exec() over a mask with the default colour, which is created if the sheet has none,
    /// and deletes both at the end. Return and Enter press the focused button; otherwise they press
    /// OK. A hidden or minimised window is shown first.
    ///
    /// atEnd is called with the result while the sheet still exists, so that it can use
    /// getContent(), but not if the sheet was deleted. The sheet and the window may be deleted at
    /// any time.
    int execAndDelete(const std::function<void(int result)> &atEnd = {});

    /// The same without waiting: returns immediately, and calls atEnd when the sheet has ended.
    void open(const std::function<void(int result)> &atEnd = {});

    /// Shows the sheet with the focus in its line edit and returns immediately; it emits finished()
    /// at its end. Does not disable the Close item.
    virtual void showSheet();

    /// The text of the field, even after the sheet has ended.
    QString getContent() const;
    /// Sets the text of the field.
    void setContent(const QString &text);
    /// The line edit, which belongs to the sheet.
    QLineEdit *getLineEdit() const;

    /// The Ok or the Discard button, which belongs to the sheet; null for any other.
    QAbstractButton *button(QMessageBox::StandardButton which) const;

    /// Sets the prompt, which is rich text: escape texts from outside. Deliberate: a length such as
    /// "12px" in it is scaled for the screen as in a style sheet.
    void setText(const QString &text);

    /// Makes button a default button, as OK is initially; Return in the line edit still presses OK.
    /// Null is ignored. Other buttons do not change.
    void setDefaultButton(QPushButton *button);

    /// Sets how the line edit shows its text, initially QLineEdit::Normal. Has no effect on a field
    /// of several lines.
    void setEchoMode(QLineEdit::EchoMode mode);
    QLineEdit::EchoMode echoMode() const; ///< of the line edit

    /// Sets whether the field has several lines, initially false, and keeps its text. The line edit
    /// is then hidden. In such a field Return starts a line and Ctrl+Return presses OK; Tab leaves
    /// it. It is 112 design pixels high. Looks up the sections "component.input_sheet_text" and
    /// "component.scrollbar".
    void setMultiLine(bool on);
    /// The field of several lines, which belongs to the sheet; null if that is off.
    QPlainTextEdit *getTextEdit() const;

    /// Sets a function that accepts or rejects a text; it may capture. OK is disabled, and Return
    /// has no effect, while it rejects the text, or while the validator or input mask of the line
    /// edit does. Once the text has been changed, a rejected one gives the field the dynamic
    /// property "error", which style sheets can match. By default there is none, and OK is always
    /// enabled.
    ///
    ///     sheet->setCheck([](const QString &name) { return !name.isEmpty(); });
    ///     sheet->setErrorText(tr("Enter a name."));
    void setCheck(const std::function<bool(const QString &text)> &check);
    /// Sets the plain text shown below the field while it has that error; it is then the accessible
    /// description of the field. Initially empty. Looks up the section "component.lineedit_error".
    void setErrorText(const QString &text);
    QString errorText() const; ///< the error text

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
    bool focusNextPrevChild(bool next) override;
    void showEvent(QShowEvent *event) override;

private:
    VemoInputSheetPrivate *m_d;
    bool m_block_window_button = true;
};

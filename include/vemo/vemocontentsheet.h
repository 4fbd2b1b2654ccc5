// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>
#include <vemo/vemosheet.h>

#include <QDialogButtonBox>
#include <QMessageBox>

#include <functional>

class VemoContentSheetPrivate;

/// A modal sheet with a content of your own above its buttons: what a QDialog is as a window.
///
/// It is run like a VemoMessageSheet. exec() waits and returns the pressed button, a
/// QDialogButtonBox::StandardButton, or 0; execAndDelete() and open() also put a mask over the
/// window, and delete the mask and the sheet at the end. While it runs, its window does not close
/// and receives no keys, and shortcuts and mnemonics of the window are blocked.
///
/// The focus goes to the first widget of the content that accepts it, and Tab cycles inside the
/// sheet. Escape presses the cancel button, which is Discard as in every sheet. Return and Enter
/// press the focused button, otherwise OK or Apply, unless the content uses them itself, as a field
/// of several lines does. Disable OK while the content is not complete.
///
/// The sheet is as large as its content needs, and smaller if the window is. Screen readers
/// announce the window title of the content. The sheet and the window may be deleted while it runs;
/// the result is then 0. Create the sheet with new, never on the stack.
///
/// Requires: style files, pictures, strings ("ok", "cancel", "reset"). A missing string shows its
/// key, a missing style or picture is left out, each with a warning.
///
///     auto *sheet = new VemoContentSheet(new SettingsForm, window);
///     sheet->open([this](int result) {
///         if (result == QDialogButtonBox::Ok)
///             save();
///     });
///
/// \image html sheets-own-content.png
class VEMO_EXPORT VemoContentSheet : public VemoSheet
{
    Q_OBJECT

public:
    /// Creates a sheet with OK and Discard. Takes ownership of content, which may be null.
    explicit VemoContentSheet(QWidget *content, QWidget *parent);
    ~VemoContentSheet() override;

    /// Sets the widget above the buttons, takes ownership of it, and deletes the previous one
    /// later. Its window title becomes the accessible name of the sheet.
    void setContent(QWidget *content);
    QWidget *content() const; ///< null without one, and after it was deleted

    /// Sets the buttons, of which Ok, Apply, Discard and Reset have captions and styles of the
    /// library; initially Ok and Discard. Each ends the sheet.
    void setStandardButtons(QDialogButtonBox::StandardButtons buttons);
    QDialogButtonBox::StandardButtons standardButtons() const; ///< the buttons of the sheet
    /// The button of that code, which belongs to the sheet and is valid until the next
    /// setStandardButtons(); null for any other.
    QPushButton *button(QMessageBox::StandardButton which) const;

    /// Shows the sheet and waits for its end. Returns the pressed button or the argument of done();
    /// 0 after quit(), if the sheet was deleted, and if the application quits.
    int exec();

    /// Calls exec() over a mask with the default colour, which is created if the sheet has none,
    /// and deletes both at the end. A hidden or minimised window is shown first.
    ///
    /// atEnd is called with the result while the sheet and its content still exist, but not if the
    /// sheet was deleted.
    int execAndDelete(const std::function<void(int result)> &atEnd = {});
    /// The same without waiting: returns immediately, and calls atEnd when the sheet has ended.
    void open(const std::function<void(int result)> &atEnd = {});
    /// Shows the sheet as exec() does and returns immediately; it emits finished() at its end.
    void showSheet();

    /// Sets whether the window's Close item and Close events are blocked, by default true. Call it
    /// before the sheet runs.
    void setBlockWindowButton(bool isBlocked);

    bool eventFilter(QObject *watched, QEvent *event) override;

public Q_SLOTS:
    /// Ends the sheet: exec() returns ret, finished(ret) is emitted, and the window receives keys
    /// again.
    void done(int ret);
    /// Calls done() with 0.
    void quit();

protected:
    /// Called when a button was pressed; calls done() with its code.
    virtual void answer(QDialogButtonBox::StandardButton which);

    void changeEvent(QEvent *event) override;
    bool focusNextPrevChild(bool next) override;

private:
    friend class VemoContentSheetPrivate;

    VemoContentSheetPrivate *m_d;
    bool m_block_window_button = true;
};

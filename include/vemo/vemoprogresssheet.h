// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/vemocontentsheet.h>

class VemoProgressSheetPrivate;

/// A modal sheet that shows the progress of some work: a text, a bar, and a Cancel button. Its
/// functions are named as those of QProgressDialog.
///
/// The sheet never ends by itself, neither at the maximum nor when it is cancelled: the host calls
/// done() or quit(). The Cancel button and Escape emit canceled() once and disable the button;
/// the work asks wasCanceled(). It is run like a VemoContentSheet, usually with open(). Unlike that
/// of QProgressDialog, setValue() does not process events: work that blocks the event loop blocks
/// the Cancel button, so do it in steps or in another thread, and call this class in its own.
///
/// The width is that of the parent less 40 design pixels, at most 480, from the constructor on.
/// Requires: style files, pictures, the string "cancel". Looks up the sections
/// "component.progress_bar" and "component.message_sheet_text".
///
///     auto *progress = new VemoProgressSheet(tr("Copying ..."), window);
///     progress->setRange(0, job->fileCount());
///     connect(job, &CopyJob::fileCopied, progress, &VemoProgressSheet::setValue);
///     connect(job, &CopyJob::finished, progress, &VemoProgressSheet::quit);
///     connect(progress, &VemoProgressSheet::canceled, job, &CopyJob::stop);
///     progress->open();
///
/// \image html sheets-progress.png
class VEMO_EXPORT VemoProgressSheet : public VemoContentSheet
{
    Q_OBJECT

public:
    /// Creates a sheet with a range from 0 to 100 and the value 0.
    VemoProgressSheet(const QString &text, QWidget *parent);
    ~VemoProgressSheet() override;

    QString labelText() const; ///< the text above the bar
    int minimum() const; ///< start of the range
    int maximum() const; ///< end of the range
    int value() const; ///< initially 0

    /// Sets the range. If both are 0, the bar only shows that the work goes on.
    void setRange(int minimum, int maximum);

    /// Sets the caption of the Cancel button; an empty one removes the button, so that the work
    /// cannot be cancelled. By default it is the string "cancel".
    void setCancelButtonText(const QString &text);

    /// Whether the sheet has been cancelled since it was created or reset.
    bool wasCanceled() const;

public Q_SLOTS:
    /// Sets the text above the bar, a plain text.
    void setLabelText(const QString &text);
    /// Sets the value; one outside the range is ignored.
    void setValue(int value);
    /// Cancels as the button does. The sheet remains open.
    void cancel();
    /// Sets the value to the minimum and forgets that the sheet was cancelled, for other work.
    void reset();

Q_SIGNALS:
    /// Emitted once when the user or cancel() cancels.
    void canceled();

protected:
    void answer(QDialogButtonBox::StandardButton which) override;

private:
    // The content is the text and the bar.
    using VemoContentSheet::content;
    using VemoContentSheet::setContent;
    using VemoContentSheet::setStandardButtons;

    VemoProgressSheetPrivate *m_d;
};

// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QtGlobal>

#include <cstdint>
#include <memory>

class QWidget;
class VemoSheet;

/// The modal session shared by both sheets: the event loop, the window's Close item, the event
/// filter on the window, and the keyboard focus, which is restored at the end.
///
/// The sheet or its window may be deleted at any time, by a slot or in the event loop. The sheet
/// calls abandon() in its destructor.
class ModalRun
{
public:
    explicit ModalRun(VemoSheet *sheet);
    ~ModalRun();
    Q_DISABLE_COPY(ModalRun)

    /// Shows the sheet and starts to filter the events of its window. If greysCloseItem, also
    /// disables the window's Close item.
    void begin(bool greysCloseItem);

    /// Runs the event loop until end(), and returns the result passed to it; 0 if the loop ended in
    /// any other way.
    int exec();

    /// Undoes begin(), ends the loop, hides the sheet, and has it emit finished(result).
    void end(int result, bool restoresCloseItem);

    /// Ends the loop of a sheet that is being destroyed.
    void abandon();

    bool isOpen() const;
    /// Whether sheet has an open session.
    static bool isOpenFor(const VemoSheet *sheet);

private:
    struct Run;

    void replaceRun();
    void undo(bool restoresCloseItem);
    void passFocusOn(const Run &run) const;
    void giveFocusBack(const Run &run) const;
    static bool isAnyOver(const QWidget *window, const VemoSheet *but);
    static bool isFocusInOpenSheet(const QWidget *window);
    static void restoreWindow(Run &run);

    VemoSheet *m_sheet;
    std::shared_ptr<Run> m_run; ///< the latest session, whose loop may outlive the sheet
    bool m_isFinishing = false;
};

/// The function that disables and enables the Close item: setCloseItemEnabled(), unless a test has
/// replaced it.
using CloseItemRoutine = void (*)(std::uintptr_t windowId, bool isEnabled);
CloseItemRoutine exchangeCloseItemRoutine(CloseItemRoutine routine);

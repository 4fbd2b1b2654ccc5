// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QtGlobal>

#include <cstdint>
#include <memory>

class QWidget;
class VemoSheet;

/// What sheets share of taking over their window: the event loop, the window's Close item, the
/// event filter on the window, and the keyboard focus, which goes back to where it was.
///
/// Everything may die on the way: the sheet or its window in a slot, or in the loop itself. The
/// sheet calls abandon() in its destructor.
class ModalRun
{
public:
    explicit ModalRun(VemoSheet *sheet);
    ~ModalRun();
    Q_DISABLE_COPY(ModalRun)

    /// Shows the sheet and filters the events of its window from here on; greys out the window's
    /// Close item if asked to.
    void begin(bool greysCloseItem);

    /// Runs the loop until end(). The result given there; 0 where the loop ended in any other way.
    int exec();

    /// Undoes begin(), ends the loop, hides the sheet, and has it emit finished(result).
    void end(int result, bool restoresCloseItem);

    /// Ends the loop of a sheet that is being destroyed.
    void abandon();

    bool isOpen() const;
    /// Whether a run of sheet is open.
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
    std::shared_ptr<Run> m_run; ///< the last one begun; its loop may outlive the sheet
    bool m_isFinishing = false;
};

/// What greys out and restores the Close item: setCloseItemEnabled(), unless a test put a recorder
/// in its place.
using CloseItemRoutine = void (*)(std::uintptr_t windowId, bool isEnabled);
CloseItemRoutine exchangeCloseItemRoutine(CloseItemRoutine routine);

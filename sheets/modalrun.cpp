// SPDX-License-Identifier: MIT
#include "sheets/modalrun_p.h"

#include "sheets/closeitem_p.h"

#include <vemo/vemosheet.h>

#include <QAccessible>
#include <QEventLoop>
#include <QPointer>
#include <QTimer>
#include <QVector>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace {

CloseItemRoutine closeItemRoutine = setCloseItemEnabled;

void enableCloseItem(const QWidget *window, bool isEnabled)
{
    // winId() would create a platform window if there is none.
    const QWindow *handle = window ? window->windowHandle() : nullptr;
    if (handle && handle->handle() && handle->winId() != 0)
        closeItemRoutine(handle->winId(), isEnabled);
}

void announce(VemoSheet *sheet, QAccessible::Event what)
{
    QAccessibleEvent event(sheet, what);
    QAccessible::updateAccessibility(&event);
}

/// Announces that the modal state has changed.
void announceModality(VemoSheet *sheet)
{
    QAccessible::State changed;
    changed.modal = true;
    QAccessibleStateChangeEvent event(sheet, changed);
    QAccessible::updateAccessibility(&event);
}

bool isWithin(const QWidget *widget, const QWidget *sheet)
{
    return widget && sheet && (widget == sheet || sheet->isAncestorOf(widget));
}

} // namespace

CloseItemRoutine exchangeCloseItemRoutine(CloseItemRoutine routine)
{
    return std::exchange(closeItemRoutine, routine);
}

/// One modal session of a sheet. The stack frame of the loop shares ownership, because the sheet
/// may be deleted while the loop runs.
struct ModalRun::Run
{
    explicit Run(VemoSheet *taker)
        : sheet(taker), window(taker->window()), focus(window->focusWidget())
    {
    }
    ~Run() { close(); }
    Q_DISABLE_COPY(Run)

    /// All open sessions over any window, in order of their start.
    static QVector<Run *> &open()
    {
        static QVector<Run *> runs;
        return runs;
    }

    bool isOpen() const { return open().contains(const_cast<Run *>(this)); }
    void close() { open().removeOne(this); }

    /// The loop may outlive its sheet, so its own stack frame deletes it.
    void releaseLoop() const
    {
        if (loop)
            loop->setParent(nullptr);
    }

    QPointer<VemoSheet> sheet;
    QPointer<QWidget> window;
    QPointer<QWidget> focus; ///< the window's focus widget before the session
    bool isGreyed = false;
    bool isDone = false; ///< whether end() was called, so that the result is valid
    int result = 0;
    QEventLoop *loop = nullptr; ///< owned by exec(), so that it is not deleted while it runs
};

ModalRun::ModalRun(VemoSheet *sheet) : m_sheet(sheet) { }

ModalRun::~ModalRun()
{
    abandon();
}

bool ModalRun::isOpen() const
{
    return m_run && m_run->isOpen();
}

bool ModalRun::isOpenFor(const VemoSheet *sheet)
{
    const QVector<Run *> &runs = Run::open();
    return std::any_of(
        runs.begin(), runs.end(), [=](const Run *run) { return run->sheet == sheet; });
}

void ModalRun::begin(bool greysCloseItem)
{
    if (!isOpen()) {
        if (m_run)
            m_run->releaseLoop();
        m_run = std::make_shared<Run>(m_sheet);
        Run::open().append(m_run.get());
    }
    const std::shared_ptr<Run> run = m_run;
    m_sheet->show();
    if (run->sheet)
        run->sheet->raise(); // For a sheet without a mask.
    if (!run->sheet || !run->window)
        return;
    if (greysCloseItem) {
        enableCloseItem(run->window, false);
        run->isGreyed = true;
    }
    run->window->installEventFilter(run->sheet);
    announceModality(run->sheet);
    announce(run->sheet, QAccessible::DialogStart);
}

int ModalRun::exec()
{
    if (!m_run)
        return 0;
    if (m_run->loop)
        replaceRun();
    const std::shared_ptr<Run> run = m_run;
    run->loop = new QEventLoop(m_sheet);
    run->loop->exec();
    delete std::exchange(run->loop, nullptr);

    const QPointer<VemoSheet> sheet = run->sheet;
    if (!sheet) {
        restoreWindow(*run);
    } else if (m_run == run && run->isOpen()) {
        // The application quits: the sheet ends without an answer.
        undo(run->isGreyed);
        if (sheet)
            sheet->hide();
    }
    return run->isDone ? run->result : 0;
}

void ModalRun::end(int result, bool restoresCloseItem)
{
    // A slot of finished() that ends the sheet again would recurse forever.
    if (m_isFinishing && !isOpen())
        return;
    const QPointer<VemoSheet> sheet(m_sheet);
    if (m_run && m_run->loop) {
        m_run->isDone = true;
        m_run->result = result;
        m_run->loop->exit(result);
    }
    undo(restoresCloseItem);
    if (sheet)
        sheet->hide();
    if (!sheet)
        return;
    const bool wasFinishing = std::exchange(m_isFinishing, true);
    Q_EMIT sheet->finished(result);
    if (sheet)
        m_isFinishing = wasFinishing;
}

void ModalRun::abandon()
{
    if (!m_run)
        return;
    const std::shared_ptr<Run> run = std::exchange(m_run, nullptr);
    passFocusOn(*run);
    if (run->loop) {
        run->releaseLoop();
        run->loop->exit(0);
    } else if (run->isOpen() && !isAnyOver(run->window, m_sheet)) {
        // Later, because the window may be about to be deleted.
        if (run->focus)
            QTimer::singleShot(0, run->focus, SLOT(setFocus()));
        if (run->isGreyed && run->window)
            QTimer::singleShot(
                0, run->window, [window = run->window] { enableCloseItem(window, true); });
    }
    run->close();
}

/// Whether another sheet is open over window.
bool ModalRun::isAnyOver(const QWidget *window, const VemoSheet *but)
{
    const QVector<Run *> &runs = Run::open();
    return std::any_of(runs.begin(), runs.end(),
        [=](const Run *run) { return run->window == window && run->sheet != but; });
}

/// Called if exec() is entered again while its loop runs: the new session replaces the old one.
void ModalRun::replaceRun()
{
    const std::shared_ptr<Run> old = m_run;
    m_run = std::make_shared<Run>(m_sheet);
    m_run->focus = old->focus;
    m_run->isGreyed = old->isGreyed;
    old->releaseLoop();
    old->close();
    Run::open().append(m_run.get());
    if (!old->isDone)
        old->loop->exit(0);
}

void ModalRun::undo(bool restoresCloseItem)
{
    QWidget *window = m_sheet->window();
    const std::shared_ptr<Run> run = m_run;
    if (restoresCloseItem || (run && run->isGreyed))
        enableCloseItem(window, true);
    window->removeEventFilter(m_sheet);
    if (!isOpen())
        return;
    run->isGreyed = false;
    run->close();
    if (run->window && run->window != window)
        run->window->removeEventFilter(m_sheet);
    announceModality(m_sheet);
    announce(m_sheet, QAccessible::DialogEnd);
    giveFocusBack(*run);
}

/// Sheets over this one would return the focus to it; now they return it to where this one would.
void ModalRun::passFocusOn(const Run &run) const
{
    for (Run *other : qAsConst(Run::open())) {
        if (other != &run && isWithin(other->focus, m_sheet))
            other->focus = run.focus;
    }
}

void ModalRun::giveFocusBack(const Run &run) const
{
    passFocusOn(run);
    if (!run.window || isFocusInOpenSheet(run.window))
        return;
    QWidget *now = run.window->focusWidget();
    if (run.focus && run.focus->isVisibleTo(run.window))
        run.focus->setFocus(Qt::OtherFocusReason);
    else if (isWithin(now, m_sheet))
        now->clearFocus();
}

bool ModalRun::isFocusInOpenSheet(const QWidget *window)
{
    const QVector<Run *> &runs = Run::open();
    return std::any_of(runs.begin(), runs.end(),
        [=](const Run *run) { return isWithin(window->focusWidget(), run->sheet); });
}

/// Called after the sheet was deleted.
void ModalRun::restoreWindow(Run &run)
{
    if (std::exchange(run.isGreyed, false))
        enableCloseItem(run.window, true);
    if (run.window && run.focus && !isFocusInOpenSheet(run.window))
        run.focus->setFocus(Qt::OtherFocusReason);
}

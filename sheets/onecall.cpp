// SPDX-License-Identifier: MIT
#include "sheets/onecall_p.h"

#include "sheets/sheetparts_p.h"

#include <vemo/vemomask.h>
#include <vemo/vemosheet.h>

#include <QPointer>

#include <utility>

namespace {

struct MaskedSheet
{
    explicit MaskedSheet(VemoSheet *newSheet) : sheet(newSheet), mask(coverOf(newSheet)) { }

    /// The mask that the host has created, or a new one; null for a sheet without a parent.
    static QWidget *coverOf(VemoSheet *sheet)
    {
        QWidget *parent = sheet->parentWidget();
        if (parent && !qobject_cast<VemoMask *>(parent))
            VemoMask::createMask(sheet, parent->window(), maskShade());
        return sheet->parentWidget();
    }

    void remove() const
    {
        delete mask.data();
        // Its parent was changed in the meantime.
        delete sheet.data();
    }

    void removeLater() const
    {
        if (mask)
            mask->deleteLater();
        if (sheet)
            sheet->deleteLater();
    }

    QPointer<VemoSheet> sheet;
    QPointer<QWidget> mask;
};

/// Shows the window of sheet and returns whether the sheet still exists.
bool showWindowOf(VemoSheet *sheet)
{
    const QPointer<VemoSheet> held = sheet;
    if (sheet->parentWidget())
        showWindow(sheet->window());
    return held;
}

} // namespace

void showWindow(QWidget *window)
{
    if (window->isMinimized())
        window->setWindowState((window->windowState() & ~Qt::WindowMinimized) | Qt::WindowActive);
    if (!window->isVisible())
        window->show();
}

int execOnce(
    VemoSheet *sheet, const std::function<int()> &exec, const std::function<void(int)> &atEnd)
{
    if (!showWindowOf(sheet))
        return 0;
    const MaskedSheet masked(sheet);
    const int result = exec();
    if (atEnd && masked.sheet)
        atEnd(result);
    masked.remove();
    return result;
}

void openOnce(
    VemoSheet *sheet, const std::function<void()> &show, const std::function<void(int)> &atEnd)
{
    if (!showWindowOf(sheet))
        return;
    const MaskedSheet masked(sheet);
    // done() may be called again before the sheet is deleted.
    QObject::connect(
        sheet, &VemoSheet::finished, sheet, [masked, atEnd, hasEnded = false](int result) mutable {
            if (std::exchange(hasEnded, true))
                return;
            if (atEnd)
                atEnd(result);
            masked.removeLater();
        });
    if (masked.mask)
        QObject::connect(sheet, &QObject::destroyed, masked.mask, &QObject::deleteLater);
    show();
}

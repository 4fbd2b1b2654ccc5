// SPDX-License-Identifier: MIT
#pragma once

#include "support/sheetdriver.h"

#include <vemo/vemoinputsheet.h>
#include <vemo/vemomask.h>
#include <vemo/vemomessagesheet.h>

/// A message or input sheet, with the interface that both have in common.
struct AnySheet
{
    AnySheet(const QString &kind, QWidget *window)
    {
        if (kind == "message")
            message = new VemoMessageSheet(VemoMessageSheet::Confirm, "text", window);
        else
            input = new VemoInputSheet("text", window);
        VemoMask::createMask(sheet(), window, QColor(0, 0, 0, 20));
    }

    VemoSheet *sheet() const
    {
        return message ? static_cast<VemoSheet *>(message.data()) : input.data();
    }
    int exec() const { return message ? message->exec() : input->exec(); }
    void showSheet() const { message ? message->showSheet() : input->showSheet(); }
    void done(int ret) const { message ? message->done(ret) : input->done(ret); }
    void setBlocking(bool on) const
    {
        message ? message->setBlockWindowButton(on) : input->setBlockWindowButton(on);
    }
    int execUntil(const std::function<void()> &act) const
    {
        const SheetDriver driver(act);
        return exec();
    }

    QPointer<VemoMessageSheet> message;
    QPointer<VemoInputSheet> input;
};

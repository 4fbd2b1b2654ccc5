// SPDX-License-Identifier: MIT
#pragma once

#include "support/sheetdriver.h"

#include <vemo/vemocontentsheet.h>
#include <vemo/vemoinputsheet.h>
#include <vemo/vemomask.h>
#include <vemo/vemomessagesheet.h>
#include <vemo/vemoprogresssheet.h>

#include <QLineEdit>

/// A sheet that is run, with the interface that all of them have in common.
struct AnySheet
{
    AnySheet(const QString &kind, QWidget *window)
    {
        if (kind == "message")
            message = new VemoMessageSheet(VemoMessageSheet::Confirm, "text", window);
        else if (kind == "content")
            content = new VemoContentSheet(new QLineEdit, window);
        else if (kind == "progress")
            content = new VemoProgressSheet("text", window);
        else
            input = new VemoInputSheet("text", window);
        VemoMask::createMask(sheet(), window, QColor(0, 0, 0, 20));
    }

    VemoSheet *sheet() const
    {
        VemoSheet *result = nullptr;
        visit([&](auto *sheet) { result = sheet; });
        return result;
    }
    int exec() const
    {
        int result = 0;
        visit([&](auto *sheet) { result = sheet->exec(); });
        return result;
    }
    void showSheet() const
    {
        visit([](auto *sheet) { sheet->showSheet(); });
    }
    void done(int ret) const
    {
        visit([ret](auto *sheet) { sheet->done(ret); });
    }
    void setBlocking(bool on) const
    {
        visit([on](auto *sheet) { sheet->setBlockWindowButton(on); });
    }
    int execUntil(const std::function<void()> &act) const
    {
        const SheetDriver driver(act);
        return exec();
    }

    QPointer<VemoMessageSheet> message;
    QPointer<VemoInputSheet> input;
    QPointer<VemoContentSheet> content;

private:
    /// Calls act with the sheet as what it is.
    template <typename Act> void visit(const Act &act) const
    {
        if (message)
            act(message.data());
        else if (input)
            act(input.data());
        else if (content)
            act(content.data());
    }
};

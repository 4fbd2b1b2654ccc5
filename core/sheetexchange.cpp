// SPDX-License-Identifier: MIT
#include "core/sheetexchange_p.h"

#include <vemo/dpiinfo.h>

#include <algorithm>

SheetExchange::SheetExchange(const Sections &before, const Sections &after)
{
    const DPIinfo &screen = DPIinfo::getInstance();
    for (const auto &[key, text] : before) {
        const auto found = after.find(key);
        if (found == after.end())
            continue;
        add(screen.getScaledStyleSheet(text), screen.getScaledStyleSheet(found->second));
        add(text, found->second);
    }
    // A section may be a part of another one.
    std::stable_sort(m_pairs.begin(), m_pairs.end(),
        [](const Pair &a, const Pair &b) { return a.before.size() > b.before.size(); });
}

void SheetExchange::add(const QString &before, const QString &after)
{
    const QString text = before.trimmed(); // A host may have trimmed it, too.
    if (!text.isEmpty())
        m_pairs.push_back({text, after.trimmed()});
}

QString SheetExchange::exchanged(const QString &sheet)
{
    const auto known = m_known.constFind(sheet);
    if (known != m_known.constEnd())
        return *known;
    return *m_known.insert(sheet, withNewParts(sheet));
}

QString SheetExchange::withNewParts(const QString &sheet) const
{
    std::map<int, const Pair *> parts; // by place
    const auto isFree = [&parts](int start, int end) {
        auto next = parts.lower_bound(start);
        if (next != parts.end() && next->first < end)
            return false;
        return next == parts.begin()
            || std::prev(next)->first + std::prev(next)->second->before.size() <= start;
    };
    for (const Pair &pair : m_pairs) {
        const int length = pair.before.size();
        for (int at = sheet.indexOf(pair.before); at >= 0;
             at = sheet.indexOf(pair.before, at + length)) {
            if (isFree(at, at + length))
                parts.emplace(at, &pair);
        }
    }
    QString result;
    int copied = 0;
    for (const auto &[at, pair] : parts) {
        result.append(sheet.constData() + copied, at - copied).append(pair->after);
        copied = at + pair->before.size();
    }
    return result.append(sheet.constData() + copied, sheet.size() - copied);
}

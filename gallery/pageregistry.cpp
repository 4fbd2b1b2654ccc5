// SPDX-License-Identifier: MIT
#include "gallery/pageregistry.h"

#include <algorithm>
#include <tuple>

namespace {

/// Created by whichever page registers itself first.
std::vector<PageEntry> &registry()
{
    static std::vector<PageEntry> entries;
    return entries;
}

bool standsBefore(const PageEntry &a, const PageEntry &b)
{
    return std::make_tuple(a.order, QLatin1String(a.title))
        < std::make_tuple(b.order, QLatin1String(b.title));
}

} // namespace

PageEntry::PageEntry(int order, const char *title, const char *keywords, Build build)
    : order(order), title(title), keywords(keywords), build(build)
{
    registry().push_back(*this);
}

std::vector<PageEntry> pages()
{
    std::vector<PageEntry> entries = registry();
    std::sort(entries.begin(), entries.end(), standsBefore);
    return entries;
}

QStringList pageTitles()
{
    QStringList titles;
    for (const PageEntry &page : pages())
        titles << page.title;
    return titles;
}

int pageIndex(const QString &title)
{
    const QStringList titles = pageTitles();
    const auto isTitle = [&](const QString &other) {
        return other.compare(title, Qt::CaseInsensitive) == 0;
    };
    const auto found = std::find_if(titles.begin(), titles.end(), isTitle);
    return found == titles.end() ? -1 : static_cast<int>(found - titles.begin());
}

bool matches(const PageEntry &page, const QString &query)
{
    const QString text = QString(page.title) + ' ' + page.keywords;
    const QStringList words = query.split(' ', Qt::SkipEmptyParts);
    return std::all_of(words.begin(), words.end(),
        [&](const QString &word) { return text.contains(word, Qt::CaseInsensitive); });
}

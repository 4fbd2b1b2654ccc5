// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include <vector>

class Page;

/// A page of the gallery. To add one, write a file in gallery/pages/ that holds such an object, and
/// name the file in gallery/CMakeLists.txt:
///
///     void build(Page &page)
///     {
///         page.addSection("Roles");
///         page.addRow({new VemoButton("Save", VemoButton::APPLY)});
///         page.addCode("auto *save = new VemoButton(\"Save\", VemoButton::APPLY);");
///     }
///
///     const PageEntry entry(20, "Buttons", "VemoButton push click", build);
struct PageEntry
{
    using Build = void (*)(Page &);

    /// Registers the page. Pages stand in the list by order, those of equal order by title; all
    /// texts must outlive the entry. keywords are what the search finds besides the title.
    PageEntry(int order, const char *title, const char *keywords, Build build);

    int order;
    const char *title;
    const char *keywords;
    Build build;
};

/// All pages, in the order of the list.
std::vector<PageEntry> pages();
QStringList pageTitles();

/// The place in pages() of a title, in any case; -1 when there is none.
int pageIndex(const QString &title);

/// Whether a page is what the user looks for: each word of the query stands in its title or
/// keywords.
bool matches(const PageEntry &page, const QString &query);

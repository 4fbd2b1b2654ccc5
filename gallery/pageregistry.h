// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include <vector>

class Page;

/// A page of the gallery. To add one, create a file in gallery/pages/ with such an object, and list
/// the file in gallery/CMakeLists.txt:
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

    /// Registers the page. Pages are sorted by order, then by title; all texts must outlive the
    /// entry. The search also finds the keywords.
    PageEntry(int order, const char *title, const char *keywords, Build build);

    int order;
    const char *title;
    const char *keywords;
    Build build;
};

/// All pages, in the order of the list.
std::vector<PageEntry> pages();
QStringList pageTitles();

/// The index in pages() of a title, ignoring case; -1 if there is none.
int pageIndex(const QString &title);

/// Whether each word of the query occurs in the page's title or keywords.
bool matches(const PageEntry &page, const QString &query);

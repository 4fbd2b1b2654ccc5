// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include <vector>

class Page;

/// A page of the gallery. To add one, write the function that fills it in a file of gallery/pages/,
/// and list the file in gallery/CMakeLists.txt, the function in gallery/pages/pages.h, and the page
/// in gallery/pagelist.cpp:
///
///     void buildButtonsPage(Page &page)
///     {
///         page.addSection("Roles");
///         page.addRow({new VemoButton("Save", VemoButton::APPLY)});
///         page.addCode("auto *save = new VemoButton(\"Save\", VemoButton::APPLY);");
///     }
struct PageEntry
{
    const char *title;
    const char *keywords; ///< further words that the search finds
    void (*build)(Page &page);
};

/// All pages, in the order of the list.
const std::vector<PageEntry> &pages();
QStringList pageTitles();

/// The index in pages() of a title, ignoring case; -1 if there is none.
int pageIndex(const QString &title);

/// Whether each word of the query occurs in the page's title or keywords.
bool matches(const PageEntry &page, const QString &query);

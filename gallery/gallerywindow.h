// SPDX-License-Identifier: MIT
#pragma once

#include "gallery/commandline.h"
#include "gallery/pagelist.h"

#include <QWidget>

class QAction;
class QLabel;
class QLineEdit;
class QListWidget;
class QScrollArea;
class QStackedWidget;
class VemoComboBox;

/// The gallery's window, with a search field and the list of pages on the left and the page on the
/// right. A page is created when it is first shown. Requires the theme and the gallery's style.
class GalleryWindow : public QWidget
{
    Q_OBJECT

public:
    explicit GalleryWindow(const Options &options);

    /// index is a place in pages().
    void showPage(int index);

    /// Makes the window as large as the current page, regardless of the size of the screen.
    void growToPage();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private Q_SLOTS:
    void slotPageChosen(int row);
    void slotFilter(const QString &query);
    void slotSearch();
    void slotThemeChosen(int index);
    void slotLanguageChosen(int index);

private:
    QWidget *newSidebar();
    void fillSwitches();
    void showTitle();
    void buildPagesAgain();
    void addPages();
    void connectParts();
    QScrollArea *builtPage(int index);

    Options m_options;
    const std::vector<PageEntry> m_pages;
    QLineEdit *m_search;
    QAction *m_clear = nullptr;
    QListWidget *m_list;
    QLabel *m_nothingFound;
    QStackedWidget *m_stack;
    VemoComboBox *m_theme;
    VemoComboBox *m_language;
};

// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QPointer>
#include <QStringList>
#include <QWidget>

class QStackedWidget;
class QStandardItem;
class QStandardItemModel;
class SideBarList;

/// The list of pages at the side of a settings window: entries with a picture, a text and an
/// optional count, in groups with headings.
///
/// Pages are numbered from 0 from top to bottom, like the widgets of a QStackedWidget; headings do
/// not count. The first page that is added becomes the current one. A click, the arrow keys, Page
/// Up, Page Down, Home, End or the first letters of a text choose another one, but never a disabled
/// one. The whole list is one Tab stop; Return emits activated() and is not passed on to the
/// default button of a dialog. A text or heading that does not fit ends with three dots and has a
/// tool tip. Rows are at least 28 design pixels high and grow with the font.
///
/// Assistive tools find a list with the accessible name of the side bar. An entry is announced with
/// its count, and described by the heading of its group. It belongs to its parent; pictures come
/// from the catalogue and follow it when another theme is loaded.
///
/// Requires: style files, pictures; without the sections "component.side_bar",
/// "component.side_bar_heading", "component.scrollbar" and those of a VemoBadge it looks like a
/// plain list, with warnings.
///
///     auto *bar = new VemoSideBar(window);
///     bar->addPage(tr("General"), "bt_settings");
///     bar->setStack(pages); // shows the widget with the same number
///
/// \image html path-and-filter-the-pages-of-a-settings-window.png
class VEMO_EXPORT VemoSideBar : public QWidget
{
    Q_OBJECT
    /// The number of the current page.
    Q_PROPERTY(int currentIndex READ currentIndex WRITE setCurrentIndex NOTIFY currentChanged
            DESIGNABLE false STORED false)
    /// Whether only the pictures are shown.
    Q_PROPERTY(bool collapsed READ isCollapsed WRITE setCollapsed NOTIFY collapsedChanged)

public:
    /// Creates an empty side bar and looks up its style.
    explicit VemoSideBar(QWidget *parent = nullptr);

    int count() const; ///< of pages

    /// Appends a page to the last group and returns its number. icon is a name in the catalogue, or
    /// empty.
    int addPage(const QString &text, const QString &icon = QString());
    /// Inserts a page before page index, in the same group, and returns its number. Appends it if
    /// there is no page index.
    int insertPage(int index, const QString &text, const QString &icon = QString());
    /// Removes a page; an unknown number is ignored. If it was the current page, the next enabled
    /// page becomes current, or the previous one if there is none.
    void removePage(int index);
    /// Starts a group with a heading for the pages that are appended from now on, and returns its
    /// number, from 0. The heading is shown while the group has pages.
    int addGroup(const QString &heading);
    void clear(); ///< removes all pages and groups

    int currentIndex() const; ///< the number of the current page; -1 if there is none

    QString pageText(int index) const; ///< the text of a page; empty for an unknown number
    /// Sets the text of a page, which is plain text without mnemonics.
    void setPageText(int index, const QString &text);
    /// The name of the picture of a page; empty if it has none.
    QString pageIcon(int index) const;
    /// Sets the picture of a page by its name in the catalogue; an empty name removes it.
    void setPageIcon(int index, const QString &name);
    int pageBadge(int index) const; ///< the count at the end of an entry; initially 0
    /// Shows a count at the end of an entry, "99+" if it is larger; 0 and less hide it.
    void setPageBadge(int index, int count);
    bool isPageEnabled(int index) const; ///< initially true; false for an unknown number
    /// The user cannot choose a disabled page. If it is the current page, it remains current.
    void setPageEnabled(int index, bool enabled);
    QString groupText(int group) const; ///< the text of a heading; empty for an unknown number
    void setGroupText(int group, const QString &heading); ///< sets the plain text of a heading

    /// Whether only the pictures are shown, with the texts as tool tips; initially false.
    bool isCollapsed() const;

    QStackedWidget *stack() const; ///< set by setStack(); initially null
    /// Keeps the current widget of stack and the current page the same, whichever changes; at
    /// first, stack shows the current page. Add the pages in the order of the widgets. Null ends
    /// it. The stack does not change owner and may be deleted at any time.
    void setStack(QStackedWidget *stack);

    /// Screen pixels: wide enough for the texts, within 120 to 240 design pixels; 44 if collapsed.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override; ///< the width of the collapsed side bar, and two rows

public Q_SLOTS:
    /// Makes a page current, even a disabled one; an unknown number is ignored.
    void setCurrentIndex(int index);
    void setCollapsed(bool collapsed); ///< shows pictures only, or the texts again

Q_SIGNALS:
    /// Emitted when another page has become current, with -1 when the last page was removed. Not
    /// emitted if only its number changed. A slot may delete the side bar, its window or the page.
    void currentChanged(int index);
    /// Emitted when Return or Enter is pressed on the current page.
    void activated(int index);
    void collapsedChanged(bool collapsed); ///< emitted when the side bar collapsed or unfolded

protected:
    void changeEvent(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void updatePage(int index);
    void updatePages();
    void choose(int index);
    void reportCurrent();

    QStandardItemModel *m_model; ///< a row for each page
    SideBarList *m_list;
    QPointer<QStackedWidget> m_stack;
    QStringList m_groups; ///< their headings
    const QStandardItem *m_reported =
        nullptr; ///< current at the last currentChanged(); only compared
};

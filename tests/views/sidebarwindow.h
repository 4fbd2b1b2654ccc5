// SPDX-License-Identifier: MIT
#pragma once

#include "support/activewindow.h"

#include <vemo/dpiinfo.h>
#include <vemo/vemobutton.h>
#include <vemo/vemosidebar.h>

#include <QAccessible>
#include <QHBoxLayout>
#include <QListView>
#include <QtTest>

/// A side bar with the focus beside a button: General, Accounts, Notifications, [Advanced]
/// Network, Proxy (disabled), About.
struct SideBarWindow
{
    SideBarWindow()
    {
        window->resize(DPIinfo::scaled(500), DPIinfo::scaled(400));
        bar->setAccessibleName("Pages");
        bar->addPage("General", "bt_settings");
        bar->addPage("Accounts", "bt_folder");
        bar->addPage("Notifications", "bt_details");
        bar->addGroup("Advanced");
        bar->addPage("Network", "bt_search");
        bar->addPage("Proxy", "bt_edit");
        bar->addPage("About", "bt_help");
        bar->setPageEnabled(4, false);
        auto *row = new QHBoxLayout(window);
        row->addWidget(bar);
        row->addWidget(new VemoButton("Close", VemoButton::CANCEL));
        bar->setFocus();
        window->show();
    }
    ~SideBarWindow() { delete window; }

    /// Waits until keys reach the side bar.
    bool activate() const { return showActive(window); }

    QRect row(int page) const { return list->visualRect(list->model()->index(page, 0)); }
    /// Its row without the heading.
    QRect page(int page) const
    {
        QRect rect = row(page);
        rect.setTop(rect.bottom() - row(0).height() + 1);
        return rect;
    }
    void click(const QPoint &point, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, modifiers, point);
    }
    void click(int page) const { click(this->page(page).center()); }
    void press(Qt::Key key) const { QTest::keyClick(window->windowHandle(), key); }
    QAccessibleInterface *entry(int page) const
    {
        return QAccessible::queryAccessibleInterface(list)->child(page);
    }
    /// Whether exactly the current page is selected.
    bool hasItsSelection() const
    {
        return list->selectionModel()->selectedIndexes() == QModelIndexList {list->currentIndex()};
    }

    QPointer<QWidget> window = new QWidget;
    QPointer<VemoSideBar> bar = new VemoSideBar;
    QListView *list = bar->findChild<QListView *>();
};

// SPDX-License-Identifier: MIT
#include "support/vemotest.h"

#include <vemo/itemdelegate.h>
#include <vemo/vemobuttonpath.h>
#include <vemo/vemofilterbar.h>
#include <vemo/vemopagingbar.h>
#include <vemo/vemopagingmodel.h>
#include <vemo/vemosidebar.h>
#include <vemo/vemotablewidget.h>
#include <vemo/vemotreewidget.h>

#include <QLineEdit>

namespace {

QString missingStyle(const char *key)
{
    return QString("Cannot find stylesheet \"component.%1\"").arg(key);
}

QString missingPicture(const char *name)
{
    return QString("Cannot load pixmap \"%1\"").arg(name);
}

} // namespace

/// A host without any resources gets plain widgets, and a warning for each look-up.
class ViewsWithoutThemeTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void showAPagingBar();
    void showATable();
    void showATree();
    void editAnItem();
    void showAPath();
    void showAFilterBar();
    void showASideBar();

private:
    /// Claims all warnings and verifies that they are these texts, each at least once.
    void compareWarnings(const QStringList &texts);
};

void ViewsWithoutThemeTest::compareWarnings(const QStringList &texts)
{
    QStringList warnings = messages.take();
    warnings.removeDuplicates();
    for (const QString &text : texts)
        QVERIFY2(warnings.removeOne(text), qPrintable(text));
    QVERIFY2(warnings.isEmpty(), qPrintable(warnings.join('\n')));
}

void ViewsWithoutThemeTest::showAPagingBar()
{
    VemoPagingModel model(10, nullptr);
    VemoPagingBar bar(&model, nullptr);
    bar.setItemCount(100);
    bar.setFooterInfos({{"100 items", 0}, {"3 selected", 0}});
    QVERIFY(!bar.grab().isNull());
    const QStringList warnings = messages.take();
    for (const char *name : {"bt_pagebar_backend", "bt_pagebar_back", "bt_pagebar_next",
             "bt_pagebar_nextend", "bt_pagebar_refresh"})
        QVERIFY(warnings.contains(missingPicture(name)));
    for (const char *key : {"select_paging_button", "nonselect_paging_button", "paging_bar_border",
             "paging_bar_label", "paging_bar_rightmost_label", "icon_button"})
        QVERIFY(warnings.contains(missingStyle(key)));
}

void ViewsWithoutThemeTest::showATable()
{
    VemoTableColumnsInfo columns;
    columns.addColumn("Name", 100, true, 1.0);
    VemoTableWidget table(columns, nullptr);
    table.getTable()->setRowCount(3);
    QVERIFY(!table.grab().isNull());
    compareWarnings(
        {missingStyle("table_header"), missingStyle("table"), missingStyle("scrollbar")});
}

void ViewsWithoutThemeTest::showATree()
{
    VemoTreeWidget tree;
    tree.addTopLevelItem(new QTreeWidgetItem(QStringList("Projects")));
    QVERIFY(!tree.grab().isNull());
    compareWarnings({});
}

void ViewsWithoutThemeTest::editAnItem()
{
    QTreeWidget tree;
    tree.addTopLevelItem(new QTreeWidgetItem(QStringList("Projects")));
    const ItemDelegate delegate;
    QLineEdit editor;
    delegate.setEditorData(&editor, tree.model()->index(0, 0));
    QCOMPARE(editor.text(), QString("Projects"));
    compareWarnings({missingStyle("tree_item")});
}

void ViewsWithoutThemeTest::showAPath()
{
    VemoButtonPath path;
    path.resize(60, path.height());
    path.refresh("alpha/beta/gamma");
    QVERIFY(!path.grab().isNull());
    QCOMPARE(path.getPath(4), QString("alpha/beta/gamma"));
    compareWarnings({missingStyle("menu"), missingPicture("folder"),
        missingStyle("button_path_change_folder_btn"), missingStyle("button_path"),
        missingStyle("button_path_arrow"), missingStyle("button_path_name_button"),
        missingPicture("bt_next")});
}

void ViewsWithoutThemeTest::showAFilterBar()
{
    VemoFilterBar bar;
    QVERIFY(!bar.grab().isNull());
    compareWarnings({missingPicture("bt_search_dropdown"), missingStyle("icon_button"),
        missingStyle("filter_search_button"), missingStyle("lineedit"),
        missingStyle("filter_bar_padding")});
}

void ViewsWithoutThemeTest::showASideBar()
{
    VemoSideBar bar;
    bar.addPage("Plain");
    bar.addGroup("Group");
    bar.addPage("Picture", "bt_settings");
    bar.setPageBadge(0, 3);
    QVERIFY(!bar.grab().isNull());
    compareWarnings({missingStyle("side_bar"), missingStyle("side_bar_heading"),
        missingStyle("badge_accent"), missingStyle("badge_neutral"), missingStyle("scrollbar"),
        missingPicture("bt_settings")});
}

VEMO_TEST_MAIN(ViewsWithoutThemeTest)
#include "tst_viewswithouttheme.moc"

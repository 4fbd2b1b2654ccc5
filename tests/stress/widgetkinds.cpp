// SPDX-License-Identifier: MIT
#include "stress/widgetkinds.h"

#include <vemo/browserwindow.h>
#include <vemo/clickablelabel.h>
#include <vemo/filesystemtreewidgetitem.h>
#include <vemo/helpwindow.h>
#include <vemo/itemdelegate.h>
#include <vemo/linklabel.h>
#include <vemo/vemobadge.h>
#include <vemo/vemobutton.h>
#include <vemo/vemobuttonpath.h>
#include <vemo/vemocalanderview.h>
#include <vemo/vemocheckbox.h>
#include <vemo/vemocombobox.h>
#include <vemo/vemocontentsheet.h>
#include <vemo/vemocountdownmessagebox.h>
#include <vemo/vemodaterangeselector.h>
#include <vemo/vemodateselector.h>
#include <vemo/vemofilterbar.h>
#include <vemo/vemofootbar.h>
#include <vemo/vemoiconbutton.h>
#include <vemo/vemoinputsheet.h>
#include <vemo/vemolabel.h>
#include <vemo/vemolineedit.h>
#include <vemo/vemomask.h>
#include <vemo/vemomenu.h>
#include <vemo/vemomessagebar.h>
#include <vemo/vemomessagesheet.h>
#include <vemo/vemopagingbar.h>
#include <vemo/vemopagingmodel.h>
#include <vemo/vemoprogresssheet.h>
#include <vemo/vemoradiobutton.h>
#include <vemo/vemosheet.h>
#include <vemo/vemosidebar.h>
#include <vemo/vemospinner.h>
#include <vemo/vemoswitch.h>
#include <vemo/vemotableview.h>
#include <vemo/vemotablewidget.h>
#include <vemo/vemotimecombobox.h>
#include <vemo/vemotreewidget.h>

#include <QCalendarWidget>
#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QListWidget>
#include <QMessageBox>
#include <QProgressBar>
#include <QProgressDialog>
#include <QPushButton>
#include <QRadioButton>
#include <QStringListModel>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QTextEdit>
#include <QToolBar>
#include <QToolButton>
#include <QUrl>
#include <QVBoxLayout>

namespace {

template <typename Widget> QWidget *make(QWidget *parent)
{
    return new Widget(parent);
}

template <typename Widget> QWidget *makeText(QWidget *parent)
{
    auto *widget = new Widget(parent);
    widget->setText(QStringLiteral("A text of some words, 123"));
    return widget;
}

template <typename Box> QWidget *makeBox(QWidget *parent)
{
    auto *box = new Box(parent);
    box->addItems({QStringLiteral("08:00"), QStringLiteral("09:30"), QStringLiteral("23:00")});
    box->setEditable(true);
    return box;
}

QWidget *makeStockBox(QWidget *parent)
{
    auto *box = new QComboBox(parent);
    box->addItem(QStringLiteral("2026-03-07"));
    return box;
}

template <typename Menu> QWidget *makeMenu(QWidget *parent)
{
    auto *menu = new Menu(parent);
    menu->addAction(QStringLiteral("Open"));
    menu->addMenu(QStringLiteral("More"))->addAction(QStringLiteral("Close"));
    return menu;
}

template <typename Tree, typename Item> QWidget *makeTree(QWidget *parent)
{
    auto *tree = new Tree(parent);
    for (int i = 0; i < 5; ++i) {
        auto *item = new Item;
        item->setText(0, QString::number(i));
        item->setFlags(item->flags() | Qt::ItemIsEditable | Qt::ItemIsUserCheckable);
        tree->addTopLevelItem(item);
        item->addChild(new Item);
    }
    return tree;
}

QWidget *makeVemoTree(QWidget *parent)
{
    QWidget *tree = makeTree<VemoTreeWidget, FileSystemTreeWidgetItem>(parent);
    auto *delegate = new ItemDelegate;
    delegate->setParent(tree);
    static_cast<QTreeWidget *>(tree)->setItemDelegate(delegate);
    return tree;
}

QWidget *makeTreeWithOptions(QWidget *parent)
{
    auto *tree = static_cast<VemoTreeWidget *>(makeVemoTree(parent));
    for (int row = 0; row < tree->topLevelItemCount(); ++row)
        tree->topLevelItem(row)->setCheckState(0, Qt::Unchecked);
    tree->setCheckPropagation(true);
    tree->setDropSignalsEnabled(true);
    tree->setFilterFunction([](const QTreeWidgetItem &item) { return item.text(0) != "3"; });
    tree->setChildrenState(
        tree->topLevelItem(1)->child(0), VemoTreeWidget::ChildrenFailed, QStringLiteral("None"));
    tree->setChildrenState(tree->topLevelItem(2), VemoTreeWidget::ChildrenOnDemand);
    QObject::connect(tree, &VemoTreeWidget::childrenRequested, tree, [](QTreeWidgetItem *item) {
        for (const char *name : {"x", "3"})
            new QTreeWidgetItem(item, {name});
    });
    QObject::connect(tree, &VemoTreeWidget::itemToggled, tree, [tree](QTreeWidgetItem *item) {
        tree->setFilterText(item->text(0) == "0" ? QString() : item->text(0));
    });
    return tree;
}

void fill(QTableWidget *table)
{
    table->setRowCount(20);
    for (int row = 0; row < 20; ++row)
        table->setItem(row, 0, new QTableWidgetItem(QString::number(row)));
}

QWidget *makeTable(QWidget *parent)
{
    VemoTableColumnsInfo columns;
    columns.addColumn(QStringLiteral("Name"), 120, true, 1.0);
    columns.addColumn(QStringLiteral("Size"), 80, false, 0.0);
    auto *table = new VemoTableWidget(columns, parent);
    fill(table->getTable());
    return table;
}

QWidget *makeTableView(QWidget *parent)
{
    VemoTableColumnsInfo columns;
    columns.addColumn(QStringLiteral("Name"), 120, true, 1.0);
    auto *table = new VemoTableView(columns, parent);
    table->setModel(new QStringListModel({"a", "b", "c"}, table));
    return table;
}

QWidget *makeStockTable(QWidget *parent)
{
    auto *table = new QTableWidget(0, 2, parent);
    fill(table);
    return table;
}

QWidget *makePath(QWidget *parent)
{
    auto *path = new VemoButtonPath(parent);
    path->refresh(QStringLiteral("home/a & b/projects/a folder with a long name/2026"));
    return path;
}

QWidget *makePagingBar(QWidget *parent)
{
    auto *bar = new VemoPagingBar(parent);
    bar->setItemCount(1000);
    bar->setFooterText(QStringLiteral("1000 items"));
    return bar;
}

QWidget *makeMessage(QWidget *parent)
{
    auto *sheet = new VemoMessageSheet(
        VemoMessageSheet::ConfirmReset, QStringLiteral("Delete <b>it</b>?"), parent);
    return VemoMask::createMask(sheet, parent, QColor(0, 0, 0, 20));
}

QWidget *makeInput(QWidget *parent)
{
    auto *sheet = new VemoInputSheet(QStringLiteral("A name"), parent);
    return VemoMask::createMask(sheet, parent, QColor(0, 0, 0, 20));
}

QWidget *makeContentSheet(QWidget *parent)
{
    auto *content = new QWidget;
    auto *layout = new QVBoxLayout(content);
    layout->addWidget(new QLineEdit);
    layout->addWidget(new QTextEdit);
    auto *sheet = new VemoContentSheet(content, parent);
    return VemoMask::createMask(sheet, parent, QColor(0, 0, 0, 20));
}

QWidget *makeProgress(QWidget *parent)
{
    auto *sheet = new VemoProgressSheet(QStringLiteral("Copying"), parent);
    sheet->setValue(40);
    return VemoMask::createMask(sheet, parent, QColor(0, 0, 0, 20));
}

QWidget *makeMessageBar(QWidget *parent)
{
    auto *bar = new VemoMessageBar(parent);
    bar->showMessage(VemoMessageBar::Warning, QStringLiteral("The disk is nearly full."));
    bar->showMessage(VemoMessageBar::Error, QStringLiteral("The disk is full."),
        QStringLiteral("Close"), [bar] { bar->clearMessages(); });
    return bar;
}

QWidget *withButton(QWidget *frame)
{
    auto *layout = new QVBoxLayout(frame);
    layout->addWidget(new QPushButton(QStringLiteral("Close")));
    return frame;
}

QWidget *makeSheet(QWidget *parent)
{
    return VemoMask::createMask(withButton(new VemoSheet(parent)), parent, QColor(0, 0, 0, 20));
}

QWidget *makeStockSheet(QWidget *parent)
{
    auto *cover = new QWidget(parent);
    auto *layout = new QHBoxLayout(cover);
    layout->addWidget(withButton(new QFrame));
    return cover;
}

QWidget *makeMask(QWidget *parent)
{
    auto *label = new QLabel(QStringLiteral("Please wait"), parent);
    return VemoMask::createMask(label, parent, QColor(0, 0, 0, 20));
}

/// There is no server at the knowledge base's port, so the window shows the local page.
QWidget *makeHelp(QWidget *parent)
{
    static const QTemporaryDir folder;
    const QString page = folder.path() + QStringLiteral("/enu/page.html");
    if (!QFile::exists(page)) {
        HelpWindow::setKnowledgeBaseUrl(QUrl(QStringLiteral("https://127.0.0.1:1")));
        QDir(folder.path()).mkdir(QStringLiteral("enu"));
        QFile file(page);
        if (file.open(QIODevice::WriteOnly))
            file.write("<h1>Backup</h1><p><a href='#end'>End</a></p><p><a name='end'>End</a></p>");
    }
    HelpContext context;
    context.lang = QStringLiteral("enu");
    context.helpPath = folder.path();
    context.link = QStringLiteral("page.html");
    auto *window = new HelpWindow(context, parent);
    window->setHistoryEnabled(true);
    window->setContents({{"Backup", 0, QUrl("page.html")}, {"End", 1, QUrl("page.html#end")}});
    return window;
}

QWidget *makeFilter(QWidget *parent)
{
    auto *bar = new VemoFilterBar(parent);
    auto *menu = new VemoMenu(bar);
    menu->addAction(QStringLiteral("All"));
    bar->setMenu(menu);
    return bar;
}

QWidget *makeSideBar(QWidget *parent)
{
    auto *bar = new VemoSideBar(parent);
    bar->addPage(QStringLiteral("A page"), QStringLiteral("bt_settings"));
    bar->addGroup(QStringLiteral("A group"));
    bar->setPageBadge(bar->addPage(QStringLiteral("Another page")), 3);
    return bar;
}

QWidget *makeField(QWidget *parent)
{
    auto *field = new VemoLineEdit(parent);
    field->getLineEdit()->setText(QStringLiteral("A text"));
    return field;
}

QWidget *makeIconButton(QWidget *parent)
{
    auto *button = new VemoIconButton(QStringLiteral("bt_pagebar_next"));
    button->setParent(parent);
    return button;
}

/// At the corner of the button that it is returned with.
QWidget *makeBadge(QWidget *parent)
{
    QWidget *button = makeIconButton(parent);
    auto *badge = new VemoBadge;
    badge->setCount(120);
    badge->attachTo(button);
    return button;
}

QWidget *makeStockBadge(QWidget *parent)
{
    auto *button = new QToolButton(parent);
    new QLabel(QStringLiteral("99+"), button);
    return button;
}

QWidget *makeSpinner(QWidget *parent)
{
    auto *spinner = new VemoSpinner(parent);
    spinner->start();
    return spinner;
}

template <typename Container> QWidget *makeRow(QWidget *parent)
{
    auto *row = new Container(parent);
    auto *layout = row->layout() ? row->layout() : new QHBoxLayout(row);
    layout->addWidget(new QPushButton(QStringLiteral("OK")));
    layout->addWidget(new QPushButton(QStringLiteral("Cancel")));
    return row;
}

std::vector<WidgetKind> buttonsAndLabels()
{
    return {
        {"VemoButton", makeText<VemoButton>, makeText<QPushButton>},
        {"VemoIconButton", makeIconButton, make<QToolButton>},
        {"VemoBadge", makeBadge, makeStockBadge},
        {"VemoLabel", makeText<VemoLabel>, makeText<QLabel>},
        {"ClickableLabel", makeText<ClickableLabel>, makeText<QLabel>},
        {"LinkLabel", makeText<LinkLabel>, makeText<QLabel>},
        {"VemoLineEdit", makeField, makeText<QLineEdit>},
        {"VemoCheckBox", makeText<VemoCheckBox>, makeText<QCheckBox>},
        {"VemoRadioButton", makeText<VemoRadioButton>, makeText<QRadioButton>},
        {"VemoSwitch", makeText<VemoSwitch>, makeText<QCheckBox>},
        {"VemoSpinner", makeSpinner, make<QProgressBar>},
        {"VemoComboBox", makeBox<VemoComboBox>, makeBox<QComboBox>},
        {"VemoMenu", makeMenu<VemoMenu>, makeMenu<QMenu>},
        {"VemoFootbar", makeRow<VemoFootbar>, makeRow<QWidget>},
    };
}

std::vector<WidgetKind> composites()
{
    return {
        {"VemoSheet", makeSheet, makeStockSheet},
        {"VemoMask", makeMask, make<QMessageBox>},
        {"VemoMessageSheet", makeMessage, make<QMessageBox>},
        {"VemoInputSheet", makeInput, make<QMessageBox>},
        {"VemoContentSheet", makeContentSheet, make<QMessageBox>},
        {"VemoProgressSheet", makeProgress, make<QProgressDialog>},
        {"VemoMessageBar", makeMessageBar, makeText<QLabel>},
        {"VemoCountdownMessageBox", make<VemoCountdownMessageBox>, make<QMessageBox>},
        {"VemoPagingBar", makePagingBar, make<QToolBar>},
        {"VemoTableWidget", makeTable, makeStockTable},
        {"VemoTableView", makeTableView, makeStockTable},
        {"VemoTreeWidget", makeVemoTree, makeTree<QTreeWidget, QTreeWidgetItem>},
        {"VemoTreeWidget with options", makeTreeWithOptions,
            makeTree<QTreeWidget, QTreeWidgetItem>},
        {"VemoButtonPath", makePath, makeStockTable},
        {"VemoFilterBar", makeFilter, make<QLineEdit>},
        {"VemoSideBar", makeSideBar, make<QListWidget>},
        {"VemoCalanderView", make<VemoCalanderView>, make<QCalendarWidget>},
        {"VemoDateRangeSelector", make<VemoDateRangeSelector>, makeStockBox},
        {"VemoDateSelector", make<VemoDateSelector>, makeStockBox},
        {"VemoTimeComboBox", makeBox<VemoTimeComboBox>, makeBox<QComboBox>},
        {"BrowserWindow", make<BrowserWindow>, make<QTextBrowser>},
        {"HelpWindow", makeHelp, make<QTextBrowser>},
    };
}

} // namespace

const std::vector<WidgetKind> &widgetKinds()
{
    static const std::vector<WidgetKind> kinds = [] {
        std::vector<WidgetKind> all = buttonsAndLabels();
        const std::vector<WidgetKind> more = composites();
        all.insert(all.end(), more.begin(), more.end());
        return all;
    }();
    return kinds;
}

int stressNumber(const char *variable, int inSuite)
{
    return qEnvironmentVariableIsSet(variable) ? qEnvironmentVariableIntValue(variable) : inSuite;
}

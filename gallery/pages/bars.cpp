// SPDX-License-Identifier: MIT
#include "gallery/demotexts.h"
#include "gallery/page.h"
#include "gallery/pages/pages.h"
#include "gallery/specimens.h"

#include <vemo/dpiinfo.h>
#include <vemo/stylemanager.h>
#include <vemo/vemobuttonpath.h>
#include <vemo/vemofilterbar.h>
#include <vemo/vemoiconbutton.h>
#include <vemo/vemomenu.h>
#include <vemo/vemosidebar.h>
#include <vemo/vemoswitch.h>

#include <QLabel>
#include <QSlider>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace {

// In design pixels.
constexpr int kMinWidth = 120;
constexpr int kMaxWidth = 640;
constexpr int kFilterWidth = 320;
constexpr int kSideBarHeight = 192;
constexpr int kPageGap = 12; // between a side bar and its pages
constexpr int kNoteGap = 4; // as below every specimen

const char *const kDeepPath = "home/Projects/2026/R&D/Prototypes/Paging bar/Drawings";

VemoButtonPath *pathBar(const QString &path, int width)
{
    auto *bar = new VemoButtonPath;
    bar->setFixedWidth(DPIinfo::scaled(width));
    bar->refresh(path);
    QObject::connect(bar, &VemoButtonPath::sigUpdatePath, bar, &VemoButtonPath::slotUpdatePath);
    return bar;
}

/// A path bar and a slider for its width.
QWidget *resizablePath()
{
    auto *specimen = new QWidget;
    auto *layout = new QVBoxLayout(specimen);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(DPIinfo::scaled(12));
    VemoButtonPath *bar = pathBar(kDeepPath, kMaxWidth);
    auto *slider = new QSlider(Qt::Horizontal);
    slider->setAccessibleName("Width of the bar");
    slider->setFixedWidth(DPIinfo::scaled(kMaxWidth));
    slider->setRange(kMinWidth, kMaxWidth);
    slider->setValue(kMaxWidth);
    QObject::connect(slider, &QSlider::valueChanged, bar,
        [bar](int width) { bar->setFixedWidth(DPIinfo::scaled(width)); });
    layout->addWidget(bar, 0, Qt::AlignLeft);
    layout->addWidget(slider, 0, Qt::AlignLeft);
    return specimen;
}

void addPaths(Page &page)
{
    page.addSection("A path and its width",
        "Drag the slider: where the row is too wide, its right end shows, and the folder button "
        "has "
        "a menu of the parts that are out of sight. A click on a part cuts the path there.");
    page.add(resizablePath());
    page.addRow({captioned(pathBar(kDeepPath, 320), "Too narrow"),
        captioned(pathBar("home/Pictures", 320), "Fits")});
    page.addRow(
        {captioned(pathBar("Persönlicher Ordner/Geschäftsunterlagen/Übersicht", 320), "German"),
            captioned(pathBar("主目录/项目资料/二〇二六年", 320), "Chinese")});
    page.addCode(R"(auto *path = new VemoButtonPath(this);
connect(path, &VemoButtonPath::sigUpdatePath, this, &MainWindow::openFolder);
path->refresh("home/Projects/2026"); // also when openFolder() has opened it)");
}

/// Its menus have the same names in every folder.
VemoButtonPath *livingPath()
{
    VemoButtonPath *bar = pathBar(kDeepPath, kMaxWidth);
    bar->setAccessibleName("Folder");
    bar->setToolTipsEnabled(true);
    bar->setSiblingMenusEnabled(true);
    bar->setEditable(true);
    QObject::connect(bar, &VemoButtonPath::siblingsRequested, bar, [bar] {
        bar->showSiblings({"2025", "2026", "Projects", "R&D"});
    });
    return bar;
}

void addPathOptions(Page &page)
{
    page.addSection("Menus, tool tips and a path to type",
        "An arrow, or Down on a name, opens the menu of the names beside the next one. Ctrl+L, or "
        "a click beside the row, shows a field for a path. A cut name has a tool tip.");
    page.add(livingPath());
    page.addCode(R"(path->setToolTipsEnabled(true);
path->setSiblingMenusEnabled(true);
connect(path, &VemoButtonPath::siblingsRequested, this, &MainWindow::readFolder);
path->showSiblings(names); // at the end of readFolder()
path->setEditable(true);
path->setDropMimeTypes({"text/uri-list"});
connect(path, &VemoButtonPath::dropped, this, &MainWindow::copyInto);)");
}

VemoFilterBar *filterBar(const QString &text)
{
    auto *bar = new VemoFilterBar;
    bar->setFixedWidth(DPIinfo::scaled(kFilterWidth));
    bar->setAccessibleName("Filter");
    bar->findChild<VemoIconButton *>()->setAccessibleName("Kinds to show");
    bar->setPlaceholderText(demo("filter_hint"));
    bar->setText(text);
    return bar;
}

VemoFilterBar *withMenu(VemoFilterBar *bar)
{
    auto *menu = new VemoMenu(bar);
    menu->setStyleSheet(getStyleSheet("component.menu"));
    for (const char *kind : {"all_files", "documents", "pictures", "archives"}) {
        QAction *action = menu->addAction(demo(kind));
        action->setCheckable(true);
        action->setChecked(menu->actions().size() == 1);
    }
    bar->setMenu(menu);
    return bar;
}

/// Says below the bar what it has emitted.
QWidget *livingFilter()
{
    auto *specimen = new QWidget;
    auto *layout = new QVBoxLayout(specimen);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(DPIinfo::scaled(kNoteGap));
    VemoFilterBar *bar = withMenu(filterBar(QString()));
    QLabel *keyword = note("No keyword yet");
    QObject::connect(bar, &VemoFilterBar::sigKeywordChanged, keyword,
        [keyword](const QString &text) { keyword->setText("Keyword: " + text); });
    layout->addWidget(bar);
    layout->addWidget(keyword);
    return specimen;
}

void addFilters(Page &page)
{
    VemoFilterBar *disabled = filterBar(demo("report"));
    disabled->setEnabled(false);
    page.addSection("A filter with a menu",
        "Return hands the keyword on; Down, or a click on the button, opens the menu.");
    page.addRow({livingFilter(), captioned(disabled, "Disabled")});
    page.addRow({captioned(filterBar("Jahresabschlussberichte der Abteilungen 2026"), "German"),
        captioned(filterBar("年度报告"), "Chinese")});
    page.addCode(R"(auto *filter = new VemoFilterBar(this);
filter->setMenu(kindsMenu); // which stays yours
connect(filter, &VemoFilterBar::sigKeywordChanged, this, &MainWindow::filterList);)");
}

VemoSideBar *sideBar(const QStringList &texts, const QString &heading)
{
    const char *const icons[] = {"bt_settings", "bt_folder", "bt_details", "bt_search", "bt_help"};
    auto *bar = named(new VemoSideBar, "Pages");
    for (int i = 0; i < texts.size(); ++i) {
        if (i == 3)
            bar->addGroup(heading);
        bar->addPage(texts.at(i), icons[i]);
    }
    bar->setPageBadge(2, 12);
    bar->setPageEnabled(3, false);
    bar->setFixedHeight(DPIinfo::scaled(kSideBarHeight));
    return bar;
}

VemoSideBar *englishSideBar()
{
    return sideBar({"General", "Folders", "Messages", "Network", "About"}, "Advanced");
}

VemoSideBar *collapsedSideBar()
{
    VemoSideBar *bar = englishSideBar();
    bar->setCollapsed(true);
    return bar;
}

/// A side bar, its pages and a switch that collapses it.
QWidget *livingSideBar()
{
    VemoSideBar *bar = englishSideBar();
    auto *stack = new QStackedWidget;
    for (int i = 0; i < bar->count(); ++i)
        stack->addWidget(text("Page \"" + bar->pageText(i) + "\""));
    bar->setStack(stack);
    auto *collapsed = new VemoSwitch("Pictures only");
    QObject::connect(collapsed, &VemoSwitch::toggled, bar, &VemoSideBar::setCollapsed);

    auto *specimen = new QWidget;
    auto *row = new QHBoxLayout(specimen);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(DPIinfo::scaled(kPageGap));
    row->addWidget(bar);
    auto *page = new QVBoxLayout;
    page->addWidget(stack);
    page->addWidget(collapsed);
    row->addLayout(page);
    return specimen;
}

void addSideBars(Page &page)
{
    page.addSection("The pages of a settings window",
        "The arrow keys, Home, End or the first letters of a text choose a page. A disabled page "
        "is skipped.");
    page.addRow(
        {captioned(livingSideBar(), "With its pages"), captioned(collapsedSideBar(), "Collapsed"),
            captioned(disabled(englishSideBar()), "Disabled")});
    page.addRow({captioned(sideBar({"Allgemeine Einstellungen des Programms", "Ordner",
                                       "Benachrichtigungen und Warnungen", "Netzwerk", "Info"},
                               "Erweiterte Einstellungen"),
                     "German"),
        captioned(sideBar({"常规", "文件夹", "消息", "网络", "关于"}, "高级"), "Chinese")});
    page.addCode(R"(auto *bar = new VemoSideBar(this);
bar->addPage(tr("General"), "bt_settings");
bar->addGroup(tr("Advanced"));
bar->addPage(tr("Network"), "bt_search");
bar->setStack(pages); // a QStackedWidget)");
}

} // namespace

void buildBarsPage(Page &page)
{
    page.addSummary("VemoButtonPath shows where the user is, VemoFilterBar what is looked for and "
                    "VemoSideBar which pages there are.");
    addPaths(page);
    addPathOptions(page);
    addFilters(page);
    addSideBars(page);
}

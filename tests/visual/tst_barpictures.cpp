// SPDX-License-Identifier: MIT
#include "visual/baselinetest.h"

#include <vemo/vemobutton.h>
#include <vemo/vemobuttonpath.h>
#include <vemo/vemocheckbox.h>
#include <vemo/vemofootbar.h>
#include <vemo/vemopagingbar.h>
#include <vemo/vemopagingmodel.h>
#include <vemo/vemosidebar.h>

#include <QListView>
#include <QPushButton>
#include <QToolButton>

namespace {

constexpr QSize kPathSize(144, 0); // design pixels
constexpr int kRows = 10;

VemoPagingBar *newPagingBar(int page)
{
    constexpr int kPages = 7;
    auto *model = new VemoPagingModel(kRows, nullptr);
    auto *bar = new VemoPagingBar(model, nullptr);
    model->setParent(bar);
    model->setNowPage(page);
    bar->setItemCount(kPages * kRows);
    return bar;
}

QWidget *newPagingBarWithFooters()
{
    VemoPagingBar *bar = newPagingBar(4);
    bar->setFooterInfos({{"ab", 0}, {"c", 40}});
    return bar;
}

QWidget *newPagingBarWithoutRefresh()
{
    VemoPagingBar *bar = newPagingBar(4);
    bar->setRefreshButtonHidden(true);
    bar->setFooterText("ab");
    return bar;
}

void addPagingBars(Looks &looks)
{
    addStates(looks, "paging-first", [] { return newPagingBar(1); }, {State::Rest});
    addStates(
        looks, "paging-middle", [] { return newPagingBar(4); }, kShownStates);
    addStates(looks, "paging-last", [] { return newPagingBar(7); }, {State::Rest});
    addStates(looks, "paging-footers", newPagingBarWithFooters, {State::Rest});
    addStates(looks, "paging-no-refresh", newPagingBarWithoutRefresh, {State::Rest});
}

/// In the bar's column, counted from 0; arrows have the odd ones.
PartOf pathPart(int column)
{
    return [column](
               QWidget *bar) { return static_cast<VemoButtonPath *>(bar)->cellWidget(0, column); };
}

QImage pathPicture(const QString &path, State state, const PartOf &part)
{
    auto *bar = new VemoButtonPath;
    Stage stage(bar, kPathSize);
    bar->refresh(path);
    stage.put(state, part(bar));
    return stage.picture();
}

QWidget *folderButton(QWidget *bar)
{
    return bar->findChild<QToolButton *>();
}

void addPaths(Looks &looks)
{
    const auto add = [&looks](const char *name, const QString &path, State state,
                         const PartOf &part = pathPart(2)) {
        looks.append({name, [=] { return pathPicture(path, state, part); }});
    };
    const QString kShort = "ab/cd/e";
    const QString kLong = "abcdef/ghij/klmno";
    add("path-rest", kShort, State::Rest);
    add("path-hover", kShort, State::Hover);
    add("path-pressed", kShort, State::Pressed);
    add("path-focus", kShort, State::Focus);
    add("path-disabled", kShort, State::Disabled, [](QWidget *bar) { return bar; });
    add("path-folder-rest", kLong, State::Rest);
    add("path-folder-hover", kLong, State::Hover, folderButton);
    add("path-folder-focus", kLong, State::Focus, folderButton);
}

QWidget *newFootbar()
{
    auto *bar = new VemoFootbar;
    bar->pushLeftWidget(new VemoCheckBox("ab"));
    bar->pushRightWidget(new VemoButton("c", VemoButton::CANCEL));
    bar->pushRightWidget(new VemoButton("d", VemoButton::APPLY));
    bar->init();
    return bar;
}

VemoSideBar *newSideBar()
{
    auto *bar = new VemoSideBar;
    bar->addPage("ab", "bt_settings");
    bar->setPageBadge(bar->addPage("cd", "bt_folder"), 7);
    bar->addGroup("ef");
    bar->addPage("g", "bt_search");
    bar->setPageEnabled(2, false);
    return bar;
}

VemoSideBar *newCollapsedSideBar()
{
    VemoSideBar *bar = newSideBar();
    bar->setPageIcon(2, {});
    bar->setCollapsed(true);
    return bar;
}

/// With the pointer on the second page where there is one.
QImage sideBarPicture(State state, VemoSideBar *bar)
{
    Stage stage(bar, {bar->isCollapsed() ? 44 : 120, 136});
    auto *list = bar->findChild<QListView *>();
    const QPoint second = list->visualRect(list->model()->index(1, 0)).center();
    if (state == State::Hover)
        stage.hover(list->viewport(), second);
    else if (state == State::Pressed)
        stage.press(list->viewport(), second);
    else
        stage.put(state, bar);
    return stage.picture();
}

void addSideBars(Looks &looks)
{
    const auto add = [&looks](const char *name, State state, VemoSideBar *(*make)()) {
        looks.append({name, [=] { return sideBarPicture(state, make()); }});
    };
    add("side-rest", State::Rest, newSideBar);
    add("side-hover", State::Hover, newSideBar);
    add("side-pressed", State::Pressed, newSideBar);
    add("side-focus", State::Focus, newSideBar);
    add("side-disabled", State::Disabled, newSideBar);
    add("side-collapsed", State::Rest, newCollapsedSideBar);
}

} // namespace

class BarPictures : public BaselineTest
{
    Q_OBJECT

public:
    BarPictures() : BaselineTest("bar") { }

protected:
    Looks looks() const override;
};

Looks BarPictures::looks() const
{
    Looks looks;
    addPagingBars(looks);
    addPaths(looks);
    addSideBars(looks);
    addStates(looks, "foot", newFootbar, {State::Rest}, {256, 0});
    return looks;
}

VEMO_TEST_MAIN(BarPictures)
#include "tst_barpictures.moc"

// SPDX-License-Identifier: MIT
#include "visual/baselinetest.h"

#include <vemo/vemobutton.h>
#include <vemo/vemobuttonpath.h>
#include <vemo/vemocheckbox.h>
#include <vemo/vemofootbar.h>
#include <vemo/vemopagingbar.h>
#include <vemo/vemopagingmodel.h>

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
    addStates(looks, "foot", newFootbar, {State::Rest}, {256, 0});
    return looks;
}

VEMO_TEST_MAIN(BarPictures)
#include "tst_barpictures.moc"

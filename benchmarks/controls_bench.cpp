// SPDX-License-Identifier: MIT
#include "benchmarks/families.h"
#include "benchmarks/fixture.h"
#include "benchmarks/harness.h"
#include "benchmarks/paintedgrid.h"

#include <vemo/accessiblefilter.h>
#include <vemo/dpiinfo.h>
#include <vemo/linklabel.h>
#include <vemo/stylemanager.h>
#include <vemo/vemobadge.h>
#include <vemo/vemocheckbox.h>
#include <vemo/vemocombobox.h>
#include <vemo/vemofootbar.h>
#include <vemo/vemolabel.h>
#include <vemo/vemolineedit.h>
#include <vemo/vemomenu.h>
#include <vemo/vemoradiobutton.h>
#include <vemo/vemospinner.h>
#include <vemo/vemoswitch.h>

#include <QAbstractItemView>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QStyledItemDelegate>

namespace {

constexpr int kControls = 1000;
constexpr int kColumns = 20;

QString caption()
{
    return QStringLiteral("Caption");
}

int scaledLength(int length)
{
    return static_cast<int>(length * DPIinfo::getInstance().getDPI());
}

template <typename Widget> Widget *styled(Widget *widget, const QString &sheet)
{
    widget->setStyleSheet(sheet);
    return widget;
}

using Make = std::function<QWidget *()>;

std::unique_ptr<QWidget> painted(const Make &make)
{
    return bench::paintedGrid({6000, 3000}, kControls, kColumns, make);
}

bench::Cases::Setup against(const QString &what, const Make &stock, const Make &ours)
{
    return [=](bench::Case &c) {
        bench::useTheme();
        c.goal(1.05, 1.0);
        c.once();
        c.items(kControls);
        c.reference(what, [stock] { return painted(stock); });
        c.ours([ours] { return painted(ours); });
    };
}

/// The same if ours looks different.
bench::Cases::Setup againstUnlike(const QString &what, const Make &stock, const Make &ours)
{
    return [setUp = against(what, stock, ours)](bench::Case &c) {
        setUp(c);
        c.resultsDiffer();
    };
}

QWidget *stockBadge()
{
    QString sheet = getStyleSheet("component.badge_accent");
    auto *badge = styled(new QLabel(QStringLiteral("99+")),
        sheet.replace(QLatin1String("VemoBadge"), QLatin1String("QLabel")));
    badge->setTextFormat(Qt::PlainText);
    badge->setAlignment(Qt::AlignCenter);
    return badge;
}

QWidget *ourBadge()
{
    auto *badge = new VemoBadge;
    badge->setCount(100);
    return badge;
}

QWidget *stockLineEdit()
{
    auto *edit = new QWidget;
    auto *layout = new QHBoxLayout(edit);
    layout->setAlignment(Qt::AlignLeft);
    layout->setSpacing(0);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(styled(new QLabel, getStyleSheet("component.lineedit_label")));
    layout->addWidget(styled(new QLineEdit, getStyleSheet("component.lineedit")));
    layout->addWidget(styled(new QLabel, getStyleSheet("component.lineedit_label")));
    return edit;
}

QWidget *stockSpinner()
{
    auto *bar = new QProgressBar;
    bar->setRange(0, 0);
    return styled(bar, getStyleSheet("component.progress_bar"));
}

QWidget *ourSpinner()
{
    auto *spinner = new VemoSpinner;
    spinner->start();
    return spinner;
}

QWidget *stockSwitch()
{
    QString sheet = getStyleSheet("component.switch");
    return styled(new QCheckBox(caption()),
        sheet.replace(QLatin1String("VemoSwitch"), QLatin1String("QCheckBox")));
}

QWidget *stockComboBox()
{
    const QString width = QString::number(DPIinfo::getInstance().getDPI() * 6.0);
    const QString padding = QStringLiteral("padding-left: %1px; padding-right: %1px;").arg(width);
    auto *box = new QComboBox;
    box->setStyleSheet(getStyleSheet("component.combobox")
                           .arg(padding, QStringLiteral("border: 1px solid #C8D2DC;"))
        + getStyleSheet("component.scrollbar"));
    box->view()->setItemDelegate(new QStyledItemDelegate(box));
    box->addItem(caption());
    return box;
}

QWidget *ourComboBox()
{
    auto *box = new VemoComboBox;
    box->addItem(caption());
    return box;
}

QWidget *stockFootbar()
{
    auto *bar = new QWidget;
    auto *layout = new QHBoxLayout(bar);
    layout->setContentsMargins(
        scaledLength(20), scaledLength(8), scaledLength(20), scaledLength(8));
    layout->setSpacing(scaledLength(10));
    layout->addWidget(new QPushButton(caption()), 0, Qt::AlignVCenter);
    layout->addStretch(1);
    layout->addWidget(new QPushButton(caption()), 0, Qt::AlignVCenter);
    return bar;
}

QWidget *ourFootbar()
{
    auto *bar = new VemoFootbar;
    bar->pushLeftWidget(new QPushButton(caption()));
    bar->pushRightWidget(new QPushButton(caption()));
    bar->init();
    return bar;
}

/// Menus, each filled, opened, painted and closed.
template <typename Menu> std::vector<std::unique_ptr<QWidget>> openedMenus()
{
    std::vector<std::unique_ptr<QWidget>> menus;
    for (int i = 0; i < kControls; ++i) {
        auto menu = std::make_unique<Menu>();
        menu->setStyleSheet(getStyleSheet("component.menu"));
        for (int action = 0; action < 5; ++action)
            menu->addAction(caption());
        menu->popup({100, 100});
        QCoreApplication::processEvents();
        menu->hide();
        menus.push_back(std::move(menu));
    }
    return menus;
}

void menus(bench::Case &c)
{
    bench::useTheme();
    c.goal(1.05, 1.0);
    c.once();
    c.items(kControls);
    c.reference(QStringLiteral("QMenu, same sheet"), [] { return openedMenus<QMenu>(); });
    c.ours([] { return openedMenus<VemoMenu>(); });
}

using Widgets = QList<QWidget *>;

/// Chains of widgets under a root, ten deep, all visible: without screens or events, so that only
/// the walk over them is measured.
void plant(QWidget *root, int chains)
{
    for (int chain = 0; chain < chains; ++chain) {
        QWidget *parent = root;
        for (int level = 0; level < 10; ++level) {
            parent = new QWidget(parent);
            parent->setFocusPolicy(Qt::StrongFocus);
            parent->setAttribute(Qt::WA_WState_Visible);
        }
    }
    root->setAttribute(Qt::WA_WState_Visible);
    QCoreApplication::removePostedEvents(nullptr);
}

/// The definition: each level appends the lists of the next.
Widgets listByLevels(QWidget *root, const Widgets &excluded)
{
    if (!root || !root->isVisible())
        return {};
    Widgets result;
    if (root->focusPolicy() != Qt::NoFocus && !excluded.contains(root))
        result.append(root);
    const QObjectList children = root->children();
    for (QObject *child : children) {
        if (child->isWidgetType())
            result += listByLevels(static_cast<QWidget *>(child), excluded);
    }
    return result;
}

void focusList(bench::Case &c)
{
    const auto root = std::make_shared<QWidget>();
    plant(root.get(), 10000);
    c.goal(1.0);
    c.reference(QStringLiteral("a list for each level"),
        [root] { return qint64(listByLevels(root.get(), {}).size()); });
    c.ours([root] { return qint64(accessibleList(root.get(), Widgets()).size()); });
}

bench::Cases::Setup focusListDoubled(int chains)
{
    return [chains](bench::Case &c) {
        // Half of the same tree, so that both lie alike in memory.
        const auto root = std::make_shared<QWidget>();
        auto *half = new QWidget(root.get());
        plant(half, chains / 2);
        plant(root.get(), chains / 2);
        c.goal(2.2);
        c.resultsDiffer();
        c.reference(QStringLiteral("itself with half as many"),
            [root, half] { return qint64(accessibleList(half, Widgets()).size()); });
        c.ours([root] { return qint64(accessibleList(root.get(), Widgets()).size()); });
    };
}

} // namespace

void bench::controlsCases(Cases &cases)
{
    cases.add(QStringLiteral("controls.label"),
        against(
            QStringLiteral("QLabel, same sheet each"),
            [] { return styled(new QLabel(caption()), getStyleSheet("component.label")); },
            [] { return new VemoLabel(caption()); }));
    cases.add(QStringLiteral("controls.badge"),
        against(QStringLiteral("QLabel, same sheet each"), stockBadge, ourBadge));
    cases.add(QStringLiteral("controls.clickable label"),
        against(
            QStringLiteral("QLabel"), [] { return new QLabel(caption()); },
            [] { return new ClickableLabel(caption()); }));
    cases.add(QStringLiteral("controls.link label"),
        against(
            QStringLiteral("QLabel"), [] { return new QLabel(caption()); },
            [] { return new LinkLabel(caption()); }));
    cases.add(QStringLiteral("controls.line edit"),
        against(QStringLiteral("QLineEdit and two QLabel, same sheets each"), stockLineEdit,
            [] { return new VemoLineEdit; }));
    cases.add(QStringLiteral("controls.check box"),
        against(
            QStringLiteral("QCheckBox, same sheet each"),
            [] { return styled(new QCheckBox(caption()), getStyleSheet("component.checkbox")); },
            [] { return new VemoCheckBox(caption()); }));
    cases.add(QStringLiteral("controls.radio button"),
        against(
            QStringLiteral("QRadioButton, same sheet each"),
            [] {
                return styled(new QRadioButton(caption()), getStyleSheet("component.radio_button"));
            },
            [] { return new VemoRadioButton(caption()); }));
    cases.add(QStringLiteral("controls.spinner"),
        againstUnlike(QStringLiteral("QProgressBar of unknown length, sheet of the progress sheet"),
            stockSpinner, ourSpinner));
    cases.add(QStringLiteral("controls.switch"),
        againstUnlike(QStringLiteral("QCheckBox, same sheet each"), stockSwitch,
            [] { return new VemoSwitch(caption()); }));
    cases.add(QStringLiteral("controls.combo box"),
        against(
            QStringLiteral("QComboBox, same sheet and delegate each"), stockComboBox, ourComboBox));
    cases.add(QStringLiteral("controls.foot bar"),
        against(QStringLiteral("QHBoxLayout, same widgets"), stockFootbar, ourFootbar));
    cases.add(QStringLiteral("controls.menu"), menus);
    cases.add(QStringLiteral("controls.focus list/100000"), focusList);
    cases.add(QStringLiteral("controls.focus list/doubled to 200000"), focusListDoubled(20000));
    cases.add(QStringLiteral("controls.focus list/doubled to 100000"), focusListDoubled(10000));
}

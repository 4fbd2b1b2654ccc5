// SPDX-License-Identifier: MIT
#include <vemo/accessiblefilter.h>

#include "support/vemotest.h"

#include <QAccessible>
#include <QLabel>
#include <QRandomGenerator>
#include <QVBoxLayout>

#include <functional>

class AccessibleFilterTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void recordStartsEmptyAndKeepsWhatItIsGiven();
    void recordCopiesAndMoves();
    void listsFocusableWidgetsParentsFirst();
    void nullOrHiddenRootYieldsNothing();
    void hiddenContainerHidesItsChildren();
    void excludedWidgetIsLeftOutButNotItsChildren();
    void defaultFilterListsEveryVisibleWidget();
    void filterLeavesOutWidgetsButNotTheirChildren();
    void levelComparesPoliciesAsIntegers_data();
    void levelComparesPoliciesAsIntegers();
    void childrenThatAreNoWidgetsArePassedOver();
    void excludedPointersAreNeverFollowed();
    void visibleChildWindowBelongsToTheList();
    void adjustSetsThePolicyOfEachWidget();
    void plainWindowIsAnnouncedOnlyIfAskedFor();
    void agreesWithTheOracle_data();
    void agreesWithTheOracle();
    void oneHundredThousandWidgetsAgreeWithTheOracle_data();
    void oneHundredThousandWidgetsAgreeWithTheOracle();
};

namespace {

using Widgets = QList<QWidget *>;

// Deliberate: lists and filters are passed by value.
constexpr Widgets (*kByList)(QWidget *, Widgets) = accessibleList;
constexpr Widgets (*kByFilter)(QWidget *, AccessibleFilter) = accessibleList;
constexpr void (*kAdjust)(Qt::FocusPolicy, Widgets) = adjustFocusPolicy;

/// A focusable group with two fields in it, a plain label and a last field, all visible.
struct Form : QWidget
{
    Form()
    {
        group.setFocusPolicy(Qt::TabFocus);
        first.setFocusPolicy(Qt::StrongFocus);
        second.setFocusPolicy(Qt::ClickFocus);
        last.setFocusPolicy(Qt::WheelFocus);
        show();
    }

    QWidget group {this};
    QWidget first {&group};
    QWidget second {&group};
    QWidget plain {this};
    QWidget last {this};
};

/// Chains of nested widgets below one root; every third accepts the focus. They are marked as
/// visible, because Qt's own recursion would be too deep to show them.
struct Forest
{
    Forest(int chains, int levels) : levels(levels)
    {
        widgets += new QWidget;
        for (int chain = 0; chain < chains; ++chain) {
            QWidget *parent = root();
            for (int level = 0; level < levels; ++level) {
                parent = new QWidget(parent);
                widgets += parent;
            }
        }
        for (int i = 0; i < widgets.size(); ++i) {
            widgets[i]->setAttribute(Qt::WA_WState_Visible);
            widgets[i]->setFocusPolicy(i % 3 == 0 ? Qt::StrongFocus : Qt::NoFocus);
        }
        // Otherwise each destructor would search all events posted by the constructors.
        QCoreApplication::removePostedEvents(nullptr);
    }

    ~Forest()
    {
        // Deleted chain by chain, each from its end, to avoid recursion and searching.
        for (int start = 1; start < widgets.size(); start += levels) {
            for (int i = start + levels; i-- > start;)
                remove(widgets[i]);
        }
        remove(root());
    }

    static void remove(QWidget *widget)
    {
        widget->setAttribute(Qt::WA_WState_Visible, false);
        delete widget;
    }

    QWidget *root() const { return widgets.first(); }

    int levels;
    Widgets widgets; ///< parents before children
};

/// The definition, implemented step by step.
Widgets expected(QWidget *root, const std::function<bool(QWidget *)> &isTaken)
{
    if (!root || !root->isVisible())
        return {};
    Widgets result;
    if (isTaken(root))
        result += root;
    const QObjectList children = root->children();
    for (QObject *child : children) {
        if (auto *widget = qobject_cast<QWidget *>(child))
            result += expected(widget, isTaken);
    }
    return result;
}

} // namespace

void AccessibleFilterTest::recordStartsEmptyAndKeepsWhatItIsGiven()
{
    AccessibleFilter filter;
    QCOMPARE(filter.filterWidgets(), Widgets());
    QCOMPARE(filter.focusLevel(), Qt::NoFocus);

    QWidget widget;
    filter.setFilterWidgets({&widget, nullptr});
    filter.setFocusLevel(Qt::ClickFocus);
    QCOMPARE(filter.filterWidgets(), Widgets({&widget, nullptr}));
    QCOMPARE(filter.focusLevel(), Qt::ClickFocus);

    const AccessibleFilter made({&widget}, Qt::WheelFocus);
    QCOMPARE(made.filterWidgets(), Widgets({&widget}));
    QCOMPARE(made.focusLevel(), Qt::WheelFocus);
}

void AccessibleFilterTest::recordCopiesAndMoves()
{
    QWidget widget;
    AccessibleFilter filter({&widget}, Qt::StrongFocus);
    AccessibleFilter copy(filter);
    copy.setFocusLevel(Qt::NoFocus);
    QCOMPARE(filter.focusLevel(), Qt::StrongFocus);
    copy = filter;
    const AccessibleFilter moved(std::move(filter));
    QCOMPARE(moved.filterWidgets(), Widgets({&widget}));
    QCOMPARE(moved.focusLevel(), Qt::StrongFocus);
    AccessibleFilter assigned;
    assigned = std::move(copy);
    QCOMPARE(assigned.filterWidgets(), Widgets({&widget}));
    QCOMPARE(assigned.focusLevel(), Qt::StrongFocus);
}

void AccessibleFilterTest::listsFocusableWidgetsParentsFirst()
{
    Form form;
    QCOMPARE(
        kByList(&form, Widgets()), Widgets({&form.group, &form.first, &form.second, &form.last}));
    form.setFocusPolicy(Qt::ClickFocus);
    form.group.raise(); // Raising makes it the last child.
    QCOMPARE(accessibleList(&form, Widgets()),
        Widgets({&form, &form.last, &form.group, &form.first, &form.second}));
}

void AccessibleFilterTest::nullOrHiddenRootYieldsNothing()
{
    QCOMPARE(accessibleList(nullptr, Widgets()), Widgets());
    QCOMPARE(accessibleList(nullptr, AccessibleFilter()), Widgets());
    Form form;
    form.hide();
    QCOMPARE(accessibleList(&form, Widgets()), Widgets());
    QCOMPARE(accessibleList(&form, AccessibleFilter()), Widgets());
    QCOMPARE(accessibleList(&form.last, Widgets()), Widgets());
}

void AccessibleFilterTest::hiddenContainerHidesItsChildren()
{
    Form form;
    form.group.hide();
    QCOMPARE(accessibleList(&form, Widgets()), Widgets({&form.last}));
    QCOMPARE(accessibleList(&form, AccessibleFilter()), Widgets({&form, &form.plain, &form.last}));
}

void AccessibleFilterTest::excludedWidgetIsLeftOutButNotItsChildren()
{
    Form form;
    QCOMPARE(accessibleList(&form, Widgets({&form.group, &form.last})),
        Widgets({&form.first, &form.second}));
}

void AccessibleFilterTest::defaultFilterListsEveryVisibleWidget()
{
    Form form;
    QCOMPARE(kByFilter(&form, AccessibleFilter()),
        Widgets({&form, &form.group, &form.first, &form.second, &form.plain, &form.last}));
}

void AccessibleFilterTest::filterLeavesOutWidgetsButNotTheirChildren()
{
    Form form;
    QCOMPARE(accessibleList(&form, AccessibleFilter({&form.group, &form.plain}, Qt::NoFocus)),
        Widgets({&form, &form.first, &form.second, &form.last}));
}

void AccessibleFilterTest::levelComparesPoliciesAsIntegers_data()
{
    QTest::addColumn<Qt::FocusPolicy>("level");
    QTest::addColumn<QList<int>>("policies");
    QTest::newRow("NoFocus") << Qt::NoFocus << QList<int> {0, 1, 2, 11, 15};
    QTest::newRow("TabFocus") << Qt::TabFocus << QList<int> {1, 2, 11, 15};
    QTest::newRow("ClickFocus") << Qt::ClickFocus << QList<int> {2, 11, 15};
    QTest::newRow("StrongFocus") << Qt::StrongFocus << QList<int> {11, 15};
    QTest::newRow("WheelFocus") << Qt::WheelFocus << QList<int> {15};
}

void AccessibleFilterTest::levelComparesPoliciesAsIntegers()
{
    QFETCH(Qt::FocusPolicy, level);
    QFETCH(QList<int>, policies);
    QWidget window;
    for (const Qt::FocusPolicy policy :
        {Qt::TabFocus, Qt::ClickFocus, Qt::StrongFocus, Qt::WheelFocus})
        (new QWidget(&window))->setFocusPolicy(policy);
    window.show();
    QList<int> listed;
    const Widgets widgets = accessibleList(&window, AccessibleFilter({}, level));
    for (const QWidget *widget : widgets)
        listed += widget->focusPolicy();
    QCOMPARE(listed, policies);
}

void AccessibleFilterTest::childrenThatAreNoWidgetsArePassedOver()
{
    Form form;
    new QVBoxLayout(&form);
    new QObject(&form.group);
    QCOMPARE(accessibleList(&form, Widgets()).size(), 4);
    QCOMPARE(accessibleList(&form, AccessibleFilter()).size(), 6);
}

void AccessibleFilterTest::excludedPointersAreNeverFollowed()
{
    Form form;
    auto *gone = new QWidget;
    delete gone;
    QCOMPARE(accessibleList(&form, Widgets({gone, nullptr})).size(), 4);
    QCOMPARE(accessibleList(&form, AccessibleFilter({gone, nullptr}, Qt::NoFocus)).size(), 6);
}

void AccessibleFilterTest::visibleChildWindowBelongsToTheList()
{
    Form form;
    QWidget tool(&form, Qt::Tool);
    tool.setFocusPolicy(Qt::StrongFocus);
    QVERIFY(!accessibleList(&form, Widgets()).contains(&tool));
    tool.show();
    QCOMPARE(accessibleList(&form, Widgets()).last(), &tool);
}

void AccessibleFilterTest::adjustSetsThePolicyOfEachWidget()
{
    Form form;
    kAdjust(Qt::WheelFocus, {});
    QCOMPARE(form.group.focusPolicy(), Qt::TabFocus);
    adjustFocusPolicy(Qt::NoFocus, {&form.group, nullptr, &form.last, &form.group});
    QCOMPARE(form.group.focusPolicy(), Qt::NoFocus);
    QCOMPARE(form.last.focusPolicy(), Qt::NoFocus);
    QCOMPARE(form.first.focusPolicy(), Qt::StrongFocus);
}

void AccessibleFilterTest::plainWindowIsAnnouncedOnlyIfAskedFor()
{
    const auto roleOf = [](QObject *widget) {
        return QAccessible::queryAccessibleInterface(widget)->role();
    };
    QWidget before;
    QCOMPARE(roleOf(&before), QAccessible::Client);

    makeWindowsAccessible();
    QWidget window;
    window.setWindowTitle("Files");
    QCOMPARE(roleOf(&window), QAccessible::Window);
    QCOMPARE(
        QAccessible::queryAccessibleInterface(&window)->text(QAccessible::Name), QString("Files"));
    QWidget part(&window);
    QCOMPARE(roleOf(&part), QAccessible::Client);
    part.setParent(nullptr);
    QCOMPARE(roleOf(&part), QAccessible::Window);
    QWidget popup(nullptr, Qt::Popup);
    QCOMPARE(roleOf(&popup), QAccessible::Client);
    QLabel label;
    QCOMPARE(roleOf(&label), QAccessible::StaticText);
}

void AccessibleFilterTest::agreesWithTheOracle_data()
{
    QTest::addColumn<int>("seed");
    for (int seed = 1; seed <= 20; ++seed)
        QTest::addRow("random tree %d", seed) << seed;
}

void AccessibleFilterTest::agreesWithTheOracle()
{
    QFETCH(int, seed);
    QRandomGenerator random(static_cast<quint32>(seed));
    QWidget root;
    Widgets all {&root};
    Widgets excluded;
    for (int i = 0; i < 300; ++i) {
        auto *widget = new QWidget(all[random.bounded(all.size())]);
        const Qt::FocusPolicy policies[] = {
            Qt::NoFocus, Qt::TabFocus, Qt::ClickFocus, Qt::StrongFocus, Qt::WheelFocus};
        widget->setFocusPolicy(policies[random.bounded(5)]);
        widget->setHidden(random.bounded(12) == 0);
        if (random.bounded(6) == 0)
            excluded += widget;
        all += widget;
    }
    root.show();
    QCOMPARE(accessibleList(&root, excluded), expected(&root, [&](QWidget *widget) {
        return widget->focusPolicy() != Qt::NoFocus && !excluded.contains(widget);
    }));
    const AccessibleFilter filter(excluded, Qt::ClickFocus);
    QCOMPARE(accessibleList(&root, filter), expected(&root, [&](QWidget *widget) {
        return widget->focusPolicy() >= int(Qt::ClickFocus) && !excluded.contains(widget);
    }));
}

void AccessibleFilterTest::oneHundredThousandWidgetsAgreeWithTheOracle_data()
{
    QTest::addColumn<int>("chains");
    QTest::addColumn<int>("levels");
    QTest::newRow("wide") << 100000 << 1;
    QTest::newRow("deep and wide") << 1000 << 100;
    QTest::newRow("deep") << 400 << 250;
    QTest::newRow("one chain") << 1 << 3000;
}

void AccessibleFilterTest::oneHundredThousandWidgetsAgreeWithTheOracle()
{
    QFETCH(int, chains);
    QFETCH(int, levels);
    const Forest forest(chains, levels);
    QCOMPARE(forest.widgets.size(), chains * levels + 1);
    Widgets excluded;
    for (int i = 0; i < forest.widgets.size(); i += 10)
        excluded += forest.widgets[i];

    QVERIFY(accessibleList(forest.root(), AccessibleFilter()) == forest.widgets);
    Widgets focusable;
    for (int i = 0; i < forest.widgets.size(); ++i) {
        if (i % 10 != 0 && i % 3 == 0)
            focusable += forest.widgets[i];
    }
    QVERIFY(accessibleList(forest.root(), excluded) == focusable);
    const AccessibleFilter filter(excluded, Qt::StrongFocus);
    QVERIFY(accessibleList(forest.root(), filter) == focusable);
}

VEMO_TEST_MAIN(AccessibleFilterTest)
#include "tst_accessiblefilter.moc"

// SPDX-License-Identifier: MIT
// What one writes by habit when one knows Qt compiles and works, or a guide names the way instead.
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/AccessibleFilter>
#include <vemo/BrowserWindow>
#include <vemo/ComponentStrings>
#include <vemo/FileSystemTreeWidgetItem>
#include <vemo/FileTypeMap>
#include <vemo/HelpWindow>
#include <vemo/ImageManager>
#include <vemo/ItemDelegate>
#include <vemo/LinkLabel>
#include <vemo/MessageShortcuts>
#include <vemo/MouseButtonFilter>
#include <vemo/StyleManager>
#include <vemo/ToolTipText>
#include <vemo/VemoBadge>
#include <vemo/VemoButton>
#include <vemo/VemoButtonPath>
#include <vemo/VemoCalanderView>
#include <vemo/VemoCheckBox>
#include <vemo/VemoComboBox>
#include <vemo/VemoContentSheet>
#include <vemo/VemoCountdownMessageBox>
#include <vemo/VemoDateRangeSelector>
#include <vemo/VemoDateSelector>
#include <vemo/VemoFilterBar>
#include <vemo/VemoFootbar>
#include <vemo/VemoIconButton>
#include <vemo/VemoInputSheet>
#include <vemo/VemoLabel>
#include <vemo/VemoLineEdit>
#include <vemo/VemoMask>
#include <vemo/VemoMenu>
#include <vemo/VemoMessageBar>
#include <vemo/VemoMessageSheet>
#include <vemo/VemoPagingBar>
#include <vemo/VemoPagingModel>
#include <vemo/VemoProgressSheet>
#include <vemo/VemoRadioButton>
#include <vemo/VemoSheet>
#include <vemo/VemoSideBar>
#include <vemo/VemoSpinner>
#include <vemo/VemoSwitch>
#include <vemo/VemoTableWidget>
#include <vemo/VemoTimeComboBox>
#include <vemo/VemoTreeWidget>

#include <QFile>
#include <QHeaderView>
#include <QLineEdit>
#include <QMetaProperty>

#include <functional>
#include <type_traits>

namespace {

/// A window of some host, in which the habits are written.
struct Host
{
    QWidget window;
    QWidget *page = new QWidget(&window);
    QString text = QStringLiteral("Name");
};

using Habit = std::function<bool(Host &)>;

/// Whether widget is what new made in the host's page.
bool isIn(const Host &host, const QObject *object)
{
    return object->parent() == host.page;
}

} // namespace
Q_DECLARE_METATYPE(Habit)

class HabitsTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void isWrittenAsInQt_data();
    void isWrittenAsInQt();
    void isNamedInTheGuideWithAReason_data();
    void isNamedInTheGuideWithAReason();

private:
    static void addParents();
    static void addDefaultParents();
    static void addReading();
    static void addChildren();
    static void addResources();
    static void addSignals();
};

namespace {

void habit(const char *code, const Habit &function)
{
    QTest::newRow(code) << function;
}

/// A row whose name is the code.
#define HABIT_MADE(...)                                                                            \
    habit("new " #__VA_ARGS__, [](Host &host) {                                                    \
        auto *page = host.page;                                                                    \
        const QString text = host.text;                                                            \
        Q_UNUSED(text)                                                                             \
        return isIn(host, new __VA_ARGS__);                                                        \
    })
#define HABIT_HELD(...)                                                                            \
    habit(#__VA_ARGS__, [](Host &) {                                                               \
        const __VA_ARGS__ held;                                                                    \
        return !held.parent();                                                                     \
    })

} // namespace

void HabitsTest::addParents()
{
    HABIT_MADE(VemoButton(text, VemoButton::APPLY, page));
    HABIT_MADE(VemoButton(text, page));
    HABIT_MADE(VemoButton(page));
    HABIT_MADE(VemoIconButton("bt_add", page));
    HABIT_MADE(VemoIconButton(getGlobalImage("bt_add"), page));
    HABIT_MADE(VemoIconButton(page));
    HABIT_MADE(VemoLabel(text, page));
    HABIT_MADE(VemoBadge(page));
    HABIT_MADE(ClickableLabel(text, page));
    HABIT_MADE(LinkLabel(page));
    HABIT_MADE(VemoCheckBox(text, page));
    HABIT_MADE(VemoCheckBox(page));
    HABIT_MADE(VemoRadioButton(text, page));
    HABIT_MADE(VemoRadioButton(page));
    HABIT_MADE(VemoSpinner(page));
    HABIT_MADE(VemoSwitch(text, page));
    HABIT_MADE(VemoSwitch(page));
    HABIT_MADE(VemoComboBox(page));
    HABIT_MADE(VemoLineEdit(page));
    HABIT_MADE(VemoMenu(text, page));
    HABIT_MADE(VemoMenu(page));
    HABIT_MADE(VemoFootbar(page));
    HABIT_MADE(MouseButtonFilter(page));
    HABIT_MADE(MouseReleaseFilter(page));
    HABIT_MADE(VemoButtonPath(page));
    HABIT_MADE(VemoFilterBar(page));
    HABIT_MADE(VemoSideBar(page));
    HABIT_MADE(VemoPagingModel(50, page));
    HABIT_MADE(VemoPagingBar(page));
    HABIT_MADE(VemoTableWidget(VemoTableColumnsInfo(), page));
    HABIT_MADE(VemoTableWidget(page));
    HABIT_MADE(ResizeSignalTableWidget(2, 3, page));
    HABIT_MADE(VemoTreeWidget(page));
    HABIT_MADE(ItemDelegate(page));
    HABIT_MADE(VemoCalanderView(page));
    HABIT_MADE(VemoDateSelector(text, page));
    HABIT_MADE(VemoDateSelector(page));
    HABIT_MADE(VemoDateRangeSelector(page));
    HABIT_MADE(VemoTimeComboBox(page));
    HABIT_MADE(VemoInputSheet(text, page));
    HABIT_MADE(VemoMessageBar(page));
    HABIT_MADE(VemoContentSheet(nullptr, page));
    HABIT_MADE(VemoProgressSheet(text, page));
    HABIT_MADE(VemoMessageSheet(VemoMessageSheet::Confirm, text, page));
    habit("new FileSystemTreeWidgetItem(tree)", [](Host &host) {
        auto *tree = new VemoTreeWidget(host.page);
        auto *item = new FileSystemTreeWidgetItem(tree);
        return tree->topLevelItem(0) == item
            && (new FileSystemTreeWidgetItem(item))->parent() == item;
    });
}

void HabitsTest::addDefaultParents()
{
    HABIT_HELD(VemoButton);
    HABIT_HELD(VemoIconButton);
    HABIT_HELD(VemoBadge);
    HABIT_HELD(ClickableLabel);
    HABIT_HELD(LinkLabel);
    HABIT_HELD(VemoCheckBox);
    HABIT_HELD(VemoRadioButton);
    HABIT_HELD(VemoSpinner);
    HABIT_HELD(VemoSwitch);
    HABIT_HELD(VemoComboBox);
    HABIT_HELD(VemoLineEdit);
    HABIT_HELD(VemoMenu);
    HABIT_HELD(VemoFootbar);
    HABIT_HELD(MouseButtonFilter);
    HABIT_HELD(VemoButtonPath);
    HABIT_HELD(VemoFilterBar);
    HABIT_HELD(VemoSideBar);
    HABIT_HELD(VemoPagingBar);
    HABIT_HELD(VemoTableWidget);
    HABIT_HELD(ResizeSignalTableWidget);
    HABIT_HELD(VemoTreeWidget);
    HABIT_HELD(ItemDelegate);
    HABIT_HELD(VemoCalanderView);
    HABIT_HELD(VemoDateSelector);
    HABIT_HELD(VemoDateRangeSelector);
    HABIT_HELD(VemoTimeComboBox);
    HABIT_HELD(VemoSheet);
    HABIT_HELD(BrowserWindow);
    HABIT_HELD(VemoCountdownMessageBox);
    habit("VemoPagingModel model(50)", [](Host &) {
        VemoPagingModel model(50);
        const VemoPagingBar bar(&model);
        return bar.pagingModel() == &model && !model.parent();
    });
    habit("VemoTableWidget table(columns)", [](Host &) {
        VemoTableColumnsInfo columns;
        columns.addColumn("Size", 80);
        return VemoTableWidget(columns).columnTexts() == QStringList("Size|80");
    });
    habit("HelpWindow(context)",
        [](Host &) { return std::is_constructible_v<HelpWindow, HelpContext>; });
}

void HabitsTest::addReading()
{
    habit("constTable.getTable()->rowCount()", [](Host &) {
        const VemoTableWidget table;
        return table.getTable()->rowCount() == 0 && table.getHeader()->count() == 1;
    });
    habit("constPath.getPath(0)", [](Host &) {
        VemoButtonPath path;
        path.refresh("a/b");
        return qAsConst(path).getPath(0) == "a" && qAsConst(path).path() == "a/b";
    });
    habit("constSelector.getCalendarView()->maximumDate()", [](Host &) {
        const VemoDateSelector selector;
        return selector.getCalendarView()->maximumDate().isValid();
    });
    habit("calendar->setDateRange(first, last)", [](Host &) {
        VemoCalanderView calendar;
        const QDate first(2026, 3, 1);
        const QDate last(2026, 4, 30);
        calendar.setDateRange(first, last);
        calendar.setDateRange({}, last);
        return calendar.minimumDate() == first && calendar.maximumDate() == last;
    });
    habit("times->setCurrentText(QString)", [](Host &host) {
        auto *times = new VemoTimeComboBox(host.page);
        times->addItems({"08:00", "09:00"});
        times->setCurrentText(QString("09:00"));
        return times->time() == QTime(9, 0);
    });
    habit("accessibleList(window, AccessibleFilter())", [](Host &host) {
        host.window.show();
        return accessibleList(&host.window, AccessibleFilter()).size() == 2;
    });
}

void HabitsTest::addChildren()
{
    habit("page->findChild<VemoButton *>()", [](Host &host) {
        auto *other = new QPushButton(host.page);
        auto *button = new VemoButton(host.page);
        return host.page->findChild<VemoButton *>() == button && other != button;
    });
    habit("qobject_cast<VemoDateSelector *>(object)", [](Host &host) {
        QObject *combo = new VemoComboBox(host.page);
        QObject *date = new VemoDateSelector(host.page);
        return !qobject_cast<VemoDateSelector *>(combo) && qobject_cast<VemoDateSelector *>(date);
    });
}

void HabitsTest::addResources()
{
    habit("ImageManager::getInstance().contains(name)", [](Host &) {
        const ImageManager &images = ImageManager::getInstance();
        return images.contains("folder") && !images.contains("no such picture");
    });
    habit("StyleManager::getInstance().contains(key)", [](Host &) {
        const StyleManager &styles = StyleManager::getInstance();
        return styles.contains("component.menu") && !styles.contains("no.such.key");
    });
    habit("ComponentStrings::getInstance().strings()", [](Host &) {
        ComponentStrings &strings = ComponentStrings::getInstance();
        const QMap<QString, QString> before = strings.strings();
        QMap<QString, QString> merged = before;
        merged.insert("own.title", "Files");
        strings.installStrings(merged);
        const bool isMerged =
            strings.getString("own.title") == "Files" && strings.getString("ok") == before["ok"];
        strings.installStrings(before);
        return isMerged && !before.contains("own.title");
    });
    habit("getFiletypeMapping(suffix)", [](Host &) {
        return FileTypeMap::getInstance().getFiletypeMapping("doc")
            == FileTypeMap::getInstance().getFiletypeMapping("doc", false);
    });
    habit("button->setIcon(getGlobalImage(name))", [](Host &host) {
        auto *button = new QPushButton(host.page);
        button->setIcon(getGlobalImage("folder"));
        return !button->icon().isNull();
    });
    habit("widget->setToolTip(getHtmlEscapedStringForToolTip(text))", [](Host &host) {
        host.page->setToolTip(getHtmlEscapedStringForToolTip(host.text));
        return host.page->toolTip().contains(host.text);
    });
}

void HabitsTest::addSignals()
{
    habit("connect(label, &ClickableLabel::clicked, ...)", [](Host &host) {
        ClickableLabel label(host.text);
        bool isClicked = false;
        QObject::connect(&label, &ClickableLabel::clicked, &label, [&] { isClicked = true; });
        QTest::mouseClick(&label, Qt::LeftButton);
        return isClicked;
    });
    habit("connect(path, &VemoButtonPath::sigUpdatePath, ...)", [](Host &host) {
        VemoButtonPath path;
        path.refresh("a/b");
        QObject::connect(
            &path, &VemoButtonPath::sigUpdatePath, &path, [&](auto asked) { host.text = asked; });
        path.slotPathBarClicked(0);
        return host.text == "a";
    });
    habit("connect(times, &VemoTimeComboBox::timeChanged, ...)", [](Host &) {
        VemoTimeComboBox times;
        times.setEditable(true);
        const QSignalSpy spy(&times, &VemoTimeComboBox::timeChanged);
        times.setTime({8, 30});
        return spy.size() == 1;
    });
    habit("Q_PROPERTY page: NOTIFY", [](Host &) {
        VemoPagingBar bar;
        const QMetaObject *meta = bar.metaObject();
        const QMetaProperty page = meta->property(meta->indexOfProperty("page"));
        const QSignalSpy spy(&bar, page.notifySignal());
        bar.setProperty("page", 3);
        return spy.size() == 1 && bar.property("page").toInt() == 3;
    });
    habit("Q_PROPERTY time: NOTIFY", [](Host &) {
        const QMetaObject &meta = VemoTimeComboBox::staticMetaObject;
        return meta.property(meta.indexOfProperty("time")).notifySignal().name() == "timeChanged";
    });
}

void HabitsTest::isWrittenAsInQt_data()
{
    QTest::addColumn<Habit>("habit");
    addParents();
    addDefaultParents();
    addReading();
    addChildren();
    addResources();
    addSignals();
}

void HabitsTest::isWrittenAsInQt()
{
    QFETCH(Habit, habit);
    Host host;
    QVERIFY(habit(host));
}

// What doesn't compile; once it does it belongs to the habits above.
static_assert(!std::is_constructible_v<LinkLabel, QString, QWidget *>);
static_assert(!std::is_constructible_v<VemoMask, QWidget *, QWidget *, QColor>);
static_assert(!std::is_constructible_v<VemoMessageSheet, VemoMessageSheet::MessageType>);
static_assert(!std::is_invocable_v<decltype(&VemoLineEdit::setValidator), VemoLineEdit,
              std::function<bool(const QString &)>>);
static_assert(!std::is_invocable_v<decltype(&showInfoMsg), QString, QString>);

void HabitsTest::isNamedInTheGuideWithAReason_data()
{
    QTest::addColumn<QString>("code");
    // The first column of the guide's table.
    for (const char *code :
        {"new LinkLabel(text, page)", "findChild<VemoFootbar *>()", "findChild<VemoLabel *>()",
            "findChild<MouseButtonFilter *>()", "new VemoMask(sheet, window, color)",
            "connect(lineEdit, &VemoLineEdit::textChanged, ...)",
            "lineEdit->setValidator(capturingLambda)",
            "connect(date, &VemoDateSelector::dateChanged, ...)", "accessibleList(window, {})",
            "showInfoMsg(title, text)", "VemoMessageSheet(type)", "Q_PROPERTY with NOTIFY"})
        QTest::newRow(code) << QString(code);
}

void HabitsTest::isNamedInTheGuideWithAReason()
{
    QFile guide(QStringLiteral(VEMO_HABITS_GUIDE));
    QVERIFY(guide.open(QIODevice::ReadOnly));
    QFETCH(QString, code);
    const QString cell = QString("| `%1` | ").arg(code);
    const QStringList rows =
        QString::fromUtf8(guide.readAll()).split('\n').filter(cell, Qt::CaseSensitive);
    QCOMPARE(rows.size(), 1);
    QCOMPARE(rows.first().count(" | "), 2);
}

VEMO_TEST_MAIN(HabitsTest)
#include "tst_habits.moc"

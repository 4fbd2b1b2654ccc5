// SPDX-License-Identifier: MIT
#include "visual/baselinetest.h"
#include "visual/boxfont.h"
#include "visual/filedialog.h"

#include <vemo/defaulttheme.h>
#include <vemo/imagemanager.h>

#include <QAbstractAnimation>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDial>
#include <QDialogButtonBox>
#include <QDockWidget>
#include <QFontComboBox>
#include <QGroupBox>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QProgressDialog>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSlider>
#include <QSpinBox>
#include <QSplitter>
#include <QStatusBar>
#include <QTabWidget>
#include <QTableWidget>
#include <QTextBrowser>
#include <QTextEdit>
#include <QToolBar>
#include <QToolBox>
#include <QToolButton>
#include <QToolTip>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <QWizard>

namespace {

constexpr QSize kFieldSize(96, 0);
constexpr QSize kTextSize(96, 48);
constexpr QSize kViewSize(128, 96);
constexpr QSize kTabsSize(176, 64);
constexpr QSize kWindowSize(256, 160);

template <typename Widget> QWidget *newChecked(const QString &text)
{
    auto *widget = new Widget(text);
    widget->setCheckable(true);
    widget->setChecked(true);
    return widget;
}

QWidget *newDefaultButton()
{
    auto *button = new QPushButton("ab");
    button->setDefault(true);
    return button;
}

QWidget *newFlatButton()
{
    auto *button = new QPushButton("ab");
    button->setFlat(true);
    return button;
}

template <typename Button> Button *withMenu(Button *button)
{
    button->setText("ab");
    button->setMenu(new QMenu(button));
    return button;
}

QToolButton *newToolButton()
{
    auto *button = new QToolButton;
    button->setIcon(QIcon(getGlobalImage("bt_add")));
    button->setText("ab");
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    return button;
}

QWidget *newCheckedToolButton()
{
    QToolButton *button = newToolButton();
    button->setCheckable(true);
    button->setChecked(true);
    return button;
}

QWidget *newSplitButton()
{
    QToolButton *button = withMenu(newToolButton());
    button->setPopupMode(QToolButton::MenuButtonPopup);
    return button;
}

QWidget *newMenuButton()
{
    QToolButton *button = withMenu(newToolButton());
    button->setPopupMode(QToolButton::InstantPopup);
    return button;
}

void addButtons(Looks &looks)
{
    addStates(looks, "button", [] { return new QPushButton("ab"); });
    addStates(looks, "default-button", newDefaultButton);
    addStates(looks, "checked-button", [] { return newChecked<QPushButton>("ab"); });
    addStates(looks, "flat-button", newFlatButton, kShownStates);
    addStates(
        looks, "menu-button", [] { return withMenu(new QPushButton); }, kShownStates);
    addStates(looks, "tool", newToolButton);
    addStates(looks, "checked-tool", newCheckedToolButton, {State::Rest, State::Focus});
    addStates(looks, "split-tool", newSplitButton, kShownStates);
    addStates(looks, "menu-tool", newMenuButton, kShownStates);
}

QWidget *newEmptyLine()
{
    auto *edit = new QLineEdit;
    edit->setPlaceholderText("abc");
    return edit;
}

template <typename Edit> QWidget *newReadOnly()
{
    auto *edit = new Edit("ab");
    edit->setReadOnly(true);
    return edit;
}

QWidget *newClearableLine()
{
    auto *edit = new QLineEdit("ab");
    edit->setClearButtonEnabled(true);
    return edit;
}

QWidget *newSpinBox()
{
    auto *box = new QSpinBox;
    box->setValue(42);
    return box;
}

QWidget *newDateEdit()
{
    auto *edit = new QDateEdit(QDate(2024, 3, 7));
    edit->setCalendarPopup(true);
    return edit;
}

QWidget *newDoubleSpinBox()
{
    auto *box = new QDoubleSpinBox;
    box->setValue(4.2);
    return box;
}

QComboBox *newComboBox()
{
    auto *box = new QComboBox;
    box->addItems({"ab", "cd"});
    return box;
}

QWidget *newEditableBox()
{
    QComboBox *box = newComboBox();
    box->setEditable(true);
    return box;
}

/// The list of a combo box, the second item marked.
QImage openBox()
{
    auto *box = newComboBox();
    box->insertSeparator(1);
    Stage stage(box, kFieldSize);
    box->showPopup();
    box->view()->setCurrentIndex(box->model()->index(2, 0));
    const QImage picture = pictureOf(box->view()->window());
    box->hidePopup();
    return picture;
}

QWidget *newBrowser()
{
    auto *browser = new QTextBrowser;
    browser->setPlainText("cd ef");
    return browser;
}

QWidget *newFontBox()
{
    auto *box = new QFontComboBox;
    box->setCurrentFont(boxFont());
    return box;
}

void addFields(Looks &looks)
{
    addStates(
        looks, "line", [] { return new QLineEdit("ab"); }, kFieldStates, kFieldSize);
    addStates(looks, "empty-line", newEmptyLine, {State::Rest}, kFieldSize);
    addStates(looks, "clearable-line", newClearableLine, {State::Rest}, kFieldSize);
    addStates(
        looks, "read-only-line", newReadOnly<QLineEdit>, {State::Rest, State::Focus}, kFieldSize);
    addStates(looks, "spin", newSpinBox, kFieldStates, kFieldSize);
    addStates(looks, "double-spin", newDoubleSpinBox, kShownStates, kFieldSize);
    addStates(looks, "date", newDateEdit, kFieldStates, {128, 0});
    addStates(
        looks, "time", [] { return new QTimeEdit(QTime(8, 30)); }, kShownStates, QSize(112, 0));
    addStates(looks, "date-time",
        [] { return new QDateTimeEdit(QDateTime(QDate(2024, 3, 7), QTime(8, 30))); }, kShownStates,
        {192, 0});
    addStates(looks, "box", newComboBox, kFieldStates, kFieldSize);
    addStates(looks, "editable-box", newEditableBox, kFieldStates, kFieldSize);
    looks.append({"open-box", openBox});
    addStates(looks, "font-box", newFontBox, kFieldStates, {128, 0});
    addStates(
        looks, "text", [] { return new QTextEdit("ab"); }, kFieldStates, kTextSize);
    addStates(looks, "read-only-text", newReadOnly<QPlainTextEdit>, {State::Rest}, kTextSize);
    addStates(looks, "browser", newBrowser, kFocusStates, kTextSize);
}

template <typename Button> QWidget *newChoice(bool isChecked)
{
    auto *button = new Button("ab");
    button->setChecked(isChecked);
    return button;
}

QWidget *newPartlyChecked()
{
    auto *box = new QCheckBox("ab");
    box->setTristate();
    box->setCheckState(Qt::PartiallyChecked);
    return box;
}

QWidget *newGroup(bool isCheckable)
{
    auto *group = new QGroupBox("ab");
    group->setCheckable(isCheckable);
    (new QVBoxLayout(group))->addWidget(new QCheckBox("cd"));
    return group;
}

void addChoices(Looks &looks)
{
    for (const bool isOn : {false, true}) {
        const QString suffix = isOn ? "-on" : "-off";
        addStates(looks, "check" + suffix, [isOn] { return newChoice<QCheckBox>(isOn); });
        addStates(looks, "radio" + suffix, [isOn] { return newChoice<QRadioButton>(isOn); });
    }
    addStates(looks, "check-partly", newPartlyChecked, kShownStates);
    addStates(
        looks, "group", [] { return newGroup(false); }, kShownStates);
    addStates(looks, "checkable-group", [] { return newGroup(true); }, {State::Rest, State::Focus});
}

QProgressBar *newProgress()
{
    auto *bar = new QProgressBar;
    bar->setValue(40);
    return bar;
}

QWidget *newPlainProgress()
{
    QProgressBar *bar = newProgress();
    bar->setTextVisible(false);
    return bar;
}

/// A bar without an end, stopped in the middle of its way.
QImage busyProgress()
{
    constexpr int kMoment = 100; // milliseconds from the start
    auto *bar = new QProgressBar;
    bar->setRange(0, 0);
    Stage stage(bar, kFieldSize);
    stage.picture();
    auto *animation = bar->findChild<QAbstractAnimation *>();
    if (!animation)
        return {};
    animation->pause();
    animation->setCurrentTime(kMoment);
    return stage.picture();
}

QWidget *newSlider(Qt::Orientation orientation, QSlider::TickPosition ticks)
{
    auto *slider = new QSlider(orientation);
    slider->setTickPosition(ticks);
    slider->setValue(50); // so that its middle is where the pointer goes
    return slider;
}

QWidget *newDial(bool hasNotches)
{
    auto *dial = new QDial;
    dial->setNotchesVisible(hasNotches);
    dial->setValue(30);
    return dial;
}

QWidget *newScrollBar()
{
    auto *bar = new QScrollBar(Qt::Horizontal);
    bar->setPageStep(50);
    bar->setValue(50);
    return bar;
}

void addRanges(Looks &looks)
{
    addStates(looks, "progress", newProgress, kShownStates, kFieldSize);
    addStates(looks, "plain-progress", newPlainProgress, kShownStates, kFieldSize);
    looks.append({"busy-progress", busyProgress});
    addStates(
        looks, "slider", [] { return newSlider(Qt::Horizontal, QSlider::NoTicks); }, kAllStates,
        kFieldSize);
    addStates(
        looks, "slider-ticks", [] { return newSlider(Qt::Horizontal, QSlider::TicksBothSides); },
        {State::Rest}, kFieldSize);
    addStates(looks, "upright-slider", [] { return newSlider(Qt::Vertical, QSlider::TicksRight); },
        {State::Rest}, {0, 64});
    addStates(looks, "dial", [] { return newDial(false); }, kFieldStates, {64, 64});
    addStates(looks, "dial-notches", [] { return newDial(true); }, {State::Rest}, {64, 64});
    addStates(looks, "scroll-bar", newScrollBar,
        {State::Rest, State::Hover, State::Pressed, State::Disabled}, kFieldSize);
}

QTabWidget *newTabs(QTabWidget::TabPosition position)
{
    auto *tabs = new QTabWidget;
    tabs->setTabPosition(position);
    for (const char *title : {"ab", "cd", "ef"})
        tabs->addTab(new QWidget, title);
    tabs->setTabEnabled(2, false);
    return tabs;
}

QWidget *newClosableTabs()
{
    QTabWidget *tabs = newTabs(QTabWidget::North);
    tabs->setTabsClosable(true);
    return tabs;
}

QWidget *newDocumentTabs()
{
    QTabWidget *tabs = newTabs(QTabWidget::North);
    tabs->setDocumentMode(true);
    return tabs;
}

QWidget *newManyTabs()
{
    QTabWidget *tabs = newTabs(QTabWidget::North);
    for (int i = 0; i < 6; ++i)
        tabs->addTab(new QWidget, "gh");
    return tabs;
}

QWidget *newToolBox()
{
    auto *box = new QToolBox;
    for (const char *title : {"ab", "cd"})
        box->addItem(new QLabel(title), QIcon(getGlobalImage("folder")), title);
    return box;
}

void addTabs(Looks &looks)
{
    addPartStates(
        looks, "tabs", [] { return newTabs(QTabWidget::North); },
        [](QWidget *tabs) { return static_cast<QTabWidget *>(tabs)->tabBar(); }, kFieldStates,
        kTabsSize);
    addStates(
        looks, "tabs-below", [] { return newTabs(QTabWidget::South); }, {State::Rest}, kTabsSize);
    addStates(
        looks, "tabs-left", [] { return newTabs(QTabWidget::West); }, {State::Rest}, {96, 128});
    addStates(
        looks, "tabs-right", [] { return newTabs(QTabWidget::East); }, {State::Rest}, {96, 128});
    addStates(looks, "closable-tabs", newClosableTabs, {State::Rest}, kTabsSize);
    addStates(looks, "document-tabs", newDocumentTabs, {State::Rest}, kTabsSize);
    addStates(looks, "many-tabs", newManyTabs, {State::Rest}, kTabsSize);
    addStates(looks, "tool-box", newToolBox, {State::Rest}, {128, 96});
}

template <typename View> View *selected(View *view)
{
    view->setCurrentIndex(view->model()->index(0, 0));
    return view;
}

QWidget *newList()
{
    auto *list = new QListWidget;
    list->addItems({"ab", "cd", "ef"});
    list->item(1)->setCheckState(Qt::Checked);
    list->item(2)->setFlags(Qt::NoItemFlags);
    return selected(list);
}

QWidget *newTree()
{
    auto *tree = new QTreeWidget;
    tree->setHeaderLabel("ab");
    auto *root = new QTreeWidgetItem(tree, {"cd"});
    (new QTreeWidgetItem(root, {"ef"}))->setCheckState(0, Qt::PartiallyChecked);
    root->setExpanded(true);
    return selected(tree);
}

QWidget *newTable()
{
    auto *table = new QTableWidget(3, 2);
    table->setHorizontalHeaderLabels({"ab", "cd"});
    for (int row = 0; row < 3; ++row)
        table->setItem(row, 0, new QTableWidgetItem("ef"));
    return selected(table);
}

QWidget *newCalendar()
{
    auto *calendar = new QCalendarWidget;
    calendar->setSelectedDate(QDate(2024, 3, 7));
    return calendar;
}

/// The items react, not the middle of the view.
QWidget *viewport(QWidget *view)
{
    return static_cast<QAbstractItemView *>(view)->viewport();
}

void addViews(Looks &looks)
{
    addStates(looks, "list", newList, kFocusStates, kViewSize);
    addPartStates(looks, "list-item", newList, viewport, {State::Hover}, kViewSize);
    addStates(looks, "tree", newTree, kFocusStates, kViewSize);
    addStates(looks, "table", newTable, kFocusStates, kViewSize);
    addStates(looks, "calendar", newCalendar, kShownStates, {240, 192});
}

QWidget *newWindow()
{
    auto *window = new QMainWindow;
    window->setWindowFlags(Qt::Widget);
    window->menuBar()->addMenu("ab")->addAction("cd");
    window->menuBar()->addMenu("ef")->setEnabled(false);
    auto *bar = new QToolBar;
    bar->addAction(QIcon(getGlobalImage("bt_add")), "ab");
    bar->addSeparator();
    bar->addAction("cd")->setEnabled(false);
    window->addToolBar(bar);
    auto *dock = new QDockWidget("ab");
    dock->setWidget(new QTextEdit);
    window->addDockWidget(Qt::LeftDockWidgetArea, dock);
    auto *splitter = new QSplitter;
    splitter->addWidget(new QTextEdit);
    splitter->addWidget(new QTextEdit);
    window->setCentralWidget(splitter);
    window->statusBar()->showMessage("ab");
    return window;
}

QImage openMenu()
{
    QMenu menu;
    menu.addAction(QIcon(getGlobalImage("bt_add")), "ab");
    QAction *checked = menu.addAction("cd");
    checked->setCheckable(true);
    checked->setChecked(true);
    menu.addSeparator();
    menu.addMenu("ef")->addAction("gh");
    menu.addAction("ij")->setEnabled(false);
    menu.popup({40, 40});
    menu.setActiveAction(checked);
    return pictureOf(&menu);
}

QImage openToolTip()
{
    QToolTip::setFont(boxFont());
    QToolTip::showText({40, 40}, "abcd ef");
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (!widget->inherits("QTipLabel"))
            continue;
        const QImage picture = pictureOf(widget);
        delete widget;
        return picture;
    }
    return {};
}

QWidget *newButtonBox()
{
    const auto buttons = QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Help;
    return new QDialogButtonBox(buttons);
}

QWidget *newMessage()
{
    auto *box =
        new QMessageBox(QMessageBox::Warning, "ab", "abcd", QMessageBox::Yes | QMessageBox::No);
    box->setWindowFlags(Qt::Widget);
    box->setInformativeText("efgh");
    return box;
}

QWidget *newInput()
{
    auto *dialog = new QInputDialog;
    dialog->setWindowFlags(Qt::Widget);
    dialog->setLabelText("ab");
    dialog->setTextValue("cd");
    return dialog;
}

QWidget *newProgressDialog()
{
    auto *dialog = new QProgressDialog("ab", "cd", 0, 100);
    dialog->setWindowFlags(Qt::Widget);
    dialog->setBar(newProgress());
    return dialog;
}

QWidget *newWizard()
{
    auto *wizard = new QWizard;
    wizard->setWindowFlags(Qt::Widget);
    auto *page = new QWizardPage;
    page->setTitle("ab");
    page->setSubTitle("cd");
    wizard->addPage(page);
    wizard->addPage(new QWizardPage);
    return wizard;
}

void addWindows(Looks &looks)
{
    addStates(looks, "window", newWindow, {State::Rest}, kWindowSize);
    looks.append({"menu", openMenu});
    looks.append({"tool-tip", openToolTip});
    addStates(looks, "button-box", newButtonBox, kShownStates);
    looks.append({"file-dialog", fileDialogPicture});
    addStates(looks, "message", newMessage, {State::Rest});
    addStates(looks, "input", newInput, {State::Rest});
    addStates(looks, "progress-dialog", newProgressDialog, {State::Rest}, kWindowSize);
    addStates(looks, "wizard", newWizard, {State::Rest}, kWindowSize);
}

} // namespace

/// Qt's own widgets with the theme's style.
class StockPictures : public BaselineTest
{
    Q_OBJECT

public:
    StockPictures() : BaselineTest("stock") { }

protected:
    Looks looks() const override;
    void prepare() override;
};

Looks StockPictures::looks() const
{
    Looks looks;
    addButtons(looks);
    addFields(looks);
    addChoices(looks);
    addRanges(looks);
    addTabs(looks);
    addViews(looks);
    addWindows(looks);
    return looks;
}

void StockPictures::prepare()
{
    applyDefaultThemeStyle(*qApp);
    QApplication::setFont(boxFont());
}

VEMO_TEST_MAIN(StockPictures)
#include "tst_stockpictures.moc"

// SPDX-License-Identifier: MIT
#include "gallery/look.h"
#include "gallery/page.h"
#include "gallery/pages/pages.h"
#include "gallery/specimens.h"

#include <vemo/dpiinfo.h>
#include <vemo/imagemanager.h>

#include <QAction>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QFontComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTextBrowser>
#include <QToolButton>

namespace {

constexpr int kTextHeight = 64; // design pixels

template <typename Button> Button *checked(Button *button)
{
    button->setCheckable(true);
    button->setChecked(true);
    return button;
}

QPushButton *newButton(const QString &text)
{
    auto *button = new QPushButton(text);
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    return button;
}

QPushButton *newDefaultButton()
{
    QPushButton *button = newButton("Default");
    button->setDefault(true);
    return button;
}

QPushButton *newFlatButton()
{
    QPushButton *button = newButton("Flat");
    button->setFlat(true);
    return button;
}

template <typename Button> Button *withMenu(Button *button)
{
    auto *menu = new QMenu(button);
    menu->addAction(getGlobalIcon("bt_add"), "New")->setShortcut(QKeySequence::New);
    QAction *marked = menu->addAction("Marked");
    marked->setCheckable(true);
    marked->setChecked(true);
    menu->addSeparator();
    menu->addMenu("More")->addAction("Still more");
    menu->addAction("Disabled")->setEnabled(false);
    button->setMenu(menu);
    return button;
}

QToolButton *newToolButton(const QString &text, const char *picture)
{
    auto *button = new QToolButton;
    button->setText(text);
    button->setIcon(getGlobalIcon(picture));
    button->setIconSize(QSize(DPIinfo::scaled(16), DPIinfo::scaled(16)));
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    return button;
}

QToolButton *newSplitButton()
{
    QToolButton *button = withMenu(newToolButton("Split", "bt_add"));
    button->setPopupMode(QToolButton::MenuButtonPopup);
    return button;
}

QToolButton *newMenuButton()
{
    QToolButton *button = withMenu(newToolButton("Menu", "bt_settings"));
    button->setPopupMode(QToolButton::InstantPopup);
    return button;
}

void addButtons(Page &page)
{
    page.addSection("Push buttons", "Point at one, press it, walk to it by Tab.");
    page.addRow({newButton("Button"), newDefaultButton(), checked(newButton("Checked")),
        newFlatButton(), withMenu(newButton("Menu")), disabled(newButton("Disabled"))});
    page.addSection("Tool buttons");
    page.addRow({newToolButton("Edit", "bt_edit"), checked(newToolButton("Checked", "bt_calendar")),
        newSplitButton(), newMenuButton(), disabled(newToolButton("Disabled", "bt_delete"))});
}

QLineEdit *newLine(const QString &text, const char *name)
{
    return named(new QLineEdit(text), name);
}

QLineEdit *newEmptyLine()
{
    QLineEdit *edit = newLine({}, "Name");
    edit->setPlaceholderText("Name");
    return edit;
}

QLineEdit *newReadOnlyLine()
{
    QLineEdit *edit = newLine("Read-only", "State");
    edit->setReadOnly(true);
    return edit;
}

QSpinBox *newSpinBox()
{
    auto *box = named(new QSpinBox, "Distance");
    box->setSuffix(" km");
    box->setValue(42);
    return box;
}

template <typename Edit> Edit *newDateEdit(bool hasCalendar)
{
    auto *edit = named(new Edit, "Change");
    edit->setDateTime({QDate(2024, 3, 7), QTime(12, 30)});
    edit->setCalendarPopup(hasCalendar);
    return edit;
}

QComboBox *filled(QComboBox *box)
{
    box->addItem(getGlobalIcon("folder"), "Folder");
    box->addItem(getGlobalIcon("doc"), "Document");
    box->addItem(getGlobalIcon("image"), "Picture");
    return box;
}

QComboBox *newEditableBox()
{
    QComboBox *box = filled(named(new QComboBox, "Kind, editable"));
    box->setEditable(true);
    return box;
}

QFontComboBox *newFontBox()
{
    auto *box = named(new QFontComboBox, "Font");
    // Otherwise as wide as its widest font name.
    box->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    return box;
}

template <typename Edit> Edit *newText(const QString &text, const char *name)
{
    Edit *edit = named(new Edit, name);
    edit->setFixedHeight(DPIinfo::scaled(kTextHeight));
    edit->setPlainText(text);
    return edit;
}

QTextBrowser *newBrowser()
{
    auto *browser = newText<QTextBrowser>({}, "Help");
    // A document keeps the colour that links had.
    const auto setText = [browser] { browser->setHtml("A text with a <a href=\"#\">link</a>"); };
    setText();
    onThemeReload(browser, setText);
    return browser;
}

void addFields(Page &page)
{
    page.addSection("Fields", "32 pixels high, like ours, and with the same ring.");
    page.addGrid(3,
        {newLine("Text", "Text"), newEmptyLine(), newReadOnlyLine(),
            disabled(newLine("Disabled", "Disabled text")), newSpinBox(),
            named(new QDoubleSpinBox, "Weight"), newDateEdit<QDateEdit>(true),
            newDateEdit<QTimeEdit>(false), newDateEdit<QDateTimeEdit>(false),
            filled(named(new QComboBox, "Kind")), newEditableBox(), newFontBox(),
            disabled(filled(named(new QComboBox, "Disabled kind"))), disabled(newSpinBox())});
    page.addGrid(3,
        {newText<QTextEdit>("Text", "Note"),
            newText<QPlainTextEdit>("One\nTwo\nThree\nFour", "List"), newBrowser()});
    page.addCode(R"(QApplication app(argc, argv);
installDefaultTheme(userFolder, "enu", ImageManager::LAZY_LOAD);
applyDefaultThemeStyle(app); // before the first widget
new QLineEdit; // as in any Qt program)");
}

} // namespace

void buildStockControlsPage(Page &page)
{
    page.addSummary("Qt's own buttons and fields beside ours: one call styles them all. Classes "
                    "derived from them stay as they are.");
    addButtons(page);
    addFields(page);
}

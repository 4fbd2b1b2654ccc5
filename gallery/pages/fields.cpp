// SPDX-License-Identifier: MIT
#include "gallery/controlsnapshots.h"
#include "gallery/demotexts.h"
#include "gallery/page.h"
#include "gallery/pages/pages.h"

#include <vemo/dpiinfo.h>

#include <QLabel>
#include <QLineEdit>

namespace {

// In design pixels.
constexpr int kFieldWidth = 96;
constexpr int kOptionWidth = 240;

VemoLineEdit *sized(VemoLineEdit *edit)
{
    edit->getLineEdit()->setFixedWidth(DPIinfo::scaled(kFieldWidth));
    return edit;
}

VemoLineEdit *newEdit(const QString &text)
{
    auto *edit = new VemoLineEdit;
    edit->getLineEdit()->setText(text);
    edit->getLineEdit()->setAccessibleName("File name");
    return sized(edit);
}

VemoLineEdit *newSnapshot(QStyle::State state, bool error)
{
    auto *edit = new LineEditSnapshot(demo("invoice"), state);
    edit->setError(error);
    edit->getLineEdit()->setAccessibleName("File name");
    return sized(edit);
}

VemoLineEdit *newPlaceholder(bool error)
{
    VemoLineEdit *edit = newEdit({});
    edit->getLineEdit()->setPlaceholderText(demo("name"));
    edit->setError(error);
    return edit;
}

VemoLineEdit *newReadOnly(bool error)
{
    VemoLineEdit *edit = newEdit(demo("invoice"));
    edit->getLineEdit()->setReadOnly(true);
    edit->setError(error);
    return edit;
}

VemoLineEdit *newDisabled(bool error)
{
    VemoLineEdit *edit = newEdit(demo("invoice"));
    edit->setError(error);
    edit->setEnabled(false);
    return edit;
}

QList<QWidget *> statesOf(const QString &name, bool error)
{
    QList<QWidget *> row {note(name)};
    for (VemoLineEdit *edit :
        {newSnapshot(QStyle::State_None, error), newSnapshot(QStyle::State_MouseOver, error),
            newSnapshot(QStyle::State_HasFocus, error), newPlaceholder(error), newReadOnly(error),
            newDisabled(error)}) {
        // The field alone, below the caption of its column.
        edit->setMargins(0, 0, 0, 0);
        edit->getPreLabel()->hide();
        edit->getPostLabel()->hide();
        row += edit;
    }
    return row;
}

void addStates(Page &page)
{
    page.addSection("States", "The error state goes with any other.");
    page.addTable({"", "Rest", "Hover", "Keyboard focus", "Empty", "Read-only", "Disabled"},
        {statesOf("Valid", false), statesOf("Error", true)});
    page.addCode(R"(auto *edit = new VemoLineEdit(page);
edit->setError(true); // shown by the rule QLineEdit[error="true"])");
}

bool isNumberOfDays(const QString &text)
{
    bool isNumber = false;
    const int days = text.toInt(&isNumber);
    return isNumber && days >= 1 && days <= 365;
}

void addValidator(Page &page)
{
    VemoLineEdit *days = newEdit("400");
    days->getPreLabel()->setText(demo("keep_deleted"));
    days->getPostLabel()->setText(demo("days_limit"));
    days->getLineEdit()->setAccessibleName(QString());
    days->setValidator(isNumberOfDays);
    days->setSpacing(4);
    days->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    days->setError(!days->validate());
    QObject::connect(days->getLineEdit(), &QLineEdit::textChanged, days,
        [days] { days->setError(!days->validate()); });
    page.addSection("A live validator", "Type a number: the frame turns red while it is wrong.");
    page.addRow({days});
    page.addCode(R"(days->setValidator(isNumberOfDays);
connect(days->getLineEdit(), &QLineEdit::textChanged,
    days, [days] { days->setError(!days->validate()); });)");
}

VemoLineEdit *newCaptioned(const QString &caption, const QString &text, const QString &unit)
{
    auto *edit = new VemoLineEdit;
    edit->getPreLabel()->setText(caption);
    edit->getLineEdit()->setText(text);
    edit->getPostLabel()->setText(unit);
    return edit;
}

void addCaptions(Page &page)
{
    page.addSection("Captions and units",
        "An empty label still takes its place. Assistive tools hear the caption as the field's "
        "name.");
    page.add(newCaptioned(demo("name"), demo("report"), {}));
    page.add(newCaptioned("Höchstgeschwindigkeit der Datenübertragung",
        "Donaudampfschifffahrtsgesellschaft", "Megabit je Sekunde"));
    page.add(newCaptioned("文件传输的最高速度", "第三季度报告的最终版本", "兆比特每秒"));
    page.addCode(R"(edit->getPreLabel()->setText(tr("Name"));
edit->setMargins(0, 4, 0, 4); // design pixels
edit->setSpacing(8);)");
}

VemoLineEdit *newOption(const QString &caption, const QString &text)
{
    VemoLineEdit *edit = newCaptioned(caption, text, {});
    edit->setSpacing(4);
    edit->setCaptionsVisible(false);
    edit->setFixedWidth(DPIinfo::scaled(kOptionWidth));
    return edit;
}

void addOptions(Page &page)
{
    VemoLineEdit *wrong = newOption(demo("name"), demo("invoice"));
    wrong->setErrorText(demo("name_exists"));
    wrong->setError(true);
    VemoLineEdit *cleared = newOption(demo("name"), demo("invoice"));
    cleared->setClearButtonEnabled(true);
    VemoLineEdit *password = newOption(demo("password"), "Sesame");
    password->setPasswordButtonEnabled(true);
    page.addSection(
        "Options", "An error text, a clear button, and a button that shows a password.");
    page.addRow({captioned(cleared, "Clear button"), captioned(password, "Password button")});
    page.addRow({captioned(wrong, "Error text")});
    page.addCode(R"(edit->setErrorText(tr("A file with that name already exists."));
edit->setClearButtonEnabled(true);
edit->setPasswordButtonEnabled(true);
edit->setCaptionsVisible(false); // still names the field)");
}

} // namespace

void buildFieldsPage(Page &page)
{
    page.addSummary("VemoLineEdit is a text field between two labels, with an error state and a "
                    "check of the host's own.");
    addStates(page);
    addValidator(page);
    addCaptions(page);
    addOptions(page);
}

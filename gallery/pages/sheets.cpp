// SPDX-License-Identifier: MIT
#include "gallery/demotexts.h"
#include "gallery/page.h"
#include "gallery/pages/pages.h"
#include "gallery/sheetstage.h"

#include <vemo/vemobutton.h>
#include <vemo/vemocombobox.h>
#include <vemo/vemoinputsheet.h>
#include <vemo/vemolabel.h>
#include <vemo/vemolineedit.h>
#include <vemo/vemomask.h>
#include <vemo/vemoprogresssheet.h>

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QShortcut>
#include <QTimer>
#include <QVBoxLayout>

namespace {

constexpr int kStepTime = 50; // Milliseconds.
constexpr QSize kStage(420, 250);
constexpr QSize kHighStage(420, 320);

VemoSheet *newInput(QWidget *window)
{
    auto *sheet = new VemoInputSheet(demo("folder_name"), window);
    sheet->getLineEdit()->setText(demo("report_folder"));
    sheet->getLineEdit()->selectAll();
    return sheet;
}

void addInput(Page &page)
{
    auto *result = text("Result: none yet");
    auto *content = note("Content: none yet");
    auto *ask = newAskingButton("Ask for a name", result, [content](QWidget *window) {
        const QPointer<QLabel> held = content;
        auto *sheet =
            new VemoInputSheet("Name of the new folder, in <b>small letters</b>:", window);
        sheet->getLineEdit()->setValidator(
            new QRegularExpressionValidator(QRegularExpression("[a-z ]*"), sheet->getLineEdit()));
        return sheet->execAndDelete([=](int) {
            if (held)
                held->setText("Content: " + sheet->getContent());
        });
    });
    page.addSection("Input sheet", "Return in the field presses OK, Escape cancels.");
    page.addRow({ask, result, content});
    page.add(picture([] { return sheetOverWindow(kStage, newInput); }));
    page.addCode(R"(auto *sheet = new VemoInputSheet(tr("Name:"), window);
sheet->open([=](int result) {
    if (result == QDialogButtonBox::Ok)
        makeFolder(sheet->getContent());
});)");
}

VemoInputSheet *newChecked(QWidget *window)
{
    auto *sheet = new VemoInputSheet(demo("folder_name"), window);
    sheet->setCheck([](const QString &name) { return name != demo("report_folder"); });
    sheet->setErrorText(demo("name_exists"));
    sheet->setContent(demo("report_folder"));
    return sheet;
}

VemoInputSheet *newNote(QWidget *window)
{
    auto *sheet = new VemoInputSheet(demo("note"), window);
    sheet->setMultiLine(true);
    sheet->setContent(demo("archive_note"));
    return sheet;
}

void addInputOptions(Page &page)
{
    auto *result = text("Result: none yet");
    page.addSection("Input options",
        "OK is disabled while the check rejects the text. In several lines Ctrl+Return presses "
        "OK.");
    page.addRow({newAskingButton("Checked name", result,
                     [](QWidget *window) { return newChecked(window)->execAndDelete(); }),
        newAskingButton("Several lines", result,
            [](QWidget *window) { return newNote(window)->execAndDelete(); }),
        newAskingButton("Hidden text", result,
            [](QWidget *window) {
                auto *sheet = new VemoInputSheet(demo("password"), window);
                sheet->setEchoMode(QLineEdit::Password);
                return sheet->execAndDelete();
            }),
        result});
    page.addRow({picture([] { return sheetOverWindow(kStage, newChecked); }),
        picture([] { return sheetOverWindow(kHighStage, newNote); })});
    page.addCode(R"(sheet->setCheck([](const QString &name) { return !name.isEmpty(); });
sheet->setErrorText(tr("Enter a name."));
sheet->setMultiLine(true);)");
}

/// A form as content; its window title names the sheet.
VemoContentSheet *newForm(QWidget *window)
{
    auto *form = new QWidget;
    form->setWindowTitle(demo("share"));
    auto *rows = new QFormLayout(form);
    rows->setContentsMargins(0, 0, 0, 0);
    const auto add = [rows](const QString &caption, QWidget *field) {
        auto *label = new VemoLabel(caption);
        label->setBuddy(field);
        label->setMinimumHeight(field->sizeHint().height()); // QFormLayout would place it higher.
        rows->addRow(label, field);
    };
    auto *name = new VemoLineEdit;
    name->setCaptionsVisible(false);
    name->setText(demo("report"));
    add(demo("name"), name);
    auto *type = new VemoComboBox;
    type->addItems({demo("by_link"), demo("by_mail")});
    add(demo("type"), type);
    return new VemoContentSheet(form, window);
}

void addOwnContent(Page &page)
{
    auto *result = text("Result: none yet");
    page.addSection("Own content",
        "Any widget with buttons. The focus goes in, Tab stays in, Return and Escape answer.");
    page.addRow({newAskingButton("Show a form", result,
                     [](QWidget *window) { return newForm(window)->execAndDelete(); }),
        result});
    page.add(picture([] { return sheetOverWindow(kStage, newForm); }));
    page.addCode(R"(auto *sheet = new VemoContentSheet(new SettingsForm, window);
sheet->open([this](int result) {
    if (result == QDialogButtonBox::Ok)
        save();
});)");
}

VemoProgressSheet *newProgress(QWidget *window)
{
    auto *sheet = new VemoProgressSheet(demo("copying"), window);
    sheet->setValue(60);
    return sheet;
}

/// Counts to the maximum, in steps, and ends the sheet.
int runProgress(QWidget *window)
{
    auto *sheet = new VemoProgressSheet(demo("copying"), window);
    auto *work = new QTimer(sheet);
    QObject::connect(work, &QTimer::timeout, sheet, [sheet] {
        if (sheet->wasCanceled() || sheet->value() == sheet->maximum())
            sheet->quit();
        sheet->setValue(sheet->value() + 1);
    });
    work->start(kStepTime);
    return sheet->execAndDelete();
}

int runBusy(QWidget *window)
{
    auto *sheet = new VemoProgressSheet(demo("copying"), window);
    sheet->setRange(0, 0);
    QObject::connect(sheet, &VemoProgressSheet::canceled, sheet, &VemoProgressSheet::quit);
    return sheet->execAndDelete();
}

void addProgress(Page &page)
{
    auto *result = text("Result: none yet");
    page.addSection("Progress",
        "The sheet ends when the host ends it, not at the maximum and not when it is cancelled.");
    page.addRow({newAskingButton("Count to 100", result, runProgress),
        newAskingButton("Without an end", result, runBusy), result});
    page.add(picture([] { return sheetOverWindow(kStage, newProgress); }));
    page.addCode(R"(auto *progress = new VemoProgressSheet(tr("Copying ..."), window);
connect(job, &CopyJob::progress, progress, &VemoProgressSheet::setValue);
connect(progress, &VemoProgressSheet::canceled, job, &CopyJob::stop);
connect(job, &CopyJob::finished, progress, &VemoProgressSheet::quit);
progress->open();)");
}

/// Keeps Tab in the sheet. There is no other widget to go to than its button.
class SheetContent : public QWidget
{
protected:
    bool focusNextPrevChild(bool) override { return true; }
};

VemoSheet *newOwnSheet(QWidget *window)
{
    auto *content = new SheetContent;
    auto *column = new QVBoxLayout(content);
    column->addWidget(new VemoLabel(demo("any_widget")));
    auto *close = new VemoButton(demo("close"), VemoButton::APPLY);
    column->addWidget(close, 0, Qt::AlignRight);
    auto *sheet = new VemoSheet(window);
    sheet->setWidget(content);
    sheet->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    sheet->setFocusProxy(close);
    new QShortcut(
        QKeySequence::Cancel, close, SLOT(click()), nullptr, Qt::WidgetWithChildrenShortcut);
    // Its parent is the mask by then, which would stay behind otherwise.
    QObject::connect(
        close, &VemoButton::clicked, sheet, [sheet] { sheet->parentWidget()->deleteLater(); });
    return sheet;
}

void addFrame(Page &page)
{
    auto *show = new VemoButton("Show a sheet of our own", VemoButton::DEFAULT);
    QObject::connect(show, &VemoButton::clicked, show, [show] {
        QWidget *window = show->window();
        VemoSheet *sheet = newOwnSheet(window);
        VemoMask::createMask(sheet, window, maskShade())->show();
        sheet->setFocus(Qt::PopupFocusReason);
        QObject::connect(sheet->findChild<VemoButton *>(), &VemoButton::clicked, show,
            [show] { show->setFocus(Qt::PopupFocusReason); });
    });
    page.addSection("Frame and mask",
        "The frame draws the shadow around any content; the mask dims the window and holds the "
        "frame in its middle.");
    page.add(picture([] { return sheetOverWindow(kStage, newOwnSheet); }));
    page.addRow({show});
    page.addCode(R"(auto *sheet = new VemoSheet(window);
sheet->setWidget(content);
sheet->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
VemoMask::createMask(sheet, window, QColor(0, 0, 0, 20))->show();
connect(close, &VemoButton::clicked, sheet->parentWidget(), &QObject::deleteLater);)");
}

} // namespace

void buildSheetsPage(Page &page)
{
    page.addSummary("Panels over a dimmed window: one that asks for a line of text, and the frame "
                    "for sheets of your own.");
    addInput(page);
    addInputOptions(page);
    addOwnContent(page);
    addProgress(page);
    addFrame(page);
}

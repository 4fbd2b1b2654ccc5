// SPDX-License-Identifier: MIT
#include "questions.h"

#include "texts.h"

#include <vemo/defaulttheme.h>
#include <vemo/stylemanager.h>
#include <vemo/vemoinputsheet.h>
#include <vemo/vemomessagesheet.h>

#include <QAbstractButton>
#include <QLineEdit>
#include <QValidator>

#include <algorithm>

namespace {

constexpr int kNamesShown = 5;
const QChar kJoiner(0x2060); // takes no room

/// Rejects what no name can contain; any other problem is reported below the field.
class NameValidator : public QValidator
{
public:
    using QValidator::QValidator;

    State validate(QString &input, int & /*pos*/) const override
    {
        return input.contains('/') || input.contains(QChar(0)) ? Invalid : Acceptable;
    }
};

bool runTrashSheet(VemoMessageSheet *sheet)
{
    QAbstractButton *apply = sheet->button(QMessageBox::Apply);
    apply->setText(text("trash_button"));
    apply->setStyleSheet(getStyleSheet("component.red_button"));
    return sheet->execAndDelete() == QDialogButtonBox::Apply;
}

/// The second line of a question, always there, so that the sheet does not jump.
QString secondLine(const QString &line, const char *color)
{
    // The sheet scales what looks like a length; the name of a folder may do so.
    const QString unscaled = QString(line).replace("px", QString("p%1x").arg(kJoiner));
    return QString("<br><span style='color: %1'>%2</span>")
        .arg(defaultThemeColor(color).name(), unscaled.toHtmlEscaped());
}

QString listOf(const QStringList &names)
{
    QStringList lines;
    const QStringList shown = names.mid(0, kNamesShown);
    for (const QString &name : shown)
        lines << markedText("list_line", {name});
    if (names.size() > kNamesShown)
        lines << markedText("and_more", {numberText(names.size() - kNamesShown)});
    return "<qt>" + lines.join("<br>") + "</qt>";
}

} // namespace

bool isSheetOpen(const QWidget *window)
{
    const auto sheets = window->findChildren<VemoSheet *>();
    return std::any_of(
        sheets.begin(), sheets.end(), [](const VemoSheet *sheet) { return sheet->isVisible(); });
}

void tell(QWidget *window, const QString &message, const QString &reason)
{
    auto *sheet = new VemoMessageSheet(VemoMessageSheet::Warning, message, reason, window);
    sheet->setObjectName("messageSheet");
    sheet->execAndDelete();
}

QString askName(QWidget *window, const QString &prompt, const QString &hint, const QString &name,
    const std::function<QString(const QString &)> &problemOf)
{
    const QString question = prompt.toHtmlEscaped();
    const QString hintLine = secondLine(hint, "soft-ink");
    auto *sheet = new VemoInputSheet(question + hintLine, window);
    sheet->setObjectName("nameSheet");
    QLineEdit *field = sheet->getLineEdit();
    field->setObjectName("nameField");
    field->setAccessibleName(prompt);
    field->setValidator(new NameValidator(field));
    const auto check = [=](const QString &entered) {
        const QString problem = problemOf(entered);
        const bool isWrong = !problem.isEmpty() && entered != name;
        sheet->button(QMessageBox::Ok)->setEnabled(problem.isEmpty() && entered != name);
        sheet->setText(question + (isWrong ? secondLine(problem, "danger") : hintLine));
    };
    QObject::connect(field, &QLineEdit::textChanged, sheet, check);
    field->setText(name);
    field->selectAll();
    check(name);
    QString answer;
    sheet->execAndDelete([&](int result) {
        if (result == QDialogButtonBox::Ok)
            answer = sheet->getContent();
    });
    return answer;
}

bool askTrash(QWidget *window, const QStringList &names)
{
    const QString question = names.size() == 1 ? richText("trash_one", names)
                                               : richText("trash_many", {numberText(names.size())});
    auto *sheet = new VemoMessageSheet(VemoMessageSheet::WarningConfirm, question,
        names.size() == 1 ? QString() : listOf(names), window);
    sheet->setObjectName("trashSheet");
    sheet->setDoubleConfirmCheckBox(true, text("trash_sure"));
    // Only now, since the check box gives the buttons their own captions back.
    return runTrashSheet(sheet);
}

bool askTrashLeftovers(QWidget *window, const QStringList &names)
{
    auto *sheet = new VemoMessageSheet(VemoMessageSheet::WarningConfirm,
        richText("trash_leftovers", {numberText(names.size())}), listOf(names), window);
    sheet->setObjectName("leftoverSheet");
    return runTrashSheet(sheet);
}

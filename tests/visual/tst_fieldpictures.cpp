// SPDX-License-Identifier: MIT
#include "visual/baselinetest.h"

#include <vemo/defaulttheme.h>
#include <vemo/linklabel.h>
#include <vemo/vemobadge.h>
#include <vemo/vemofilterbar.h>
#include <vemo/vemoiconbutton.h>
#include <vemo/vemolabel.h>
#include <vemo/vemolineedit.h>
#include <vemo/vemomenu.h>
#include <vemo/vemospinner.h>

#include <QApplication>
#include <QLabel>

namespace {

constexpr QSize kFieldSize(96, 0);
constexpr QSize kFilterSize(112, 0);

VemoLineEdit *newField(bool hasError = false)
{
    auto *edit = new VemoLineEdit;
    edit->getLineEdit()->setText("ab");
    edit->setError(hasError);
    return edit;
}

VemoLineEdit *newEmptyField()
{
    auto *edit = new VemoLineEdit;
    edit->getLineEdit()->setPlaceholderText("abc");
    return edit;
}

VemoLineEdit *newReadOnlyField()
{
    VemoLineEdit *edit = newField();
    edit->getLineEdit()->setReadOnly(true);
    return edit;
}

VemoLineEdit *newLabelledField()
{
    VemoLineEdit *edit = newField();
    edit->getPreLabel()->setText("cd");
    edit->getPostLabel()->setText("ef");
    return edit;
}

QWidget *lineEditOf(QWidget *widget)
{
    return static_cast<VemoLineEdit *>(widget)->getLineEdit();
}

/// With the second of its characters selected.
QImage selectedText()
{
    VemoLineEdit *edit = newField();
    Stage stage(edit, kFieldSize);
    stage.put(State::Focus, edit->getLineEdit());
    edit->getLineEdit()->setSelection(1, 1);
    return stage.picture();
}

VemoFilterBar *newFilterBar(const QString &text)
{
    auto *bar = new VemoFilterBar;
    bar->setPlaceholderText("abcd");
    bar->setText(text);
    bar->setMenu(new VemoMenu(bar));
    return bar;
}

QWidget *newFilledFilterBar()
{
    return newFilterBar("ab");
}

void addFields(Looks &looks)
{
    const auto add = [&looks](
                         const QString &name, const NewWidget &make, const QVector<State> &states) {
        addPartStates(looks, name, make, lineEditOf, states, kFieldSize);
    };
    add(
        "text", [] { return newField(); }, kFieldStates);
    add(
        "error", [] { return newField(true); }, kFocusStates);
    add("empty", newEmptyField, kShownStates);
    add("read-only", newReadOnlyField, {State::Rest, State::Focus});
    looks.append({"selected-text", selectedText});
    addStates(looks, "labelled", newLabelledField, kShownStates, {112, 0});
}

VemoBadge *newBadge(VemoBadge::Kind kind, bool isDot)
{
    auto *badge = new VemoBadge;
    badge->setKind(kind);
    badge->setText("ab");
    badge->setDot(isDot);
    return badge;
}

void addBadges(Looks &looks)
{
    const QPair<VemoBadge::Kind, const char *> kinds[] = {{VemoBadge::Accent, "accent"},
        {VemoBadge::Danger, "danger"}, {VemoBadge::Neutral, "neutral"}};
    for (const auto &[kind, name] : kinds) {
        for (const bool isDot : {false, true}) {
            addStates(
                looks, QString(isDot ? "dot-" : "badge-") + name,
                [kind = kind, isDot] { return newBadge(kind, isDot); }, kShownStates);
        }
    }
}

/// It would look different each time if it turned.
VemoSpinner *newStillSpinner()
{
    auto *spinner = new VemoSpinner;
    spinner->setStyleSheet(spinner->styleSheet() + "VemoSpinner { widget-animation-duration: 0; }");
    spinner->start();
    return spinner;
}

} // namespace

class FieldPictures : public BaselineTest
{
    Q_OBJECT

public:
    FieldPictures() : BaselineTest("field") { }

protected:
    Looks looks() const override;
};

Looks FieldPictures::looks() const
{
    Looks looks;
    addFields(looks);
    addStates(looks, "filter", newFilledFilterBar, kFieldStates, kFilterSize);
    addStates(
        looks, "filter-empty", [] { return newFilterBar({}); }, {State::Rest}, kFilterSize);
    addPartStates(
        looks, "filter-kinds", newFilledFilterBar,
        [](QWidget *bar) { return bar->findChild<VemoIconButton *>(); }, {State::Hover},
        kFilterSize);
    addBadges(looks);
    addStates(
        looks, "label", [] { return new VemoLabel("ab"); }, kShownStates);
    addStates(looks, "spinner", newStillSpinner, kShownStates);
    // At rest it looks like a label where both have the theme's ink.
    QVector<State> linkStates {State::Hover};
    if (QApplication::palette().color(QPalette::WindowText) != defaultThemeColor("ink"))
        linkStates.append(State::Rest);
    addStates(
        looks, "link", [] { return new LinkLabel("ab"); }, linkStates);
    return looks;
}

VEMO_TEST_MAIN(FieldPictures)
#include "tst_fieldpictures.moc"

// SPDX-License-Identifier: MIT
#include "gallery/demotexts.h"
#include "gallery/page.h"
#include "gallery/pages/pages.h"
#include "gallery/specimens.h"

#include <vemo/defaulttheme.h>
#include <vemo/dpiinfo.h>
#include <vemo/linklabel.h>
#include <vemo/tooltiptext.h>
#include <vemo/vemobadge.h>
#include <vemo/vemoiconbutton.h>
#include <vemo/vemolabel.h>
#include <vemo/vemospinner.h>
#include <vemo/vemoswitch.h>

#include <QVariant>

namespace {

const char *const kTexts[] = {
    "Gelöschte Dateien bleiben dreißig Tage lang im Archiv. Danach sind sie endgültig entfernt und "
    "lassen sich nicht wiederherstellen.",
    "已删除的文件会在存档中保留三十天。此后，这些文件将被永久删除，任何人都无法恢复。",
};

VemoLabel *newWrappedLabel(const QString &text, int width)
{
    auto *label = new VemoLabel(text);
    label->setWordWrap(true);
    label->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Minimum);
    label->setFixedWidth(DPIinfo::scaled(width));
    label->setAlignment(Qt::AlignTop);
    return label;
}

void addPlain(Page &page)
{
    auto *disabled = new VemoLabel(demo("not_in_version"));
    disabled->setEnabled(false);
    page.addSection("Text labels");
    page.addRow({captioned(new VemoLabel(demo("backup_computer")), "Rest"),
        captioned(disabled, "Disabled")});
    page.addCode("auto *title = new VemoLabel(tr(\"Backup of this computer\"), page);");
}

void addWrapped(Page &page)
{
    page.addSection("Wrapped text",
        "With word wrap and the vertical policy Minimum a label is never lower than its text.");
    const QString own = demo("archive_note");
    page.addRow({newWrappedLabel(own, 160), newWrappedLabel(own, 400)});
    for (const char *text : kTexts)
        page.addRow({newWrappedLabel(text, 160), newWrappedLabel(text, 400)});
    page.addCode(R"(label->setWordWrap(true);
label->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Minimum);)");
}

VemoBadge *newBadge(VemoBadge::Kind kind, int count)
{
    auto *badge = new VemoBadge;
    badge->setKind(kind);
    badge->setCount(count);
    return badge;
}

VemoBadge *newTextBadge(const QString &text)
{
    VemoBadge *badge = newBadge(VemoBadge::Neutral, 0);
    badge->setText(text);
    return badge;
}

VemoBadge *newDot(VemoBadge::Kind kind)
{
    VemoBadge *badge = newBadge(kind, 0);
    badge->setAccessibleName("New");
    badge->setDot(true);
    return badge;
}

/// A button with a badge at its corner.
QWidget *badged(const char *picture, const QString &name, VemoBadge *badge)
{
    auto *button = new VemoIconButton(QString(picture));
    button->setAccessibleName(name);
    badge->attachTo(button);
    return button;
}

void addBadges(Page &page)
{
    VemoBadge *disabled = newBadge(VemoBadge::Accent, 3);
    disabled->setEnabled(false);
    page.addSection("Badges",
        "A count, a text or a dot, on its own or at a corner of another widget. The count 0 hides "
        "it.");
    page.addTable({"", "Accent", "Danger", "Neutral", "Disabled"},
        {{note("Count"), newBadge(VemoBadge::Accent, 3), newBadge(VemoBadge::Danger, 120),
             newTextBadge("Beta"), disabled},
            {note("Dot"), newDot(VemoBadge::Accent), newDot(VemoBadge::Danger),
                newDot(VemoBadge::Neutral), nullptr},
            {note("Attached"), badged("bt_folder", "Folder", newBadge(VemoBadge::Accent, 3)),
                badged("bt_delete", "Delete", newBadge(VemoBadge::Danger, 120)),
                badged("bt_settings", "Settings", newDot(VemoBadge::Neutral)), nullptr}});
    page.addCode(R"(auto *badge = new VemoBadge;
badge->attachTo(inboxButton);
badge->setCount(3);)");
}

ClickableLabel *newCountingLabel()
{
    auto *label = new ClickableLabel("Press me with any mouse button");
    QObject::connect(label, &ClickableLabel::clicked, label, [label] {
        const int presses = label->property("presses").toInt() + 1;
        label->setProperty("presses", presses);
        label->setText(QString("Pressed %1 times").arg(presses));
    });
    return label;
}

LinkLabel *newLink(const QString &text, const QString &link)
{
    auto *label = new LinkLabel(text);
    label->setHyperLink(link);
    label->setStyleSheet(withDefaultThemeColors(
        "QLabel { color: @accent@; } QLabel:disabled { color: @faint-ink@; }"));
    QObject::connect(label, &LinkLabel::clicked, label,
        [label] { label->setText("Would open " + label->getHyperLink()); });
    return label;
}

void addClickable(Page &page)
{
    LinkLabel *plain = newLink(demo("release_notes"), "https://vemo.invalid/notes");
    plain->setHoverUnderline(false);
    LinkLabel *disabled = newLink(demo("store"), "https://vemo.invalid/store");
    disabled->setEnabled(false);
    page.addSection("Labels to press",
        "A clickable label reports each press. A link label also shows a hand, and underlines its "
        "text, under the pointer; opening the link is left to its owner.");
    page.addRow({captioned(newCountingLabel(), "ClickableLabel"),
        captioned(newLink(demo("licence"), "https://vemo.invalid/licence"), "LinkLabel"),
        captioned(plain, "Without underline"), captioned(disabled, "Disabled")});
    page.addCode(R"(auto *link = new LinkLabel(tr("Licence terms"), about);
link->setHyperLink("https://vemo.invalid/licence");
connect(link, &LinkLabel::clicked, this, &MainWindow::openLicence); // reads getHyperLink())");
}

void addToolTips(Page &page)
{
    const QString name = "<draft>   \"Q3 & Q4\".txt\nsecond line";
    QLabel *asItIs = text("Point here: the text as it is");
    asItIs->setToolTip(name);
    QLabel *escaped = text("Point here: the text escaped");
    escaped->setToolTip(getHtmlEscapedStringForToolTip(name));
    page.addSection("Tool tips of plain text",
        "Line breaks and runs of blanks stay, and nothing in the text is taken for mark-up.");
    page.addRow({asItIs, escaped});
    page.addCode("label->setToolTip(getHtmlEscapedStringForToolTip(fileName));");
}

VemoSpinner *newSpinner(int diameter)
{
    auto *spinner = named(new VemoSpinner, "Copying");
    spinner->setDiameter(diameter);
    return spinner;
}

VemoSpinner *newStillSpinner(int diameter)
{
    VemoSpinner *spinner = newSpinner(diameter);
    spinner->setStyleSheet(spinner->styleSheet() + "VemoSpinner { widget-animation-duration: 0; }");
    spinner->start();
    return spinner;
}

void addSpinners(Page &page)
{
    VemoSpinner *live = newSpinner(16);
    auto *copying = new VemoSwitch(demo("copying"));
    QObject::connect(copying, &VemoSwitch::toggled, live, &VemoSpinner::setRunning);
    page.addSection("Spinners", "For work whose end is not known. Stopped, it keeps its place.");
    page.addRow({captioned(copying, "Switch it on"), captioned(live, "Live"),
        captioned(newStillSpinner(16), "16"), captioned(newStillSpinner(24), "24"),
        captioned(newStillSpinner(48), "48"),
        captioned(disabled(newStillSpinner(24)), "Disabled")});
    page.addCode(R"(auto *spinner = new VemoSpinner(page);
spinner->setAccessibleName(tr("Loading"));
spinner->start();)");
}

} // namespace

void buildLabelsPage(Page &page)
{
    page.addSummary("Text that grows with its lines, badges, text that can be pressed, links, and "
                    "spinners.");
    addPlain(page);
    addWrapped(page);
    addBadges(page);
    addClickable(page);
    addToolTips(page);
    addSpinners(page);
}

// SPDX-License-Identifier: MIT
#include "gallery/page.h"

#include "gallery/look.h"
#include "gallery/wrappinglayout.h"

#include <vemo/dpiinfo.h>

#include <QEvent>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QPointer>

namespace {

// In design pixels.
constexpr int kPageMargin = 32;
constexpr int kCardMargin = 16;
constexpr int kSectionGap = 28;
constexpr int kGap = 16;
constexpr int kRowGap = 12;
constexpr int kTextGap = 4;

/// A label that begins at the side where the window's lines begin. QLabel goes by the text instead,
/// so that English stays on the left in a window from right to left.
class DirectedLabel : public QLabel
{
public:
    explicit DirectedLabel(const QString &text) : QLabel(text) { align(); }

protected:
    void changeEvent(QEvent *event) override
    {
        QLabel::changeEvent(event);
        if (event->type() == QEvent::LayoutDirectionChange)
            align();
    }

private:
    void align()
    {
        const Qt::Alignment side = isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft;
        setAlignment(side | Qt::AlignAbsolute | Qt::AlignVCenter);
    }
};

QLabel *named(const char *name, QLabel *label)
{
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    return label;
}

QLabel *newLabel(const char *name, const QString &text)
{
    return named(name, new DirectedLabel(text));
}

QLabel *newParagraph(const char *name, const QString &text)
{
    QLabel *label = newLabel(name, text);
    label->setWordWrap(true);
    return label;
}

template <typename Layout> Layout *newLayout(int gap)
{
    auto *layout = new Layout;
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(DPIinfo::scaled(gap));
    return layout;
}

QGridLayout *newGrid()
{
    auto *grid = newLayout<QGridLayout>(kGap);
    grid->setVerticalSpacing(DPIinfo::scaled(kRowGap));
    return grid;
}

} // namespace

Page::Page(const QString &title, const Options &options)
    : m_options(options), m_layout(newLayout<QVBoxLayout>(kTextGap))
{
    const int margin = DPIinfo::scaled(kPageMargin);
    m_layout->setContentsMargins(margin, margin, margin, margin);
    m_layout->addWidget(newLabel("pageTitle", title));
    m_layout->addStretch();
    setLayout(m_layout);
}

void Page::addSummary(const QString &text)
{
    m_layout->insertWidget(m_layout->count() - 1, newParagraph("pageSummary", text));
}

void Page::addSection(const QString &caption, const QString &explanation)
{
    const auto append = [this](
                            QWidget *part) { m_layout->insertWidget(m_layout->count() - 1, part); };
    m_layout->insertSpacing(m_layout->count() - 1, DPIinfo::scaled(kSectionGap - 2 * kTextGap));
    append(newLabel("sectionCaption", caption));
    if (!explanation.isEmpty())
        append(newParagraph("sectionText", explanation));
    m_layout->insertSpacing(m_layout->count() - 1, DPIinfo::scaled(kTextGap));

    auto *frame = new QFrame;
    frame->setObjectName("card");
    m_card = newLayout<QVBoxLayout>(kGap);
    const int margin = DPIinfo::scaled(kCardMargin);
    m_card->setContentsMargins(margin, margin, margin, margin);
    frame->setLayout(m_card);
    append(frame);
}

void Page::add(QWidget *specimen)
{
    card()->addWidget(specimen);
}

void Page::addRow(const QList<QWidget *> &specimens)
{
    auto *row = newLayout<WrappingLayout>(kGap);
    for (QWidget *specimen : specimens)
        row->addWidget(specimen);
    card()->addLayout(row);
}

void Page::addGrid(int columns, const QList<QWidget *> &specimens)
{
    QGridLayout *grid = newGrid();
    for (int i = 0; i < specimens.size(); ++i)
        grid->addWidget(specimens[i], i / columns, i % columns);
    for (int column = 0; column < columns; ++column)
        grid->setColumnStretch(column, 1);
    card()->addLayout(grid);
}

void Page::addTable(const QStringList &captions, const QList<QList<QWidget *>> &rows)
{
    QGridLayout *grid = newGrid();
    for (int column = 0; column < captions.size(); ++column)
        grid->addWidget(newLabel("columnCaption", captions[column]), 0, column);
    for (int row = 0; row < rows.size(); ++row) {
        for (int column = 0; column < rows[row].size(); ++column) {
            if (QWidget *specimen = rows[row][column])
                grid->addWidget(specimen, row + 1, column, Qt::AlignLeft | Qt::AlignVCenter);
        }
    }
    grid->setColumnStretch(grid->columnCount(), 1);
    card()->addLayout(grid);
}

void Page::addCode(const QString &code)
{
    QLabel *block = named("code", new QLabel(code.trimmed())); // Always from left to right.
    QFont mono("monospace");
    mono.setFamilies({"monospace"}); // Those of the application's font would come first.
    mono.setStyleHint(QFont::Monospace);
    mono.setPointSizeF(font().pointSizeF());
    block->setFont(mono);
    block->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    card()->addWidget(block);
}

QVBoxLayout *Page::card()
{
    if (!m_card)
        addSection({});
    return m_card;
}

QWidget *captioned(QWidget *specimen, const QString &caption)
{
    auto *pair = new QWidget;
    auto *layout = newLayout<QVBoxLayout>(kTextGap);
    // At the top, so that the captions of a row are aligned.
    layout->addStretch();
    layout->addWidget(specimen, 0, Qt::AlignLeft);
    layout->addWidget(newLabel("note", caption));
    pair->setLayout(layout);
    return pair;
}

QLabel *text(const QString &text)
{
    QLabel *label = newLabel("text", text);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

QLabel *note(const QString &text)
{
    return newLabel("note", text);
}

QLabel *picture(const std::function<QPixmap()> &make)
{
    auto *label = new QLabel;
    label->setPixmap(make());
    // The label may be deleted while a picture waits for its window.
    onThemeReload(label, [label = QPointer<QLabel>(label), make] {
        const QPixmap pixmap = make();
        if (label)
            label->setPixmap(pixmap);
    });
    return label;
}

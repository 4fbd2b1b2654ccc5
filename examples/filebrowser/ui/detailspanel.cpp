// SPDX-License-Identifier: MIT
#include "detailspanel.h"

#include "datefilter.h"
#include "kinds.h"
#include "paths.h"
#include "texts.h"

#include <vemo/dpiinfo.h>
#include <vemo/imagemanager.h>
#include <vemo/stylemanager.h>
#include <vemo/tooltiptext.h>

#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace {

// In design pixels.
constexpr int kWidth = 272;
constexpr int kMargin = 16;
constexpr int kGap = 12;
constexpr int kSmallGap = 8;
constexpr int kFactGap = 4;

const QString kNothing = QString::fromUtf8("–"); // clazy:exclude=non-pod-global-static

constexpr int kRounding = 2; // screen pixels: a label needs so much more than the metrics say

/// One line that is cut where it is too long; the tool tip has it whole.
class ShortLabel : public QLabel
{
public:
    explicit ShortLabel(const char *name)
    {
        setObjectName(name);
        setTextFormat(Qt::PlainText);
        setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    }

    void showText(const QString &whole)
    {
        m_whole = whole;
        setToolTip(getHtmlEscapedStringForToolTip(whole));
        cut();
    }

    void resizeEvent(QResizeEvent *event) override
    {
        QLabel::resizeEvent(event);
        cut();
    }

private:
    void cut()
    {
        const int room = width() - kRounding;
        setText(lineText(fontMetrics().elidedText(m_whole, Qt::ElideMiddle, room)));
    }

    QString m_whole;
};

void showWhole(QLabel *label, const QString &whole)
{
    static_cast<ShortLabel *>(label)->showText(whole);
}

QLabel *newCaption(const char *name, const char *key)
{
    auto *label = new QLabel;
    label->setObjectName(name);
    translate(label, [=] { label->setText(text(key)); });
    return label;
}

} // namespace

DetailsPanel::DetailsPanel(QWidget *parent)
    : QFrame(parent), m_picture(new QLabel), m_name(new ShortLabel("detailsName")),
      m_kind(new ShortLabel("detailsKind")), m_size(new ShortLabel("detailsSize")),
      m_modified(new ShortLabel("detailsModified")), m_created(new ShortLabel("detailsCreated")),
      m_place(new ShortLabel("detailsPlace")), m_access(new ShortLabel("detailsAccess")),
      m_dates(new DateFilter(this))
{
    setObjectName("detailsPanel");
    setFixedWidth(DPIinfo::scaled(kWidth));
    // A border of the style would not change sides from right to left.
    auto *edge = new QFrame;
    edge->setObjectName("edge");
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(edge);
    auto *column = new QVBoxLayout;
    row->addLayout(column, 1);
    const int margin = DPIinfo::scaled(kMargin);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(DPIinfo::scaled(kSmallGap));
    column->addLayout(newHeading());
    auto *facts = new QGridLayout;
    facts->setHorizontalSpacing(DPIinfo::scaled(kSmallGap));
    facts->setVerticalSpacing(DPIinfo::scaled(kFactGap));
    facts->setColumnStretch(1, 1);
    addFact(facts, "fact_size", m_size);
    addFact(facts, "fact_modified", m_modified);
    addFact(facts, "fact_created", m_created);
    addFact(facts, "fact_place", m_place);
    addFact(facts, "fact_access", m_access);
    column->addLayout(facts);
    column->addSpacing(DPIinfo::scaled(kGap));
    auto *line = new QFrame;
    line->setObjectName("line");
    column->addWidget(line);
    column->addSpacing(DPIinfo::scaled(kSmallGap));
    column->addWidget(newCaption("panelCaption", "changed_between"));
    column->addWidget(m_dates);
    column->addStretch();
}

QLayout *DetailsPanel::newHeading()
{
    auto *row = new QHBoxLayout;
    row->setSpacing(DPIinfo::scaled(kGap));
    auto *lines = new QVBoxLayout;
    lines->setSpacing(0);
    lines->addWidget(m_name);
    lines->addWidget(m_kind);
    row->addWidget(m_picture, 0, Qt::AlignVCenter);
    row->addLayout(lines, 1);
    return row;
}

void DetailsPanel::addFact(QGridLayout *layout, const char *caption, QLabel *value)
{
    const int row = layout->rowCount();
    layout->addWidget(newCaption("factCaption", caption), row, 0);
    layout->addWidget(value, row, 1);
}

void DetailsPanel::showHeading(const QString &name, const QString &picture)
{
    m_picture_name = picture;
    m_picture->setPixmap(getGlobalImage(picture));
    showWhole(m_name, name);
}

void DetailsPanel::customEvent(QEvent *event)
{
    if (event->type() == StyleManager::reloadEvent() && !m_picture_name.isEmpty())
        m_picture->setPixmap(getGlobalImage(m_picture_name));
    QFrame::customEvent(event);
}

void DetailsPanel::showFacts(const QStringList &values)
{
    QLabel *const labels[] = {m_kind, m_size, m_modified, m_created, m_place, m_access};
    for (int i = 0; i < 6; ++i)
        showWhole(labels[i], values.value(i).isEmpty() ? kNothing : values.at(i));
}

void DetailsPanel::showEntry(const QString &folder, const FileEntry &entry)
{
    showHeading(displayName(entry.name), pictureOf(entry));
    const QString kind = kindText(kindOf(entry));
    showFacts({entry.isLink ? text("link_to", kind) : kind,
        entry.isFolder ? QString() : sizeText(entry.size), dateText(entry.modified),
        dateText(entry.created), displayPath(folder),
        text(entry.isWritable ? "access_write" : "access_read")});
}

void DetailsPanel::showSelection(int count)
{
    showHeading(text("selected", numberText(count)), "xxx");
    showFacts({text("several")});
}

void DetailsPanel::showFolder(const QString &folder)
{
    showHeading(displayName(nameOf(folder)), "folder");
    showFacts({kindText("folder"), {}, {}, {}, displayPath(parentPath(folder)),
        text(isWritableFolder(folder) ? "access_write" : "access_read")});
}

// SPDX-License-Identifier: MIT
#include "gallery/page.h"
#include "gallery/pagelist.h"
#include "gallery/pages/pages.h"

#include <vemo/accessiblefilter.h>
#include <vemo/defaulttheme.h>
#include <vemo/dpiinfo.h>
#include <vemo/vemocombobox.h>

#include <QPaintEvent>
#include <QPainter>
#include <QVBoxLayout>
#include <QVector>

namespace {

const char kTitle[] = "Focus order";
const char kFirstPage[] = "Fields";
constexpr int kBadgeSize = 18; // design pixels

/// Draws the order that accessibleList() finds under a page over it.
class Order : public QWidget
{
public:
    Order(QWidget *page, QWidget *parent) : QWidget(parent), m_page(page)
    {
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

    void setLevel(Qt::FocusPolicy level)
    {
        m_level = level;
        update();
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(defaultThemeColor("accent"), DPIinfo::scaled(1), Qt::DotLine));
        QVector<QRect> badges;
        const QList<QWidget *> stops = accessibleList(m_page, AccessibleFilter({}, m_level));
        for (const QWidget *widget : stops) {
            const QRect frame(widget->mapTo(m_page, QPoint(0, 0)), widget->size());
            painter.drawRect(frame);
            badges << badgeBeside(badges, frame.topLeft());
        }
        for (int i = 1; i < badges.size(); ++i)
            painter.drawLine(badges[i - 1].center(), badges[i].center());
        for (int i = 0; i < badges.size(); ++i)
            drawBadge(painter, badges[i], QString::number(i + 1));
    }

private:
    /// At corner, or to the right of the badges that are there: a field inside another widget often
    /// begins where that does.
    static QRect badgeBeside(const QVector<QRect> &others, const QPoint &corner)
    {
        const int size = DPIinfo::scaled(kBadgeSize);
        QRect badge(corner - QPoint(size / 2, size / 2), QSize(size, size));
        for (const QRect &other : others) {
            if (other.intersects(badge))
                badge.moveLeft(other.right() + 1);
        }
        return badge;
    }

    static void drawBadge(QPainter &painter, const QRect &badge, const QString &number)
    {
        painter.setPen(Qt::NoPen);
        painter.setBrush(defaultThemeColor("accent"));
        painter.drawEllipse(badge);
        painter.setPen(defaultThemeColor("on-accent"));
        painter.drawText(badge, Qt::AlignCenter, number);
    }

    QWidget *m_page;
    Qt::FocusPolicy m_level = Qt::TabFocus;
};

/// A page of the gallery with the order drawn over it.
class Stage : public QWidget
{
public:
    explicit Stage(const Options &options) : m_options(options), m_layout(new QVBoxLayout(this))
    {
        m_layout->setContentsMargins(0, 0, 0, 0);
    }

    void showPage(const QString &title)
    {
        delete m_page;
        delete m_order;
        m_page = new Page(title, m_options);
        pages()[static_cast<size_t>(pageIndex(title))].build(*m_page);
        m_layout->addWidget(m_page);
        m_order = new Order(m_page, this);
        m_order->setLevel(m_level);
        m_order->setGeometry(rect());
        m_order->show();
    }

    void setLevel(Qt::FocusPolicy level)
    {
        m_level = level;
        m_order->setLevel(level);
    }

protected:
    void resizeEvent(QResizeEvent *event) override
    {
        QWidget::resizeEvent(event);
        m_order->setGeometry(rect());
    }

private:
    const Options &m_options;
    QVBoxLayout *m_layout;
    Page *m_page = nullptr;
    Order *m_order = nullptr;
    Qt::FocusPolicy m_level = Qt::TabFocus;
};

VemoComboBox *newPageBox(Stage *stage)
{
    auto *box = new VemoComboBox;
    box->setAccessibleName("Page");
    QStringList titles = pageTitles();
    titles.removeAll(kTitle);
    box->addItems(titles);
    box->setCurrentText(kFirstPage);
    QObject::connect(box, &QComboBox::currentTextChanged, stage,
        [stage](const QString &title) { stage->showPage(title); });
    return box;
}

VemoComboBox *newLevelBox(Stage *stage)
{
    auto *box = new VemoComboBox;
    box->setAccessibleName("Least focus policy");
    box->addItem("NoFocus: every visible widget", Qt::NoFocus);
    box->addItem("TabFocus: all that take the focus", Qt::TabFocus);
    box->addItem("ClickFocus: what a click focuses", Qt::ClickFocus);
    box->addItem("StrongFocus: keyboard and click", Qt::StrongFocus);
    box->addItem("WheelFocus: the wheel as well", Qt::WheelFocus);
    box->setCurrentIndex(1);
    QObject::connect(
        box, QOverload<int>::of(&QComboBox::currentIndexChanged), stage, [=](int index) {
            stage->setLevel(static_cast<Qt::FocusPolicy>(box->itemData(index).toInt()));
        });
    return box;
}

} // namespace

void buildFocusPage(Page &page)
{
    auto *stage = new Stage(page.options());
    stage->showPage(kFirstPage);
    page.addSummary("The order in which accessibleList() finds the widgets of a page.");
    page.addSection("Page and filter");
    page.addRow({captioned(newPageBox(stage), "Page"),
        captioned(newLevelBox(stage), "Least focus policy")});
    page.addCode(R"(const AccessibleFilter filter({}, Qt::TabFocus);
const QList<QWidget *> order = accessibleList(page, filter);)");
    page.addSection("Order");
    page.add(stage);
}

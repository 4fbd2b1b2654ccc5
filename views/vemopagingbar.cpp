// SPDX-License-Identifier: MIT
#include <vemo/vemopagingbar.h>

#include "controls/fittingfont_p.h"
#include "controls/growntofont_p.h"
#include "controls/namediconbutton_p.h"
#include "core/logging_p.h"
#include "core/scaling_p.h"
#include "views/pagingextras_p.h"

#include <vemo/stylemanager.h>
#include <vemo/vemobutton.h>
#include <vemo/vemoiconbutton.h>
#include <vemo/vemopagingmodel.h>

#include <QAccessibleWidget>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalMapper>
#include <QStyleOptionButton>
#include <QStylePainter>

namespace {

// In design pixels.
constexpr int kBarHeight = 32;
constexpr int kButtonSize = 24;
constexpr int kButtonGap = 4;
constexpr int kLeftMargin = 8;
constexpr int kFooterGap = 50;

constexpr int kMiddle = 2;
constexpr int kLeap = 5;
constexpr int kOwnRowLimit = 50;

constexpr char kToFirst[] = "bt_pagebar_backend";
constexpr char kBack[] = "bt_pagebar_back";
constexpr char kNext[] = "bt_pagebar_next";
constexpr char kToLast[] = "bt_pagebar_nextend";

constexpr Qt::Alignment kAtLeft = Qt::AlignLeft | Qt::AlignVCenter;
constexpr Qt::Alignment kCentred = Qt::AlignHCenter | Qt::AlignVCenter;
constexpr Qt::Alignment kAtRight = Qt::AlignRight | Qt::AlignVCenter;

/// A line in front of a footer label.
class Separator : public QLabel
{
public:
    Separator() { takeColor(); }

protected:
    void customEvent(QEvent *event) override
    {
        if (event->type() == StyleManager::reloadEvent())
            takeColor();
        QLabel::customEvent(event);
    }

private:
    void takeColor()
    {
        const QColor named =
            StyleManager::getInstance().getColor(QStringLiteral("paging-separator"), {});
        // Deliberate: this color in every theme that names no other.
        const QString color = named.isValid() ? QStringLiteral("rgba(%1,%2,%3,%4)")
                                                    .arg(named.red())
                                                    .arg(named.green())
                                                    .arg(named.blue())
                                                    .arg(named.alpha())
                                              : QStringLiteral("rgba(171,181,194,0.20)");
        setStyleSheet(QStringLiteral("QLabel {background: %1;}").arg(color));
    }
};

/// In a right-to-left layout the row is mirrored, so each button shows the picture of its
/// counterpart.
class NavigationButton : public NamedIconButton
{
public:
    NavigationButton(const char *picture, const char *counterpart, const char *toolTipKey)
        : NamedIconButton(QLatin1String(picture), toolTipKey), m_picture(QLatin1String(picture)),
          m_counterpart(QLatin1String(counterpart))
    {
        setToolTip(accessibleName());
        if (isRightToLeft())
            setAllIcon(m_counterpart);
    }

protected:
    void changeEvent(QEvent *event) override
    {
        NamedIconButton::changeEvent(event);
        if (event->type() != QEvent::LayoutDirectionChange)
            return;
        setAllIcon(isRightToLeft() ? m_counterpart : m_picture);
        // On this event the button updates its picture to its current state.
        QEvent enabledChange(QEvent::EnabledChange);
        NamedIconButton::changeEvent(&enabledChange);
    }

private:
    QString m_picture;
    QString m_counterpart;
};

/// A page number. A blank one draws nothing, not even the background of its style.
class PageButton : public VemoButton
{
public:
    PageButton(Role role, bool isCurrent) : VemoButton(QString(), role), m_is_current(isCurrent) { }

    bool isBlank() const { return text().trimmed().isEmpty(); }
    bool isCurrent() const { return m_is_current; }

protected:
    void paintEvent(QPaintEvent *event) override
    {
        if (isBlank())
            return;
        if (fontMetrics().height() <= height()) {
            VemoButton::paintEvent(event);
            return;
        }
        QStyleOptionButton option;
        initStyleOption(&option);
        QStylePainter painter(this);
        painter.setFont(fontForHeight(font(), height()));
        painter.drawControl(QStyle::CE_PushButton, option);
    }

private:
    bool m_is_current;
};

/// Marks the current page for assistive tools, and hides blank buttons from them.
class AccessiblePageButton : public QAccessibleWidget
{
public:
    explicit AccessiblePageButton(PageButton *button)
        : QAccessibleWidget(button, QAccessible::Button)
    {
    }

    QString text(QAccessible::Text kind) const override
    {
        const QString given = QAccessibleWidget::text(kind);
        return kind == QAccessible::Name && given.isEmpty() ? button()->text().trimmed() : given;
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = true;
        state.checked = button()->isCurrent() && !button()->isBlank();
        state.invisible |= button()->isBlank();
        return state;
    }

    QStringList actionNames() const override { return {pressAction()}; }

    void doAction(const QString &name) override
    {
        if (name == pressAction())
            button()->click();
    }

private:
    PageButton *button() const { return static_cast<PageButton *>(widget()); }
};

QAccessibleInterface *newAccessiblePageButton(const QString &className, QObject *object)
{
    if (className != QLatin1String(VemoButton::staticMetaObject.className()))
        return nullptr;
    auto *button = dynamic_cast<PageButton *>(object);
    return button ? new AccessiblePageButton(button) : nullptr;
}

} // namespace

VemoPagingBar::VemoPagingBar(VemoPagingModel *model, QWidget *parent)
    : QWidget(parent), m_model(model)
{
    if (hasModel()) {
        m_model->setNowPage(1);
        m_model->setItemCount(0);
    }
    QAccessible::installFactory(newAccessiblePageButton); // a no-op if already installed
    m_page_mapper = new QSignalMapper(this);
    m_first_page_button = new NavigationButton(kToFirst, kToLast, "first_page");
    m_prev_5_button = new NavigationButton(kBack, kNext, "prev_5_pages");
    m_last_page_button = new NavigationButton(kToLast, kToFirst, "last_page");
    m_next_5_button = new NavigationButton(kNext, kBack, "next_5_pages");
    VemoPagingBar::initializeUI();
    connectSignals();
}

VemoPagingBar::VemoPagingBar(QWidget *parent)
    : VemoPagingBar(new VemoPagingModel(kOwnRowLimit, nullptr), parent)
{
    m_model->setParent(this);
}

VemoPagingBar::VemoPagingBar(std::nullptr_t) : VemoPagingBar() { }

VemoPagingBar::~VemoPagingBar() = default;

void VemoPagingBar::initializeUI()
{
    if (m_main_layout)
        return;
    m_main_layout = new QHBoxLayout;
    m_main_layout->setSpacing(0);
    // Deliberate: a margin of one pixel for the line at the top.
    m_main_layout->setContentsMargins(0, scaled(1), 0, 0);
    m_main_layout->addSpacing(scaled(kLeftMargin));
    m_main_layout->setAlignment(Qt::AlignVCenter);

    m_main_layout->addWidget(m_first_page_button, 0, kAtLeft);
    m_main_layout->addSpacing(scaled(kButtonGap));
    m_main_layout->addWidget(m_prev_5_button, 0, kAtLeft);
    addPageButtons();
    m_main_layout->addWidget(m_next_5_button, 0, kAtRight);
    m_main_layout->addWidget(m_last_page_button, 0, kAtRight);
    m_main_layout->addStretch(0);
    addRefreshButton();
    addBorder();
}

void VemoPagingBar::connectSignals()
{
    connect(m_refresh_button, SIGNAL(clicked()), this, SIGNAL(sigRefresh()));
    connect(m_first_page_button, SIGNAL(clicked()), this, SLOT(first_page()));
    connect(m_last_page_button, SIGNAL(clicked()), this, SLOT(last_page()));
    connect(m_next_5_button, SIGNAL(clicked()), this, SLOT(next_5_page()));
    connect(m_prev_5_button, SIGNAL(clicked()), this, SLOT(prev_5_page()));
}

VemoPagingModel *VemoPagingBar::pagingModel() const
{
    return m_model;
}

int VemoPagingBar::rowLimit() const
{
    return m_model ? m_model->rowLimit() : 0;
}

int VemoPagingBar::itemCount() const
{
    return m_model ? m_model->itemCount() : 0;
}

void VemoPagingBar::setItemCount(int count)
{
    if (!hasModel())
        return;
    m_model->setItemCount(count);
    setPage(m_model->nowPage());
}

void VemoPagingBar::setRowLimit(int rowLimit)
{
    if (!hasModel())
        return;
    m_model->setRowLimit(rowLimit);
    setPage(m_model->nowPage());
}

void VemoPagingBar::reset()
{
    first_page();
}

int VemoPagingBar::page() const
{
    return m_model ? m_model->nowPage() : 0;
}

void VemoPagingBar::setPage(int page)
{
    if (hasModel())
        showPage(m_is_clamping ? qBound(1, page, m_model->pageCount()) : page);
}

void VemoPagingBar::setClamping(bool clamping)
{
    m_is_clamping = clamping;
}

void VemoPagingBar::setRangeVisible(bool visible)
{
    if (visible != isRangeVisible())
        extras()->setRangeVisible(visible);
}

bool VemoPagingBar::isRangeVisible() const
{
    return m_extras && m_extras->isRangeVisible();
}

void VemoPagingBar::setRowLimits(const QVector<int> &limits)
{
    if (limits != rowLimits())
        extras()->setRowLimits(limits);
}

QVector<int> VemoPagingBar::rowLimits() const
{
    return m_extras ? m_extras->rowLimits() : QVector<int>();
}

void VemoPagingBar::setJumpFieldVisible(bool visible)
{
    if (visible != isJumpFieldVisible())
        extras()->setJumpFieldVisible(visible);
}

bool VemoPagingBar::isJumpFieldVisible() const
{
    return m_extras && m_extras->isJumpFieldVisible();
}

void VemoPagingBar::setRefreshButtonHidden(bool hidden)
{
    m_refresh_button->setHidden(hidden);
}

bool VemoPagingBar::isRefreshButtonHidden() const
{
    return m_refresh_button->isHidden();
}

void VemoPagingBar::setFooterText(const QString &text)
{
    setFooterInfo({text, 0});
}

QString VemoPagingBar::footerText() const
{
    return m_footer_labels.empty() ? QString() : m_footer_labels.front()->text();
}

void VemoPagingBar::setFooterInfo(const PagingFooterInfo &info)
{
    setFooterInfos({info});
}

void VemoPagingBar::setFooterInfos(const std::vector<PagingFooterInfo> &infos)
{
    for (size_t k = 0; k < infos.size(); ++k) {
        if (k == m_footer_labels.size()) {
            addFooterLabel(infos[k]);
            continue;
        }
        m_footer_labels[k]->setText(infos[k].text);
        if (infos[k].width != 0)
            m_footer_labels[k]->setFixedWidth(scaled(infos[k].width));
    }
    while (m_footer_labels.size() > infos.size())
        dropFooterLabel();
}

void VemoPagingBar::pageClick(int page)
{
    // The focus follows the page to the middle instead of staying at the button's position.
    const QPointer<VemoButton> middle(m_page_buttons[kMiddle]);
    const bool hadFocus = m_page_buttons[page]->hasFocus();
    goTo(m_page_buttons[page]->text().toInt());
    if (hadFocus && middle && middle->isEnabled())
        middle->setFocus();
}

void VemoPagingBar::next_5_page()
{
    if (hasModel())
        goTo(static_cast<int>(
            qMin<qint64>(qint64(m_model->nowPage()) + kLeap, m_model->pageCount())));
}

void VemoPagingBar::prev_5_page()
{
    if (hasModel())
        goTo(static_cast<int>(qMax<qint64>(qint64(m_model->nowPage()) - kLeap, 1)));
}

void VemoPagingBar::first_page()
{
    goTo(1);
}

void VemoPagingBar::last_page()
{
    if (hasModel())
        goTo(m_model->pageCount());
}

void VemoPagingBar::showPage(int page)
{
    const int pageCount = m_model->pageCount();
    for (int slot = 0; slot < kSlots; ++slot) {
        const qint64 number = qint64(page) - kMiddle + slot;
        const bool exists = number > 0 && number <= pageCount;
        m_page_buttons[slot]->setText(exists ? QString::number(number) : QStringLiteral(" "));
        m_page_buttons[slot]->setEnabled(exists);
    }
    m_next_5_button->setEnabled(page < pageCount);
    m_last_page_button->setEnabled(page < pageCount);
    m_prev_5_button->setEnabled(page != 1);
    m_first_page_button->setEnabled(page != 1);
    // Deliberate: a page beyond the last one is also kept.
    m_model->setNowPage(page);
    if (m_extras)
        m_extras->showPosition(*m_model);
    if (page == m_reported_page)
        return;
    m_reported_page = page;
    Q_EMIT pageChanged(page);
}

void VemoPagingBar::goTo(int page)
{
    if (!hasModel())
        return;
    const QPointer<VemoPagingBar> self(this);
    showPage(page);
    if (self)
        Q_EMIT sigPageChanged();
}

PagingExtras *VemoPagingBar::extras()
{
    if (m_extras)
        return m_extras;
    m_extras = new PagingExtras;
    m_main_layout->insertWidget(m_main_layout->indexOf(m_last_page_button) + 1, m_extras);
    connect(m_extras, &PagingExtras::rowLimitChosen, this, [this](int limit) {
        if (!hasModel())
            return;
        const int first = qMax(m_model->startItem(), 0);
        m_model->setRowLimit(limit);
        goTo(first / limit + 1);
    });
    connect(m_extras, &PagingExtras::pageChosen, this, [this](int page) {
        if (hasModel())
            goTo(qBound(1, page, m_model->pageCount()));
    });
    if (m_model)
        m_extras->showPosition(*m_model);
    return m_extras;
}

bool VemoPagingBar::hasModel() const
{
    if (!m_model)
        qCWarning(vemoLog) << "Paging bar has no model";
    return m_model;
}

void VemoPagingBar::addPageButtons()
{
    for (int slot = 0; slot < kSlots; ++slot) {
        if (slot > 0)
            m_main_layout->addSpacing(scaled(kButtonGap));
        const auto role =
            slot == kMiddle ? VemoButton::SELECT_PAGING : VemoButton::NONSELECT_PAGING;
        auto *button = new PageButton(role, slot == kMiddle);
        button->setFixedHeight(scaled(kButtonSize));
        button->setMinimumWidth(scaled(kButtonSize));
        connect(button, SIGNAL(clicked()), m_page_mapper, SLOT(map()));
        m_main_layout->addWidget(button, 0, kCentred);
        m_page_mapper->setMapping(button, slot);
        m_page_buttons[slot] = button;
    }
    m_page_buttons[kMiddle]->setText(QStringLiteral("1"));
    connect(m_page_mapper, SIGNAL(mappedInt(int)), this, SLOT(pageClick(int)));
}

void VemoPagingBar::addRefreshButton()
{
    m_refresh_button = new NamedIconButton(QStringLiteral("bt_pagebar_refresh"), "pagebar_refresh");
    m_refresh_button->setFixedSize(scaled(kButtonSize), scaled(kButtonSize));

    m_footer_layout = new QHBoxLayout;
    m_footer_layout->setDirection(QBoxLayout::RightToLeft);
    m_footer_layout->setAlignment(kAtRight);
    m_footer_layout->setSpacing(scaled(kButtonGap));
    m_footer_layout->setContentsMargins(0, 0, 0, 0);
    m_footer_layout->addWidget(m_refresh_button, 0, kCentred);
    m_main_layout->addSpacing(scaled(kFooterGap));
    m_main_layout->addLayout(m_footer_layout);
}

void VemoPagingBar::addBorder()
{
    auto *border = new QWidget;
    border->setLayout(m_main_layout);
    border->setObjectName(QStringLiteral("PAGINGBARBORDER"));
    border->setStyleSheet(getStyleSheet("component.paging_bar_border"));
    border->setFixedHeight(scaled(kBarHeight));

    auto *barLayout = new QHBoxLayout;
    barLayout->setSpacing(0);
    barLayout->setContentsMargins(0, 0, 0, 0);
    barLayout->addWidget(border);
    setLayout(barLayout);
}

/// The style of the next label to be added.
QString VemoPagingBar::footerStyle() const
{
    // Deliberate: before the bar is first shown, its refresh button counts as hidden.
    const bool isRefreshHidden =
        m_refresh_button->isHidden() || !window()->testAttribute(Qt::WA_WState_ExplicitShowHide);
    return m_footer_labels.empty() && isRefreshHidden
        ? getStyleSheet("component.paging_bar_rightmost_label")
        : getStyleSheet("component.paging_bar_label");
}

void VemoPagingBar::addFooterLabel(const PagingFooterInfo &info)
{
    auto *label = new QLabel(info.text);
    label->setAlignment(kAtRight);
    label->setFixedHeight(scaled(kButtonSize));
    FittingFont::keep(label, scaled(kButtonSize));
    if (info.width != 0)
        label->setFixedWidth(scaled(info.width));
    label->setStyleSheet(footerStyle());
    m_footer_labels.push_back(label);

    auto *separator = new Separator;
    separator->setFixedSize(scaled(1), scaled(kButtonSize));
    m_footer_layout->addWidget(separator, 0, Qt::AlignVCenter);
    m_footer_layout->addWidget(label, 0, Qt::AlignVCenter);
}

void VemoPagingBar::dropFooterLabel()
{
    // Deliberate: the label remains as a hidden child of the bar, and its separator stays visible.
    QLabel *label = m_footer_labels.back();
    label->hide();
    m_footer_layout->removeWidget(label);
    m_footer_labels.pop_back();
}

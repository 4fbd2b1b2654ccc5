// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QPointer>
#include <QString>
#include <QWidget>

#include <array>
#include <vector>

class QHBoxLayout;
class QLabel;
class QSignalMapper;
class VemoButton;
class VemoIconButton;
class VemoPagingModel;

/// One label at the right of a VemoPagingBar.
///
///     bar->setFooterInfos({ { tr("350 items"), 0 }, { tr("3 selected"), 120 } });
///
/// \image html paging-footer-labels.png
struct VEMO_EXPORT PagingFooterInfo
{
    /// What the label shows.
    QString text;
    int width = 0; ///< in design pixels; 0: as wide as the text, or as the label was before
};

/// The bar under a long list: to the first page, five pages back, five page numbers around the
/// current one, five pages on, to the last page; at the right footer labels and a refresh button.
///
/// The bar does no paging of its own: it keeps the current page in the host's model and says when
/// it has moved. Give it a model that lives as long; without one it does nothing but warn. It is 32
/// design pixels high and belongs to its parent. Load strings, pictures and style files before: a
/// missing string shows its key, a missing picture or style is left out, each with a warning.
///
///     auto *bar = new VemoPagingBar(model, this);
///     connect(bar, SIGNAL(sigPageChanged()), this, SLOT(slotFillTable()));
///     bar->setItemCount(items.size());
///     bar->setFooterText(tr("%n item(s)", nullptr, items.size()));
///
/// \image html paging-where-the-list-stands.png
class VEMO_EXPORT VemoPagingBar : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(int rowLimit READ rowLimit WRITE setRowLimit)
    Q_PROPERTY(int itemCount READ itemCount WRITE setItemCount)
    Q_PROPERTY(bool refreshButtonHidden READ isRefreshButtonHidden WRITE setRefreshButtonHidden)
    Q_PROPERTY(QString footerText READ footerText WRITE setFooterText)

public:
    /// Sets the model to page 1 of no items. Until setItemCount() or reset() only the middle button
    /// has its number, 1, and all buttons are enabled: call one before the bar is shown. The model
    /// stays the caller's.
    VemoPagingBar(VemoPagingModel *model, QWidget *parent);

    /// With a model of its own, of 50 rows a page, as code made from a form needs it.
    explicit VemoPagingBar(QWidget *parent);
    ~VemoPagingBar() override;

    /// Builds the parts; already done by the constructor.
    virtual void initializeUI();
    /// Connects the buttons; already done by the constructor.
    void connectSignals();

    VemoPagingModel *pagingModel() const; ///< null when it was deleted

    int rowLimit() const; ///< the model's; 0 without one
    int itemCount() const; ///< the model's; 0 without one

    /// Stays on the current page, even if there are too few items for it now, and emits nothing.
    void setItemCount(int count);

    /// As setItemCount(), for the rows per page.
    void setRowLimit(int rowLimit);

    /// Goes to page 1 and emits sigPageChanged().
    void reset();

    /// The refresh button is shown at first.
    void setRefreshButtonHidden(bool hidden);
    bool isRefreshButtonHidden() const; ///< whether it was told to hide

    /// One footer label without a fixed width.
    void setFooterText(const QString &text);
    /// The text of the rightmost footer label; empty without one.
    QString footerText() const;
    /// One footer label.
    void setFooterInfo(const PagingFooterInfo &info);

    /// The labels from right to left. One that exists gets the new text, and its width if that is
    /// not 0; those beyond the last info are hidden, but their separators stay.
    void setFooterInfos(const std::vector<PagingFooterInfo> &infos);

Q_SIGNALS:
    /// The user, or reset(), chose a page, be it the current one; it is in the model's nowPage().
    void sigPageChanged();
    /// The refresh button was clicked; the bar itself does nothing about it.
    void sigRefresh();

private Q_SLOTS:
    void pageClick(int page);
    void next_5_page();
    void prev_5_page();
    void first_page();
    void last_page();

private:
    void setPage(int page);
    void goTo(int page);
    bool hasModel() const;
    void addPageButtons();
    void addRefreshButton();
    void addBorder();
    QString footerStyle() const;
    void addFooterLabel(const PagingFooterInfo &info);
    void dropFooterLabel();

    static constexpr int kSlots = 5;

    QPointer<VemoPagingModel> m_model;
    QHBoxLayout *m_main_layout = nullptr; ///< of the bordered row
    QHBoxLayout *m_footer_layout = nullptr; ///< from right to left
    VemoIconButton *m_first_page_button = nullptr;
    VemoIconButton *m_prev_5_button = nullptr;
    VemoIconButton *m_next_5_button = nullptr;
    VemoIconButton *m_last_page_button = nullptr;
    std::array<VemoButton *, kSlots> m_page_buttons {}; ///< the middle one is the current page
    std::vector<QLabel *> m_footer_labels; ///< the first is the rightmost
    VemoIconButton *m_refresh_button = nullptr;
    QSignalMapper *m_page_mapper = nullptr; ///< page button to its slot
};

// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QVector>
#include <QWidget>

class QHBoxLayout;
class QLabel;
class QLineEdit;
class VemoComboBox;
class VemoPagingModel;

/// What a VemoPagingBar may have after its page buttons: the range of the items that are shown, a
/// box for the rows per page, a field for a page to go to.
class PagingExtras : public QWidget
{
    Q_OBJECT

public:
    PagingExtras();

    void setRangeVisible(bool visible);
    bool isRangeVisible() const { return m_range; }
    void setRowLimits(const QVector<int> &limits);
    QVector<int> rowLimits() const;
    void setJumpFieldVisible(bool visible);
    bool isJumpFieldVisible() const { return m_jump_field; }

    /// Shows where model is.
    void showPosition(const VemoPagingModel &model);

Q_SIGNALS:
    void rowLimitChosen(int limit);
    void pageChosen(int page);

private:
    void addRange();
    void addLimitBox();
    void addJumpField();
    void add(int position, QWidget *part);
    template <typename Part> void remove(Part *&part);
    void showAll();

    QHBoxLayout *m_layout;
    QLabel *m_range = nullptr;
    VemoComboBox *m_limit_box = nullptr;
    QLineEdit *m_jump_field = nullptr;
    int m_row_limit = 0; ///< as they were shown last
    int m_item_count = 0;
    int m_page = 1;
};

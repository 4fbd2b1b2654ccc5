// SPDX-License-Identifier: MIT
#include <vemo/vemotimecombobox.h>

#include "datetime/enterkey_p.h"
#include "datetime/leadingtext_p.h"

#include <QLineEdit>
#include <QListView>
#include <QLocale>
#include <QPointer>
#include <QRegularExpressionValidator>
#include <QStandardItemModel>

#include <limits>

namespace {

constexpr int kTimeLength = 5; // HH:mm
constexpr auto kTimeFormat = "HH:mm";

/// Not by QTime's own function, which writes the digits of the system's locale.
QString textOf(const QTime &time)
{
    return QLocale::c().toString(time, QLatin1String(kTimeFormat));
}

QString twoDigits(const QString &part)
{
    return part.size() < 2 ? part.rightJustified(2, QLatin1Char('0')) : part;
}

/// Completes a typed time: "9" is 09:00. A single digit of minutes is padded with a leading zero:
/// "9:5" is 09:05.
QString completed(const QString &typed)
{
    const QStringList parts = typed.split(QLatin1Char(':'));
    const QString minutes = parts.size() == 1 ? QString() : parts[1];
    return twoDigits(parts[0]) + QLatin1Char(':') + twoDigits(minutes);
}

/// Makes the list query the size of one row instead of all rows, which is much faster. All times
/// have the same size, but a custom text may have a different one.
void setUniformRows(QAbstractItemView *view, bool areEqual)
{
    if (auto *list = qobject_cast<QListView *>(view))
        list->setUniformItemSizes(areEqual);
}

/// Whether the focus moves to or returns from a pop-up, such as the context menu of the edit.
bool isForPopup(const QEvent *event)
{
    return static_cast<const QFocusEvent *>(event)->reason() == Qt::PopupFocusReason;
}

/// Keeps the selection while the text of an edit is completed, so that a context menu can copy or
/// replace it.
class KeptSelection
{
public:
    explicit KeptSelection(QLineEdit *edit)
        : m_edit(edit), m_text(edit->selectedText()), m_start(edit->selectionStart()),
          m_is_all(m_text == edit->text())
    {
    }

    void restore() const
    {
        if (!m_edit || m_text.isEmpty())
            return;
        const int start = m_is_all ? 0 : m_edit->text().indexOf(m_text, m_start);
        if (start >= 0)
            m_edit->setSelection(start, m_is_all ? kTimeLength : m_text.size());
    }

private:
    QPointer<QLineEdit> m_edit; // A slot may delete it.
    QString m_text;
    int m_start;
    bool m_is_all;
};

} // namespace

VemoTimeComboBox::VemoTimeComboBox(QWidget *parent)
    : VemoComboBox(parent), m_max_visible(maxVisibleItems())
{
    installEventFilter(this);
    view()->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setUniformRows(view(), true);
    connect(
        this, qOverload<int>(&QComboBox::currentIndexChanged), this, &VemoTimeComboBox::reportTime);
}

QStringList VemoTimeComboBox::times() const
{
    QStringList times;
    for (int row = 0; row < count(); ++row) {
        if (!isCustomRow(row))
            times << itemText(row);
    }
    return times;
}

void VemoTimeComboBox::setTimes(const QStringList &times)
{
    const QString shown = currentText();
    for (int row = count() - 1; row >= 0; --row) {
        if (!isCustomRow(row))
            removeItem(row);
    }
    addItems(times);
    const int row = rowOf(shown);
    if (row >= 0)
        setCurrentIndex(row);
}

void VemoTimeComboBox::setTimes(const QTime &first, const QTime &last, int minutes)
{
    if (!first.isValid() || !last.isValid() || minutes < 1)
        return;
    QStringList times;
    const QTime midnight(0, 0);
    const int end = midnight.secsTo(last) / 60;
    for (int minute = midnight.secsTo(first) / 60; minute <= end; minute += minutes)
        times << textOf(midnight.addSecs(minute * 60));
    setTimes(times);
}

void VemoTimeComboBox::setEditable(bool editable)
{
    if (isEditable() == editable)
        return;
    QComboBox::setEditable(editable);
    if (editable) {
        setUpEditing();
        insertCustomItem();
    } else if (customItem()) {
        removeItem(m_custom_row.row());
        setUniformRows(view(), true);
        adjustMaxVisibleItems();
    }
}

void VemoTimeComboBox::setCurrentText(const std::string &text)
{
    const QString time = QString::fromStdString(text);
    restoreCustomItem();
    const int row = rowOf(time);
    if (!isEditable()) {
        setCurrentIndex(qMax(row, 0));
    } else if (row < 0) {
        fillCustomItem(time);
        setCurrentIndex(m_custom_index);
        showBeginning();
    } else {
        setItemVisible(false);
        setCurrentIndex(row);
    }
    reportTime(); // Another time in the same row.
}

void VemoTimeComboBox::setCurrentText(const QString &text)
{
    setCurrentText(text.toStdString());
}

void VemoTimeComboBox::setCurrentText(const char *text)
{
    setCurrentText(std::string(text));
}

void VemoTimeComboBox::setDefault(const QString &text)
{
    setDefault(text.toStdString());
}

void VemoTimeComboBox::setDefault(const char *text)
{
    setDefault(std::string(text));
}

QTime VemoTimeComboBox::time() const
{
    return QLocale::c().toTime(currentText().left(kTimeLength), QLatin1String(kTimeFormat));
}

void VemoTimeComboBox::setTime(const QTime &time)
{
    if (time.isValid())
        setCurrentText(textOf(time));
}

void VemoTimeComboBox::setDefault(const std::string &text)
{
    const QString time = QString::fromStdString(text);
    restoreCustomItem();
    const int row = rowOf(time);
    if (!isEditable()) {
        m_default_index = qMax(row, 0);
    } else if (row < 0) {
        fillCustomItem(time);
        m_default_index = m_custom_index;
    } else {
        setItemVisible(false);
        m_default_index = row;
    }
}

void VemoTimeComboBox::setCustomText(const QString &text)
{
    m_custom_text = text;
}

void VemoTimeComboBox::setMaxVisibleItems(int count)
{
    m_max_visible = count;
    adjustMaxVisibleItems();
}

bool VemoTimeComboBox::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress && isEnter(event)) {
        clearFocus();
    } else if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
        if (isEditable() && isForPopup(event)) {
            const KeptSelection selection(lineEdit());
            changeFocus(event->type());
            selection.restore();
        } else {
            changeFocus(event->type());
        }
    }
    return QObject::eventFilter(watched, event);
}

void VemoTimeComboBox::changeFocus(QEvent::Type change)
{
    if (change == QEvent::FocusOut)
        correctTime();
    // The custom item has moved if the host inserted items before it.
    else if (customItem() && currentIndex() == m_custom_row.row())
        setItemText(currentIndex(), currentText().left(kTimeLength));
}

void VemoTimeComboBox::setItemVisible(bool visible)
{
    if (QStandardItem *item = customItem()) {
        if (auto *list = qobject_cast<QListView *>(view()))
            list->setRowHidden(m_custom_index, !visible);
        setUniformRows(view(), !visible);
        item->setEnabled(visible);
    }
    adjustMaxVisibleItems();
}

void VemoTimeComboBox::adjustMaxVisibleItems()
{
    const QStandardItem *item = isEditable() ? customItem() : nullptr;
    const bool isHidden = item && !item->isEnabled();
    const bool hasRoom = m_max_visible < std::numeric_limits<int>::max();
    QComboBox::setMaxVisibleItems(isHidden && hasRoom ? m_max_visible + 1 : m_max_visible);
}

void VemoTimeComboBox::correctTime()
{
    const QString typed = currentText().left(kTimeLength);
    restoreCustomItem();
    if (typed.isEmpty()) {
        selectDefault();
        return;
    }
    const QString time = completed(typed);
    const int row = rowOf(time);
    if (!isEditable()) {
        setCurrentIndex(qMax(row, 0));
    } else if (row < 0 || row == m_custom_index) {
        fillCustomItem(time);
        setCurrentIndex(m_custom_index);
        showBeginning();
        // Deliberate: a different time in the same row is also a change.
        Q_EMIT currentIndexChanged(m_custom_index);
    } else {
        setItemVisible(false);
        setCurrentIndex(row);
    }
}

void VemoTimeComboBox::setUpEditing()
{
    if (!m_validator) {
        const QRegularExpression time(
            QStringLiteral(R"(^(?:\d|[01]\d|2[0-3])(?:|:|:\d|:[0-5]\d)$)"));
        m_validator = new QRegularExpressionValidator(time, this);
    }
    lineEdit()->setValidator(m_validator);
    new LeadingText(lineEdit());
    lineEdit()->setFocusPolicy(Qt::StrongFocus);
    // A completer would turn 14:3 into 14:30, and Return would insert the typed text as an item.
    setCompleter(nullptr);
    setInsertPolicy(NoInsert);
}

void VemoTimeComboBox::insertCustomItem()
{
    m_custom_index = qMin(m_custom_index, count());
    insertItem(m_custom_index, QString());
    if (!isEditable()) {
        // Made read-only by a slot before the item existed.
        removeItem(m_custom_index);
        return;
    }
    m_custom_row = model()->index(m_custom_index, modelColumn(), rootModelIndex());
    setItemVisible(false);
}

// The caller may have cleared all items, including the custom one, or inserted some before it.
void VemoTimeComboBox::restoreCustomItem()
{
    if (customItem())
        m_custom_index = m_custom_row.row();
    else if (isEditable())
        insertCustomItem();
}

QStandardItem *VemoTimeComboBox::customItem() const
{
    const auto *items = qobject_cast<const QStandardItemModel *>(model());
    const bool isThere = items && m_custom_row.isValid() && m_custom_row.model() == items;
    return isThere ? items->itemFromIndex(m_custom_row) : nullptr;
}

bool VemoTimeComboBox::isCustomRow(int row) const
{
    return customItem() && m_custom_row.row() == row;
}

int VemoTimeComboBox::rowOf(const QString &text) const
{
    return findData(text, Qt::DisplayRole, Qt::MatchCaseSensitive);
}

void VemoTimeComboBox::fillCustomItem(const QString &time)
{
    const QString suffix = m_custom_text.isEmpty() ? QString() : QLatin1Char(' ') + m_custom_text;
    if (customItem())
        setItemText(m_custom_index, time + suffix);
    setItemVisible(true);
}

// If the custom text leaves no room for the time. A slot may have deleted the edit.
void VemoTimeComboBox::showBeginning()
{
    if (isEditable() && !hasFocus())
        lineEdit()->setCursorPosition(0);
}

void VemoTimeComboBox::selectDefault()
{
    const bool isBeyond = m_default_index >= count();
    setItemVisible(isBeyond);
    setCurrentIndex(isBeyond ? m_custom_index : m_default_index);
}

void VemoTimeComboBox::reportTime()
{
    const QTime shown = time();
    if (shown == m_reported_time)
        return;
    m_reported_time = shown;
    Q_EMIT timeChanged(shown);
}

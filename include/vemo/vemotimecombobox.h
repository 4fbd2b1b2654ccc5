// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/vemocombobox.h>

#include <QEvent>
#include <QPersistentModelIndex>
#include <QStringList>
#include <QTime>

#include <string>

class QStandardItem;
class QValidator;

/// A combo box for a time of day. The caller adds times in the format HH:mm as items. If it is
/// editable, the user can also type a time, which is completed when the field loses the focus: 9
/// becomes 09:00, and 9:5 becomes 09:05.
///
/// An editable box has a custom item before those of the caller, which is hidden unless it shows a
/// time that is not among them; the caller's items then start at row 1. Because the custom item
/// shifts the rows, call setDefault() after setEditable(). The box relies on QComboBox's own model
/// and view, and assumes that all rows have the same size if they are times only; if yours do not,
/// call setUniformItemSizes(false) of the view before it opens.
///
/// Its signals are those of QComboBox, also for changes by the program; currentIndexChanged() is
/// also emitted whenever the field loses the focus with the custom item shown. Opening the context
/// menu of the edit counts as losing the focus: the typed text is completed first, and the
/// selection is kept. Requires: style files, as for VemoComboBox. It belongs to its parent.
///
///     auto *start = new VemoTimeComboBox(page);
///     start->addItems({ "00:00", "06:00", "12:00", "18:00" });
///     start->setEditable(true);
///     start->setCurrentText("06:00");
///     start->setDefault("06:00"); // selected when the field is emptied
///     connect(start, &VemoTimeComboBox::timeChanged, this, &Page::slotStartChanged);
///
/// \image html date-and-time-times-of-day.png
class VEMO_EXPORT VemoTimeComboBox : public VemoComboBox
{
    Q_OBJECT
    /// The items without the custom item.
    Q_PROPERTY(QStringList times READ times WRITE setTimes)
    /// The current time.
    Q_PROPERTY(QTime time READ time WRITE setTime NOTIFY timeChanged DESIGNABLE false STORED false)
    /// Whether a time can be typed.
    Q_PROPERTY(bool editable READ isEditable WRITE setEditable)
    /// The text shown after a typed time.
    Q_PROPERTY(QString customText READ customText WRITE setCustomText)

public:
    /// Creates an empty box that is not editable.
    explicit VemoTimeComboBox(QWidget *parent = nullptr);

    /// The items, without the custom one.
    QStringList times() const;
    /// Replaces the items; for forms. The current time is kept if it is among the new ones.
    void setTimes(const QStringList &times);
    /// Replaces the items by times from first to last, at intervals of the given minutes. Has no
    /// effect if a time is invalid or minutes is less than 1.
    void setTimes(const QTime &first, const QTime &last, int minutes);

    /// Sets whether a time can be typed, initially false. Inserts or removes the custom item. Hides
    /// a non-virtual function of QComboBox: call it through this class.
    void setEditable(bool editable);

    /// Selects the item with exactly this text, in UTF-8. If there is none, an editable box shows
    /// the text unchanged in the custom item, and any other selects its first row. Also hides a
    /// function of QComboBox.
    void setCurrentText(const std::string &text);
    void setCurrentText(const QString &text); ///< the same
    void setCurrentText(const char *text); ///< the same

    /// Sets the item that is selected when the field is emptied, initially row 0. Does not change
    /// the current text: use setCurrentText() to show an initial time. A text that is not among the
    /// items is set in the custom item, or means row 0 if the box is not editable.
    void setDefault(const std::string &text);
    void setDefault(const QString &text); ///< the same
    void setDefault(const char *text); ///< the same

    /// The current time, without the custom text. Invalid if the text is not a time in the format
    /// HH:mm, for example while the user is typing.
    QTime time() const;
    /// Calls setCurrentText() with time in the format HH:mm, without seconds. Invalid times are
    /// ignored.
    void setTime(const QTime &time);

    /// Sets the text shown after a typed time, separated by a blank; initially empty. Takes effect
    /// with the next typed time.
    void setCustomText(const QString &text);
    /// The text shown after a typed time.
    QString customText() const { return m_custom_text; }

    /// Sets the maximum number of visible rows, by default 10. A hidden custom item does not count:
    /// maxVisibleItems() is then one more. Also hides a function of QComboBox.
    void setMaxVisibleItems(int count);

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// Emitted when time() has changed: selected, typed, or set by the program. Typed times take
    /// effect when the field loses the focus, or on Return.
    void timeChanged(const QTime &time);

private:
    void setItemVisible(bool visible);
    void adjustMaxVisibleItems();
    void changeFocus(QEvent::Type change);
    void correctTime();
    void setUpEditing();
    void insertCustomItem();
    void restoreCustomItem();
    QStandardItem *customItem() const;
    bool isCustomRow(int row) const;
    int rowOf(const QString &text) const;
    void fillCustomItem(const QString &time);
    void showBeginning();
    void selectDefault();
    void reportTime();

    int m_custom_index = 0;
    int m_default_index = 0;
    int m_max_visible;
    QString m_custom_text;
    QPersistentModelIndex m_custom_row;
    QValidator *m_validator = nullptr;
    QTime m_reported_time;
};

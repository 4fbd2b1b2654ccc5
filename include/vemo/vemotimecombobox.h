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

/// A combo box for a time of day. Its items are times written HH:mm, which the caller adds; where
/// it is editable the user may also type one, which is completed when the field loses the focus: 9
/// becomes 09:00, and 9:5 becomes 09:05.
///
/// While it is editable a custom item stands in front of the caller's, hidden until it has a time
/// to show that is not among them: rows count from 1 then. Call setDefault() after setEditable(),
/// whose custom item shifts the rows. It relies on QComboBox's own model and view, and takes the
/// rows to be of one size while they are times only: where yours are not, call
/// setUniformItemSizes(false) of the view before it opens.
///
/// Its signals are QComboBox's, for the program's changes too; currentIndexChanged() also comes
/// each time that the field loses the focus with the custom item shown. Opening the menu of the
/// edit counts as losing the focus too: what is typed is completed first, and what is selected
/// stays selected. Requires: style files, as for VemoComboBox. It belongs to its parent.
///
///     auto *start = new VemoTimeComboBox(page);
///     start->addItems({ "00:00", "06:00", "12:00", "18:00" });
///     start->setEditable(true);
///     start->setCurrentText("06:00");
///     start->setDefault("06:00"); // for a field that is emptied
///     connect(start, &VemoTimeComboBox::timeChanged, this, &Page::slotStartChanged);
///
/// \image html date-and-time-times-of-day.png
class VEMO_EXPORT VemoTimeComboBox : public VemoComboBox
{
    Q_OBJECT
    Q_PROPERTY(QStringList times READ times WRITE setTimes)
    Q_PROPERTY(QTime time READ time WRITE setTime NOTIFY timeChanged DESIGNABLE false STORED false)
    Q_PROPERTY(bool editable READ isEditable WRITE setEditable)
    Q_PROPERTY(QString customText READ customText WRITE setCustomText)

public:
    /// An empty box that can't be typed into.
    explicit VemoTimeComboBox(QWidget *parent = nullptr);

    /// The items, without the custom one.
    QStringList times() const;
    /// Other items, for forms. A time that is shown stays, where it is among the new ones.
    void setTimes(const QStringList &times);
    /// A time each so many minutes, from first up to last at most. Nothing happens if one of the
    /// times is invalid, or minutes less than 1.
    void setTimes(const QTime &first, const QTime &last, int minutes);

    /// Whether a time may be typed; at first not. Inserts the custom item, or removes it. It hides
    /// a function of QComboBox that is not virtual: call it through this class.
    void setEditable(bool editable);

    /// Selects the item of this very text. Where there is none an editable box shows the text, as
    /// it stands, in the custom item, and any other selects its first row. UTF-8; it hides a
    /// function of QComboBox, too.
    void setCurrentText(const std::string &text);
    void setCurrentText(const QString &text); ///< the same
    void setCurrentText(const char *text); ///< the same

    /// Which item an emptied field returns to; at first that of row 0. What is shown now stays: use
    /// setCurrentText() to show a time at first. A text that is not among the items goes into the
    /// custom item, or means row 0 where the box is not editable.
    void setDefault(const std::string &text);
    void setDefault(const QString &text); ///< the same
    void setDefault(const char *text); ///< the same

    /// The time that is shown, without a custom text; invalid for a text that is no time written
    /// HH:mm, such as one that is still being typed.
    QTime time() const;
    /// Shows time as setCurrentText() shows its text HH:mm; seconds are left out. An invalid time
    /// is ignored.
    void setTime(const QTime &time);

    /// What follows a typed time, after one blank, from the next one on; at first nothing.
    void setCustomText(const QString &text);
    /// What follows a typed time.
    QString customText() const { return m_custom_text; }

    /// How many rows the list shows at most, 10 unless set. A hidden custom item takes none of
    /// them: then maxVisibleItems() is one more. It hides a function of QComboBox, too.
    void setMaxVisibleItems(int count);

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// time() is another one than before: chosen, typed, or set by the program. What is typed
    /// counts when the field loses the focus, or on Return.
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

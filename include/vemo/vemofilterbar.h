// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QLineEdit>

class QMenu;
class QTimer;
class VemoIconButton;

/// A search line: it hands on the keyword on Return, and has a button at its left end that can open
/// a menu, as the Down key does.
///
/// It filters nothing itself and keeps silent while the user types, unless setSearchDelay() is
/// called. Load pictures and style files
/// before: without the sections "component.lineedit", "component.filter_bar_padding" and
/// "component.filter_search_button" it looks plain, with a warning each. It belongs to its parent.
///
///     auto *filter = new VemoFilterBar(this);
///     filter->setMenu(kindsMenu);
///     connect(filter, SIGNAL(sigKeywordChanged(QString)), this, SLOT(slotFilter(QString)));
///
/// \image html path-and-filter-a-filter-with-a-menu.png
class VEMO_EXPORT VemoFilterBar : public QLineEdit
{
    Q_OBJECT
    Q_PROPERTY(int searchDelay READ searchDelay WRITE setSearchDelay)
    Q_PROPERTY(bool clearedByEscape READ isClearedByEscape WRITE setClearedByEscape)
    Q_PROPERTY(bool clearButtonVisible READ isClearButtonVisible WRITE setClearButtonVisible)

public:
    /// An empty line, 28 design pixels high, with the picture "bt_search_dropdown" on its button.
    explicit VemoFilterBar(QWidget *parent = nullptr);

    /// The menu stays the caller's, and may be deleted at any time; a null one, as at first, opens
    /// nothing. Screen readers call the button by the menu's title, or by the placeholder text if
    /// there is none: set them first.
    void setMenu(QMenu *menu);

    /// Emits sigKeywordChanged() also while the user types, that many milliseconds after the last
    /// key. A negative delay, as at first, waits for Return.
    void setSearchDelay(int msecs);
    int searchDelay() const { return m_search_delay; } ///< -1 at first

    /// Whether Escape empties the line and emits sigKeywordChanged(). An empty line leaves the key
    /// to its window. False at first.
    void setClearedByEscape(bool cleared);
    bool isClearedByEscape() const { return m_is_cleared_by_escape; } ///< false at first

    /// Whether there is a button at the end of the line, shown while there is a text, that empties
    /// it and emits sigKeywordChanged(); the button of setClearButtonEnabled() only empties it.
    /// False at first. Looks up the picture "bt_close" and the string "accessible_clear".
    void setClearButtonVisible(bool visible);
    bool isClearButtonVisible() const { return m_is_clear_button_visible; } ///< false at first

Q_SIGNALS:
    /// The user pressed Return or Enter, or, if told so, typed, pressed Escape or the clear button.
    /// The whole text, also when it is empty or the same as before.
    void sigKeywordChanged(QString keyword);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private Q_SLOTS:
    void slotKeywordChange();

private:
    void addButtonLayout();
    void clearAndReport();

    VemoIconButton *m_dropdown_button;
    QTimer *m_search_timer;
    int m_search_delay = -1; ///< in milliseconds
    bool m_is_cleared_by_escape = false;
    bool m_is_clear_button_visible = false;
};

// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QLineEdit>

class QMenu;
class QTimer;
class VemoIconButton;

/// A search field that emits its text on Return. The button on its left and the Down key can open a
/// menu.
///
/// It does not filter anything itself, and emits nothing while the user types unless
/// setSearchDelay() is called. Requires: pictures, style files; without the sections
/// "component.lineedit", "component.filter_bar_padding" and "component.filter_search_button" it
/// looks plain, with a warning each. It belongs to its parent.
///
///     auto *filter = new VemoFilterBar(this);
///     filter->setMenu(kindsMenu);
///     connect(filter, &VemoFilterBar::sigKeywordChanged, this, &MainWindow::filterList);
///
/// \image html path-and-filter-a-filter-with-a-menu.png
class VEMO_EXPORT VemoFilterBar : public QLineEdit
{
    Q_OBJECT
    /// The delay in milliseconds for emitting while the user types; negative for none.
    Q_PROPERTY(int searchDelay READ searchDelay WRITE setSearchDelay)
    /// Whether Escape clears the field.
    Q_PROPERTY(bool clearedByEscape READ isClearedByEscape WRITE setClearedByEscape)
    /// Whether the field has a button that clears it.
    Q_PROPERTY(bool clearButtonVisible READ isClearButtonVisible WRITE setClearButtonVisible)

public:
    /// Creates an empty field, 28 design pixels high, with the picture "bt_search_dropdown" on its
    /// button.
    explicit VemoFilterBar(QWidget *parent = nullptr);

    /// Sets the menu; initially there is none. The caller keeps ownership and may delete it at any
    /// time. Screen readers announce the button by the menu's title, or by the placeholder text if
    /// that is empty: set these first.
    void setMenu(QMenu *menu);

    /// Makes the bar also emit sigKeywordChanged() while the user types, the given number of
    /// milliseconds after the last key. With a negative delay, the default, it waits for Return.
    void setSearchDelay(int msecs);
    int searchDelay() const { return m_search_delay; } ///< initially -1

    /// Sets whether Escape clears the field and emits sigKeywordChanged(), initially false. If the
    /// field is empty, the key is passed on to the window.
    void setClearedByEscape(bool cleared);
    bool isClearedByEscape() const { return m_is_cleared_by_escape; } ///< initially false

    /// Sets whether the end of the field has a button that clears it and emits sigKeywordChanged();
    /// the button of setClearButtonEnabled() only clears it. The button is hidden if the field is
    /// empty. Initially false. Looks up the picture "bt_close" and the string "accessible_clear".
    void setClearButtonVisible(bool visible);
    bool isClearButtonVisible() const { return m_is_clear_button_visible; } ///< initially false

Q_SIGNALS:
    /// Emitted with the whole text when the user presses Return or Enter, even if it is empty or
    /// unchanged. If enabled, also emitted for typing, Escape and the clear button.
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

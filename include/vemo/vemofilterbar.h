// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QLineEdit>

class QMenu;
class VemoIconButton;

/// A search line: it hands on the keyword on Return, and has a button at its left end that can open
/// a menu, as the Down key does.
///
/// It filters nothing itself and keeps silent while the user types. Load pictures and style files
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

public:
    /// An empty line, 28 design pixels high, with the picture "bt_search_dropdown" on its button.
    explicit VemoFilterBar(QWidget *parent = nullptr);

    /// The menu stays the caller's, and may be deleted at any time; a null one, as at first, opens
    /// nothing. Screen readers call the button by the menu's title, or by the placeholder text if
    /// there is none: set them first.
    void setMenu(QMenu *menu);

Q_SIGNALS:
    /// The user pressed Return or Enter. The whole text, also when it is empty or the same as
    /// before.
    void sigKeywordChanged(QString keyword);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private Q_SLOTS:
    void slotKeywordChange();

private:
    void addButtonLayout();

    VemoIconButton *m_dropdown_button;
};

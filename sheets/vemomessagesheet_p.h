// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include "sheets/messagelabel_p.h"
#include "sheets/modalrun_p.h"

#include <vemo/vemomessagesheet.h>

#include <QPointer>

#include <initializer_list>

class ClickableLabel;
class QCheckBox;
class QKeyEvent;
class QMovie;
class QPushButton;

/// The parts of one message sheet, how they are dressed, laid out and reached by the keyboard.
class VemoMessageSheetPrivate : public QObject
{
public:
    VemoMessageSheetPrivate(
        VemoMessageSheet *sheet, VemoMessageSheet::MessageType messageType, bool isIconShown);

    /// A message as the shortcuts show it. The mask comes before the content, since a widget with
    /// a style sheet that gets another parent is polished anew, with all that is in it.
    static VemoMessageSheet *newMaskedSheet(VemoMessageSheet::MessageType type, const QString &text,
        const QString &informativeText, const MsgBoxCustomBtnText &captions, QWidget *parent,
        bool showIcon);

    /// The content as a whole, laid out once. over: the widget that the width comes from.
    void build(const MsgBoxCustomBtnText &captions, const QString &text,
        const QString &informativeText, const QWidget *over);
    /// Everything but the texts and the layout.
    void dress(const MsgBoxCustomBtnText &captions);
    void layOut() { layOut(q->parentWidget()); }
    void layOut(const QWidget *over);
    /// Fits the size to the content after a change of style or font: at once if the sheet is
    /// shown only now, otherwise soon.
    void fit();
    void fitLater();
    /// What the setters do: deliberately with empty captions.
    void rebuild();

    void showMovie(const QString &path);
    void changeText(const QString &text);
    void changeInformativeText(const QString &text, const QString &styleSheet);

    bool hasIcon() const;
    QPushButton *button(QDialogButtonBox::StandardButton which) const;
    void clickFirst(std::initializer_list<QDialogButtonBox::StandardButton> candidates) const;

    /// Shows the sheet and gives it the focus. Whether it survived.
    bool begin(bool greysCloseItem);
    void takeFocus();
    void collectFocus();
    /// Gives the focus to the next widget of the sheet: forward for Tab, else backward.
    void restrictedFocus(QObject *from, QKeyEvent *key);
    void moveFocus(QWidget *from, bool isForward);
    /// The keys that reach the window.
    void press(QKeyEvent *key);
    /// The keys that confirm: OK or Apply, or the focused button where that takes them.
    void confirm(int key);

    bool eventFilter(QObject *watched, QEvent *event) override;

    VemoMessageSheet *q;
    MessageLabel *textLabel = nullptr; ///< null while the text is empty
    MessageLabel *informativeLabel = nullptr; ///< null while the informative text is empty
    QLabel *iconLabel;
    VemoMessageSheet::MessageType type;
    QDialogButtonBox *buttonBox;
    ModalRun run;
    bool showIcon;
    QCheckBox *confirmCheckBox = nullptr;
    ClickableLabel *confirmLabel = nullptr;
    QWidget *confirmContainer;
    bool doubleConfirm = false;
    QList<QWidget *> focusList; ///< among these Tab cycles; collected anew before each use
    QWidget *firstFocus = nullptr;
    QWidget *lastFocus = nullptr;
    bool isOneCall = false; ///< execAndDelete() or open(): a focused button takes Return
    bool isStale = false; ///< the style or the font changed since the last layout
    QPointer<QMovie> movie; ///< not ours: it has no parent, and the host may delete it any time

private:
    void showTypeIcon();
    void dressButtons(const MsgBoxCustomBtnText &captions);
    void dressConfirmRow();
    void removeConfirmRow();
    void dressLabels();
    MessageLabel *newLabel(const QString &styleSheet);
    void showNewParts() const;
    void takeSize(const QWidget *over);
    void orderButtons(std::initializer_list<QDialogButtonBox::StandardButton> order) const;
    void orderFocus() const;
    int contentWidth() const;
    void fitButtons();
    void stackButtons();
    void fitLabels();
};

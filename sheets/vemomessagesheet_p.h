// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include "sheets/messagelabel_p.h"
#include "sheets/modalrun_p.h"

#include <vemo/vemomessagesheet.h>

#include <QMap>
#include <QPointer>

#include <initializer_list>

class ClickableLabel;
class DetailsPane;
class QCheckBox;
class QKeyEvent;
class QMovie;
class QPushButton;

/// The parts of a message sheet, their style, layout and keyboard handling.
class VemoMessageSheetPrivate : public QObject
{
public:
    VemoMessageSheetPrivate(
        VemoMessageSheet *sheet, VemoMessageSheet::MessageType messageType, bool isIconShown);

    /// Creates a message for the message functions. The mask is created before the content, because
    /// Qt polishes a widget with a style sheet and all its children again when its parent changes.
    static VemoMessageSheet *newMaskedSheet(VemoMessageSheet::MessageType type, const QString &text,
        const QString &informativeText, const MsgBoxCustomBtnText &captions, QWidget *parent,
        bool showIcon);

    /// Creates the whole content with a single layout. The width depends on that of over.
    void build(const MsgBoxCustomBtnText &captions, const QString &text,
        const QString &informativeText, const QWidget *over);
    /// Updates everything except the texts and the layout.
    void updateStyle(const MsgBoxCustomBtnText &captions);
    void layOut() { layOut(q->parentWidget()); }
    void layOut(const QWidget *over);
    /// Fits the size to the content after a change of style or font: immediately if the sheet is
    /// just being shown, otherwise later.
    void fit();
    void fitLater();
    /// Called by the setters. Deliberate: with empty captions.
    void rebuild();

    void showMovie(const QString &path);
    /// After another theme was loaded.
    void reloadTypeIcon();
    /// After another language was chosen: captions of the host's own stay.
    void translate();
    void changeText(const QString &text);
    void changeInformativeText(const QString &text, const QString &styleSheet);

    /// The parts that are off by default; the caller lays the sheet out.
    void setDontAskAgain(bool on, const QString &text);
    void setDetails(const QString &text);
    void setTextFormat(Qt::TextFormat format);
    void setDefaultButton(QDialogButtonBox::StandardButton which);
    void translateExtras();
    /// Those that take the focus, in the order of Tab; some are null.
    QWidgetList extraStops() const;

    bool hasIcon() const;
    QPushButton *button(QDialogButtonBox::StandardButton which) const;
    void clickFirst(std::initializer_list<QDialogButtonBox::StandardButton> candidates) const;

    /// Shows the sheet and gives it the focus. Whether it survived.
    bool begin(bool greysCloseItem);
    void takeFocus();
    void collectFocus();
    /// Moves the focus inside the sheet: forward for Tab, otherwise backward.
    void restrictedFocus(QObject *from, QKeyEvent *key);
    void moveFocus(QWidget *from, bool isForward);
    /// Handles the keys sent to the window.
    void press(QKeyEvent *key);
    /// The keys that confirm: OK or Apply, or the focused button where that takes them.
    void confirm(int key);

    bool eventFilter(QObject *watched, QEvent *event) override;

    VemoMessageSheet *q;
    MessageLabel *textLabel = nullptr; ///< null if the text is empty
    MessageLabel *informativeLabel = nullptr; ///< null if the informative text is empty
    QLabel *iconLabel;
    VemoMessageSheet::MessageType type;
    QDialogButtonBox *buttonBox;
    ModalRun run;
    bool showIcon;
    QCheckBox *confirmCheckBox = nullptr;
    ClickableLabel *confirmLabel = nullptr;
    QWidget *confirmContainer;
    bool doubleConfirm = false;
    QList<QWidget *> focusList; ///< Tab cycles through these; collected before each use
    QWidget *firstFocus = nullptr;
    QWidget *lastFocus = nullptr;
    QWidget *dontAskRow = nullptr; ///< null if it is off
    QCheckBox *dontAskBox = nullptr;
    ClickableLabel *dontAskLabel = nullptr;
    int dontAskFrame = 0; ///< the width of the frame around its box, in screen pixels
    bool isDontAskCaptionOurs = true;
    DetailsPane *details = nullptr; ///< null if the text is empty
    Qt::TextFormat textFormat = Qt::AutoText;
    /// Takes the keys that confirm, if the type has it.
    QDialogButtonBox::StandardButton defaultWhich = QDialogButtonBox::NoButton;
    bool isOneCall = false; ///< execAndDelete() or open(): a focused button takes Return
    bool isStale = false; ///< whether the style or the font has changed since the last layout
    QPointer<QMovie> movie; ///< not owned: it has no parent, and the host may delete it at any time

private:
    QString typeCaption(QDialogButtonBox::StandardButton which) const;

    QMap<QDialogButtonBox::StandardButton, QString> shownCaptions; ///< without those of the host
    qint64 typePictureKey = 0; ///< of the picture of the type that was last shown

    void showTypeIcon();
    void showTypePicture(const QPixmap &picture);
    void styleButtons(const MsgBoxCustomBtnText &captions);
    void showDefaultButton() const;
    void styleConfirmRow();
    void removeConfirmRow();
    void styleLabels();
    MessageLabel *newLabel(const QString &styleSheet);
    void showNewParts() const;
    void updateSize(const QWidget *over);
    void orderButtons(std::initializer_list<QDialogButtonBox::StandardButton> order) const;
    void orderFocus() const;
    int contentWidth() const;
    void fitButtons();
    void stackButtons();
    void fitLabels();
};

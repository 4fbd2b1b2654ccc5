// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include "sheets/modalrun_p.h"

#include <vemo/vemoinputsheet.h>

#include <QDialogButtonBox>

class MessageLabel;
class QPlainTextEdit;

/// The parts of an input sheet, their style, layout and keyboard handling.
class VemoInputSheetPrivate : public QObject
{
public:
    explicit VemoInputSheetPrivate(VemoInputSheet *sheet);

    void build();
    void changeText(const QString &text);
    void layOut();
    /// Fits the size to the content after a change of style or font: immediately if the sheet is
    /// just being shown, otherwise later.
    void fit();
    void fitLater();
    void click(QDialogButtonBox::StandardButton which) const;
    /// Shows the sheet and gives its line edit the focus. Whether it survived.
    bool begin(bool greysCloseItem);
    /// The keys that confirm: OK, or the focused button where that takes them.
    void confirm(int key) const;
    /// After another language was chosen: captions of the host's own stay.
    void translate();

    QString content() const;
    void setContent(const QString &text);
    /// The field in use.
    QWidget *field() const;

    /// The parts that are off by default.
    void setMultiLine(bool on);
    void setCheck(const std::function<bool(const QString &)> &newCheck);
    void setErrorText(const QString &text);

    bool eventFilter(QObject *watched, QEvent *event) override;

    VemoInputSheet *q;
    MessageLabel *label; ///< the prompt
    QLineEdit *lineEdit;
    QDialogButtonBox *buttonBox;
    ModalRun run;
    QPlainTextEdit *textEdit = nullptr; ///< takes the place of the line edit; null if it is off
    MessageLabel *errorLabel = nullptr; ///< created for the first error text
    std::function<bool(const QString &)> check;
    bool isOneCall = false; ///< execAndDelete() or open(): a focused button takes Return
    bool isStale = false; ///< whether the style or the font has changed since the last layout

private:
    void styleButtons();
    void updateSize();
    void contentChanged();
    bool isValid() const;
    /// Enables OK and shows the error text according to the content.
    void showValidity();

    bool hasChanged = false; ///< whether the content has changed since the check was set
    QString okText;
    QString cancelText;
};

// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <vemo/vemoiconbutton.h>

#include <QObject>
#include <QPointer>

class VemoDateSelector;

/// What lets the user clear a date field: two keys, and a button before the field's arrow that is
/// shown while there is a date.
class DateClearing : public QObject
{
public:
    explicit DateClearing(VemoDateSelector *field);
    ~DateClearing() override;

    /// A style sheet that keeps the field's text clear of the button.
    QString roomForButton() const;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void clearDate();
    void showButton();
    void placeButton();

    VemoDateSelector *m_field;
    QPointer<VemoIconButton> m_button;
};

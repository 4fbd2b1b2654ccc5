// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QDate>
#include <QObject>

class QLineEdit;
class VemoDateSelector;

/// What lets the user type into a date field. Return and the loss of the focus take the date, or
/// show the previous one again.
class DateTyping : public QObject
{
public:
    /// Makes the field editable.
    explicit DateTyping(VemoDateSelector *field);

    /// Shows the date of the field, or the placeholder.
    void showDate();

private:
    void take();
    QDate parsed(const QString &text) const;

    VemoDateSelector *m_field;
};

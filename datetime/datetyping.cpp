// SPDX-License-Identifier: MIT
#include "datetime/datetyping_p.h"

#include "controls/editmargins_p.h"
#include "controls/placeholderink_p.h"
#include "datetime/leadingtext_p.h"

#include <vemo/vemocalanderview.h>
#include <vemo/vemodateselector.h>

#include <QLineEdit>
#include <QLocale>

namespace {

constexpr int kFirstYear = 1950; // of those with two digits

/// Qt reads years of two digits as those after 1900.
QDate inThisCentury(const QDate &date, const QString &format)
{
    const bool hasCentury = format.contains(QLatin1String("yyyy"));
    return !hasCentury && date.year() < kFirstYear ? date.addYears(100) : date;
}

} // namespace

DateTyping::DateTyping(VemoDateSelector *field) : QObject(field), m_field(field)
{
    field->setEditable(true);
    field->setInsertPolicy(QComboBox::NoInsert);
    field->setCompleter(nullptr);
    beginLikeBox(field->lineEdit());
    palePlaceholder(field->lineEdit());
    new LeadingText(field->lineEdit());
    connect(field->lineEdit(), &QLineEdit::editingFinished, this, [this] { take(); });
    connect(field, qOverload<int>(&QComboBox::currentIndexChanged), this, [this] { showDate(); });
    showDate();
}

void DateTyping::showDate()
{
    QLineEdit *edit = m_field->lineEdit();
    if (!edit)
        return; // The host has made the field read-only.
    edit->setPlaceholderText(m_field->placeholder());
    edit->setText(m_field->date().isValid() ? m_field->itemText(0) : QString());
}

void DateTyping::take()
{
    const QString text = m_field->lineEdit()->text().trimmed();
    const QDate before = m_field->date();
    const QDate date = parsed(text);
    const bool isInRange = date >= m_field->minimumDate() && date <= m_field->maximumDate();
    if (text.isEmpty() && before.isValid())
        m_field->clearDate();
    else if (date.isValid() && date != before && isInRange)
        Q_EMIT m_field->getCalendarView()->sigDateSelect(date); // as if picked there
    else
        showDate();
}

QDate DateTyping::parsed(const QString &text) const
{
    const QLocale locale = m_field->locale();
    for (const QString &format :
        {m_field->displayFormat(), locale.dateFormat(QLocale::ShortFormat)}) {
        const QDate date = format.isEmpty() ? QDate() : locale.toDate(text, format);
        if (date.isValid())
            return inThisCentury(date, format);
    }
    return QLocale::c().toDate(text, QStringLiteral("yyyy-M-d"));
}

// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>
#include <QWidget>

class QGridLayout;
class VemoButton;
class VemoDateSelector;
class VemoTimeComboBox;

/// Asks between which moments an entry was changed last.
class DateFilter : public QWidget
{
    Q_OBJECT

public:
    explicit DateFilter(QWidget *parent);

    /// The first moment that counts; invalid while no day is chosen.
    QDateTime from() const;
    /// The last one: the whole minute counts.
    QDateTime to() const;
    /// An invalid date means no limit.
    void setDays(const QDate &from, const QDate &to);

public Q_SLOTS:
    void clear();

Q_SIGNALS:
    void changed();

private:
    /// A day and a time of day.
    struct Moment
    {
        VemoDateSelector *date = nullptr;
        VemoTimeComboBox *time = nullptr;

        QDateTime value() const;
    };

    Moment addMoment(QGridLayout *layout, const char *caption, const QString &name);
    void update();

    Moment m_from;
    Moment m_to;
    VemoButton *m_clear;
};

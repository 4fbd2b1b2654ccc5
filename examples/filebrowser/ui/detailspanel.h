// SPDX-License-Identifier: MIT
#pragma once

#include "fileentry.h"

#include <QFrame>

class DateFilter;
class QGridLayout;
class QLabel;

/// Shows the details of the selected entry, and below them the filter by the last change.
class DetailsPanel : public QFrame
{
    Q_OBJECT

public:
    explicit DetailsPanel(QWidget *parent);

    void showEntry(const QString &folder, const FileEntry &entry);
    void showSelection(int count);
    /// Shows that nothing is selected.
    void showFolder(const QString &folder);
    DateFilter *dateFilter() const { return m_dates; }

protected:
    void customEvent(QEvent *event) override;

private:
    QLayout *newHeading();
    void addFact(QGridLayout *layout, const char *caption, QLabel *value);
    void showHeading(const QString &name, const QString &picture);
    void showFacts(const QStringList &values);

    QLabel *m_picture;
    QString m_picture_name;
    QLabel *m_name;
    QLabel *m_kind;
    QLabel *m_size;
    QLabel *m_modified;
    QLabel *m_created;
    QLabel *m_place;
    QLabel *m_access;
    DateFilter *m_dates;
};

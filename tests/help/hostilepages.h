// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QVector>

struct HostilePage
{
    const char *name = nullptr;
    QString body;
};

/// Every way in which a page can refer to a picture, a style sheet or a page, each with address.
QVector<HostilePage> pagesThatRefer(const QString &address);

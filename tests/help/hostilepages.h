// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QVector>

struct HostilePage
{
    const char *name = nullptr;
    QString body;
};

/// Every way that a page has to name a picture, a style sheet or a page, each naming address.
QVector<HostilePage> pagesThatRefer(const QString &address);

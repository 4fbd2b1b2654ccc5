// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QGridLayout>
#include <QWidget>

#include <memory>

namespace bench {

/// Creates widgets, one per call of make, in the grid of a host that is shown and painted. The host
/// must be large enough for all of them; widgets that determine their size when they are shown are
/// laid out again.
template <typename Make>
std::unique_ptr<QWidget> paintedGrid(const QSize &hostSize, int count, int columns, Make make)
{
    auto host = std::make_unique<QWidget>();
    host->resize(hostSize);
    auto *grid = new QGridLayout(host.get());
    grid->setColumnStretch(columns, 1);
    grid->setRowStretch(count / columns, 1);
    for (int i = 0; i < count; ++i)
        grid->addWidget(make(), i / columns, i % columns);
    host->show();
    QCoreApplication::processEvents();
    return host;
}

} // namespace bench

// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

/// A window that makes tea, with its own look. Call startUp() first.
class TeaWindow : public QWidget
{
    Q_OBJECT

public:
    TeaWindow();

public Q_SLOTS:
    /// Shows a sheet with the message that the tea is ready, and returns immediately.
    void slotBrew();
};

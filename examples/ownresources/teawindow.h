// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

/// A window that makes tea, in a look of its own. startUp() must have run.
class TeaWindow : public QWidget
{
    Q_OBJECT

public:
    TeaWindow();

public Q_SLOTS:
    /// Says over the window that the tea is ready, and returns at once.
    void slotBrew();
};

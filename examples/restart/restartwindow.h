// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QtSingleApplication;
class VemoLabel;

/// A window of which there is one, whatever is started, and which can start itself anew.
class RestartWindow : public QWidget
{
    Q_OBJECT

public:
    explicit RestartWindow(QtSingleApplication *app);

public Q_SLOTS:
    /// Does what a program does after it has updated its own file: starts that, and ends.
    void slotRestart();

private Q_SLOTS:
    void slotOtherStart(const QString &arguments);

private:
    void showNews(const QString &text);

    QtSingleApplication *const m_app;
    VemoLabel *m_news;
};

// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QtSingleApplication;
class VemoLabel;

/// The only window of the program, however often it is started. It can restart the program.
class RestartWindow : public QWidget
{
    Q_OBJECT

public:
    explicit RestartWindow(QtSingleApplication *app);

public Q_SLOTS:
    /// Starts the program's file again, as after an update, and ends this process.
    void slotRestart();

private Q_SLOTS:
    void slotOtherStart(const QString &arguments);

private:
    void showNews(const QString &text);

    QtSingleApplication *const m_app;
    VemoLabel *m_news;
};

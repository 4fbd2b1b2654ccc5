// SPDX-License-Identifier: MIT
#include "restartwindow.h"

#include <vemo/DPIinfo>
#include <vemo/QtSingleApplication>
#include <vemo/VemoButton>
#include <vemo/VemoLabel>

#include <QHBoxLayout>
#include <QProcess>
#include <QTime>
#include <QVBoxLayout>

namespace {

constexpr int kWidth = 420; // design pixels
constexpr int kMargin = 24; // design pixels

} // namespace

RestartWindow::RestartWindow(QtSingleApplication *app) : m_app(app)
{
    setWindowTitle("Restart");
    auto *process = new VemoLabel(QString("I am process %1, since %2.")
                                      .arg(QCoreApplication::applicationPid())
                                      .arg(QTime::currentTime().toString("hh:mm:ss")));
    m_news = new VemoLabel(QString());
    m_news->setWordWrap(true);
    auto *restart = new VemoButton("Restart", VemoButton::APPLY);

    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(restart);
    auto *column = new QVBoxLayout(this);
    const int margin = DPIinfo::scaled(kMargin);
    column->setContentsMargins(margin, margin, margin, margin);
    column->addWidget(process);
    column->addWidget(m_news);
    column->addStretch();
    column->addSpacing(margin);
    column->addLayout(buttons);
    resize(DPIinfo::scaled(kWidth), 0);
    showNews("Start me again: this window comes to the front instead.");

    connect(restart, SIGNAL(clicked()), this, SLOT(slotRestart()));
    connect(m_app, SIGNAL(messageReceived(QString)), this, SLOT(slotOtherStart(QString)));
}

void RestartWindow::slotRestart()
{
    // Otherwise the new process would find us running, send us its arguments and end.
    m_app->unlock();
    if (QProcess::startDetached(
            QCoreApplication::applicationFilePath(), QCoreApplication::arguments().mid(1))) {
        QCoreApplication::quit();
        return;
    }
    m_app->isRunning(); // We keep running and become primary again.
    showNews("The new process could not be started.");
}

void RestartWindow::slotOtherStart(const QString &arguments)
{
    showNews(
        arguments.isEmpty() ? "I was started again." : "I was started again, with: " + arguments);
}

void RestartWindow::showNews(const QString &text)
{
    m_news->setText(text);
    resize(width(), qMax(height(), layout()->totalHeightForWidth(width())));
}

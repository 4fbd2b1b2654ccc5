// SPDX-License-Identifier: MIT
#pragma once

#include "help/testserver.h"
#include "support/vemotest.h"

#include <vemo/HelpWindow>

#include <QTextBrowser>
#include <QToolButton>

#include <memory>

/// Base of the tests of what a help window offers on request: a window, a server and a folder with
/// pages. Derived classes must have init() and cleanup() call those of this class.
class NavigationTest : public VemoTest
{
protected:
    void init();
    void cleanup();

    QTextBrowser *view() const { return m_window->findChild<QTextBrowser *>(); }
    QToolButton *button(const QString &name) const;
    QString text() const { return view()->toPlainText(); }
    int topRow() const;
    int childCount() const;

    /// Writes a file into the folder, as a page.
    QUrl write(const QString &name, const QByteArray &html) const;
    /// Writes a page that starts with a word and has an anchor "end" further down.
    QUrl writeLongPage(const QString &name, const QByteArray &word) const;
    /// Shows a page whose text begins with expected.
    void fetch(const QUrl &url, const QString &expected);
    /// Shows a page with a single word from the server.
    void fetch(const QByteArray &word);
    void showWindow();
    void follow(const QString &href) { Q_EMIT view()->anchorClicked(QUrl(href)); }
    /// Presses a key once the window is active, which shortcuts depend on.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void back() { press(Qt::Key_Left, Qt::AltModifier); }
    void forward() { press(Qt::Key_Right, Qt::AltModifier); }

    QScopedPointer<QTemporaryDir> m_folder;
    QScopedPointer<TestServer> m_server;
    std::unique_ptr<BrowserWindow> m_window;
};

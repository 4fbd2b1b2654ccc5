// SPDX-License-Identifier: MIT
#include "help/navigationtest.h"

#include "support/activewindow.h"

#include <QScrollBar>

void NavigationTest::init()
{
    VemoTest::init();
    HelpWindow::setKnowledgeBaseUrl(QUrl("https://127.0.0.1:1")); // Nobody listens there.
    m_folder.reset(new QTemporaryDir);
    m_server.reset(new TestServer);
    m_window.reset(new BrowserWindow);
}

void NavigationTest::cleanup()
{
    m_window.reset();
    m_server.reset();
    VemoTest::cleanup();
}

QToolButton *NavigationTest::button(const QString &name) const
{
    const auto buttons = m_window->findChildren<QToolButton *>();
    for (QToolButton *found : buttons) {
        if (found->accessibleName() == name && found->toolTip() == name)
            return found;
    }
    return nullptr;
}

int NavigationTest::topRow() const
{
    return view()->verticalScrollBar()->value();
}

int NavigationTest::childCount() const
{
    return m_window->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly).size();
}

QUrl NavigationTest::write(const QString &name, const QByteArray &html) const
{
    const QString path = m_folder->filePath(name);
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write("<html>" + html + "</html>");
    return QUrl::fromLocalFile(path);
}

QUrl NavigationTest::writeLongPage(const QString &name, const QByteArray &word) const
{
    const QByteArray space = QByteArray("<p>-</p>").repeated(200);
    return write(name, word + space + "<a name=\"end\">end</a>" + space);
}

void NavigationTest::fetch(const QUrl &url, const QString &expected)
{
    m_window->reload(url);
    QTRY_VERIFY(text().startsWith(expected));
    showWindow();
}

void NavigationTest::fetch(const QByteArray &word)
{
    m_server->setAnswer('/' + word, page("<html>" + word + "</html>"));
    fetch(m_server->url('/' + word), word);
}

void NavigationTest::showWindow()
{
    QVERIFY(showActive(m_window.get()));
}

void NavigationTest::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTRY_VERIFY(m_window->isActiveWindow());
    QTest::keyClick(m_window->windowHandle(), key, modifiers);
}

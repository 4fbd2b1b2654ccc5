// SPDX-License-Identifier: MIT
#include "filewindowdriver.h"

#include "examples/filebrowser/ui/filetable.h"
#include "examples/filebrowser/ui/look.h"

#include <QLabel>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

FileWindowDriver::FileWindowDriver(const QString &folder)
    : m_window(std::make_unique<FileWindow>(folder))
{
    m_window->show();
    const bool isActive = QTest::qWaitForWindowActive(m_window.get());
    const bool isRead = QTest::qWaitFor([this] { return isSettled(); });
    Q_ASSERT(isActive && isRead);
    Q_UNUSED(isActive)
    Q_UNUSED(isRead)
}

QTableWidget *FileWindowDriver::table() const
{
    return part<QTableWidget>("fileTable");
}

QStringList FileWindowDriver::names() const
{
    QStringList result;
    for (int row = 0; row < table()->rowCount(); ++row)
        result << table()->item(row, 0)->data(Qt::EditRole).toString();
    return result;
}

QString FileWindowDriver::cell(const QString &name, int column) const
{
    const int row = names().indexOf(name);
    return row < 0 ? QString() : table()->item(row, column)->text();
}

void FileWindowDriver::select(const QStringList &names) const
{
    m_window->table()->select(names);
    table()->setFocus();
}

QStringList FileWindowDriver::selected() const
{
    return m_window->table()->selectedNames();
}

void FileWindowDriver::press(int key, Qt::KeyboardModifiers modifiers) const
{
    QWidget *focus = m_window->focusWidget();
    QTest::keyClick(focus ? focus : m_window.get(), Qt::Key(key), modifiers);
}

void FileWindowDriver::type(const QString &text) const
{
    QTest::keyClicks(m_window->focusWidget(), text);
}

void FileWindowDriver::onSheet(const char *name, const std::function<void(VemoSheet *)> &act)
{
    auto *look = new QTimer(m_window.get());
    QObject::connect(look, &QTimer::timeout, look, [=, window = m_window.get(), met = m_met] {
        for (VemoSheet *sheet : window->findChildren<VemoSheet *>(name)) {
            if (!sheet->isVisible())
                continue;
            look->stop();
            look->deleteLater();
            ++*met;
            act(sheet);
            return;
        }
    });
    look->start(0);
}

QString FileWindowDriver::textOf(const VemoSheet *sheet)
{
    QStringList texts;
    for (const QLabel *label : sheet->findChildren<QLabel *>())
        texts << label->text();
    return texts.join('\n');
}

void startFileBrowserLook()
{
    static const QTemporaryDir folder;
    static const bool isStarted = startLook(folder.path(), "enu");
    Q_ASSERT(isStarted);
    Q_UNUSED(isStarted)
}

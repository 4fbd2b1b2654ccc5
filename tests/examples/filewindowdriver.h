// SPDX-License-Identifier: MIT
#pragma once

#include "examples/filebrowser/ui/filewindow.h"

#include <vemo/vemosheet.h>

#include <QStringList>
#include <QTableWidget>

#include <functional>
#include <memory>

class DiskFolder;

/// A window of the file browser on a folder, driven by keys.
///
///     FileWindowDriver driver(folder.path());
///     driver.select("a.txt");
///     driver.press(Qt::Key_F2);
class FileWindowDriver
{
public:
    /// Shows the window and waits until the folder has been read.
    explicit FileWindowDriver(const QString &folder);

    FileWindow *window() const { return m_window.get(); }
    QTableWidget *table() const;
    template <typename Part> Part *part(const char *name) const
    {
        return m_window->findChild<Part *>(name);
    }
    QAction *action(const char *name) const { return part<QAction>(name); }

    /// Whether the folder has been read to the end.
    bool isSettled() const { return !m_window->isReading(); }
    QStringList names() const;
    QString cell(const QString &name, int column) const;
    void select(const QStringList &names) const;
    QStringList selected() const;

    /// Into what has the focus.
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    void type(const QString &text) const;

    /// What is done to the next sheet of the name, which must come while the test goes on. See
    /// sheetsMet().
    void onSheet(const char *name, const std::function<void(VemoSheet *)> &act);
    /// How many of the sheets announced with onSheet() have come.
    int sheetsMet() const { return *m_met; }

    /// The texts of a sheet's labels, one after another.
    static QString textOf(const VemoSheet *sheet);

    void destroyWindow() { m_window.reset(); }

private:
    std::unique_ptr<FileWindow> m_window;
    std::shared_ptr<int> m_met = std::make_shared<int>(0);
};

/// Starts theme, strings and styles in English, once in a process.
void startFileBrowserLook();

// SPDX-License-Identifier: MIT
#pragma once

#include "diskfolder.h"
#include "examples/filebrowser/ui/filetable.h"
#include "examples/filebrowser/ui/filewindow.h"
#include "support/sheetdriver.h"

#include <QAction>
#include <QPointer>
#include <QTableWidget>
#include <QTimer>

#include <functional>
#include <memory>

/// The file browser on a temporary folder. Except on Windows, it is also the home folder, with its
/// own trash. The first one in a process installs the look, in English.
///
///     BrowserStage stage;
///     stage.home.write("a.txt", "hello");
///     stage.open();
///     stage.clickRow("a.txt");
///     stage.press(Qt::Key_F2);
class BrowserStage
{
public:
    BrowserStage();
    Q_DISABLE_COPY(BrowserStage)

    /// Opens the window and waits until it has read its folder.
    void open(const QString &folder = {});
    void waitUntilRead() const;
    /// To be called after a pop-up: without a window manager its window remains the active one.
    void reactivate() const;

    QTableWidget *table() const { return window->table()->getTable(); }
    QStringList names() const; ///< In the order of the rows.
    int rowOf(const QString &name) const;
    QPoint placeOf(const QString &name) const; ///< In the table's viewport.
    QString footer() const;

    /// Sent to the window, which passes it to the focus widget.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    void type(const QString &letters) const;
    void click(QWidget *widget, const QPoint &place = {}) const;
    void clickRow(const QString &name, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    void doubleClickRow(const QString &name) const;
    /// By mouse, in an open menu.
    void clickAction(QWidget *menu, const char *name) const;
    /// Selects the entries and gives the list the focus.
    void select(const QStringList &names) const;
    QStringList selected() const { return window->table()->selectedNames(); }

    template <typename Widget = QWidget> Widget *part(const char *name) const
    {
        return window->findChild<Widget *>(QLatin1String(name));
    }
    QAction *action(const char *name) const { return window->findChild<QAction *>(name); }

    DiskFolder home;
    DiskFolder trash;
    std::unique_ptr<FileWindow> window;

private:
    void watchForgottenSheets();

    QTimer m_watch;
    QPointer<VemoSheet> m_seen;
    int m_times_seen = 0;
};

/// Acts on the next pop-up of any kind, because menus also run an event loop of their own.
class OnPopup : public QObject
{
public:
    explicit OnPopup(std::function<void(QWidget *)> act);
    bool isDone() const { return m_isDone; }

private:
    std::function<void(QWidget *)> m_act;
    QTimer m_timer;
    bool m_isDone = false;
};

/// Records the names of all sheets that are shown while it exists, however briefly.
class SheetLog : public QObject
{
public:
    SheetLog();
    QStringList shown;

    bool eventFilter(QObject *watched, QEvent *event) override;
};

/// The text of a sheet, without mark-up.
QString wordsOf(const VemoSheet *sheet);

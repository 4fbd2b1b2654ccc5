// SPDX-License-Identifier: MIT
#include "screenshots.h"

#include "datefilter.h"
#include "filetable.h"
#include "filewindow.h"

#include <vemo/vemosheet.h>

#include <QDir>
#include <QEventLoop>
#include <QPixmap>
#include <QTextBrowser>
#include <QTextStream>
#include <QTimer>

#include <algorithm>
#include <functional>
#include <vector>

namespace {

constexpr int kSettleTime = 400; // milliseconds: reading, layout, and a page of help
constexpr int kDaysShown = 30;

/// A state of the window and the way to reach it.
struct State
{
    const char *name;
    std::function<void()> enter;
};

/// Takes the pictures one by one. Its timer also runs in the event loop of a sheet.
class Photographer : public QObject
{
public:
    Photographer(FileWindow *window, const QDir &folder)
        : m_window(window), m_folder(folder), m_states(states())
    {
        connect(&m_timer, &QTimer::timeout, this, &Photographer::work);
    }

    QString run()
    {
        m_timer.start(kSettleTime);
        m_loop.exec();
        return m_error;
    }

private:
    std::vector<State> states()
    {
        return {
            {"list", [this] { selectRow(2); }},
            {"rename", [this] { trigger("renameAction"); }},
            {"new-folder", [this] { trigger("newFolderAction"); }},
            {"trash", [this] { trigger("trashAction"); }},
            {"dates", [this] { chooseDates(); }},
            {"help", [this] { trigger("helpAction"); }},
        };
    }

    /// Alternately enters a state and takes its picture.
    void work()
    {
        if (m_window->isReading() || isHelpEmpty())
            return;
        if (std::exchange(m_is_entered, !m_is_entered)) {
            save(m_states.at(m_next++).name);
            leave();
        } else if (m_next < m_states.size() && m_error.isEmpty()) {
            m_states.at(m_next).enter();
        } else {
            m_timer.stop();
            m_loop.quit();
        }
    }

    /// The help shows its local page once the server is known not to answer.
    bool isHelpEmpty() const
    {
        const QWidget *window = help();
        return window && window->findChild<QTextBrowser *>()->document()->isEmpty();
    }

    QWidget *help() const { return m_window->findChild<QWidget *>("helpWindow"); }

    void save(const char *name)
    {
        const QString path = m_folder.filePath(QString("filebrowser-%1.png").arg(name));
        if ((help() ? help() : m_window)->grab().save(path))
            QTextStream(stdout) << path << '\n';
        else
            m_error = QString("Cannot write the file \"%1\".").arg(path);
    }

    void leave()
    {
        const QList<VemoSheet *> sheets = m_window->findChildren<VemoSheet *>();
        for (VemoSheet *sheet : sheets)
            QMetaObject::invokeMethod(sheet, "quit", Qt::QueuedConnection);
        m_window->table()->cancelEditing();
    }

    void trigger(const char *action)
    {
        QTimer::singleShot(0, m_window->findChild<QAction *>(action), SLOT(trigger()));
    }

    void selectRow(int row)
    {
        QTableWidget *table = m_window->table()->getTable();
        table->setCurrentCell(std::min(row, table->rowCount() - 1), 0);
    }

    void chooseDates()
    {
        const QDate today = QDate::currentDate();
        m_window->findChild<DateFilter *>()->setDays(today.addDays(-kDaysShown), today);
    }

    FileWindow *m_window;
    QDir m_folder;
    std::vector<State> m_states;
    size_t m_next = 0;
    bool m_is_entered = false;
    QString m_error;
    QTimer m_timer;
    QEventLoop m_loop;
};

} // namespace

QString writeScreenshots(const Options &options)
{
    const QDir folder(QDir(options.screenshots).absolutePath());
    if (!folder.mkpath("."))
        return QString("Cannot make the folder \"%1\".").arg(folder.path());
    FileWindow window(options.folder);
    // Shown, so that its widgets receive the related events, but not on a screen.
    window.setAttribute(Qt::WA_DontShowOnScreen);
    window.show();
    return Photographer(&window, folder).run();
}

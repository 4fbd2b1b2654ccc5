// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QApplication>
#include <QPointer>

#include <memory>

class LocalPeer;

/// An application object for programs that run as a single instance.
///
/// The first process that calls isRunning() or sendMessage() becomes the primary instance of its id
/// and receives messages from then on; later processes send it their arguments and end. Instances
/// of different users, and on Windows of different sessions, are independent. Requires: nothing. If
/// the lock or the socket in the temporary folder cannot or must not be used (a symbolic link,
/// owned by another user, a folder), a warning is logged and the application runs as if it were the
/// only instance. A regular file owned by the user at the socket's path is replaced.
///
///     QtSingleApplication app(argc, argv);
///     if (app.sendMessage(app.arguments().join('\n')))
///         return 0; // another instance received it
///     MainWindow window;
///     app.setActivationWindow(&window);
///     QObject::connect(&app, &QtSingleApplication::messageReceived, &window, &MainWindow::open);
///     window.show();
///     return app.exec();
///
/// A message is any text of up to 16 MiB in UTF-8. Receiving never blocks, however slow the sender
/// is. A message that is longer, incomplete, or without new data for 5 seconds (1.5 seconds while
/// 400 senders are connected) is dropped with a warning. Not meant for one instance per document,
/// unless each document has its own id.
///
/// \image html gallery.png
class VEMO_EXPORT QtSingleApplication : public QApplication
{
    Q_OBJECT

public:
    /// The id is the file path of the application, in lower case on Windows. If GUIenabled is
    /// false, the application needs no screen and its windows are not visible.
    QtSingleApplication(int &argc, char **argv, bool GUIenabled = true);

    /// Processes with the same id are instances of one application; an empty id means the
    /// application's file path.
    QtSingleApplication(const QString &id, int &argc, char **argv);
    ~QtSingleApplication() override;

    /// Whether another process is the primary instance. If there is none, this process becomes it.
    bool isRunning();

    /// The id that the instances of an application have in common.
    QString id() const;

    /// Sets the window that activateWindow() brings to the front; by default there is none. The
    /// caller keeps ownership and may delete it at any time. If activateOnMessage is true, a
    /// message also brings it to the front, before messageReceived() is emitted.
    void setActivationWindow(QWidget *window, bool activateOnMessage = true);
    /// The activation window; null if none was set or if it has been deleted.
    QWidget *activationWindow() const;

    /// Same as isRunning(); kept for source compatibility. The argument is ignored.
    void initialize(bool = true);

    /// Gives up the primary role: closes the socket, releases the lock and stops receiving, so that
    /// another process can become primary. When this process ends, it does not touch the lock and
    /// the socket of its successor. To restart, for example after an update:
    ///
    ///     app.unlock();
    ///     QProcess::startDetached(app.applicationFilePath(), {});
    ///     app.quit();
    ///
    /// isRunning() and sendMessage() take the role if no instance has it, so do not call them after
    /// unlock().
    void unlock();

public Q_SLOTS:
    /// Sends message to the primary instance and waits for its answer, for at most timeout
    /// milliseconds (forever if negative). Returns true if the whole message was received. Returns
    /// false on time-out, if the message is longer than 16 MiB, and if this process is the primary
    /// instance, even if it became so through this call.
    bool sendMessage(const QString &message, int timeout = 5000);

    /// Restores, raises and activates the activation window, if there is one.
    void activateWindow();

Q_SIGNALS:
    /// Emitted in the primary instance when another instance has sent message.
    void messageReceived(const QString &message);

private Q_SLOTS:
    void slotReceive(const QString &message);

private:
    void init(const QString &id);

    std::unique_ptr<LocalPeer> m_peer;
    QPointer<QWidget> m_activation_window;
    bool m_activate_on_message = false;
};

// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QApplication>
#include <QPointer>

#include <memory>

class LocalPeer;

/// An application object for programs of which one instance at a time does the work.
///
/// The first process that calls isRunning() or sendMessage() becomes the primary instance of its id
/// and receives messages from then on; the next ones hand it what they were started with, and end.
/// Users, and on Windows their sessions, don't see each other's instances. Nothing of the library
/// has to be initialised before. Where the lock or the socket in the temporary folder can't be
/// used, or must not be (a symbolic link, another user's, a folder), a warning says so and the
/// application runs as if it were the only one. An ordinary file of the user's own at the socket's
/// path is replaced.
///
///     QtSingleApplication app(argc, argv);
///     if (app.sendMessage(app.arguments().join('\n')))
///         return 0; // another instance has it
///     MainWindow window;
///     app.setActivationWindow(&window);
///     QObject::connect(&app, SIGNAL(messageReceived(QString)), &window, SLOT(open(QString)));
///     window.show();
///     return app.exec();
///
/// A message is any text of up to 16 MiB in UTF-8. It is received without blocking, however slow
/// its sender; one that is longer, broken off, or silent for 5 seconds is dropped with a warning.
/// While 400 senders are connected and others may be waiting, silence counts after 1.5 seconds.
/// Not for a program that wants one instance a document: give each its own id.
///
/// \image html gallery.png
class VEMO_EXPORT QtSingleApplication : public QApplication
{
    Q_OBJECT

public:
    /// The id is the file path of the application, in lower case on Windows. Without GUIenabled the
    /// application runs where there is no screen: its windows are never seen.
    QtSingleApplication(int &argc, char **argv, bool GUIenabled = true);

    /// Processes with the same id are instances of one application; an empty id stands for the
    /// application's file path.
    QtSingleApplication(const QString &id, int &argc, char **argv);
    ~QtSingleApplication() override;

    /// Whether another process is the primary instance. Where none is, this one becomes it.
    bool isRunning();

    /// What makes processes instances of one application.
    QString id() const;

    /// The window that activateWindow() brings to the front, no window by default; it stays the
    /// caller's, and may be deleted at any time. With activateOnMessage a message does so too,
    /// before messageReceived() is emitted.
    void setActivationWindow(QWidget *window, bool activateOnMessage = true);
    /// The window that was set; null without one, and after its death.
    QWidget *activationWindow() const;

    /// As isRunning(), for programs that were written before it took the role. The argument means
    /// nothing.
    void initialize(bool = true);

    /// Gives up being the primary instance: closes its socket, releases the lock file, and receives
    /// nothing more, so that another process can become primary. What this process does at its end
    /// touches neither of the successor's. For a restart, such as after an update:
    ///
    ///     app.unlock();
    ///     QProcess::startDetached(app.applicationFilePath(), {});
    ///     app.quit();
    ///
    /// As isRunning() and sendMessage() take the role where nobody holds it, don't call them
    /// between unlock() and the end.
    void unlock();

public Q_SLOTS:
    /// Sends message to the primary instance and waits for its answer, timeout milliseconds at most
    /// (forever if negative). True once all of the message has arrived there; false
    /// when it hasn't in time, when it is longer than 16 MiB, and when this process is the primary
    /// instance, perhaps only now.
    bool sendMessage(const QString &message, int timeout = 5000);

    /// De-minimises, raises and activates the activation window; does nothing without one.
    void activateWindow();

Q_SIGNALS:
    /// Another instance has sent message to this one, the primary.
    void messageReceived(const QString &message);

private Q_SLOTS:
    void slotReceive(const QString &message);

private:
    void init(const QString &id);

    std::unique_ptr<LocalPeer> m_peer;
    QPointer<QWidget> m_activation_window;
    bool m_activate_on_message = false;
};

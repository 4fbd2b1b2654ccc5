// SPDX-License-Identifier: MIT
#include <vemo/qtsingleapplication.h>

#include "app/localpeer_p.h"

#include <QWidget>

namespace {

const char kPlatformVariable[] = "QT_QPA_PLATFORM";

/// If no screen is wanted, selects a platform that needs none while QApplication is constructed.
/// QApplication reads the platform from the environment; the destructor restores the variable, so
/// that processes started later see its original value.
class PlatformChoice
{
public:
    explicit PlatformChoice(bool isScreenWanted)
        : m_isChanged(!isScreenWanted), m_isSet(qEnvironmentVariableIsSet(kPlatformVariable)),
          m_named(qgetenv(kPlatformVariable))
    {
        if (!m_isChanged)
            return;
        QByteArray platforms("offscreen;minimal");
        if (!m_named.isEmpty())
            platforms += ';' + m_named; // Last, for installations without the other two.
        qputenv(kPlatformVariable, platforms);
    }
    ~PlatformChoice()
    {
        if (m_isChanged && m_isSet)
            qputenv(kPlatformVariable, m_named);
        else if (m_isChanged)
            qunsetenv(kPlatformVariable);
    }
    Q_DISABLE_COPY(PlatformChoice)

    /// Returns argc unchanged. A temporary whose pass() is an argument of a base class constructor
    /// lives until that constructor returns.
    int &pass(int &argc) const { return argc; }

private:
    const bool m_isChanged;
    const bool m_isSet;
    const QByteArray m_named;
};

} // namespace

QtSingleApplication::QtSingleApplication(int &argc, char **argv, bool GUIenabled)
    : QApplication(PlatformChoice(GUIenabled).pass(argc), argv)
{
    init(QString());
}

QtSingleApplication::QtSingleApplication(const QString &id, int &argc, char **argv)
    : QApplication(argc, argv)
{
    init(id);
}

QtSingleApplication::~QtSingleApplication() = default;

void QtSingleApplication::init(const QString &id)
{
    m_peer = std::make_unique<LocalPeer>(id);
    connect(m_peer.get(), SIGNAL(messageReceived(QString)), this, SLOT(slotReceive(QString)));
}

bool QtSingleApplication::isRunning()
{
    return m_peer->isClient();
}

QString QtSingleApplication::id() const
{
    return m_peer->id();
}

void QtSingleApplication::setActivationWindow(QWidget *window, bool activateOnMessage)
{
    m_activation_window = window;
    m_activate_on_message = activateOnMessage;
}

QWidget *QtSingleApplication::activationWindow() const
{
    return m_activation_window;
}

void QtSingleApplication::initialize(bool)
{
    isRunning();
}

void QtSingleApplication::unlock()
{
    m_peer->unlock();
}

bool QtSingleApplication::sendMessage(const QString &message, int timeout)
{
    return m_peer->sendMessage(message, timeout);
}

void QtSingleApplication::activateWindow()
{
    if (!m_activation_window)
        return;
    m_activation_window->setWindowState(m_activation_window->windowState() & ~Qt::WindowMinimized);
    m_activation_window->raise();
    m_activation_window->activateWindow();
}

void QtSingleApplication::slotReceive(const QString &message)
{
    if (m_activate_on_message)
        activateWindow();
    Q_EMIT messageReceived(message);
}

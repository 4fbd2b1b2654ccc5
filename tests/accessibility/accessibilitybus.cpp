// SPDX-License-Identifier: MIT
#include "accessibility/accessibilitybus.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QFile>

namespace {

const QLatin1String kAccessible("org.a11y.atspi.Accessible");
const QLatin1String kAction("org.a11y.atspi.Action");
const QLatin1String kProperties("org.freedesktop.DBus.Properties");
const QLatin1String kConnection("vemo-accessibility");
const QLatin1String kBusService("org.a11y.Bus");
const QLatin1String kBusPath("/org/a11y/bus");

constexpr int kAnswerTime = 20000; // milliseconds

// No restrictions: the socket is in a folder that nobody else can read.
const char *const kConfiguration = R"(<busconfig>
  <type>session</type>
  <listen>unix:path=%1</listen>
  <servicedir>%2</servicedir>
  <policy context="default">
    <allow user="*"/><allow send_destination="*"/><allow eavesdrop="true"/><allow own="*"/>
  </policy>
</busconfig>
)";

bool writeFile(const QString &path, const QString &content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content.toUtf8()) > 0;
}

/// Answers as a session does in which a screen reader runs.
class ScreenReaderSession : public QDBusVirtualObject
{
public:
    explicit ScreenReaderSession(QString address) : m_address(std::move(address)) { }

    QString introspect(const QString & /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override
    {
        const bool asksAddress = message.member() == QLatin1String("GetAddress");
        if (!asksAddress && message.member() != QLatin1String("Get"))
            return false;
        // The properties are IsEnabled and ScreenReaderEnabled.
        const QVariant isEnabled = QVariant::fromValue(QDBusVariant(true));
        return connection.send(message.createReply(asksAddress ? m_address : isEnabled));
    }

private:
    QString m_address;
};

void end(QProcess &process)
{
    if (process.state() == QProcess::NotRunning)
        return;
    process.kill();
    process.waitForFinished();
}

} // namespace

QDBusArgument &operator<<(QDBusArgument &argument, const BusObject &object)
{
    argument.beginStructure();
    argument << object.service << object.path;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, BusObject &object)
{
    argument.beginStructure();
    argument >> object.service >> object.path;
    argument.endStructure();
    return argument;
}

AccessibilityBus::AccessibilityBus()
{
    qDBusRegisterMetaType<BusObject>();
    qDBusRegisterMetaType<QVector<BusObject>>();
    m_daemon.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_program.setProcessChannelMode(QProcess::ForwardedErrorChannel);
}

AccessibilityBus::~AccessibilityBus()
{
    end(m_program);
    if (m_connection) {
        m_connection->unregisterObject(kBusPath);
        QDBusConnection::disconnectFromBus(kConnection);
    }
    // The registry exits when it loses its bus.
    end(m_daemon);
}

bool AccessibilityBus::start()
{
    const QString configuration = m_folder.filePath("bus.conf");
    const QString content =
        QString(kConfiguration).arg(m_folder.filePath("bus"), VEMO_ACCESSIBILITY_SERVICES);
    if (!writeFile(configuration, content))
        return false;
    m_daemon.setProcessEnvironment(onThisBus(QProcessEnvironment::systemEnvironment()));
    m_daemon.start(VEMO_DBUS_DAEMON,
        {"--config-file=" + configuration, "--nofork", "--nopidfile", "--print-address"});
    // The daemon prints its address once it accepts connections.
    if (!m_daemon.waitForReadyRead())
        return false;
    m_connection =
        std::make_unique<QDBusConnection>(QDBusConnection::connectToBus(address(), kConnection));
    if (!m_connection->isConnected())
        return false;
    return announce();
}

bool AccessibilityBus::announce()
{
    // Programs with Qt 6.4 ask on the session bus whether a screen reader runs.
    if (QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)) {
        m_session = std::make_unique<ScreenReaderSession>(address());
        return m_connection->registerVirtualObject(kBusPath, m_session.get())
            && m_connection->registerService(kBusService);
    }
    // Those with Qt 5 find the bus also by this property. When they ask, Qt may register the
    // program before it is connected.
    return QProcess::execute(
               VEMO_XPROP, {"-root", "-f", "AT_SPI_BUS", "8s", "-set", "AT_SPI_BUS", address()})
        == 0;
}

bool AccessibilityBus::startProgram(
    const QString &path, const QStringList &arguments, const QProcessEnvironment &environment)
{
    QProcessEnvironment programs = onThisBus(environment);
    // Qt 6.4 would connect, but register nothing.
    programs.remove("AT_SPI_BUS_ADDRESS");
    m_program.setProcessEnvironment(programs);
    m_program.start(path, arguments);
    return m_program.waitForStarted();
}

QVector<BusObject> AccessibilityBus::applications() const
{
    return childrenOf(
        {"org.a11y.atspi.Registry", QDBusObjectPath("/org/a11y/atspi/accessible/root")});
}

QVector<BusObject> AccessibilityBus::childrenOf(const BusObject &object) const
{
    return qdbus_cast<QVector<BusObject>>(call(object, kAccessible, "GetChildren"));
}

QVector<BusObject> AccessibilityBus::firstChildrenOf(const BusObject &object, int count) const
{
    if (property(object, kAccessible, "ChildCount").toInt() <= count)
        return childrenOf(object);
    QVector<BusObject> children;
    for (int i = 0; i < count; ++i)
        children += qdbus_cast<BusObject>(call(object, kAccessible, "GetChildAtIndex", {i}));
    return children;
}

QString AccessibilityBus::roleOf(const BusObject &object) const
{
    return call(object, kAccessible, "GetRoleName").toString();
}

QString AccessibilityBus::nameOf(const BusObject &object) const
{
    return property(object, kAccessible, "Name").toString();
}

quint64 AccessibilityBus::statesOf(const BusObject &object) const
{
    const auto words = qdbus_cast<QVector<uint>>(call(object, kAccessible, "GetState"));
    return words.size() == 2 ? quint64(words.at(1)) << 32 | words.at(0) : 0;
}

QStringList AccessibilityBus::interfacesOf(const BusObject &object) const
{
    return call(object, kAccessible, "GetInterfaces").toStringList();
}

int AccessibilityBus::actionCountOf(const BusObject &object) const
{
    return property(object, kAction, "NActions").toInt();
}

/// Null if the object no longer exists or does not answer.
QVariant AccessibilityBus::call(const BusObject &object, const QString &interface,
    const QString &method, const QVariantList &arguments) const
{
    QDBusMessage message =
        QDBusMessage::createMethodCall(object.service, object.path.path(), interface, method);
    message.setArguments(arguments);
    return m_connection->call(message, QDBus::Block, kAnswerTime).arguments().value(0);
}

QVariant AccessibilityBus::property(
    const BusObject &object, const QString &interface, const QString &name) const
{
    return call(object, kProperties, "Get", {interface, name}).value<QDBusVariant>().variant();
}

/// Keeps programs off the session that the tests run in.
QProcessEnvironment AccessibilityBus::onThisBus(QProcessEnvironment environment) const
{
    environment.insert("AT_SPI_BUS_ADDRESS", address());
    environment.insert("DBUS_SESSION_BUS_ADDRESS", address());
    for (const char *folder : {"XDG_RUNTIME_DIR", "XDG_CACHE_HOME", "HOME"})
        environment.insert(folder, m_folder.path());
    environment.remove("NO_AT_BRIDGE");
    return environment;
}

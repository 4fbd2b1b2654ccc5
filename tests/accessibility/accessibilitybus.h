// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>
#include <QVector>

#include <memory>

class QDBusVirtualObject;

/// An object of a program on the bus.
struct BusObject
{
    QString service;
    QDBusObjectPath path;
};

Q_DECLARE_METATYPE(BusObject)

/// A private accessibility bus (AT-SPI) with its registry, like that of a desktop session, and a
/// program on it. The destructor ends both.
///
///     AccessibilityBus bus;
///     QVERIFY(bus.start());
///     QVERIFY(bus.startProgram("/usr/bin/program", {}));
///     QTRY_VERIFY(!bus.applications().isEmpty());
class AccessibilityBus
{
public:
    AccessibilityBus();
    ~AccessibilityBus();
    Q_DISABLE_COPY(AccessibilityBus)

    bool start();

    /// Adds the variables by which the program finds the bus to environment.
    bool startProgram(const QString &path, const QStringList &arguments,
        const QProcessEnvironment &environment = QProcessEnvironment::systemEnvironment());

    /// The programs that have registered.
    QVector<BusObject> applications() const;

    QVector<BusObject> childrenOf(const BusObject &object) const;
    /// The first ones, one by one if there are more: the list of the cells of a table with a
    /// million rows would be too long a message for the bus, which closes the connection.
    QVector<BusObject> firstChildrenOf(const BusObject &object, int count) const;
    QString roleOf(const BusObject &object) const; ///< such as "push button"
    QString nameOf(const BusObject &object) const;
    quint64 statesOf(const BusObject &object) const; ///< bits, as AT-SPI numbers them
    QStringList interfacesOf(const BusObject &object) const;
    int actionCountOf(const BusObject &object) const;

private:
    QVariant call(const BusObject &object, const QString &interface, const QString &method,
        const QVariantList &arguments = {}) const;
    QVariant property(const BusObject &object, const QString &interface, const QString &name) const;
    /// Lets programs find the bus.
    bool announce();
    QString address() const { return "unix:path=" + m_folder.filePath("bus"); }
    QProcessEnvironment onThisBus(QProcessEnvironment environment) const;

    QTemporaryDir m_folder;
    QProcess m_daemon;
    QProcess m_program;
    std::unique_ptr<QDBusConnection> m_connection;
    std::unique_ptr<QDBusVirtualObject> m_session;
};

// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>

#include <functional>
#include <memory>

/// The parts of the instances that each system has a half for.

/// The name of the socket or pipe of an instance without an id.
QString defaultSocketName();

/// Calls handle with what arrives on the standard input, and with nothing at its end, until the
/// result is deleted.
std::unique_ptr<QObject> watchInput(const std::function<void(const QByteArray &)> &handle);

// SPDX-License-Identifier: MIT
#include "support/recordedmessages.h"

#include <utility>

namespace {

QStringList &texts()
{
    static QStringList recorded;
    return recorded;
}

QtMessageHandler passOn = nullptr;

/// Whether Qt warns of something that a platform without a window manager does not support.
bool isLimitOfThePlatform(const QString &message)
{
    return message.startsWith(QLatin1String("This plugin does not support "));
}

/// Whether only Qt 6 logs this: a click that nothing accepts, or a font without the letters of a
/// script.
bool isRemarkOfQt6(const QString &message)
{
    return QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
        && (message.endsWith(QLatin1String(" not accepted by receiving widget"))
            || message.contains(QLatin1String("OpenType support missing for ")));
}

/// The prefix of a message that is not a warning.
QLatin1String levelOf(QtMsgType type)
{
    switch (type) {
    case QtDebugMsg:
        return QLatin1String("debug: ");
    case QtInfoMsg:
        return QLatin1String("info: ");
    case QtWarningMsg:
        return QLatin1String("");
    case QtCriticalMsg:
    case QtFatalMsg:
        return QLatin1String("critical: ");
    }
    Q_UNREACHABLE();
}

void record(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (isLimitOfThePlatform(message) || isRemarkOfQt6(message))
        return;
    const QString category = QString::fromLatin1(context.category);
    const bool isOurs = category == QLatin1String("debug.message");
    if (isOurs || type == QtWarningMsg || type == QtCriticalMsg) {
        const QString origin = isOurs ? QString() : category + QLatin1String(": ");
        texts() += levelOf(type) + origin + message;
    }
    if (passOn)
        passOn(type, context, message);
}

} // namespace

void RecordedMessages::start()
{
    texts().clear();
    passOn = qInstallMessageHandler(record);
}

void RecordedMessages::stop()
{
    qInstallMessageHandler(std::exchange(passOn, nullptr));
}

QStringList RecordedMessages::take()
{
    return std::exchange(texts(), {});
}

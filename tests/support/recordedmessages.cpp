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

/// What a platform without a window manager can't do is no fault of the code under test.
bool isLimitOfThePlatform(const QString &message)
{
    return message.startsWith(QLatin1String("This plugin does not support "));
}

void record(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (isLimitOfThePlatform(message))
        return;
    if (type == QtWarningMsg || type == QtCriticalMsg) {
        const QString category = QString::fromLatin1(context.category);
        const bool isOurs = category == QLatin1String("debug.message");
        texts() += isOurs ? message : category + QLatin1String(": ") + message;
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

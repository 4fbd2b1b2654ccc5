// SPDX-License-Identifier: MIT
#include "support/recordedmessages.h"

#include <utility>

namespace {

QStringList texts;
QtMessageHandler passOn = nullptr;

void record(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (type == QtWarningMsg || type == QtCriticalMsg) {
        const QString category = QString::fromLatin1(context.category);
        const bool isOurs = category == QLatin1String("debug.message");
        texts += isOurs ? message : category + QLatin1String(": ") + message;
    }
    if (passOn)
        passOn(type, context, message);
}

} // namespace

void RecordedMessages::start()
{
    texts.clear();
    passOn = qInstallMessageHandler(record);
}

void RecordedMessages::stop()
{
    qInstallMessageHandler(std::exchange(passOn, nullptr));
}

QStringList RecordedMessages::take()
{
    return std::exchange(texts, {});
}

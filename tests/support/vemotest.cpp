// SPDX-License-Identifier: MIT
#include "support/vemotest.h"

#include <QScreen>

namespace {

void setIfMissing(const char *name, const char *value)
{
    if (!qEnvironmentVariableIsSet(name))
        qputenv(name, value);
}

} // namespace

void VemoTest::init()
{
    messages.start();
}

void VemoTest::cleanup()
{
    messages.stop();
    const QStringList unclaimed = messages.take();
    QVERIFY2(unclaimed.isEmpty(), qPrintable(unclaimed.join(QLatin1Char('\n'))));
    QVERIFY(QApplication::topLevelWidgets().isEmpty());
}

QColor pixelAt(QWidget *widget, const QPoint &point)
{
    const QPixmap picture = widget->grab();
    return picture.toImage().pixelColor(point * picture.devicePixelRatio());
}

void setTestEnvironment()
{
    // By default the offscreen platform reports 100 dpi.
    setIfMissing("QT_FONT_DPI", "96");
    setIfMissing("QT_QPA_PLATFORM", "offscreen");
    setIfMissing("QT_STYLE_OVERRIDE", "fusion");
}

void keepScreensReachable()
{
    // Never deleted, so that it still exists when leaks are searched for.
    static const auto *const screens = new QList<QScreen *>(QGuiApplication::screens());
    Q_UNUSED(screens)
}

// SPDX-License-Identifier: MIT
// Random events on windows with random widgets. See shaking.h for the environment variables.
#include "stress/shaking.h"
#include "support/testhost.h"

#include <QVBoxLayout>

namespace {

QWidget *makeRandomWindow(quint32 seed)
{
    QRandomGenerator random(seed);
    auto *window = new QWidget;
    window->resize(700, 500);
    auto *layout = new QVBoxLayout(window);
    const std::vector<WidgetKind> &kinds = widgetKinds();
    for (int i = 0; i < 6; ++i) {
        QWidget *widget = kinds[random.bounded(uint(kinds.size()))].make(window);
        if (!widget->isWindow() && !widget->inherits("VemoMask"))
            layout->addWidget(widget);
    }
    return window;
}

std::vector<Scene> scenes()
{
    std::vector<Scene> windows;
    for (int i = 0; i < 8; ++i)
        windows.push_back({QString("widgets%1").arg(i), makeRandomWindow, true});
    return windows;
}

int play(const QString &scenario)
{
    startDefaultTheme();
    playMonkey(scenario, scenes());
}

} // namespace

class MonkeyTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void randomWidgetsSurvive() { shake(scenes(), 300); }
    void aFindingIsShrunk();
};

void MonkeyTest::aFindingIsShrunk()
{
    // A scene that nobody knows fails whatever is left out, down to one event.
    const QString finding = monkeyFinding("unknown", 1, 32);
    QVERIFY2(finding.startsWith("unknown, seed 1, 1 of 32 events:\n  step "), qPrintable(finding));
}

VEMO_TEST_MAIN_WITH_CHILD(MonkeyTest, play)
#include "tst_monkey.moc"

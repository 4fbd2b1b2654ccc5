// SPDX-License-Identifier: MIT
#include "stress/monkey.h"

#include "support/childprocess.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDesktopServices>
#include <QKeyEvent>
#include <QLocale>
#include <QMouseEvent>
#include <QPointer>
#include <QProcess>
#include <QRandomGenerator>
#include <QTimer>
#include <QUrl>
#include <QWheelEvent>
#include <QWidget>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

enum Act : int {
    Press,
    Release,
    DoubleClick,
    Move,
    RightClick,
    Wheel,
    Key,
    Type,
    Focus,
    Enter,
    Leave,
    Resize,
    Enable,
    Visible,
    Language,
    Direction,
    Theme,
    Escape,
    Delete,
    Acts,
};

const char *const kNames[] = {"press", "release", "double-click", "move", "right click", "wheel",
    "key", "type", "focus", "enter", "leave", "resize", "enable", "show or hide", "language",
    "direction", "theme", "escape", "delete"};

constexpr int kMaxSize = 900;

struct Step
{
    Act act;
    int target; ///< which widget, modulo their number
    int x;
    int y;
};

/// The same for the same seed, on every machine.
std::vector<Step> stepsOf(quint32 seed, int count)
{
    QRandomGenerator random(seed);
    std::vector<Step> steps;
    for (int i = 0; i < count; ++i) {
        // One after the other: the order of arguments is the compiler's.
        const int act = random.bounded(int(Acts));
        const int target = random.bounded(10000);
        const int x = random.bounded(10000);
        const int y = random.bounded(10000);
        // Deleting ends the game for a widget: seldom.
        const bool isLate = act != Delete || random.bounded(8) == 0;
        steps.push_back({isLate ? Act(act) : Press, target, x, y});
    }
    return steps;
}

int keyOf(int number)
{
    constexpr int keys[] = {Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Return, Qt::Key_Space, Qt::Key_Up,
        Qt::Key_Down, Qt::Key_Left, Qt::Key_Right, Qt::Key_Home, Qt::Key_End, Qt::Key_PageDown,
        Qt::Key_Delete, Qt::Key_Backspace, Qt::Key_F2, Qt::Key_F4, Qt::Key_Menu};
    return keys[number % int(std::size(keys))];
}

void send(QWidget *widget, QEvent &&event)
{
    QApplication::sendEvent(widget, &event);
}

void sendMouse(QWidget *widget, QEvent::Type type, const Step &step, Qt::MouseButton button)
{
    const QPointF at(step.x % qMax(1, widget->width()), step.y % qMax(1, widget->height()));
    const QPointF onScreen = widget->mapToGlobal(at.toPoint());
    const bool isDown = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick;
    const bool isMove = type == QEvent::MouseMove;
    send(widget,
        QMouseEvent(type, at, onScreen, isMove ? Qt::NoButton : button,
            isDown || (isMove && step.x % 2 == 0) ? Qt::LeftButton : Qt::NoButton, {}));
}

void sendKey(QWidget *widget, int key, const QString &text = {})
{
    const QPointer<QWidget> alive(widget);
    const Qt::KeyboardModifiers modifiers =
        key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier;
    send(widget, QKeyEvent(QEvent::KeyPress, key, modifiers, text));
    if (alive)
        send(widget, QKeyEvent(QEvent::KeyRelease, key, modifiers, text));
}

/// Plays the steps one after the other, also inside the event loops that they open.
class Monkey : public QObject
{
    Q_OBJECT

public:
    Monkey(const Scene &scene, QWidget *window, std::vector<Step> steps)
        : m_scene(scene), m_window(window), m_steps(std::move(steps))
    {
        const auto children =
            window->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
        for (QWidget *child : children)
            m_children += child;
    }

public Q_SLOTS:
    void playNext()
    {
        if (m_next == m_steps.size())
            return finish();
        // Before the step: it may run an event loop.
        QTimer::singleShot(0, this, SLOT(playNext()));
        const Step step = m_steps[m_next++];
        if (QWidget *target = targetOf(step))
            play(step, target);
    }
    void openNothing(const QUrl & /*address*/) { }

private:
    QWidget *targetOf(const Step &step) const
    {
        QWidget *top = QApplication::activePopupWidget();
        if (!top || step.y % 4 == 0)
            top = m_window;
        if (!top)
            return nullptr;
        QList<QWidget *> widgets = top->findChildren<QWidget *>();
        widgets += top;
        return widgets[step.target % widgets.size()];
    }

    void play(const Step &step, QWidget *target)
    {
        switch (step.act) {
        case Press:
        case Release:
        case DoubleClick:
        case Move:
        case RightClick:
        case Wheel:
            return playPointer(step, target);
        case Key:
            return sendKey(target, keyOf(step.x));
        case Type:
            return sendKey(target, Qt::Key_A, QString(QChar(' ' + step.x % 200)));
        case Escape:
            return sendKey(target, Qt::Key_Escape);
        case Focus:
            return target->setFocus(Qt::FocusReason(step.x % 8));
        case Enter:
            return send(target, QEnterEvent(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1)));
        case Leave:
            return send(target, QEvent(QEvent::Leave));
        case Delete:
            return deleteOne(step);
        default:
            return playState(step, target);
        }
    }

    void playPointer(const Step &step, QWidget *target)
    {
        const QPoint at(step.x % qMax(1, target->width()), step.y % qMax(1, target->height()));
        const QPoint onScreen = target->mapToGlobal(at);
        switch (step.act) {
        case Press:
            return sendMouse(target, QEvent::MouseButtonPress, step, Qt::LeftButton);
        case Release:
            return sendMouse(target, QEvent::MouseButtonRelease, step, Qt::LeftButton);
        case DoubleClick:
            return sendMouse(target, QEvent::MouseButtonDblClick, step, Qt::LeftButton);
        case Move:
            return sendMouse(target, QEvent::MouseMove, step, Qt::LeftButton);
        case RightClick:
            return send(target, QContextMenuEvent(QContextMenuEvent::Mouse, at, onScreen));
        default:
            return send(target,
                QWheelEvent(at, onScreen, {}, {step.x % 3 * 120 - 120, step.y % 3 * 120 - 120}, {},
                    {}, Qt::NoScrollPhase, false));
        }
    }

    void playState(const Step &step, QWidget *target)
    {
        switch (step.act) {
        case Resize:
            return m_window->resize(step.x % kMaxSize, step.y % kMaxSize);
        case Enable:
            return target->setEnabled(!target->isEnabled());
        case Visible:
            if (target != m_window && !target->isWindow())
                target->setVisible(!target->isVisible());
            return;
        case Language:
            return m_window->setLocale(
                QLocale(step.x % 2 == 0 ? QStringLiteral("ar_EG") : QStringLiteral("de_DE")));
        case Direction:
            return m_window->setLayoutDirection(
                step.x % 2 == 0 ? Qt::RightToLeft : Qt::LeftToRight);
        default:
            return target->setStyleSheet(
                step.x % 2 == 0 ? QStringLiteral("* { margin: 1px; }") : target->styleSheet());
        }
    }

    void deleteOne(const Step &step)
    {
        if (m_scene.isOwned && !m_children.isEmpty())
            delete m_children[step.target % m_children.size()];
    }

    void finish()
    {
        while (QWidget *popup = QApplication::activePopupWidget())
            popup->close();
        if (m_scene.isOwned)
            delete m_window;
        // Event loops of what ran in the window may still be on the stack.
        QTimer::singleShot(0, [] { std::_Exit(0); });
    }

    const Scene &m_scene;
    QPointer<QWidget> m_window;
    QVector<QPointer<QWidget>> m_children;
    const std::vector<Step> m_steps;
    size_t m_next = 0;
};

/// "scene,seed,count,first,second,..." with the numbers of the steps to play; without any, all.
QString scenarioOf(const QString &scene, quint32 seed, int count, const QVector<int> &kept)
{
    QStringList parts {scene, QString::number(seed), QString::number(count)};
    for (const int step : kept)
        parts += QString::number(step);
    return parts.join(QLatin1Char(','));
}

QString describe(const QVector<int> &kept, quint32 seed, int count)
{
    const std::vector<Step> steps = stepsOf(seed, count);
    QStringList lines;
    for (const int number : kept) {
        const Step &step = steps[size_t(number)];
        lines += QStringLiteral("  step %1: %2, widget %3, (%4, %5)")
                     .arg(number)
                     .arg(QLatin1String(kNames[step.act]))
                     .arg(step.target)
                     .arg(step.x)
                     .arg(step.y);
    }
    return lines.join(QLatin1Char('\n'));
}

} // namespace

void playMonkey(const QString &scenario, const std::vector<Scene> &scenes)
{
    const QStringList parts = scenario.split(QLatin1Char(','));
    const quint32 seed = parts[1].toUInt();
    std::vector<Step> steps = stepsOf(seed, parts[2].toInt());
    if (parts.size() > 3) {
        std::vector<Step> kept;
        for (int i = 3; i < parts.size(); ++i)
            kept.push_back(steps[size_t(parts[i].toInt())]);
        steps = kept;
    }
    const auto scene = std::find_if(scenes.begin(), scenes.end(),
        [&](const Scene &candidate) { return candidate.name == parts[0]; });
    if (scene == scenes.end())
        std::_Exit(2);
    QWidget *window = scene->make(seed);
    window->show();
    Monkey monkey(*scene, window, steps);
    for (const char *scheme : {"http", "https", "file", "mailto"})
        QDesktopServices::setUrlHandler(QLatin1String(scheme), &monkey, "openNothing");
    QTimer::singleShot(0, &monkey, SLOT(playNext()));
    // A step may quit: the game goes on.
    for (;;)
        QApplication::exec();
}

QString monkeyFinding(const QString &scene, quint32 seed, int count)
{
    const auto survives = [&](const QVector<int> &kept) {
        const ChildResult child = runChild(scenarioOf(scene, seed, count, kept));
        return child.status == QProcess::NormalExit && child.exitCode == 0;
    };
    if (survives({}))
        return {};
    QVector<int> kept(count);
    std::generate(kept.begin(), kept.end(), [i = 0]() mutable { return i++; });
    // Leaves out ever smaller runs of steps, as long as the finding stays.
    for (int run = count / 2; run >= 1; run /= 2) {
        for (int at = 0; at < kept.size() && kept.size() > 1;) {
            QVector<int> fewer = kept;
            fewer.remove(at, qMin(run, fewer.size() - at));
            if (!fewer.isEmpty() && !survives(fewer))
                kept = fewer;
            else
                at += run;
        }
    }
    const QString output = runChild(scenarioOf(scene, seed, count, kept)).errorOutput;
    return QStringLiteral("%1, seed %2, %3 of %4 events:\n%5\n%6")
        .arg(scene)
        .arg(seed)
        .arg(kept.size())
        .arg(count)
        .arg(describe(kept, seed, count), output.right(4000));
}

#include "monkey.moc"

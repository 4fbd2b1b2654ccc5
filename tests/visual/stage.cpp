// SPDX-License-Identifier: MIT
#include "visual/stage.h"

#include "core/scaling_p.h"

#include <QtTest>

namespace {

constexpr int kBreath = 4; // design pixels
constexpr QPoint kPlace(40, 40); // on the screen
constexpr QPoint kAway(4, 4); // where no window is

QSize sizeFor(const QWidget *widget, const QSize &wanted)
{
    const QSize own = widget->sizeHint().expandedTo(widget->minimumSizeHint());
    return {wanted.width() > 0 ? scaled(wanted.width()) : own.width(),
        wanted.height() > 0 ? scaled(wanted.height()) : own.height()};
}

} // namespace

Stage::Stage(QWidget *widget, const QSize &size)
{
    QCursor::setPos(kAway);
    const int breath = scaled(kBreath);
    widget->setParent(&m_window);
    widget->ensurePolished();
    widget->move(breath, breath);
    widget->resize(sizeFor(widget, size));
    m_window.resize(widget->size() + QSize(2 * breath, 2 * breath));
    m_window.move(kPlace);
    // The focus is nowhere to be seen until it is put somewhere.
    m_window.setFocusPolicy(Qt::StrongFocus);
    m_window.setFocus();
    m_window.show();
    QApplication::setActiveWindow(&m_window);
    QVERIFY(QTest::qWaitForWindowExposed(&m_window));
}

Stage::~Stage()
{
    // Released outside, which is not a click. A pressed button would turn later moves into drags.
    if (m_pressed)
        QTest::mouseRelease(m_pressed, Qt::LeftButton, {}, kAway);
    QCursor::setPos(kAway);
}

void Stage::put(State state, QWidget *part)
{
    if (state == State::Hover || state == State::Pressed)
        hover(part, part->rect().center());
    if (state == State::Pressed)
        press(part, part->rect().center());
    else if (state == State::Focus)
        part->setFocus(Qt::TabFocusReason);
    else if (state == State::Disabled)
        part->setEnabled(false);
    QCoreApplication::processEvents();
}

void Stage::hover(QWidget *part, const QPoint &point) const
{
    QWidget *window = part->window();
    QCursor::setPos(part->mapToGlobal(point));
    // At a pixel ratio of 2 the platform without a display sends its own move elsewhere.
    QCoreApplication::processEvents();
    QTest::mouseMove(window->windowHandle(), {1, 1});
    QTest::mouseMove(window->windowHandle(), part->mapTo(window, point));
    QCoreApplication::processEvents();
}

void Stage::press(QWidget *part, const QPoint &point)
{
    m_pressed = part->window()->windowHandle();
    QTest::mousePress(m_pressed, Qt::LeftButton, {}, part->mapTo(part->window(), point));
}

QImage Stage::picture()
{
    return pictureOf(&m_window);
}

QImage pictureOf(QWidget *widget)
{
    QCoreApplication::processEvents();
    return widget->grab().toImage();
}

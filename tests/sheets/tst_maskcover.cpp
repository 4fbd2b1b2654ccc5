// SPDX-License-Identifier: MIT
// A mask covers its window: other children, pointer events and drops.
#include <vemo/vemomask.h>

#include "support/vemotest.h"

#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QMimeData>
#include <QPointer>
#include <QWheelEvent>

#include <memory>

namespace {

const QColor kShade(0, 0, 0, 20);

QWidget *plainSheet(QWidget *parent)
{
    auto *sheet = new QWidget(parent);
    sheet->setFixedSize(60, 40);
    return sheet;
}

QWidget *patch(QWidget *parent)
{
    auto *widget = new QWidget(parent);
    widget->setGeometry(0, 0, 30, 30);
    return widget;
}

/// Whether widget is visible at the position of its patch.
bool isOnTop(const QWidget *widget)
{
    const QWidget *seen = widget->parentWidget()->childAt(10, 10);
    return seen == widget || widget->isAncestorOf(seen);
}

/// Records the pointer events that it receives.
class PointerRecorder : public QWidget
{
public:
    bool event(QEvent *event) override
    {
        const QVector<QEvent::Type> watched {QEvent::MouseButtonPress, QEvent::MouseButtonRelease,
            QEvent::MouseButtonDblClick, QEvent::MouseMove, QEvent::Wheel, QEvent::ContextMenu,
            QEvent::ToolTip};
        if (watched.contains(event->type()))
            types.append(event->type());
        return QWidget::event(event);
    }
    QVector<QEvent::Type> types;
};

/// Sends a pointer event to a position in target.
void point(const QString &what, QWidget *target)
{
    const QPoint place(5, 5);
    if (what == "press")
        QTest::mouseClick(target, Qt::LeftButton, {}, place);
    else if (what == "right press")
        QTest::mouseClick(target, Qt::RightButton, {}, place);
    else if (what == "double click")
        QTest::mouseDClick(target, Qt::LeftButton, {}, place);
    const QPoint onScreen = target->mapToGlobal(place);
    const QPoint inWindow = target->mapTo(target->window(), place);
    QWheelEvent wheel(inWindow, onScreen, {}, {0, 120}, {}, {}, Qt::NoScrollPhase, false);
    // Only wheel events from the platform are propagated to parents.
    QSpontaneKeyEvent::setSpontaneous(&wheel);
    QContextMenuEvent menu(
        what == "menu key" ? QContextMenuEvent::Keyboard : QContextMenuEvent::Mouse, place,
        onScreen);
    QHelpEvent tip(QEvent::ToolTip, place, onScreen);
    if (what == "wheel")
        qApp->notify(target->window()->windowHandle(), &wheel);
    else if (what == "context menu" || what == "menu key")
        QCoreApplication::sendEvent(target, &menu);
    else if (what == "tool tip")
        QCoreApplication::sendEvent(target, &tip);
}

} // namespace

class MaskCoverTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void staysAboveWhatComes_data();
    void staysAboveWhatComes();
    void newerMaskStaysAboveTheOlder_data();
    void newerMaskStaysAboveTheOlder();
    void leavesTheOrderAloneWhileHidden();
    void secondMaskOfAWidgetShowsItOnTop();
    void mayDieWhileAChildIsRaised();
    void mouseStopsAtTheMask_data();
    void mouseStopsAtTheMask();
    void dropsStopAtTheMask();
};

void MaskCoverTest::staysAboveWhatComes_data()
{
    QTest::addColumn<QString>("what");
    for (const char *what : {"added before the sheet is shown", "added", "added and raised",
             "raised", "moved in from elsewhere", "raised after a second show"})
        QTest::newRow(what) << what;
}

void MaskCoverTest::staysAboveWhatComes()
{
    QFETCH(const QString, what);
    QWidget window;
    window.resize(300, 200);
    QWidget *early = patch(&window);
    const auto elsewhere = std::make_unique<QWidget>();
    QWidget *sheet = VemoMask::createMask(plainSheet(nullptr), &window, kShade);
    QWidget *mask = sheet->parentWidget();
    window.show();
    if (what == "added before the sheet is shown")
        patch(&window)->show();
    sheet->show();
    if (what == "raised after a second show") {
        sheet->hide();
        sheet->show();
    }
    QWidget *late = what.startsWith("added and") || what == "added" ? patch(&window) : early;
    if (what == "moved in from elsewhere")
        elsewhere->setParent(&window);
    elsewhere->show();
    late->show();
    if (what.contains("raised"))
        late->raise();
    QVERIFY(isOnTop(mask));
}

void MaskCoverTest::newerMaskStaysAboveTheOlder_data()
{
    QTest::addColumn<bool>("isMadeInOrder");
    QTest::newRow("made in the order in which they are shown") << true;
    QTest::newRow("made in the other order") << false;
}

void MaskCoverTest::newerMaskStaysAboveTheOlder()
{
    QFETCH(const bool, isMadeInOrder);
    QWidget window;
    window.resize(300, 200);
    QWidget *child = patch(&window);
    QWidget *older = VemoMask::createMask(plainSheet(nullptr), &window, kShade);
    QWidget *newer = VemoMask::createMask(plainSheet(nullptr), &window, kShade);
    if (!isMadeInOrder)
        std::swap(older, newer);
    window.show();
    older->show();
    newer->show();
    QVERIFY(isOnTop(newer->parentWidget()));
    child->raise();
    QVERIFY(isOnTop(newer->parentWidget()));
    patch(&window)->show();
    QVERIFY(isOnTop(newer->parentWidget()));
    newer->hide();
    QVERIFY(isOnTop(older->parentWidget()));
}

void MaskCoverTest::leavesTheOrderAloneWhileHidden()
{
    QWidget window;
    window.resize(300, 200);
    QWidget *child = patch(&window);
    QWidget *sheet = VemoMask::createMask(plainSheet(nullptr), &window, kShade);
    QWidget *mask = sheet->parentWidget();
    window.show();
    sheet->show();
    sheet->hide();
    child->raise();
    QCOMPARE(window.children().last(), child);
    QWidget *late = patch(&window);
    QCOMPARE(window.children().last(), late);
    sheet->show();
    QCOMPARE(window.children().last(), mask);
    delete sheet;
    child->raise();
    QCOMPARE(window.children().last(), child);
}

void MaskCoverTest::secondMaskOfAWidgetShowsItOnTop()
{
    QWidget window;
    window.resize(300, 200);
    QWidget *child = patch(&window);
    QWidget *sheet = VemoMask::createMask(plainSheet(nullptr), &window, kShade);
    const QWidget *first = sheet->parentWidget();
    VemoMask::createMask(sheet, &window, kShade);
    QVERIFY(sheet->parentWidget() != first);
    // The first one remains, and deliberately still follows the widget that it contained.
    QCOMPARE(window.findChildren<VemoMask *>().size(), 2);
    window.show();
    sheet->show();
    child->raise();
    QVERIFY(isOnTop(sheet->parentWidget()));
    QVERIFY(first->isVisible());
    sheet->hide();
    QVERIFY(!first->isVisible());
}

void MaskCoverTest::mayDieWhileAChildIsRaised()
{
    class Killer : public QObject
    {
    public:
        using QObject::QObject;
        bool eventFilter(QObject *watched, QEvent *event) override
        {
            if (event->type() != QEvent::ZOrderChange)
                return false;
            delete watched;
            return true;
        }
    };
    Killer killer;
    QWidget window;
    QWidget *child = patch(&window);
    QWidget *sheet = VemoMask::createMask(plainSheet(nullptr), &window, kShade);
    const QPointer<QWidget> mask = sheet->parentWidget();
    window.show();
    sheet->show();
    mask->installEventFilter(&killer);
    child->raise();
    QVERIFY(!mask);
    QWidget *other = VemoMask::createMask(plainSheet(nullptr), &window, kShade);
    other->show();
    patch(&window)->show();
    QVERIFY(isOnTop(other->parentWidget()));
}

void MaskCoverTest::mouseStopsAtTheMask_data()
{
    QTest::addColumn<QString>("what");
    QTest::addColumn<bool>("isInSheet");
    for (const char *what :
        {"press", "right press", "double click", "wheel", "context menu", "menu key", "tool tip"}) {
        QTest::addRow("%s on the mask", what) << what << false;
        QTest::addRow("%s in the sheet", what) << what << true;
    }
}

void MaskCoverTest::mouseStopsAtTheMask()
{
    QFETCH(const QString, what);
    QFETCH(const bool, isInSheet);
    PointerRecorder window;
    window.setContextMenuPolicy(Qt::CustomContextMenu);
    QSignalSpy asked(&window, SIGNAL(customContextMenuRequested(QPoint)));
    window.resize(300, 200);
    QWidget *sheet = VemoMask::createMask(plainSheet(nullptr), &window, kShade);
    window.show();
    sheet->show();
    point(what, isInSheet ? sheet : sheet->parentWidget());
    QCOMPARE(window.types, QVector<QEvent::Type>());
    QCOMPARE(asked.count(), 0);
}

void MaskCoverTest::dropsStopAtTheMask()
{
    class Target : public QWidget
    {
    public:
        Target() { setAcceptDrops(true); }
        void dragEnterEvent(QDragEnterEvent *event) override
        {
            ++entered;
            event->acceptProposedAction();
        }
        void dropEvent(QDropEvent * /*event*/) override { ++dropped; }
        int entered = 0;
        int dropped = 0;
    };
    Target window;
    window.resize(300, 200);
    QWidget *sheet = VemoMask::createMask(plainSheet(nullptr), &window, kShade);
    window.show();
    sheet->show();
    QMimeData text;
    text.setText("text");
    // Sent to the window's handle, as by the platform.
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &text, Qt::LeftButton, {});
    QCoreApplication::sendEvent(window.windowHandle(), &enter);
    QCOMPARE(window.entered, 0);
    QCOMPARE(enter.dropAction(), Qt::IgnoreAction);
    QDragMoveEvent move({6, 6}, Qt::CopyAction, &text, Qt::LeftButton, {});
    QCoreApplication::sendEvent(window.windowHandle(), &move);
    QVERIFY(!move.isAccepted());
    QDropEvent drop({6, 6}, Qt::CopyAction, &text, Qt::LeftButton, {});
    QCoreApplication::sendEvent(window.windowHandle(), &drop);
    QVERIFY(!drop.isAccepted());
    QCOMPARE(window.dropped, 0);
    sheet->hide();
    QCoreApplication::sendEvent(window.windowHandle(), &enter);
    QCOMPARE(window.entered, 1);
}

VEMO_TEST_MAIN(MaskCoverTest)
#include "tst_maskcover.moc"

// SPDX-License-Identifier: MIT
#include "sheets/lifetimecase.h"

#include "sheets/modalrun_p.h"
#include "sheets/sheetdriver.h"
#include "support/recordedmessages.h"
#include "support/testhost.h"

#include <vemo/messageshortcuts.h>
#include <vemo/vemoinputsheet.h>
#include <vemo/vemomask.h>
#include <vemo/vemomessagesheet.h>

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QMovie>
#include <QPushButton>
#include <QTextStream>
#include <QVBoxLayout>

namespace {

const QColor kShade(0, 0, 0, 20);

/// The widgets that exist before the sheet is created.
struct Scene
{
    Scene() : window(new QWidget)
    {
        auto *column = new QVBoxLayout(window);
        panel = new QWidget;
        field = new QLineEdit;
        column->addWidget(panel);
        column->addWidget(field);
        window->resize(640, 480);
        window->show();
        field->setFocus();
    }
    ~Scene() { delete window; }

    QPointer<QWidget> window;
    QPointer<QWidget> panel; ///< the parent passed to the sheet
    QPointer<QLineEdit> field; ///< has the focus
    QObject timers; ///< the context of all timers: none fires after the case
};

using Run = std::function<int(Scene &scene, const std::function<void(VemoSheet *)> &beforeShow)>;

template <typename Sheet>
int execHeld(Sheet *sheet, Scene &scene, const std::function<void(VemoSheet *)> &beforeShow)
{
    const QPointer<Sheet> held = sheet;
    VemoMask::createMask(sheet, scene.window, kShade);
    if (beforeShow)
        beforeShow(sheet);
    const int result = held ? held->exec() : 0;
    delete held.data();
    return result;
}

template <typename Sheet>
int showHeld(Sheet *sheet, Scene &scene, const std::function<void(VemoSheet *)> &beforeShow)
{
    const QPointer<Sheet> held = sheet;
    VemoMask::createMask(sheet, scene.window, kShade);
    if (beforeShow)
        beforeShow(sheet);
    if (!held)
        return 0;
    QEventLoop loop;
    int result = 0;
    QObject::connect(sheet, &VemoSheet::finished, &loop, [&](int ret) { result = ret; });
    QObject::connect(sheet, &VemoSheet::finished, &loop, &QEventLoop::quit);
    QObject::connect(sheet, &QObject::destroyed, &loop, &QEventLoop::quit);
    held->showSheet();
    loop.exec();
    delete held.data();
    return result;
}

template <typename Sheet>
int execOnce(Sheet *sheet, const std::function<void(VemoSheet *)> &beforeShow)
{
    const QPointer<Sheet> held = sheet;
    if (beforeShow)
        beforeShow(sheet);
    return held ? held->execAndDelete() : 0;
}

template <typename Sheet>
int openOnce(Sheet *sheet, const std::function<void(VemoSheet *)> &beforeShow)
{
    const QPointer<Sheet> held = sheet;
    if (beforeShow)
        beforeShow(sheet);
    if (!held)
        return 0;
    QEventLoop loop;
    int result = 0;
    QObject::connect(sheet, &VemoSheet::finished, &loop, [&](int ret) { result = ret; });
    QObject::connect(sheet, &QObject::destroyed, &loop, &QEventLoop::quit);
    held->open();
    loop.exec();
    delete held.data(); // It is still open if the application quits.
    return result;
}

QHash<QString, Run> runs()
{
    const auto message = [](Scene &scene) {
        return new VemoMessageSheet(VemoMessageSheet::Confirm, "text", scene.panel);
    };
    const QString busy = ":/vemo/theme/images/busy.gif";
    return {
        {"message sheet", [=](Scene &s, const auto &b) { return execHeld(message(s), s, b); }},
        {"message sheet shown",
            [=](Scene &s, const auto &b) { return showHeld(message(s), s, b); }},
        {"message sheet once", [=](Scene &s, const auto &b) { return execOnce(message(s), b); }},
        {"message sheet opened", [=](Scene &s, const auto &b) { return openOnce(message(s), b); }},
        {"input sheet once",
            [](Scene &s, const auto &b) {
                return execOnce(new VemoInputSheet("name", s.panel), b);
            }},
        {"input sheet opened",
            [](Scene &s, const auto &b) {
                return openOnce(new VemoInputSheet("name", s.panel), b);
            }},
        {"busy sheet",
            [=](Scene &s, const auto &b) {
                auto *sheet = new VemoMessageSheet("busy", busy, s.panel);
                const QPointer<QMovie> movie = sheet->movie();
                const int result = execHeld(sheet, s, b);
                delete movie.data();
                return result;
            }},
        {"input sheet",
            [](Scene &s, const auto &b) {
                return execHeld(new VemoInputSheet("name", s.panel), s, b);
            }},
        {"input sheet shown",
            [](Scene &s, const auto &b) {
                return showHeld(new VemoInputSheet("name", s.panel), s, b);
            }},
        {"showConfirmMsg",
            [](Scene &s, const auto &) { return showConfirmMsg("t", "text", s.panel); }},
        {"showConfirmMsgCustomBtn",
            [](Scene &s, const auto &) {
                return showConfirmMsgCustomBtn("t", "text", {"Yes", "No"}, s.panel);
            }},
        {"showInfoMsg",
            [](Scene &s, const auto &) { return showInfoMsg("t", "text", s.panel), 0; }},
        {"showUpgradingMsg",
            [](Scene &s, const auto &) { return showUpgradingMsg("t", "text", s.panel), 0; }},
        {"showWarningMsg",
            [](Scene &s, const auto &) { return showWarningMsg("t", "text", s.panel), 0; }},
        {"showWarningMsg with more",
            [](Scene &s, const auto &) { return showWarningMsg("t", "text", "more", s.panel), 0; }},
    };
}

bool isShortcut(const QString &run)
{
    return run.startsWith("show");
}

bool hasButtons(const QString &run)
{
    return run != "busy sheet";
}

/// Whether the function returns a result.
bool tellsResult(const QString &run)
{
    return !isShortcut(run) || run.startsWith("showConfirm");
}

void destroy(const QString &victim, const QString &manner, Scene &scene, VemoSheet *sheet)
{
    QObject *object = victim == "window" ? scene.window.data()
        : victim == "parent"             ? scene.panel.data()
        : victim == "mask"               ? sheet->parentWidget()
                                         : sheet;
    if (manner == "delete")
        delete object;
    else
        object->deleteLater();
}

QAbstractButton *yesButton(const QWidget *sheet)
{
    const auto *box = sheet->findChild<QDialogButtonBox *>();
    QAbstractButton *ok = box->button(QDialogButtonBox::Ok);
    return ok ? ok : box->button(QDialogButtonBox::Apply);
}

int codeOf(const QWidget *sheet)
{
    const auto *box = sheet->findChild<QDialogButtonBox *>();
    return box->standardButton(yesButton(sheet));
}

void quit(VemoSheet *sheet)
{
    QMetaObject::invokeMethod(sheet, "quit");
}

/// The outcome of the events of a case.
struct Outcome
{
    int expected = 0; ///< the result
    bool hasActed = false;
};

/// A named event while the sheet is shown.
using Act = std::function<void(Scene &scene, VemoSheet *sheet, Outcome &outcome)>;

QHash<QString, Act> acts()
{
    const auto done = [](VemoSheet *sheet, int code) {
        QMetaObject::invokeMethod(sheet, "done", Q_ARG(int, code));
    };
    return {
        {"application quits", [](Scene &, VemoSheet *, Outcome &) { QCoreApplication::quit(); }},
        {"application exits with a code",
            [](Scene &, VemoSheet *, Outcome &) { QCoreApplication::exit(5); }},
        {"last window closed",
            [](Scene &scene, VemoSheet *sheet, Outcome &) {
                scene.window->close();
                quit(sheet);
            }},
        {"window hidden",
            [](Scene &scene, VemoSheet *sheet, Outcome &) {
                scene.window->hide();
                quit(sheet);
            }},
        {"done twice",
            [=](Scene &, VemoSheet *sheet, Outcome &outcome) {
                done(sheet, 5);
                done(sheet, 6);
                outcome.expected = 6;
            }},
        {"done in finished",
            [=](Scene &, VemoSheet *sheet, Outcome &outcome) {
                QObject::connect(sheet, &VemoSheet::finished, [=] { done(sheet, 9); });
                done(sheet, 5);
                outcome.expected = 5;
            }},
        {"quit twice",
            [](Scene &, VemoSheet *sheet, Outcome &) {
                quit(sheet);
                quit(sheet);
            }},
        {"closed itself",
            [](Scene &, VemoSheet *sheet, Outcome &) {
                sheet->close();
                quit(sheet);
            }},
        {"parts deleted",
            [](Scene &, VemoSheet *sheet, Outcome &) {
                qDeleteAll(sheet->findChildren<QAbstractButton *>());
                quit(sheet);
            }},
        {"movie deleted",
            [](Scene &, VemoSheet *sheet, Outcome &) {
                for (const QLabel *label : sheet->findChildren<QLabel *>())
                    delete label->movie();
                if (auto *message = qobject_cast<VemoMessageSheet *>(sheet))
                    message->setText("still busy");
                quit(sheet);
            }},
        {"moved to another window",
            [](Scene &scene, VemoSheet *sheet, Outcome &) {
                sheet->setParent(nullptr);
                sheet->show();
                quit(sheet);
                sheet->setParent(scene.window);
            }},
        {"another on top, closed first",
            [](Scene &scene, VemoSheet *sheet, Outcome &) {
                QTimer::singleShot(0, [&scene] { quit(sheetOver(scene.window)); });
                showInfoMsg("t", "on top", scene.window);
                quit(sheet);
            }},
        {"another on top, closed last",
            [](Scene &scene, VemoSheet *sheet, Outcome &) {
                QTimer::singleShot(0, [&scene, sheet] {
                    quit(sheet);
                    quit(sheetOver(scene.window));
                });
                showInfoMsg("t", "on top", scene.window);
            }},
        {"another on top, window deleted",
            [](Scene &scene, VemoSheet *, Outcome &) {
                QTimer::singleShot(0, [&scene] { delete scene.window; });
                showInfoMsg("t", "on top", scene.window);
            }},
        {"another on top, lower one deleted",
            [](Scene &scene, VemoSheet *sheet, Outcome &) {
                QTimer::singleShot(0, [&scene, sheet] {
                    delete sheet;
                    quit(sheetOver(scene.window));
                });
                showInfoMsg("t", "on top", scene.window);
            }},
    };
}

/// Acts that require exec() of the sheet itself.
QHash<QString, Act> execActs()
{
    const auto execOf = [](VemoSheet *sheet) {
        if (auto *message = qobject_cast<VemoMessageSheet *>(sheet))
            return message->exec();
        return qobject_cast<VemoInputSheet *>(sheet)->exec();
    };
    return {
        {"exec entered again",
            [=](Scene &, VemoSheet *sheet, Outcome &outcome) {
                QTimer::singleShot(0, sheet, [sheet] { quit(sheet); });
                outcome.expected = execOf(sheet);
            }},
        {"exec entered again, then deleted",
            [=](Scene &, VemoSheet *sheet, Outcome &outcome) {
                QTimer::singleShot(0, sheet, [sheet] { delete sheet; });
                outcome.expected = execOf(sheet);
            }},
        {"exec in finished",
            [=](Scene &, VemoSheet *sheet, Outcome &outcome) {
                QObject::connect(sheet, &VemoSheet::finished, sheet, [=](int ret) {
                    if (ret != 5)
                        return;
                    QTimer::singleShot(0, sheet, [sheet] { quit(sheet); });
                    execOf(sheet);
                });
                QMetaObject::invokeMethod(sheet, "done", Q_ARG(int, 5));
                outcome.expected = 5;
            }},
        {"quits in exec entered again",
            [=](Scene &, VemoSheet *sheet, Outcome &) {
                QTimer::singleShot(0, sheet, [] { QCoreApplication::quit(); });
                execOf(sheet);
            }},
    };
}

QStringList deaths(const QString &run)
{
    QStringList moments {"while shown"};
    if (hasButtons(run))
        moments << "with a focused button"
                << "in pressed"
                << "in clicked"
                << "in finished";
    if (!isShortcut(run))
        moments << "before show";
    QStringList names;
    for (const QString &moment : qAsConst(moments)) {
        for (const char *victim : {"sheet", "mask", "window", "parent"}) {
            for (const char *manner : {"delete", "deleteLater"})
                names += QStringList({run, moment, victim, manner}).join(" / ");
        }
    }
    return names;
}

void arm(const QStringList &name, Scene &scene, VemoSheet *sheet, Outcome &outcome)
{
    const QString moment = name[1];
    const auto die = [=, &scene] { destroy(name[2], name[3], scene, sheet); };
    if (moment == "while shown") {
        die();
        return;
    }
    QAbstractButton *yes = yesButton(sheet);
    if (moment == "with a focused button") {
        QApplication::setActiveWindow(scene.window);
        yes->setFocus();
        die();
        return;
    }
    // In pressed() there is no answer yet, so only sheets that survive it return one.
    const bool isAnswered =
        moment != "in pressed" || name[3] == "deleteLater" || name[2] == "parent";
    outcome.expected = isAnswered ? codeOf(sheet) : 0;
    if (moment == "in pressed")
        QObject::connect(yes, &QAbstractButton::pressed, die);
    else if (moment == "in clicked")
        QObject::connect(yes, &QAbstractButton::clicked, die);
    else
        QObject::connect(sheet, &VemoSheet::finished, die);
    yes->click();
}

void act(const QStringList &name, Scene &scene, Outcome &outcome)
{
    const QPointer<VemoSheet> sheet = sheetOver(scene.window);
    if (!sheet)
        return;
    outcome.hasActed = true;
    const auto end = [sheet] {
        if (sheet && sheet->isVisible())
            quit(sheet);
    };
    // Ends sheets that the act has not ended.
    QTimer::singleShot(50, &scene.timers, end);
    if (name[1] == "before show")
        return;
    if (name.size() == 4)
        arm(name, scene, sheet, outcome);
    else
        (acts().contains(name[1]) ? acts() : execActs())[name[1]](scene, sheet, outcome);
}

QVector<bool> closeItemCalls;

/// Lists what is not restored although it still exists.
QStringList wrongs(Scene &scene)
{
    QStringList texts;
    if (!closeItemCalls.isEmpty() && !closeItemCalls.last() && scene.window)
        texts += "The Close item stayed grey.";
    if (!scene.window)
        return texts;
    for (const VemoMask *mask : scene.window->findChildren<VemoMask *>()) {
        if (mask->isVisible())
            texts += "A mask stayed visible.";
    }
    if (sheetOver(scene.window))
        texts += "A sheet stayed visible.";
    if (scene.window->focusWidget() != scene.field)
        texts += "The focus did not go back.";
    if (scene.window->isVisible() && !scene.window->close())
        texts += "The window still refuses to close.";
    return texts;
}

} // namespace

QStringList lifetimeCases()
{
    QStringList names;
    QStringList all = runs().keys();
    all.sort();
    for (const QString &run : qAsConst(all)) {
        names += deaths(run);
        QStringList events = acts().keys();
        if (!isShortcut(run) && !run.endsWith("shown") && !run.endsWith("opened"))
            events += execActs().keys();
        events.sort();
        for (const QString &event : qAsConst(events))
            names += run + " / " + event;
    }
    return names;
}

namespace {

/// What is wrong after the case.
QStringList faultsOf(const QString &joined)
{
    const QStringList name = joined.split(" / ");
    RecordedMessages messages;
    messages.start();
    closeItemCalls.clear();
    Scene scene;
    Outcome outcome;
    int result = 0;
    QTimer::singleShot(0, &scene.timers, [&] {
        const SheetDriver driver([&] { act(name, scene, outcome); });
        std::function<void(VemoSheet *)> beforeShow;
        if (name[1] == "before show") {
            outcome.hasActed = true;
            beforeShow = [&](VemoSheet *sheet) { destroy(name[2], name[3], scene, sheet); };
            QTimer::singleShot(50, &scene.timers, [&] {
                if (scene.window && sheetOver(scene.window))
                    quit(sheetOver(scene.window));
            });
        }
        result = runs()[name[0]](scene, beforeShow);
        QCoreApplication::quit();
    });
    QCoreApplication::exec();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();

    QStringList texts = wrongs(scene) + messages.take();
    if (!outcome.hasActed)
        texts += "Nothing happened.";
    if (tellsResult(name[0]) && result != outcome.expected)
        texts += QStringLiteral("Result %1, not %2.").arg(result).arg(outcome.expected);
    return texts;
}

} // namespace

int runLifetimeCases(const QString &names)
{
    QApplication::setQuitOnLastWindowClosed(false);
    startDefaultTheme();
    exchangeCloseItemRoutine([](std::uintptr_t, bool isEnabled) { closeItemCalls += isEnabled; });
    int result = 0;
    for (const QString &name : names.split('\n')) {
        for (const QString &fault : faultsOf(name)) {
            QTextStream(stderr) << name << ": " << fault << '\n';
            result = 1;
        }
    }
    return result;
}

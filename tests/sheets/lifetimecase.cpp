// SPDX-License-Identifier: MIT
#include "sheets/lifetimecase.h"

#include "sheets/modalrun_p.h"
#include "support/recordedmessages.h"
#include "support/sheetdriver.h"
#include "support/testhost.h"

#include <vemo/messageshortcuts.h>
#include <vemo/vemoinputsheet.h>
#include <vemo/vemomask.h>
#include <vemo/vemomessagesheet.h>
#include <vemo/vemoprogresssheet.h>

#include <QAbstractButton>
#include <QApplication>
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

using BeforeShow = std::function<void(VemoSheet *)>;

/// How a case opens a sheet and waits for its result.
struct Way
{
    QString name;
    std::function<int(Scene &scene, const BeforeShow &beforeShow)> run;
    bool hasResult = true; ///< whether run returns that of the sheet
    bool isShortcut = false; ///< creates its sheet itself, so that nothing can happen before show
    bool hasExec = false; ///< runs exec(), which can be entered again
    bool hasButtons = true;
};

enum class Opening { Exec, Show, ExecAndDelete, OpenAndDelete };

/// Opens a sheet and waits until it has ended or, if it deletes itself then, until it is deleted.
int waitFor(VemoSheet *sheet, bool deletesItself, const std::function<void()> &open)
{
    QEventLoop loop;
    int result = 0;
    QObject::connect(sheet, &VemoSheet::finished, &loop, [&](int ret) {
        result = ret;
        if (!deletesItself)
            loop.quit();
    });
    QObject::connect(sheet, &QObject::destroyed, &loop, &QEventLoop::quit);
    open();
    loop.exec();
    return result;
}

template <typename Sheet>
int runSheet(Sheet *made, Opening opening, Scene &scene, const BeforeShow &beforeShow)
{
    const QPointer<Sheet> sheet = made;
    if (opening == Opening::Exec || opening == Opening::Show)
        VemoMask::createMask(made, scene.window, kShade);
    if (beforeShow)
        beforeShow(made);
    if (!sheet)
        return 0;
    if (opening == Opening::ExecAndDelete)
        return sheet->execAndDelete();
    int result = 0;
    if (opening == Opening::Exec)
        result = sheet->exec();
    else if (opening == Opening::Show)
        result = waitFor(made, false, [=] { made->showSheet(); });
    else
        result = waitFor(made, true, [=] { made->open(); });
    delete sheet.data(); // Also open()ed ones, which are still open if the application quits.
    return result;
}

VemoMessageSheet *newMessage(const Scene &scene)
{
    return new VemoMessageSheet(VemoMessageSheet::Confirm, "text", scene.panel);
}

VemoInputSheet *newInput(const Scene &scene)
{
    return new VemoInputSheet("name", scene.panel);
}

VemoMessageSheet *newMessageWithOptions(const Scene &scene)
{
    VemoMessageSheet *sheet = newMessage(scene);
    sheet->setDontAskAgainCheckBox(true);
    sheet->setDetailedText("details");
    sheet->setDefaultButton(QMessageBox::Discard);
    // Unfolds the details while the sheet opens.
    QTimer::singleShot(0, sheet, [sheet] {
        for (auto *button : sheet->findChildren<QPushButton *>()) {
            if (button->text() == "Show details")
                button->click();
        }
    });
    return sheet;
}

VemoInputSheet *newInputWithOptions(const Scene &scene)
{
    VemoInputSheet *sheet = newInput(scene);
    sheet->setMultiLine(true);
    sheet->setContent("ab");
    sheet->setCheck([](const QString &text) { return !text.isEmpty(); });
    sheet->setErrorText("empty");
    return sheet;
}

VemoContentSheet *newContent(const Scene &scene)
{
    return new VemoContentSheet(new QLineEdit, scene.panel);
}

int runProgress(Scene &scene, Opening opening, const BeforeShow &beforeShow)
{
    auto *sheet = new VemoProgressSheet("work", scene.panel);
    sheet->setRange(0, 0);
    // Ends the sheet as a host does.
    QObject::connect(sheet, &VemoProgressSheet::canceled, sheet, &VemoProgressSheet::quit);
    return runSheet(sheet, opening, scene, beforeShow);
}

int runBusySheet(Scene &scene, const BeforeShow &beforeShow)
{
    auto *sheet = new VemoMessageSheet("busy", ":/vemo/theme/images/busy.gif", scene.panel);
    const QPointer<QMovie> movie = sheet->movie();
    const int result = runSheet(sheet, Opening::Exec, scene, beforeShow);
    delete movie.data();
    return result;
}

QVector<Way> sheetWays()
{
    QVector<Way> ways;
    const auto add = [&](const QString &suffix, Opening opening) {
        Way message {"message sheet" + suffix, [=](Scene &scene, const BeforeShow &beforeShow) {
                         return runSheet(newMessage(scene), opening, scene, beforeShow);
                     }};
        Way input {"input sheet" + suffix, [=](Scene &scene, const BeforeShow &beforeShow) {
                       return runSheet(newInput(scene), opening, scene, beforeShow);
                   }};
        const bool hasExec = opening == Opening::Exec || opening == Opening::ExecAndDelete;
        message.hasExec = input.hasExec = hasExec;
        ways << message << input;
    };
    add("", Opening::Exec);
    add(" shown", Opening::Show);
    add(" once", Opening::ExecAndDelete);
    add(" opened", Opening::OpenAndDelete);
    for (const Opening opening : {Opening::ExecAndDelete, Opening::OpenAndDelete}) {
        const QString suffix = opening == Opening::ExecAndDelete ? " once" : " opened";
        ways += {"message with options" + suffix, [=](Scene &scene, const BeforeShow &beforeShow) {
                     return runSheet(newMessageWithOptions(scene), opening, scene, beforeShow);
                 }};
        ways += {"input with options" + suffix, [=](Scene &scene, const BeforeShow &beforeShow) {
                     return runSheet(newInputWithOptions(scene), opening, scene, beforeShow);
                 }};
    }
    for (const Opening opening : {Opening::Exec, Opening::OpenAndDelete}) {
        const QString suffix = opening == Opening::Exec ? "" : " opened";
        Way content {"content sheet" + suffix, [=](Scene &scene, const BeforeShow &beforeShow) {
                         return runSheet(newContent(scene), opening, scene, beforeShow);
                     }};
        Way progress {"progress sheet" + suffix, [=](Scene &scene, const BeforeShow &beforeShow) {
                          return runProgress(scene, opening, beforeShow);
                      }};
        content.hasExec = progress.hasExec = opening == Opening::Exec;
        progress.hasButtons = false; // none that confirms
        ways << content << progress;
    }
    Way busy {"busy sheet", runBusySheet};
    busy.hasExec = true;
    busy.hasButtons = false;
    return ways << busy;
}

QVector<Way> shortcutWays()
{
    using Shortcut = std::function<int(QWidget *)>;
    QVector<Way> ways;
    const auto add = [&](const char *name, bool hasResult, const Shortcut &shortcut) {
        ways += {name, [=](Scene &scene, const BeforeShow &) { return shortcut(scene.panel); },
            hasResult, true};
    };
    add("showConfirmMsg", true, [](QWidget *w) { return showConfirmMsg("t", "text", w); });
    add("showConfirmMsgCustomBtn", true, [](QWidget *w) {
        return showConfirmMsgCustomBtn("t", "text", {"Yes", "No"}, w);
    });
    add("showInfoMsg", false, [](QWidget *w) { return showInfoMsg("t", "text", w), 0; });
    add("showUpgradingMsg", false, [](QWidget *w) { return showUpgradingMsg("t", "text", w), 0; });
    add("showWarningMsg", false, [](QWidget *w) { return showWarningMsg("t", "text", w), 0; });
    add("showWarningMsg with more", false,
        [](QWidget *w) { return showWarningMsg("t", "text", "more", w), 0; });
    return ways;
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

void done(VemoSheet *sheet, int code)
{
    QMetaObject::invokeMethod(sheet, "done", Q_ARG(int, code));
}

int execOf(VemoSheet *sheet)
{
    if (auto *message = qobject_cast<VemoMessageSheet *>(sheet))
        return message->exec();
    if (auto *content = qobject_cast<VemoContentSheet *>(sheet))
        return content->exec();
    return qobject_cast<VemoInputSheet *>(sheet)->exec();
}

/// What happens while a sheet is shown; returns the result that the sheet must have.
struct Event
{
    QString name;
    std::function<int(Scene &scene, VemoSheet *sheet)> act;
};

QVector<Event> endings()
{
    return {
        {"application quits", [](Scene &, VemoSheet *) { return QCoreApplication::quit(), 0; }},
        {"application exits with a code",
            [](Scene &, VemoSheet *) { return QCoreApplication::exit(5), 0; }},
        {"last window closed",
            [](Scene &scene, VemoSheet *sheet) { return scene.window->close(), quit(sheet), 0; }},
        {"window hidden",
            [](Scene &scene, VemoSheet *sheet) { return scene.window->hide(), quit(sheet), 0; }},
        {"done twice", [](Scene &, VemoSheet *sheet) { return done(sheet, 5), done(sheet, 6), 6; }},
        {"done in finished",
            [](Scene &, VemoSheet *sheet) {
                QObject::connect(sheet, &VemoSheet::finished, [=] { done(sheet, 9); });
                return done(sheet, 5), 5;
            }},
        {"quit twice", [](Scene &, VemoSheet *sheet) { return quit(sheet), quit(sheet), 0; }},
        {"closed itself", [](Scene &, VemoSheet *sheet) { return sheet->close(), quit(sheet), 0; }},
    };
}

QVector<Event> changes()
{
    return {
        {"parts deleted",
            [](Scene &, VemoSheet *sheet) {
                qDeleteAll(sheet->findChildren<QAbstractButton *>());
                return quit(sheet), 0;
            }},
        {"movie deleted",
            [](Scene &, VemoSheet *sheet) {
                for (const QLabel *label : sheet->findChildren<QLabel *>())
                    delete label->movie();
                if (auto *message = qobject_cast<VemoMessageSheet *>(sheet))
                    message->setText("still busy");
                return quit(sheet), 0;
            }},
        {"moved to another window",
            [](Scene &scene, VemoSheet *sheet) {
                sheet->setParent(nullptr);
                sheet->show();
                quit(sheet);
                return sheet->setParent(scene.window), 0;
            }},
    };
}

/// Shows another message on top, while which act is called.
int withAnotherOnTop(Scene &scene, const std::function<void()> &act)
{
    QTimer::singleShot(0, act);
    showInfoMsg("t", "on top", scene.window);
    return 0;
}

QVector<Event> stackings()
{
    return {
        {"another on top, closed first",
            [](Scene &scene, VemoSheet *sheet) {
                withAnotherOnTop(scene, [&] { quit(sheetOver(scene.window)); });
                return quit(sheet), 0;
            }},
        {"another on top, closed last",
            [](Scene &scene, VemoSheet *sheet) {
                return withAnotherOnTop(
                    scene, [&, sheet] { quit(sheet), quit(sheetOver(scene.window)); });
            }},
        {"another on top, window deleted",
            [](Scene &scene, VemoSheet *) {
                return withAnotherOnTop(scene, [&] { delete scene.window; });
            }},
        {"another on top, lower one deleted",
            [](Scene &scene, VemoSheet *sheet) {
                return withAnotherOnTop(scene, [&, sheet] {
                    delete sheet;
                    quit(sheetOver(scene.window));
                });
            }},
    };
}

/// Events that require exec() of the sheet itself.
QVector<Event> execEvents()
{
    return {
        {"exec entered again",
            [](Scene &, VemoSheet *sheet) {
                QTimer::singleShot(0, sheet, [sheet] { quit(sheet); });
                return execOf(sheet);
            }},
        {"exec entered again, then deleted",
            [](Scene &, VemoSheet *sheet) {
                QTimer::singleShot(0, sheet, [sheet] { delete sheet; });
                return execOf(sheet);
            }},
        {"exec in finished",
            [](Scene &, VemoSheet *sheet) {
                QObject::connect(sheet, &VemoSheet::finished, sheet, [=](int ret) {
                    if (ret != 5)
                        return;
                    QTimer::singleShot(0, sheet, [sheet] { quit(sheet); });
                    execOf(sheet);
                });
                return done(sheet, 5), 5;
            }},
        {"quits in exec entered again",
            [](Scene &, VemoSheet *sheet) {
                QTimer::singleShot(0, sheet, [] { QCoreApplication::quit(); });
                return execOf(sheet), 0;
            }},
    };
}

/// What is deleted, and how.
struct Death
{
    QString name;
    std::function<QObject *(Scene &scene, VemoSheet *sheet)> victim;
    bool isLater = false;
    bool leavesTheSheet = false;

    void strike(Scene &scene, VemoSheet *sheet) const
    {
        QObject *object = victim(scene, sheet);
        if (isLater)
            object->deleteLater();
        else
            delete object;
    }
};

QVector<Death> deaths()
{
    QVector<Death> all;
    for (const bool isLater : {false, true}) {
        const QString manner = isLater ? " / deleteLater" : " / delete";
        all += {"sheet" + manner, [](Scene &, VemoSheet *s) { return s; }, isLater};
        all += {"mask" + manner, [](Scene &, VemoSheet *s) { return s->parentWidget(); }, isLater};
        all += {"window" + manner, [](Scene &s, VemoSheet *) { return s.window.data(); }, isLater};
        all += {
            "parent" + manner, [](Scene &s, VemoSheet *) { return s.panel.data(); }, isLater, true};
    }
    return all;
}

/// Death in a slot of the button that confirms, or of finished(). In pressed() there is no answer
/// yet, so only sheets that survive it return one.
QVector<Event> deathsInSlots(const Death &death)
{
    const auto click = [](VemoSheet *sheet) {
        const int code = codeOf(sheet);
        yesButton(sheet)->click();
        return code;
    };
    return {
        {"in pressed / " + death.name,
            [=](Scene &scene, VemoSheet *sheet) {
                QObject::connect(yesButton(sheet), &QAbstractButton::pressed,
                    [=, &scene] { death.strike(scene, sheet); });
                const int code = click(sheet);
                return death.isLater || death.leavesTheSheet ? code : 0;
            }},
        {"in clicked / " + death.name,
            [=](Scene &scene, VemoSheet *sheet) {
                QObject::connect(yesButton(sheet), &QAbstractButton::clicked,
                    [=, &scene] { death.strike(scene, sheet); });
                return click(sheet);
            }},
        {"in finished / " + death.name,
            [=](Scene &scene, VemoSheet *sheet) {
                QObject::connect(
                    sheet, &VemoSheet::finished, [=, &scene] { death.strike(scene, sheet); });
                return click(sheet);
            }},
        {"with a focused button / " + death.name,
            [=](Scene &scene, VemoSheet *sheet) {
                QApplication::setActiveWindow(scene.window);
                yesButton(sheet)->setFocus();
                return death.strike(scene, sheet), 0;
            }},
    };
}

struct Case
{
    QString name;
    Way way;
    Event event;
    std::function<void(Scene &scene, VemoSheet *sheet)> beforeShow;
};

QVector<Case> casesOf(const Way &way)
{
    QVector<Case> cases;
    QVector<Event> events = endings() + changes() + stackings();
    if (way.hasExec)
        events += execEvents();
    for (const Death &death : deaths()) {
        events += {"while shown / " + death.name,
            [=](Scene &scene, VemoSheet *sheet) { return death.strike(scene, sheet), 0; }};
        if (way.hasButtons)
            events += deathsInSlots(death);
        if (!way.isShortcut)
            cases += {way.name + " / before show / " + death.name, way, {},
                [=](Scene &scene, VemoSheet *sheet) { death.strike(scene, sheet); }};
    }
    for (const Event &event : qAsConst(events))
        cases += {way.name + " / " + event.name, way, event, {}};
    return cases;
}

QVector<Case> allCases()
{
    QVector<Case> cases;
    for (const Way &way : sheetWays() + shortcutWays())
        cases += casesOf(way);
    return cases;
}

/// The outcome of the event of a case.
struct Outcome
{
    int expected = 0; ///< the result
    bool hasActed = false;
};

void act(const Case &one, Scene &scene, Outcome &outcome)
{
    const QPointer<VemoSheet> sheet = sheetOver(scene.window);
    if (!sheet)
        return;
    outcome.hasActed = true;
    // Ends sheets that the event has not ended.
    QTimer::singleShot(50, &scene.timers, [sheet] {
        if (sheet && sheet->isVisible())
            quit(sheet);
    });
    if (one.event.act)
        outcome.expected = one.event.act(scene, sheet);
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

/// Runs the case; returns the result of its sheet.
int run(const Case &one, Scene &scene, Outcome &outcome)
{
    const SheetDriver driver([&] { act(one, scene, outcome); });
    if (!one.beforeShow)
        return one.way.run(scene, {});
    outcome.hasActed = true;
    QTimer::singleShot(50, &scene.timers, [&scene] {
        if (scene.window && sheetOver(scene.window))
            quit(sheetOver(scene.window));
    });
    return one.way.run(scene, [&](VemoSheet *sheet) { one.beforeShow(scene, sheet); });
}

/// What is wrong after the case.
QStringList faultsOf(const Case &one)
{
    RecordedMessages messages;
    messages.start();
    closeItemCalls.clear();
    Scene scene;
    Outcome outcome;
    int result = 0;
    QTimer::singleShot(0, &scene.timers, [&] {
        result = run(one, scene, outcome);
        QCoreApplication::exit(); // With Qt 6, quit() would close the window first.
    });
    QCoreApplication::exec();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();

    QStringList texts = wrongs(scene) + messages.take();
    if (!outcome.hasActed)
        texts += "Nothing happened.";
    if (one.way.hasResult && result != outcome.expected)
        texts += QStringLiteral("Result %1, not %2.").arg(result).arg(outcome.expected);
    return texts;
}

} // namespace

QStringList lifetimeCases()
{
    QStringList names;
    for (const Case &one : allCases())
        names += one.name;
    return names;
}

int runLifetimeCases(const QString &names)
{
    QApplication::setQuitOnLastWindowClosed(false);
    startDefaultTheme();
    exchangeCloseItemRoutine([](std::uintptr_t, bool isEnabled) { closeItemCalls += isEnabled; });
    const QStringList wanted = names.split('\n');
    int result = 0;
    for (const Case &one : allCases()) {
        if (!wanted.contains(one.name))
            continue;
        for (const QString &fault : faultsOf(one)) {
            QTextStream(stderr) << one.name << ": " << fault << '\n';
            result = 1;
        }
    }
    return result;
}

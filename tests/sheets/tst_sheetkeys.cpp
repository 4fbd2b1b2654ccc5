// SPDX-License-Identifier: MIT
// Message and input sheets keep shortcuts, Tab and the focus from the window below.
#include "sheets/anysheet.h"
#include "support/activewindow.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <QAction>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

namespace {

using Button = QDialogButtonBox;

/// A window with everything below a sheet that a key could reach.
struct Scene
{
    Scene()
    {
        auto *column = new QVBoxLayout(&window);
        column->setMenuBar(bar);
        column->addWidget(first);
        column->addWidget(second);
        column->addWidget(button);
        QObject::connect(button, &QPushButton::clicked, [this] { fired += "button"; });
        bar->addMenu("&Menu")->addAction("entry");
        for (const char *keys : {"Ctrl+B", "F5", "Delete", "Ctrl+A", "Ctrl+C", "Ctrl+V"}) {
            auto *action = new QAction(&window);
            action->setShortcut(QKeySequence(keys));
            window.addAction(action);
            QObject::connect(action, &QAction::triggered, [=] { fired += keys; });
        }
        auto *shortcut = new QShortcut(QKeySequence("Ctrl+J"), &window);
        QObject::connect(shortcut, &QShortcut::activated, [this] { fired += "Ctrl+J"; });
        window.resize(600, 400);
        button->setFocus();
        if (!showActive(&window))
            qWarning("The window is not active.");
    }

    /// Sends the key like the platform.
    void press(int key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(window.windowHandle(), Qt::Key(key), modifiers);
    }

    QStringList fired;
    QLineEdit *first = new QLineEdit;
    QLineEdit *second = new QLineEdit;
    QPushButton *button = new QPushButton("&File");
    QMenuBar *bar = new QMenuBar;
    QWidget window;
};

QList<QWidget *> stopsOf(const QWidget *sheet)
{
    QList<QWidget *> stops;
    for (QWidget *widget : sheet->findChildren<QWidget *>()) {
        if (widget->focusPolicy() & Qt::TabFocus && widget->isVisible() && widget->isEnabled()
            && !widget->focusProxy())
            stops += widget;
    }
    return stops;
}

} // namespace

class SheetKeysTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void shortcutsBehindDoNotFire_data();
    void shortcutsBehindDoNotFire();
    void altDoesNotOpenTheMenuBar_data() { kinds(); }
    void altDoesNotOpenTheMenuBar();
    void ownShortcutsFire_data();
    void ownShortcutsFire();
    void hiddenSheetLetsShortcutsFire_data() { kinds(); }
    void hiddenSheetLetsShortcutsFire();
    void keysOfTheFieldStillEdit();
    void returnStillAnswers_data() { kinds(); }
    void returnStillAnswers();
    void tabStaysInTheSheet_data();
    void tabStaysInTheSheet();
    void tabPassesAHiddenSheet_data();
    void tabPassesAHiddenSheet();
    void clickOnTheMaskLeavesTheFocusInTheSheet_data() { kinds(); }
    void clickOnTheMaskLeavesTheFocusInTheSheet();
    void sheetWithoutAMaskComesToTheTop_data() { kinds(); }
    void sheetWithoutAMaskComesToTheTop();
    void focusComesForItsReason_data();
    void focusComesForItsReason();
    void closeIsRefusedForEveryWatchedWidget_data() { kinds(); }
    void closeIsRefusedForEveryWatchedWidget();
    void closeOfAButtonIsRefused();

private:
    static void kinds();
};

void SheetKeysTest::kinds()
{
    QTest::addColumn<QString>("kind");
    QTest::newRow("message") << "message";
    QTest::newRow("input") << "input";
}

void SheetKeysTest::shortcutsBehindDoNotFire_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("what");
    for (const char *kind : {"message", "input"}) {
        for (const char *keys : {"Ctrl+B", "F5", "Delete", "Ctrl+J"})
            QTest::addRow("%s, %s", kind, keys) << kind << keys << keys;
        addRow(kind + QByteArray(", mnemonic"), kind, "Alt+F", "button");
    }
}

void SheetKeysTest::shortcutsBehindDoNotFire()
{
    QFETCH(const QString, kind);
    QFETCH(const QString, keys);
    QFETCH(const QString, what);
    Scene scene;
    const int pressed = QKeySequence(keys)[0];
    const auto press = [&] {
        scene.press(pressed & ~Qt::KeyboardModifierMask,
            Qt::KeyboardModifiers(pressed & Qt::KeyboardModifierMask));
    };
    const AnySheet any(kind, &scene.window);
    QSignalSpy finished(any.sheet(), SIGNAL(finished(int)));
    any.execUntil([&] {
        press();
        QTest::qWait(0);
        scene.button->setFocus(); // The focus below the sheet makes no difference.
        press();
        QCOMPARE(scene.fired, QStringList());
        QVERIFY(finished.isEmpty());
        any.done(0);
    });
    press();
    QTRY_COMPARE(scene.fired, QStringList(what));
}

void SheetKeysTest::altDoesNotOpenTheMenuBar()
{
    QFETCH(const QString, kind);
    Scene scene;
    const AnySheet any(kind, &scene.window);
    any.execUntil([&] {
        scene.press(Qt::Key_M, Qt::AltModifier);
        QVERIFY(!QApplication::activePopupWidget());
        any.done(0);
    });
    scene.press(Qt::Key_M, Qt::AltModifier);
    QTRY_VERIFY(QApplication::activePopupWidget());
    QApplication::activePopupWidget()->close();
}

void SheetKeysTest::ownShortcutsFire_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("what");
    for (const char *kind : {"message", "input"}) {
        for (const char *what : {"mnemonic", "shortcut", "action"})
            QTest::addRow("%s, %s", kind, what) << kind << what;
    }
}

void SheetKeysTest::ownShortcutsFire()
{
    QFETCH(const QString, kind);
    QFETCH(const QString, what);
    Scene scene;
    const AnySheet any(kind, &scene.window);
    auto *discard = any.sheet()->findChild<QDialogButtonBox *>()->button(Button::Discard);
    discard->setText("&No");
    auto *shortcut = new QShortcut(QKeySequence("Ctrl+N"), any.sheet());
    connect(shortcut, &QShortcut::activated, discard, &QPushButton::click);
    auto *action = new QAction(any.sheet());
    action->setShortcut(QKeySequence("F9"));
    any.sheet()->addAction(action);
    connect(action, &QAction::triggered, discard, &QPushButton::click);
    QSignalSpy finished(any.sheet(), SIGNAL(finished(int)));
    any.execUntil([&] {
        if (what == "action")
            scene.press(Qt::Key_F9);
        else
            scene.press(Qt::Key_N, what == "mnemonic" ? Qt::AltModifier : Qt::ControlModifier);
        QTRY_COMPARE(finished, QList<QVariantList> {{int(Button::Discard)}});
    });
}

void SheetKeysTest::hiddenSheetLetsShortcutsFire()
{
    QFETCH(const QString, kind);
    Scene scene;
    const AnySheet any(kind, &scene.window);
    any.execUntil([&] {
        any.sheet()->hide();
        scene.press(Qt::Key_F5);
        QCOMPARE(scene.fired, QStringList("F5"));
        any.done(0);
    });
}

void SheetKeysTest::keysOfTheFieldStillEdit()
{
    Scene scene;
    const AnySheet any("input", &scene.window);
    any.execUntil([&] {
        QLineEdit *field = any.input->getLineEdit();
        for (const int key : {Qt::Key_A, Qt::Key_Space, Qt::Key_B})
            scene.press(key);
        QCOMPARE(field->text(), "a b");
        scene.press(Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(field->selectedText(), "a b");
        scene.press(Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QApplication::clipboard()->text(), "a b");
        scene.press(Qt::Key_Delete);
        QCOMPARE(field->text(), QString());
        scene.press(Qt::Key_V, Qt::ControlModifier);
        scene.press(Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(field->text(), "a ba b");
        scene.press(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(field->text(), QString("a b").repeated(field->text().size() / 3));
        any.done(0);
    });
    QCOMPARE(scene.fired, QStringList());
}

void SheetKeysTest::returnStillAnswers()
{
    QFETCH(const QString, kind);
    Scene scene;
    const AnySheet any(kind, &scene.window);
    const int yes = kind == "message" ? Button::Apply : Button::Ok;
    QCOMPARE(any.execUntil([&] { scene.press(Qt::Key_Return); }), yes);
}

void SheetKeysTest::tabStaysInTheSheet_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<bool>("isForward");
    for (const char *kind : {"message", "input"}) {
        QTest::addRow("%s, Tab", kind) << kind << true;
        QTest::addRow("%s, Backtab", kind) << kind << false;
    }
}

void SheetKeysTest::tabStaysInTheSheet()
{
    QFETCH(const QString, kind);
    QFETCH(const bool, isForward);
    Scene scene;
    const AnySheet any(kind, &scene.window);
    any.execUntil([&] {
        const QList<QWidget *> stops = stopsOf(any.sheet());
        QCOMPARE(stops.size(), 3);
        QWidget *start = scene.window.focusWidget();
        QSet<QWidget *> reached;
        for (int i = 0; i < stops.size(); ++i) {
            scene.press(isForward ? Qt::Key_Tab : Qt::Key_Backtab,
                isForward ? Qt::NoModifier : Qt::ShiftModifier);
            reached.insert(scene.window.focusWidget());
        }
        QCOMPARE(reached, QSet<QWidget *>(stops.begin(), stops.end()));
        QCOMPARE(scene.window.focusWidget(), start);
        any.done(0);
    });
}

void SheetKeysTest::tabPassesAHiddenSheet_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<bool>("hasMask");
    for (const char *kind : {"message", "input"}) {
        QTest::addRow("%s", kind) << kind << true;
        QTest::addRow("%s without a mask", kind) << kind << false;
    }
}

void SheetKeysTest::tabPassesAHiddenSheet()
{
    QFETCH(const QString, kind);
    QFETCH(const bool, hasMask);
    Scene scene;
    const AnySheet any(kind, &scene.window);
    if (!hasMask) {
        QWidget *mask = any.sheet()->parentWidget();
        any.sheet()->setParent(&scene.window);
        delete mask;
    }
    any.showSheet();
    any.sheet()->findChild<QDialogButtonBox *>()->buttons().first()->setFocus();
    any.sheet()->hide();
    QVERIFY(!any.sheet()->isAncestorOf(scene.window.focusWidget()));
    // The sheet still handles keys of the window, but Qt moves the focus before that.
    scene.first->setFocus();
    QTest::keyClick(scene.first, Qt::Key_Tab);
    QCOMPARE(scene.window.focusWidget(), scene.second);
    any.done(0);
}

void SheetKeysTest::clickOnTheMaskLeavesTheFocusInTheSheet()
{
    QFETCH(const QString, kind);
    Scene scene;
    scene.window.setFocusPolicy(Qt::StrongFocus);
    const AnySheet any(kind, &scene.window);
    any.execUntil([&] {
        QTest::mouseClick(any.sheet()->parentWidget(), Qt::LeftButton, {}, {2, 2});
        QVERIFY(any.sheet()->isAncestorOf(scene.window.focusWidget()));
        any.done(0);
    });
    QTest::mouseClick(&scene.window, Qt::LeftButton, {}, {2, 395});
    QCOMPARE(scene.window.focusWidget(), &scene.window);
}

void SheetKeysTest::sheetWithoutAMaskComesToTheTop()
{
    QFETCH(const QString, kind);
    Scene scene;
    const AnySheet any(kind, &scene.window);
    QWidget *mask = any.sheet()->parentWidget();
    any.sheet()->setParent(&scene.window);
    delete mask;
    auto *late = new QWidget(&scene.window);
    late->resize(scene.window.size());
    late->show();
    any.execUntil([&] {
        const QWidget *seen = scene.window.childAt(any.sheet()->geometry().center());
        QVERIFY(seen == any.sheet() || any.sheet()->isAncestorOf(seen));
        any.done(0);
    });
}

void SheetKeysTest::focusComesForItsReason_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<bool>("isModal");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("message, exec") << "message" << true << QStringList {"label: Tab"};
    QTest::newRow("message, showSheet") << "message" << false << QStringList();
    QTest::newRow("input, exec") << "input" << true << QStringList {"sheet: Tab", "field: Other"};
    QTest::newRow("input, showSheet") << "input" << false << QStringList {"field: Other"};
}

void SheetKeysTest::focusComesForItsReason()
{
    class Recorder : public QObject
    {
    public:
        bool eventFilter(QObject *watched, QEvent *event) override
        {
            if (event->type() != QEvent::FocusIn)
                return false;
            const QString name = qobject_cast<QLabel *>(watched) ? "label"
                : qobject_cast<QLineEdit *>(watched)             ? "field"
                                                                 : "sheet";
            const auto reason = static_cast<QFocusEvent *>(event)->reason();
            record += name
                + (reason == Qt::TabFocusReason          ? ": Tab"
                        : reason == Qt::OtherFocusReason ? ": Other"
                                                         : ": ?");
            return false;
        }
        QStringList record;
    };
    QFETCH(const QString, kind);
    QFETCH(const bool, isModal);
    QFETCH(const QStringList, expected);
    Scene scene;
    const AnySheet any(kind, &scene.window);
    Recorder recorder;
    any.sheet()->installEventFilter(&recorder);
    for (QWidget *part : any.sheet()->findChildren<QWidget *>())
        part->installEventFilter(&recorder);
    if (isModal) {
        any.execUntil([&] { any.done(0); });
    } else {
        any.showSheet();
        any.done(0);
    }
    QCOMPARE(recorder.record, expected);
}

void SheetKeysTest::closeIsRefusedForEveryWatchedWidget()
{
    QFETCH(const QString, kind);
    Scene scene;
    QWidget panel;
    panel.show();
    const AnySheet any(kind, &scene.window);
    panel.installEventFilter(any.sheet());
    QVERIFY(!panel.close());
    QVERIFY(panel.isVisible());
    any.setBlocking(false);
    QVERIFY(panel.close());
}

void SheetKeysTest::closeOfAButtonIsRefused()
{
    Scene scene;
    VemoMessageSheet sheet(VemoMessageSheet::ConfirmReset, "text", "more", &scene.window);
    sheet.show();
    for (const int which : {Button::Apply, Button::Discard, Button::Reset})
        QVERIFY(!sheet.button(QMessageBox::StandardButton(which))->close());
    sheet.setMessageType(VemoMessageSheet::Information);
    QVERIFY(!sheet.button(QMessageBox::Ok)->close());
    for (QLabel *label : sheet.findChildren<QLabel *>()) {
        if (!label->text().isEmpty())
            QVERIFY(!label->close());
    }
}

VEMO_TEST_MAIN(SheetKeysTest)
#include "tst_sheetkeys.moc"

// SPDX-License-Identifier: MIT
// The modal behaviour that message and input sheets share; each row runs for both.
#include "sheets/modalrun_p.h"

#include "sheets/anysheet.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/messageshortcuts.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QLineEdit>
#include <QVBoxLayout>

namespace {

QVector<bool> closeItem; ///< the requested states of the Close item, in order
std::uintptr_t closeItemWindow = 0;

void recordCloseItem(std::uintptr_t window, bool isEnabled)
{
    closeItemWindow = window;
    closeItem += isEnabled;
}

struct Scene
{
    Scene()
    {
        auto *column = new QVBoxLayout(&window);
        column->addWidget(first);
        column->addWidget(second);
        window.resize(600, 400);
        window.show();
        second->setFocus();
    }

    QLineEdit *first = new QLineEdit;
    QLineEdit *second = new QLineEdit;
    QWidget window;
};

} // namespace

class ModalRunTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void closeItemIsGreyedWhileItRuns_data() { kinds(); }
    void closeItemIsGreyedWhileItRuns();
    void closeItemIsLeftAloneWhereAskedFor_data() { kinds(); }
    void closeItemIsLeftAloneWhereAskedFor();
    void closeItemComesBackThoughTheFlagChanged_data() { kinds(); }
    void closeItemComesBackThoughTheFlagChanged();
    void closeItemOfAHiddenWindowIsNotTouched_data() { kinds(); }
    void closeItemOfAHiddenWindowIsNotTouched();
    void showSheetDoesNotGreyTheCloseItem_data() { kinds(); }
    void showSheetDoesNotGreyTheCloseItem();
    void finishedComesOnceAfterEverythingIsRestored_data() { kinds(); }
    void finishedComesOnceAfterEverythingIsRestored();
    void runsTwiceInARow_data() { kinds(); }
    void runsTwiceInARow();
    void focusGoesBack_data();
    void focusGoesBack();
    void focusGoesBackThroughTwoSheets_data();
    void focusGoesBackThroughTwoSheets();
    void focusIsClearedWhereNothingHadIt_data() { kinds(); }
    void focusIsClearedWhereNothingHadIt();
    void focusOfADeletedWidgetGoesElsewhere_data() { kinds(); }
    void focusOfADeletedWidgetGoesElsewhere();
    void newerSheetTakesTheKeys();
    void textsAreSpoken_data();
    void textsAreSpoken();
    void promptIsSpokenAsItIsShown_data();
    void promptIsSpokenAsItIsShown();

private:
    static void kinds();
};

void ModalRunTest::initTestCase()
{
    startDefaultTheme();
    exchangeCloseItemRoutine(recordCloseItem);
}

void ModalRunTest::kinds()
{
    QTest::addColumn<QString>("kind");
    QTest::newRow("message") << "message";
    QTest::newRow("input") << "input";
    closeItem.clear();
    closeItemWindow = 0;
}

void ModalRunTest::closeItemIsGreyedWhileItRuns()
{
    QFETCH(const QString, kind);
    closeItem.clear();
    Scene scene;
    const AnySheet any(kind, &scene.window);
    any.execUntil([&] {
        QCOMPARE(closeItem, QVector<bool>({false}));
        QCOMPARE(closeItemWindow, std::uintptr_t(scene.window.winId()));
        any.done(1);
    });
    QCOMPARE(closeItem, QVector<bool>({false, true}));
}

void ModalRunTest::closeItemIsLeftAloneWhereAskedFor()
{
    QFETCH(const QString, kind);
    closeItem.clear();
    Scene scene;
    const AnySheet any(kind, &scene.window);
    any.setBlocking(false);
    any.execUntil([&] { any.done(1); });
    QCOMPARE(closeItem, QVector<bool>());
}

void ModalRunTest::closeItemComesBackThoughTheFlagChanged()
{
    QFETCH(const QString, kind);
    closeItem.clear();
    Scene scene;
    const AnySheet any(kind, &scene.window);
    any.execUntil([&] {
        any.setBlocking(false);
        any.done(1);
    });
    QCOMPARE(closeItem, QVector<bool>({false, true}));
}

void ModalRunTest::closeItemOfAHiddenWindowIsNotTouched()
{
    QFETCH(const QString, kind);
    closeItem.clear();
    QWidget window;
    const AnySheet any(kind, &window);
    any.execUntil([&] { any.done(3); });
    QCOMPARE(closeItem, QVector<bool>());
    QVERIFY(!window.windowHandle());
}

void ModalRunTest::showSheetDoesNotGreyTheCloseItem()
{
    QFETCH(const QString, kind);
    closeItem.clear();
    Scene scene;
    const AnySheet any(kind, &scene.window);
    any.showSheet();
    QVERIFY(any.sheet()->isVisible());
    QCOMPARE(closeItem, QVector<bool>());
    QVERIFY(!scene.window.close());
    QSignalSpy finished(any.sheet(), SIGNAL(finished(int)));
    any.done(4);
    QCOMPARE(finished, QList<QVariantList> {{4}});
    QVERIFY(!any.sheet()->isVisible());
    QVERIFY(scene.window.close());
}

void ModalRunTest::finishedComesOnceAfterEverythingIsRestored()
{
    QFETCH(const QString, kind);
    Scene scene;
    const AnySheet any(kind, &scene.window);
    int count = 0;
    connect(any.sheet(), &VemoSheet::finished, &scene.window, [&](int ret) {
        ++count;
        QCOMPARE(ret, 12);
        QVERIFY(!any.sheet()->isVisible());
        QVERIFY(!any.sheet()->parentWidget()->isVisible());
        QVERIFY(closeItem.last());
        QCOMPARE(scene.window.focusWidget(), scene.second);
    });
    QCOMPARE(any.execUntil([&] { any.done(12); }), 12);
    QCOMPARE(count, 1);
}

void ModalRunTest::runsTwiceInARow()
{
    QFETCH(const QString, kind);
    Scene scene;
    const AnySheet any(kind, &scene.window);
    for (int code = 1; code <= 2; ++code) {
        QCOMPARE(any.execUntil([&] {
            QVERIFY(any.sheet()->isVisible());
            any.done(code);
        }),
            code);
        QCOMPARE(scene.window.focusWidget(), scene.second);
    }
}

void ModalRunTest::focusGoesBack_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("way");
    for (const char *kind : {"message", "input"}) {
        for (const char *way : {"exec", "showSheet", "exec after a walk below the sheet",
                 "deleted while shown", "deleted while it runs"})
            QTest::addRow("%s, %s", kind, way) << kind << way;
    }
}

void ModalRunTest::focusGoesBack()
{
    QFETCH(const QString, kind);
    QFETCH(const QString, way);
    Scene scene;
    const AnySheet any(kind, &scene.window);
    if (way.contains("shown") || way == "showSheet") {
        any.showSheet();
        any.sheet()->findChild<QDialogButtonBox *>()->buttons().first()->setFocus();
        QVERIFY(scene.window.focusWidget() != scene.second);
        if (way == "showSheet")
            any.done(0);
        else
            delete any.sheet();
    } else {
        any.execUntil([&] {
            QVERIFY(any.sheet()->isAncestorOf(scene.window.focusWidget()));
            if (way.contains("below"))
                scene.first->setFocus();
            if (way.contains("deleted"))
                delete any.sheet();
            else
                any.done(0);
        });
    }
    QTRY_COMPARE(scene.window.focusWidget(), scene.second);
}

void ModalRunTest::focusGoesBackThroughTwoSheets_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<bool>("isUpperFirst");
    for (const char *kind : {"message", "input"}) {
        QTest::addRow("%s, the upper one first", kind) << kind << true;
        QTest::addRow("%s, the lower one first", kind) << kind << false;
    }
}

void ModalRunTest::focusGoesBackThroughTwoSheets()
{
    QFETCH(const QString, kind);
    QFETCH(const bool, isUpperFirst);
    Scene scene;
    const AnySheet lower(kind, &scene.window);
    const AnySheet upper(kind, &scene.window);
    lower.showSheet();
    lower.sheet()->findChild<QDialogButtonBox *>()->buttons().first()->setFocus();
    upper.showSheet();
    upper.sheet()->findChild<QDialogButtonBox *>()->buttons().first()->setFocus();
    const AnySheet &first = isUpperFirst ? upper : lower;
    const AnySheet &last = isUpperFirst ? lower : upper;
    first.done(0);
    QVERIFY(last.sheet()->isAncestorOf(scene.window.focusWidget()));
    last.done(0);
    QCOMPARE(scene.window.focusWidget(), scene.second);
}

void ModalRunTest::focusIsClearedWhereNothingHadIt()
{
    QFETCH(const QString, kind);
    Scene scene;
    // Otherwise the late activation would set the focus.
    QVERIFY(QTest::qWaitForWindowActive(&scene.window));
    scene.second->clearFocus();
    QCOMPARE(scene.window.focusWidget(), nullptr);
    const AnySheet any(kind, &scene.window);
    any.execUntil([&] {
        QVERIFY(scene.window.focusWidget());
        any.done(0);
    });
    QCOMPARE(scene.window.focusWidget(), nullptr);
}

void ModalRunTest::focusOfADeletedWidgetGoesElsewhere()
{
    QFETCH(const QString, kind);
    Scene scene;
    const AnySheet any(kind, &scene.window);
    any.execUntil([&] {
        delete scene.second;
        any.done(0);
    });
    QVERIFY(!scene.window.focusWidget() || scene.window.focusWidget()->isVisible());
}

void ModalRunTest::newerSheetTakesTheKeys()
{
    Scene scene;
    QStringList order;
    const AnySheet lower("message", &scene.window);
    connect(lower.sheet(), &VemoSheet::finished, [&] { order += "lower"; });
    lower.execUntil([&] {
        const SheetDriver driver([&] { QTest::keyClick(&scene.window, Qt::Key_Return); });
        showInfoMsg("title", "upper", &scene.window);
        order += "upper";
        QTest::keyClick(&scene.window, Qt::Key_Return);
    });
    QCOMPARE(order, QStringList({"upper", "lower"}));
}

void ModalRunTest::textsAreSpoken_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("spoken");
    addRow("plain", "Delete it? 1 < 2", "Delete it? 1 < 2");
    addRow("rich", "<b>Delete</b> <a href='x:y'>it</a>?", "Delete it?");
    addRow("none", QString(), QString());
}

void ModalRunTest::textsAreSpoken()
{
    QFETCH(const QString, text);
    QFETCH(const QString, spoken);
    QWidget window;
    VemoMessageSheet message(VemoMessageSheet::Warning, text, text, &window);
    QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(&message);
    QCOMPARE(accessible->role(), QAccessible::Dialog);
    QCOMPARE(accessible->text(QAccessible::Name), spoken);
    QCOMPARE(accessible->text(QAccessible::Description), spoken);
}

void ModalRunTest::promptIsSpokenAsItIsShown_data()
{
    QTest::addColumn<QString>("prompt");
    QTest::addColumn<QString>("spoken");
    const QString name = "A & B <draft>";
    addRow("plain", "New name", "New name");
    addRow("none", QString(), QString());
    addRow("escaped", name.toHtmlEscaped(), name);
    addRow("entity alone", "A &amp; B", "A & B");
    addRow("mark-up", "<b>New</b> name", "New name");
}

void ModalRunTest::promptIsSpokenAsItIsShown()
{
    QFETCH(const QString, prompt);
    QFETCH(const QString, spoken);
    QWidget window;
    VemoInputSheet input(prompt, &window); // A prompt is always shown as rich text.
    QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(&input);
    QCOMPARE(accessible->role(), QAccessible::Dialog);
    QCOMPARE(accessible->text(QAccessible::Name), spoken);
    QCOMPARE(input.getLineEdit()->accessibleName(), spoken);
}

VEMO_TEST_MAIN(ModalRunTest)
#include "tst_modalrun.moc"

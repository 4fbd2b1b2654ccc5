// SPDX-License-Identifier: MIT
// The effect of keys while a message sheet is open.
#include <vemo/vemomessagesheet.h>

#include "support/sheetdriver.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/vemomask.h>

#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

using Sheet = VemoMessageSheet;
using Button = QDialogButtonBox;

constexpr int kNothing = -1; // The key does not end the sheet.

/// A window with fields, and a sheet over it.
template <typename Window> struct Scene
{
    explicit Scene(int type, const QString &text = "text", int width = 600)
    {
        auto *column = new QVBoxLayout(&window);
        column->addWidget(before);
        column->addWidget(behind);
        window.resize(width, 400);
        sheet = new Sheet(Sheet::MessageType(type), text, &window);
        VemoMask::createMask(sheet, &window, QColor(0, 0, 0, 20));
        window.show();
        before->setFocus();
    }

    QPushButton *button(int which) const
    {
        return static_cast<QPushButton *>(sheet->button(QMessageBox::StandardButton(which)));
    }
    QLabel *label(const QString &text) const
    {
        for (QLabel *label : sheet->template findChildren<QLabel *>()) {
            if (label->text() == text)
                return label;
        }
        return nullptr;
    }
    /// Runs the sheet, calls act, and returns how the sheet ended; kNothing if it did not.
    int result(const std::function<void()> &act)
    {
        bool didEnd = false;
        const SheetDriver driver([&] {
            QSignalSpy finished(sheet, SIGNAL(finished(int)));
            act();
            didEnd = !finished.isEmpty();
            if (!didEnd)
                sheet->quit();
        });
        const int code = sheet->exec();
        return didEnd ? code : kNothing;
    }

    QLineEdit *before = new QLineEdit;
    QLineEdit *behind = new QLineEdit;
    Window window;
    Sheet *sheet;
};

int expected(const QString &what)
{
    const QHash<QString, int> codes {{"Ok", Button::Ok}, {"Apply", Button::Apply},
        {"Discard", Button::Discard}, {"Reset", Button::Reset}, {"nothing", kNothing}};
    return codes.value(what, -2);
}

const QVector<QPair<const char *, int>> kKeys {{"Escape", Qt::Key_Escape},
    {"Return", Qt::Key_Return}, {"Enter", Qt::Key_Enter}, {"Space", Qt::Key_Space},
    {"A", Qt::Key_A}, {"F1", Qt::Key_F1}, {"Down", Qt::Key_Down}};

} // namespace

class MessageSheetKeysTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void keyOfTheWindowEndsTheSheet_data();
    void keyOfTheWindowEndsTheSheet();
    void keyOfThePartEndsTheSheet_data();
    void keyOfThePartEndsTheSheet();
    void windowBehindGetsNoKeys();
    void hiddenSheetLeavesTheKeysAlone();
    void disabledApplyIsNotPressed();
    void tabCyclesWithinTheSheet_data();
    void tabCyclesWithinTheSheet();
    void tabFollowsWhatIsSeen_data();
    void tabFollowsWhatIsSeen();
    void tabSentToTheWindowCyclesToo();
    void disabledApplyIsPassedOver();
    void cycleFollowsChangesWhileShown();
    void tabReachesTheLinksOfATextFirst();
    void keysStayInASheetWithoutText_data();
    void keysStayInASheetWithoutText();
    void closingTheWindowIsRefused();
    void closingTheWindowIsAllowedWhereAskedFor();
};

void MessageSheetKeysTest::keyOfTheWindowEndsTheSheet_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("result");
    const char *results[][3] = {// Escape, the keys that confirm, any other
        {"nothing", "nothing", "nothing"}, {"nothing", "Ok", "nothing"},
        {"nothing", "Ok", "nothing"}, {"Discard", "Apply", "nothing"},
        {"Discard", "Apply", "nothing"}, {"Discard", "Apply", "nothing"},
        {"Discard", "Apply", "nothing"}, {"nothing", "nothing", "nothing"},
        {"nothing", "nothing", "nothing"}};
    for (int type = 0; type <= 8; ++type) {
        for (int key = 0; key < kKeys.size(); ++key) {
            QTest::addRow("type %d, %s", type, kKeys[key].first) << type << kKeys[key].second
                                                                 << results[type][key == 0 ? 0
                                                                            : key < 4      ? 1
                                                                                           : 2];
        }
    }
}

void MessageSheetKeysTest::keyOfTheWindowEndsTheSheet()
{
    QFETCH(const int, type);
    QFETCH(const int, key);
    QFETCH(const QString, result);
    Scene<QWidget> scene(type);
    QCOMPARE(scene.result([&] { QTest::keyClick(&scene.window, Qt::Key(key)); }), expected(result));
}

void MessageSheetKeysTest::keyOfThePartEndsTheSheet_data()
{
    QTest::addColumn<QString>("part");
    QTest::addColumn<bool>("isDialog");
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("result");
    const QHash<QString, QStringList> results {// Escape, Return, Enter, Space, the rest
        {"text", {"Discard", "Apply", "Apply", "Apply", "nothing"}},
        {"Apply", {"Discard", "Apply", "Apply", "Apply", "nothing"}},
        // Deliberate: Return presses Apply even with this focus.
        {"Discard", {"Discard", "Apply", "Apply", "Discard", "nothing"}},
        {"Discard of a dialog", {"Discard", "Discard", "Discard", "Discard", "nothing"}}};
    for (auto it = results.begin(); it != results.end(); ++it) {
        for (int key = 0; key < kKeys.size(); ++key) {
            QTest::addRow("%s, %s", qPrintable(it.key()), kKeys[key].first)
                << it.key().section(' ', 0, 0) << it.key().contains("dialog") << kKeys[key].second
                << it.value()[qMin(key, 4)];
        }
    }
}

template <typename Window> int resultOfKeyOnPart(const QString &part, int key)
{
    Scene<Window> scene(Sheet::Confirm);
    return scene.result([&] {
        QWidget *widget = part == "text" ? static_cast<QWidget *>(scene.label("text"))
                                         : scene.button(expected(part));
        widget->setFocus();
        QTest::keyClick(widget, Qt::Key(key));
    });
}

void MessageSheetKeysTest::keyOfThePartEndsTheSheet()
{
    QFETCH(const QString, part);
    QFETCH(const bool, isDialog);
    QFETCH(const int, key);
    QFETCH(const QString, result);
    const int code =
        isDialog ? resultOfKeyOnPart<QDialog>(part, key) : resultOfKeyOnPart<QWidget>(part, key);
    QCOMPARE(code, expected(result));
}

void MessageSheetKeysTest::windowBehindGetsNoKeys()
{
    class Listener : public QWidget
    {
    public:
        void keyPressEvent(QKeyEvent * /*event*/) override { ++keys; }
        int keys = 0;
    };
    Scene<Listener> scene(Sheet::Information);
    const int code = scene.result([&] {
        for (const int key : {Qt::Key_A, Qt::Key_Escape, Qt::Key_F5, Qt::Key_Tab, Qt::Key_Backtab})
            QTest::keyClick(scene.label("text"), Qt::Key(key));
    });
    QCOMPARE(code, kNothing);
    QCOMPARE(scene.window.keys, 0);
    QTest::keyClick(&scene.window, Qt::Key_A);
    QCOMPARE(scene.window.keys, 1);
}

void MessageSheetKeysTest::hiddenSheetLeavesTheKeysAlone()
{
    Scene<QWidget> scene(Sheet::Confirm);
    const int code = scene.result([&] {
        scene.sheet->hide();
        QTest::keyClick(&scene.window, Qt::Key_Return);
    });
    QCOMPARE(code, kNothing);
}

void MessageSheetKeysTest::disabledApplyIsNotPressed()
{
    Scene<QWidget> scene(Sheet::WarningConfirm);
    scene.sheet->setDoubleConfirmCheckBox(true, "sure");
    const int refused = scene.result([&] { QTest::keyClick(&scene.window, Qt::Key_Return); });
    QCOMPARE(refused, kNothing);
    scene.sheet->findChild<QCheckBox *>()->setChecked(true);
    const int applied = scene.result([&] { QTest::keyClick(&scene.window, Qt::Key_Return); });
    QCOMPARE(applied, int(Button::Apply));
}

void MessageSheetKeysTest::tabCyclesWithinTheSheet_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QStringList>("forward"); // from the text on
    QTest::addColumn<QStringList>("backward");
    QTest::newRow("Information") << 1 << QStringList {"Ok", "text"} << QStringList {"Ok", "text"};
    QTest::newRow("Confirm") << 3 << QStringList {"Discard", "Apply", "text"}
                             << QStringList {"Apply", "Discard", "text"};
    // Deliberate: forward goes round Reset, which is the first in the chain and the last child.
    QTest::newRow("ConfirmReset") << 4 << QStringList {"Discard", "Apply", "text"}
                                  << QStringList {"Apply", "Discard", "Reset", "text"};
    QTest::newRow("Processing") << 7 << QStringList {"text"} << QStringList {"text"};
}

void MessageSheetKeysTest::tabCyclesWithinTheSheet()
{
    QFETCH(const int, type);
    QFETCH(const QStringList, forward);
    QFETCH(const QStringList, backward);
    Scene<QWidget> scene(type);
    scene.result([&] {
        const auto part = [&](const QString &name) -> QWidget * {
            return name == "text" ? static_cast<QWidget *>(scene.label("text"))
                                  : scene.button(expected(name));
        };
        for (int round = 0; round < 2; ++round) {
            for (const QString &name : forward) {
                QTest::keyClick(scene.window.focusWidget(), Qt::Key_Tab);
                QCOMPARE(scene.window.focusWidget(), part(name));
            }
        }
        for (const QString &name : backward) {
            QTest::keyClick(scene.window.focusWidget(), Qt::Key_Backtab);
            QCOMPARE(scene.window.focusWidget(), part(name));
        }
    });
}

void MessageSheetKeysTest::tabFollowsWhatIsSeen_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("width");
    QTest::addColumn<QStringList>("changes");
    QTest::addColumn<QStringList>("stops"); // from the text on
    const QStringList all {"more", "box", "Discard", "Apply", "text"};
    QTest::newRow("double confirm")
        << 3 << 600 << QStringList {"confirm"} << QStringList {"box", "Discard", "Apply", "text"};
    QTest::newRow("double confirm, then more")
        << 3 << 600 << QStringList {"confirm", "more"} << all;
    QTest::newRow("more, then double confirm")
        << 3 << 600 << QStringList {"more", "confirm"} << all;
    QTest::newRow("built again") << 3 << 600 << QStringList {"confirm", "more", "again"} << all;
    QTest::newRow("built again without") << 3 << 600 << QStringList {"more", "again"}
                                         << QStringList {"more", "Discard", "Apply", "text"};
    QTest::newRow("stacked") << 4 << 300 << QStringList {"more"}
                             << QStringList {"more", "Apply", "Discard", "Reset", "text"};
    QTest::newRow("stacked, double confirm")
        << 4 << 300 << QStringList {"confirm"}
        << QStringList {"box", "Apply", "Discard", "Reset", "text"};
    QTest::newRow("no longer stacked")
        << 4 << 400 << QStringList {"Confirm"} << QStringList {"Discard", "Apply", "text"};
}

void MessageSheetKeysTest::tabFollowsWhatIsSeen()
{
    QFETCH(const int, type);
    QFETCH(const int, width);
    QFETCH(const QStringList, changes);
    QFETCH(QStringList, stops);
    Scene<QWidget> scene(type, "text", width);
    for (const QString &change : changes) {
        if (change == "confirm")
            scene.sheet->setDoubleConfirmCheckBox(true, "sure");
        else if (change == "more")
            scene.sheet->setInformativeText("more");
        else
            scene.sheet->setMessageType(
                change == "again" ? Sheet::MessageType(type) : Sheet::Confirm);
    }
    for (QCheckBox *box : scene.sheet->findChildren<QCheckBox *>())
        box->setChecked(true);
    const auto nameOf = [&](QWidget *widget) -> QString {
        for (const char *name : {"Apply", "Discard", "Reset"}) {
            if (widget == scene.button(expected(name)))
                return name;
        }
        const auto *label = qobject_cast<QLabel *>(widget);
        return label ? label->text() : "box";
    };
    scene.result([&] {
        for (const int key : {Qt::Key_Tab, Qt::Key_Backtab}) {
            QStringList reached;
            for (int i = 0; i < 2 * stops.size(); ++i) {
                QTest::keyClick(scene.window.focusWidget(), Qt::Key(key));
                reached += nameOf(scene.window.focusWidget());
            }
            QCOMPARE(reached, stops + stops);
            // Backwards, from the text on.
            std::reverse(stops.begin(), std::prev(stops.end()));
        }
    });
}

void MessageSheetKeysTest::tabSentToTheWindowCyclesToo()
{
    Scene<QWidget> scene(Sheet::Confirm);
    scene.result([&] {
        QTest::keyClick(&scene.window, Qt::Key_Tab);
        QCOMPARE(scene.window.focusWidget(), scene.button(Button::Discard));
        QTest::keyClick(&scene.window, Qt::Key_Backtab);
        QCOMPARE(scene.window.focusWidget(), scene.label("text"));
        // From outside the sheet, the next widget is not in the sheet, so the focus wraps.
        scene.behind->setFocus();
        QTest::keyClick(&scene.window, Qt::Key_Tab);
        QCOMPARE(scene.window.focusWidget(), scene.button(Button::Discard));
        scene.behind->setFocus();
        QTest::keyClick(&scene.window, Qt::Key_Backtab);
        QCOMPARE(scene.window.focusWidget(), scene.label("text"));
    });
}

void MessageSheetKeysTest::disabledApplyIsPassedOver()
{
    Scene<QWidget> scene(Sheet::Confirm);
    scene.sheet->setDoubleConfirmCheckBox(true, "sure");
    scene.result([&] {
        auto *box = scene.sheet->findChild<QCheckBox *>();
        QSet<QWidget *> reached;
        for (int i = 0; i < 6; ++i) {
            QTest::keyClick(scene.window.focusWidget(), Qt::Key_Tab);
            reached.insert(scene.window.focusWidget());
        }
        QVERIFY(reached.contains(scene.button(Button::Discard)));
        QVERIFY(reached.contains(box));
        QVERIFY(!reached.contains(scene.button(Button::Apply)));
        box->setChecked(true);
        reached.clear();
        for (int i = 0; i < 4; ++i) {
            QTest::keyClick(scene.window.focusWidget(), Qt::Key_Backtab);
            reached.insert(scene.window.focusWidget());
        }
        QVERIFY(reached.contains(scene.button(Button::Apply)));
    });
}

void MessageSheetKeysTest::cycleFollowsChangesWhileShown()
{
    Scene<QWidget> scene(Sheet::Confirm);
    scene.result([&] {
        scene.sheet->setText(QString());
        QVERIFY(scene.sheet->isAncestorOf(scene.window.focusWidget()));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        scene.sheet->setMessageType(Sheet::Information);
        scene.sheet->setInformativeText("more");
        QSet<QWidget *> reached;
        for (int i = 0; i < 4; ++i) {
            QTest::keyClick(&scene.window, Qt::Key_Tab);
            reached.insert(scene.window.focusWidget());
        }
        const QSet<QWidget *> all {scene.button(Button::Ok), scene.label("more")};
        QCOMPARE(reached, all);
    });
}

void MessageSheetKeysTest::tabReachesTheLinksOfATextFirst()
{
    const QString text = "See <a href='no:one'>one</a> and <a href='no:two'>two</a>.";
    Scene<QWidget> scene(Sheet::Confirm, text);
    QLabel *label = scene.label(text);
    QStringList opened;
    label->setOpenExternalLinks(false);
    connect(label, &QLabel::linkActivated, [&](const QString &link) { opened += link; });
    scene.result([&] {
        QApplication::setActiveWindow(&scene.window);
        QTRY_VERIFY(label->hasFocus());
        for (int i = 0; i < 2; ++i) {
            QTest::keyClick(label, Qt::Key_Tab);
            QTest::keyClick(label, Qt::Key_Return);
        }
        QCOMPARE(scene.window.focusWidget(), label);
        QTest::keyClick(label, Qt::Key_Tab);
        QCOMPARE(scene.window.focusWidget(), scene.button(Button::Discard));
    });
    QCOMPARE(opened, QStringList({"no:one", "no:two"}));
}

void MessageSheetKeysTest::keysStayInASheetWithoutText_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("with buttons") << int(Sheet::Confirm);
    QTest::newRow("without") << int(Sheet::Processing);
}

void MessageSheetKeysTest::keysStayInASheetWithoutText()
{
    QFETCH(const int, type);
    Scene<QWidget> scene(type, QString());
    scene.result([&] { QTest::keyClick(scene.window.focusWidget(), Qt::Key_A); });
    QCOMPARE(scene.before->text(), QString());
    QCOMPARE(scene.window.focusWidget(), scene.before);
}

void MessageSheetKeysTest::closingTheWindowIsRefused()
{
    Scene<QWidget> scene(Sheet::Confirm);
    const int code = scene.result([&] { QVERIFY(!scene.window.close()); });
    QCOMPARE(code, kNothing);
    QVERIFY(scene.window.isVisible());
    QVERIFY(scene.window.close());
}

void MessageSheetKeysTest::closingTheWindowIsAllowedWhereAskedFor()
{
    Scene<QWidget> scene(Sheet::Confirm);
    QWidget other; // So that the application does not quit.
    other.show();
    scene.sheet->setBlockWindowButton(false);
    scene.result([&] { QVERIFY(scene.window.close()); });
    QVERIFY(!scene.window.isVisible());
}

VEMO_TEST_MAIN(MessageSheetKeysTest)
#include "tst_messagesheetkeys.moc"

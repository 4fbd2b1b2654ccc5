// SPDX-License-Identifier: MIT
#include <vemo/vemocontentsheet.h>

#include "core/scaling_p.h"
#include "support/sheetdriver.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/componentstrings.h>
#include <vemo/vemomask.h>

#include <QAccessible>
#include <QAction>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

using Button = QDialogButtonBox;

constexpr int kNothing = -1; // The key does not end the sheet.

/// A window with a field, and a sheet with two fields over it.
struct Scene
{
    Scene()
    {
        auto *column = new QVBoxLayout(&window);
        column->addWidget(behind);
        window.resize(scaled(600), scaled(400));
        auto *content = new QWidget;
        auto *fields = new QVBoxLayout(content);
        fields->addWidget(first);
        fields->addWidget(notes);
        content->setWindowTitle("Settings");
        sheet = new VemoContentSheet(content, &window);
        window.show();
        behind->setFocus();
    }
    void open()
    {
        sheet->open([this](int result) { ends += result; });
        QVERIFY(QTest::qWaitForWindowActive(&window));
    }
    QPushButton *button(int which) const
    {
        return sheet->button(QMessageBox::StandardButton(which));
    }
    /// Runs the sheet, presses key in the widget, and returns how the sheet ended.
    int resultOf(const std::function<QWidget *()> &widget, Qt::Key key)
    {
        bool didEnd = false;
        const QPointer<VemoContentSheet> held = sheet;
        const SheetDriver driver([&] {
            widget()->setFocus();
            QTest::keyClick(widget(), key);
            didEnd = !held->isVisible();
            if (!didEnd)
                held->quit();
        });
        const int code = sheet->execAndDelete();
        return didEnd ? code : kNothing;
    }

    QLineEdit *behind = new QLineEdit;
    QLineEdit *first = new QLineEdit;
    QPlainTextEdit *notes = new QPlainTextEdit;
    QWidget window;
    QPointer<VemoContentSheet> sheet;
    QVector<int> ends;
};

} // namespace

class VemoContentSheetTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void showsItsContentAboveTwoButtons();
    void keyEndsTheSheet_data();
    void keyEndsTheSheet();
    void disabledOkIsNotPressed();
    void tabStaysInside();
    void windowBehindGetsNothing();
    void windowGetsItsFocusBack();
    void mayHaveOtherButtons();
    void isADialogNamedByItsContent();
    void isLaidOutFromRightToLeft();
    void followsTheSizeOfItsContent();
    void givesWayInALowWindow();
    void contentMayBeReplacedOrDeleted();
    void contentStillExistsAtTheEnd();
    void closingTheWindowIsAllowedWhereAskedFor();
    void anotherLanguageChangesTheCaptions();
    void longCaptionsFit();
};

void VemoContentSheetTest::showsItsContentAboveTwoButtons()
{
    Scene scene;
    QCOMPARE(scene.sheet->standardButtons(), Button::Ok | Button::Discard);
    scene.open();
    QVERIFY(scene.first->isVisible() && scene.notes->isVisible());
    QVERIFY(scene.button(Button::Ok)->isDefault());
    QCOMPARE(scene.button(Button::Ok)->height(), scaled(32));
    QVERIFY(scene.sheet->content()->geometry().bottom()
        < scene.button(Button::Ok)->mapTo(scene.sheet, QPoint()).y());
    QCOMPARE(scene.window.focusWidget(), scene.first);
    const auto masks = scene.window.findChildren<VemoMask *>();
    QCOMPARE(masks.size(), 1);
    QVERIFY(masks.first()->isVisible());
}

void VemoContentSheetTest::keyEndsTheSheet_data()
{
    QTest::addColumn<QString>("where");
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<int>("result");
    addRow("field, Return", QString("field"), Qt::Key_Return, int(Button::Ok));
    addRow("field, Enter", QString("field"), Qt::Key_Enter, int(Button::Ok));
    addRow("field, Escape", QString("field"), Qt::Key_Escape, int(Button::Discard));
    addRow("field, A", QString("field"), Qt::Key_A, kNothing);
    addRow("notes, Return", QString("notes"), Qt::Key_Return, kNothing);
    addRow("notes, Escape", QString("notes"), Qt::Key_Escape, int(Button::Discard));
    addRow("cancel, Return", QString("cancel"), Qt::Key_Return, int(Button::Discard));
    addRow("cancel, Space", QString("cancel"), Qt::Key_Space, int(Button::Discard));
    addRow("ok, Return", QString("ok"), Qt::Key_Return, int(Button::Ok));
    addRow("window, Return", QString("window"), Qt::Key_Return, int(Button::Ok));
    addRow("window, Escape", QString("window"), Qt::Key_Escape, int(Button::Discard));
    addRow("window, Space", QString("window"), Qt::Key_Space, kNothing);
    addRow("window, F1", QString("window"), Qt::Key_F1, kNothing);
}

void VemoContentSheetTest::keyEndsTheSheet()
{
    QFETCH(QString, where);
    QFETCH(Qt::Key, key);
    QFETCH(int, result);
    Scene scene;
    const QHash<QString, QWidget *> widgets {{"field", scene.first}, {"notes", scene.notes},
        {"window", &scene.window}, {"cancel", scene.button(Button::Discard)},
        {"ok", scene.button(Button::Ok)}};
    QCOMPARE(scene.resultOf([&] { return widgets[where]; }, key), result);
}

void VemoContentSheetTest::disabledOkIsNotPressed()
{
    Scene scene;
    scene.button(Button::Ok)->setEnabled(false);
    QCOMPARE(scene.resultOf([&] { return scene.first; }, Qt::Key_Return), kNothing);
}

void VemoContentSheetTest::tabStaysInside()
{
    Scene scene;
    scene.notes->setTabChangesFocus(true);
    scene.open();
    const QWidgetList stops {
        scene.first, scene.notes, scene.button(Button::Discard), scene.button(Button::Ok)};
    QTRY_COMPARE(scene.window.focusWidget(), stops.first());
    for (int i = 1; i <= stops.size(); ++i) {
        QTest::keyClick(scene.window.focusWidget(), Qt::Key_Tab);
        QCOMPARE(scene.window.focusWidget(), stops[i % stops.size()]);
    }
    for (int i = stops.size() - 1; i >= 0; --i) {
        QTest::keyClick(scene.window.focusWidget(), Qt::Key_Backtab);
        QCOMPARE(scene.window.focusWidget(), stops[i]);
    }
}

void VemoContentSheetTest::windowBehindGetsNothing()
{
    Scene scene;
    auto *action = new QAction(&scene.window);
    action->setShortcut(QKeySequence("Ctrl+D"));
    scene.window.addAction(action);
    const QSignalSpy triggered(action, &QAction::triggered);
    scene.open();
    QTest::keyClick(scene.window.windowHandle(), Qt::Key_D, Qt::ControlModifier);
    QTest::keyClick(&scene.window, Qt::Key_X);
    QCOMPARE(triggered.size(), 0);
    QCOMPARE(scene.behind->text(), QString());
    QVERIFY(!scene.window.close());
    QVERIFY(scene.sheet->isVisible());
}

void VemoContentSheetTest::windowGetsItsFocusBack()
{
    Scene scene;
    scene.open();
    scene.button(Button::Ok)->click();
    QCOMPARE(scene.ends, QVector<int> {Button::Ok});
    QCOMPARE(scene.window.focusWidget(), scene.behind);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!scene.sheet);
    QCOMPARE(scene.window.findChildren<VemoMask *>().size(), 0);
    QVERIFY(scene.window.close());
}

void VemoContentSheetTest::mayHaveOtherButtons()
{
    Scene scene;
    scene.sheet->setStandardButtons(Button::Apply | Button::Discard | Button::Reset);
    QVERIFY(!scene.button(Button::Ok));
    for (const auto &[which, key] : {std::pair(Button::Apply, "ok"),
             std::pair(Button::Discard, "cancel"), std::pair(Button::Reset, "reset")})
        QCOMPARE(scene.button(which)->text(), ComponentStrings::getInstance().getString(key));
    scene.sheet->setStandardButtons(Button::NoButton);
    QCOMPARE(scene.resultOf([&] { return scene.first; }, Qt::Key_Escape), kNothing);
}

void VemoContentSheetTest::isADialogNamedByItsContent()
{
    Scene scene;
    QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(scene.sheet);
    QCOMPARE(spoken->role(), QAccessible::Dialog);
    QCOMPARE(spoken->text(QAccessible::Name), QString("Settings"));
    QVERIFY(!spoken->state().modal);
    scene.open();
    QVERIFY(spoken->state().modal);
}

void VemoContentSheetTest::isLaidOutFromRightToLeft()
{
    Scene scene;
    scene.window.setLayoutDirection(Qt::RightToLeft);
    scene.open();
    QTRY_VERIFY(scene.button(Button::Ok)->x() < scene.button(Button::Discard)->x());
}

void VemoContentSheetTest::followsTheSizeOfItsContent()
{
    Scene scene;
    scene.window.resize(scaled(600), scaled(600));
    scene.open();
    const int height = scene.sheet->height();
    scene.first->setMinimumHeight(scaled(100));
    QTRY_COMPARE(scene.sheet->height(), height + scaled(100) - scene.first->sizeHint().height());
    scene.notes->hide();
    QTRY_VERIFY(scene.sheet->height() < height);
}

void VemoContentSheetTest::givesWayInALowWindow()
{
    Scene scene;
    scene.window.resize(scaled(300), scene.sheet->sizeHint().height() - scaled(40));
    scene.open();
    // Before the window manager has resized the window, the sheet has room for its content.
    QTRY_VERIFY(scene.notes->height() < scene.notes->sizeHint().height());
    QTRY_VERIFY(scene.window.rect().contains(
        QRect(scene.sheet->mapTo(&scene.window, QPoint()), scene.sheet->size())));
}

void VemoContentSheetTest::contentMayBeReplacedOrDeleted()
{
    Scene scene;
    const QPointer<QWidget> before = scene.sheet->content();
    auto *other = new QLineEdit;
    scene.sheet->setContent(other);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!before);
    scene.open();
    QCOMPARE(scene.window.focusWidget(), other);
    delete other;
    QCOMPARE(scene.sheet->content(), nullptr);
    QTest::keyClick(&scene.window, Qt::Key_Return);
    QCOMPARE(scene.ends, QVector<int> {Button::Ok});
}

void VemoContentSheetTest::contentStillExistsAtTheEnd()
{
    Scene scene;
    scene.first->setText("tea");
    const SheetDriver driver([&] { scene.button(Button::Ok)->click(); });
    QString text;
    QCOMPARE(scene.sheet->execAndDelete([&](int) { text = scene.first->text(); }), int(Button::Ok));
    QCOMPARE(text, QString("tea"));
    QVERIFY(!scene.sheet);
}

void VemoContentSheetTest::closingTheWindowIsAllowedWhereAskedFor()
{
    Scene scene;
    scene.sheet->setBlockWindowButton(false);
    scene.open();
    QVERIFY(scene.window.close());
}

void VemoContentSheetTest::anotherLanguageChangesTheCaptions()
{
    Scene scene;
    scene.button(Button::Ok)->setText("Save");
    ComponentStrings &strings = ComponentStrings::getInstance();
    const QMap<QString, QString> before = strings.strings();
    QMap<QString, QString> changed = before;
    changed["cancel"] = "Abbrechen";
    changed["ok"] = "Weiter";
    strings.changeStrings(changed);
    QCoreApplication::processEvents();
    QCOMPARE(scene.button(Button::Discard)->text(), QString("Abbrechen"));
    QCOMPARE(scene.button(Button::Ok)->text(), QString("Save"));
    strings.changeStrings(before);
}

void VemoContentSheetTest::longCaptionsFit()
{
    Scene scene;
    scene.open();
    scene.button(Button::Ok)->setText("Einstellungen endgültig übernehmen");
    QTRY_VERIFY(scene.button(Button::Ok)->width() >= scene.button(Button::Ok)->sizeHint().width());
    QVERIFY(scene.sheet->rect().contains(
        scene.button(Button::Discard)
            ->mapTo(scene.sheet, scene.button(Button::Discard)->rect().topLeft())));
}

VEMO_TEST_MAIN(VemoContentSheetTest)
#include "tst_vemocontentsheet.moc"

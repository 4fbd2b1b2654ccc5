// SPDX-License-Identifier: MIT
#include "gallery/controlsnapshots.h"
#include "gallery/snapshot.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/stylemanager.h>
#include <vemo/vemomenu.h>

#include <QLineEdit>
#include <QtMath>

/// The theme shows the states of the small controls without moving anything.
class ControlLookTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void aSnapshotShowsItsState_data();
    void aSnapshotShowsItsState();
    void focusMovesNothing_data();
    void focusMovesNothing();
    void sheetsMayGiveAFieldALowerHeight();
    void menuTextsLineUp();
    void theFocusLeavesAMenuEntryInItsPlace_data();
    void theFocusLeavesAMenuEntryInItsPlace();
};

namespace {

using Make = QWidget *(*)(QStyle::State);

template <Qt::CheckState checkState> QWidget *newCheckBox(QStyle::State state)
{
    auto *box = new CheckBoxSnapshot(checkState, state);
    box->setText("Text");
    return box;
}

template <bool isChecked> QWidget *newRadioButton(QStyle::State state)
{
    auto *button = new RadioButtonSnapshot(isChecked, state);
    button->setText("Text");
    return button;
}

QWidget *newComboBox(QStyle::State state)
{
    return new ComboBoxSnapshot("Text", state);
}

template <bool isWrong> QWidget *newField(QStyle::State state)
{
    auto *edit = new LineEditSnapshot("Text", state);
    edit->setError(isWrong);
    return edit;
}

QImage pictureOf(Make make, QStyle::State state)
{
    const QScopedPointer<QWidget> widget(make(state));
    widget->setAttribute(Qt::WA_DontShowOnScreen);
    widget->show(); // sets the picture of an icon button
    widget->resize(widget->sizeHint());
    return widget->grab().toImage();
}

void rows()
{
    QTest::addColumn<Make>("make");
    addRow("check box, unchecked", Make(newCheckBox<Qt::Unchecked>));
    addRow("check box, checked", Make(newCheckBox<Qt::Checked>));
    addRow("check box, indeterminate", Make(newCheckBox<Qt::PartiallyChecked>));
    addRow("radio button, off", Make(newRadioButton<false>));
    addRow("radio button, on", Make(newRadioButton<true>));
    addRow("combo box", Make(newComboBox));
    addRow("field", Make(newField<false>));
}

} // namespace

Q_DECLARE_METATYPE(Make)

void ControlLookTest::aSnapshotShowsItsState_data()
{
    rows();
    addRow("button", Make([](QStyle::State state) -> QWidget * {
        return new ButtonSnapshot("Text", VemoButton::APPLY, state);
    }));
    addRow("icon button", Make([](QStyle::State state) -> QWidget * {
        return new IconButtonSnapshot("bt_add", state);
    }));
    addRow("switch",
        Make([](QStyle::State state) -> QWidget * { return new SwitchSnapshot(false, state); }));
}

void ControlLookTest::aSnapshotShowsItsState()
{
    QFETCH(Make, make);
    const QImage rest = pictureOf(make, QStyle::State_None);
    const QImage hovered = pictureOf(make, QStyle::State_MouseOver);
    const QImage focused = pictureOf(make, QStyle::State_HasFocus);
    QVERIFY(hovered != rest && focused != rest && focused != hovered);
}

void ControlLookTest::focusMovesNothing_data()
{
    rows();
    addRow("field with an error", Make(newField<true>));
}

void ControlLookTest::focusMovesNothing()
{
    QFETCH(Make, make);
    const QImage rest = pictureOf(make, QStyle::State_None);
    const QImage focused = pictureOf(make, QStyle::State_HasFocus);
    QCOMPARE(focused.size(), rest.size());
    // The text's ink is where it was.
    const auto ink = [](const QImage &picture) {
        const int frame = 4 * qCeil(picture.devicePixelRatio());
        QRegion region;
        for (int y = frame; y < picture.height() - frame; ++y) {
            for (int x = frame; x < picture.width() - frame; ++x) {
                if (picture.pixelColor(x, y).lightness() < 60)
                    region += QRect(x, y, 1, 1);
            }
        }
        return region;
    };
    QVERIFY(!ink(rest).isEmpty());
    const QPoint moved = ink(rest).boundingRect().topLeft() - ink(focused).boundingRect().topLeft();
    QCOMPARE(moved, QPoint(0, 0));
}

void ControlLookTest::sheetsMayGiveAFieldALowerHeight()
{
    QLineEdit field;
    field.setStyleSheet(getStyleSheet("component.lineedit"));
    field.setFixedHeight(20);
    field.show();
    QCOMPARE(field.height(), 20);
    QCOMPARE(field.minimumHeight(), 20);
}

namespace {

QMenu *newMenu()
{
    auto *menu = new VemoMenu;
    menu->setStyleSheet(getStyleSheet("component.menu"));
    menu->addAction(QIcon(getGlobalImage("bt_edit")), "Same text");
    menu->addAction("Same text");
    QAction *checked = menu->addAction("Same text");
    checked->setCheckable(true);
    checked->setChecked(true);
    menu->addAction("Same text")->setEnabled(false);
    menu->resize(menu->sizeHint());
    return menu;
}

/// An entry of a menu, without the parts on its left and right.
QImage entry(QMenu *menu, int index)
{
    const QRect area = menu->actionGeometry(menu->actions().at(index));
    return menu->grab(area.adjusted(area.height() * 3 / 4, 0, -area.height() / 2, 0)).toImage();
}

} // namespace

void ControlLookTest::menuTextsLineUp()
{
    const QScopedPointer<QMenu> menu(newMenu());
    const auto textStart = [&](int index) {
        const QImage picture = entry(menu.data(), index);
        for (int x = 0; x < picture.width(); ++x) {
            for (int y = 0; y < picture.height(); ++y) {
                if (picture.pixelColor(x, y).lightness() < 120)
                    return qRound(x / picture.devicePixelRatio());
            }
        }
        return -1;
    };
    QVERIFY(textStart(1) > 0);
    // Qt 6 keeps one or two pixels less behind an icon.
    const int lessRoom = QT_VERSION >= QT_VERSION_CHECK(6, 0, 0) ? 2 : 0;
    QVERIFY(textStart(0) >= textStart(1) - lessRoom);
    QVERIFY(textStart(0) <= textStart(1));
    QCOMPARE(textStart(2), textStart(1));
}

void ControlLookTest::theFocusLeavesAMenuEntryInItsPlace_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("with an icon") << 0;
    QTest::newRow("plain") << 1;
    QTest::newRow("checked") << 2;
}

void ControlLookTest::theFocusLeavesAMenuEntryInItsPlace()
{
    QFETCH(const int, index);
    const QScopedPointer<QMenu> menu(newMenu());
    const QRect area = menu->actionGeometry(menu->actions().at(index));
    // Both grounds are light, and so is what the frame of the focus leaves inside.
    const auto inkStart = [&] {
        const QImage picture = menu->grab(area.adjusted(4, 4, -4, -4)).toImage();
        QRegion region;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                if (picture.pixelColor(x, y).lightness() < 120)
                    region += QRect(x, y, 1, 1);
            }
        }
        // Not its end: the edge of the last letter may be lighter than that on a lighter ground.
        return region.boundingRect().topLeft();
    };
    const QPoint rest = inkStart();
    QVERIFY(rest != QPoint());
    menu->setActiveAction(menu->actions().at(index));
    QCOMPARE(inkStart(), rest);
}

VEMO_TEST_MAIN(ControlLookTest)
#include "tst_controllook.moc"

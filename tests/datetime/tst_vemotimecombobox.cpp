// SPDX-License-Identifier: MIT
#include "datetime/timebox.h"

#include "support/eventcounter.h"
#include "support/testhost.h"

#include <QStringListModel>
#include <QStyledItemDelegate>
#include <QValidator>

#include <limits>

class VemoTimeComboBoxTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void startsPlainAndWithoutItems();
    void showsTheCustomItemOnlyWhileEditable();
    void keepsTheCustomItemInFrontAndTheCurrentText();
    void doesNothingWhenEditableAlready();
    void setsUpItsLineEdit();
    void selectsTextFromCode_data();
    void selectsTextFromCode();
    void reportsTextFromCodeOnceAtMost();
    void showsTheTimeOfItsExample();
    void remembersADefault_data();
    void remembersADefault();
    void hidesTheCustomItemForADefaultThatIsAnItem();
    void keepsWhatItShowsWhenItsCustomTextChanges();
    void plainBoxLeavesItsItemsAlone();
    void editableBoxLeavesTheTextsOfItemsAlone();
    void hiddenItemCostsNoVisibleRow();
    void opensItsListWithoutTheHiddenItem();
    void asksForOneRowSizeWhileThereAreOnlyTimes();
    void givesALongCustomTextItsRoom();
    void tooManyVisibleRowsStayInRange();
    void remembersDefaultAndCustomTextWhenSwitched();
    void survivesItemsClearedWhileEditable_data();
    void survivesItemsClearedWhileEditable();
    void followsItsCustomItem();
    void showsACustomTextOfAnyLength();
    void survivesAModelOfAnotherKind();
    void letsEveryEventPass();
};

void VemoTimeComboBoxTest::startsPlainAndWithoutItems()
{
    QWidget parent;
    const VemoTimeComboBox box(&parent);
    QCOMPARE(box.metaObject()->className(), "VemoTimeComboBox");
    QCOMPARE(box.parentWidget(), &parent);
    QVERIFY(!box.isEditable());
    QCOMPARE(box.count(), 0);
    QCOMPARE(box.maxVisibleItems(), QComboBox().maxVisibleItems());
    QCOMPARE(box.view()->verticalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
    QVERIFY(qobject_cast<const VemoComboBox *>(&box));
}

void VemoTimeComboBoxTest::showsTheCustomItemOnlyWhileEditable()
{
    Box box(Plain, {"08:00", "09:00"});
    box.setEditable(true);
    QCOMPARE(box.count(), 3);
    QCOMPARE(box.itemText(0), QString());
    QVERIFY(!box.itemData(0).isValid());
    QVERIFY(!box.isCustomShown());
    box.setEditable(false);
    QCOMPARE(box.count(), 2);
    QCOMPARE(box.itemText(0), QString("08:00"));
    QVERIFY(box.isRowShown(0));
    QVERIFY(box.item(0)->isEnabled());
}

void VemoTimeComboBoxTest::keepsTheCustomItemInFrontAndTheCurrentText()
{
    Box box(Plain, {"08:00", "09:00"});
    box.setCurrentIndex(1);
    box.setEditable(true);
    QCOMPARE(box.currentIndex(), 2);
    QCOMPARE(box.currentText(), QString("09:00"));
    box.setEditable(false);
    QCOMPARE(box.currentIndex(), 1);
    Box empty(Editable, {});
    QCOMPARE(empty.currentIndex(), 0);
    QCOMPARE(empty.currentText(), QString());
}

void VemoTimeComboBoxTest::doesNothingWhenEditableAlready()
{
    Box box(Editable, {"08:00"});
    const QLineEdit *edit = box.lineEdit();
    box.setEditable(true);
    QCOMPARE(box.count(), 2);
    QCOMPARE(box.lineEdit(), edit);
    box.setEditable(false);
    box.setEditable(false);
    QCOMPARE(box.count(), 1);
}

void VemoTimeComboBoxTest::setsUpItsLineEdit()
{
    Box box;
    QCOMPARE(box.lineEdit()->focusPolicy(), Qt::StrongFocus);
    const QValidator *validator = box.lineEdit()->validator();
    QCOMPARE(validator->parent(), &box);
    box.setEditable(false);
    box.setEditable(true);
    QCOMPARE(box.lineEdit()->validator(), validator);
    QCOMPARE(box.findChildren<QValidator *>().size(), 1);
}

void VemoTimeComboBoxTest::selectsTextFromCode_data()
{
    QTest::addColumn<bool>("editable");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<int>("row");
    QTest::addColumn<bool>("isCustomShown");
    QTest::newRow("plain, an item") << false << "01:00"
                                    << "01:00" << 2 << false;
    QTest::newRow("plain, unknown") << false << "01:10"
                                    << "00:00" << 0 << false;
    QTest::newRow("plain, not completed") << false << "1"
                                          << "00:00" << 0 << false;
    QTest::newRow("an item") << true << "01:00"
                             << "01:00" << 3 << false;
    QTest::newRow("unknown") << true << "01:10"
                             << "01:10 (own)" << 0 << true;
    QTest::newRow("another case") << true << "NOON"
                                  << "NOON (own)" << 0 << true;
    QTest::newRow("not completed") << true << "1"
                                   << "1 (own)" << 0 << true;
    QTest::newRow("not validated") << true << "99:99"
                                   << "99:99 (own)" << 0 << true;
    QTest::newRow("UTF-8") << true << QString::fromUtf8("zwölf") << QString::fromUtf8("zwölf (own)")
                           << 0 << true;
    QTest::newRow("the custom row itself") << true << ""
                                           << "" << 0 << false;
}

void VemoTimeComboBoxTest::selectsTextFromCode()
{
    QFETCH(bool, editable);
    QFETCH(QString, text);
    Box box(editable ? Editable : Plain);
    box.addItem("noon");
    box.setCustomText("(own)");
    box.setCurrentIndex(7);
    box.setCurrentText(text.toStdString());
    QTEST(box.currentText(), "shown");
    QTEST(box.currentIndex(), "row");
    if (editable)
        QTEST(box.isCustomShown(), "isCustomShown");
    else
        QVERIFY(box.isRowShown(0));
}

void VemoTimeComboBoxTest::reportsTextFromCodeOnceAtMost()
{
    Box box;
    box.setCurrentIndex(4);
    const QSignalSpy changes(&box, SIGNAL(currentIndexChanged(int)));
    box.setCurrentText("99:99");
    QCOMPARE(changes.size(), 1);
    box.setCurrentText("99:98");
    QCOMPARE(changes.size(), 1);
    QCOMPARE(box.currentText(), QString("99:98"));
}

// As in the header, the guide and the gallery: setting a default does not show it.
void VemoTimeComboBoxTest::showsTheTimeOfItsExample()
{
    VemoTimeComboBox box;
    box.addItems({"00:00", "06:00", "12:00", "18:00"});
    box.setEditable(true);
    box.setDefault("06:00");
    QCOMPARE(box.currentText(), QString("00:00"));
    box.setCurrentText("06:00");
    QCOMPARE(box.currentText(), QString("06:00"));
    QVERIFY(QMetaObject::invokeMethod(&box, "clearEditText"));
    QFocusEvent leave(QEvent::FocusOut);
    QCoreApplication::sendEvent(&box, &leave);
    QCOMPARE(box.currentText(), QString("06:00"));
}

void VemoTimeComboBoxTest::remembersADefault_data()
{
    QTest::addColumn<bool>("editable");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("afterwards");
    QTest::addColumn<QString>("customText");
    addRow("plain, an item", false, "01:00", "01:00", QString());
    addRow("plain, unknown", false, "01:10", "00:00", QString());
    addRow("an item", true, "01:00", "01:00", "");
    addRow("unknown", true, "1:10", "1:10 (own)", "1:10 (own)");
}

void VemoTimeComboBoxTest::remembersADefault()
{
    QFETCH(bool, editable);
    QFETCH(QString, text);
    QFETCH(QString, customText);
    Box box(editable ? Editable : Plain);
    box.setCustomText("(own)");
    box.setCurrentIndex(7);
    box.setDefault(text.toStdString());
    QCOMPARE(box.currentIndex(), 7);
    if (editable) {
        QCOMPARE(box.itemText(0), customText);
        QCOMPARE(box.isCustomShown(), !customText.isEmpty());
        box.leaveWith(QString());
    } else {
        box.setCurrentIndex(-1);
        box.send(QEvent::FocusOut);
    }
    QTEST(box.currentText(), "afterwards");
}

void VemoTimeComboBoxTest::hidesTheCustomItemForADefaultThatIsAnItem()
{
    Box box;
    box.leaveWith("7:45");
    QVERIFY(box.isCustomShown());
    box.setDefault("01:00");
    QVERIFY(!box.isCustomShown());
    QCOMPARE(box.currentIndex(), 0);
    QCOMPARE(box.currentText(), QString("07:45"));
}

void VemoTimeComboBoxTest::keepsWhatItShowsWhenItsCustomTextChanges()
{
    Form form;
    QVERIFY(form.isActive);
    form.box.setCustomText("(own)");
    form.box.setCurrentText("07:45");
    form.box.clearFocus();
    QCoreApplication::processEvents();
    const QSignalSpy texts(&form.box, SIGNAL(editTextChanged(QString)));
    const EventCounter paints(&form.box, QEvent::Paint);
    const EventCounter editPaints(form.box.lineEdit(), QEvent::Paint);
    form.box.setCustomText("(other)");
    QCoreApplication::processEvents();
    QCOMPARE(form.box.currentText(), QString("07:45 (own)"));
    QCOMPARE(form.box.itemText(0), QString("07:45 (own)"));
    QCOMPARE(texts.size(), 0);
    QCOMPARE(paints.count() + editPaints.count(), 0);
    form.box.setCurrentText("07:46");
    QCOMPARE(form.box.currentText(), QString("07:46 (other)"));
}

void VemoTimeComboBoxTest::plainBoxLeavesItsItemsAlone()
{
    Box box(Plain, {"00:00 midnight", "12:00 noon"});
    box.send(QEvent::FocusIn);
    QCOMPARE(box.currentText(), QString("00:00 midnight"));
    box.setCurrentIndex(-1);
    box.send(QEvent::FocusOut);
    QCOMPARE(box.itemText(0), QString("00:00 midnight"));
    QVERIFY(box.isRowShown(0));
    QVERIFY(box.item(0)->isEnabled());

    Box empty(Plain, {});
    empty.send(QEvent::FocusIn);
    empty.send(QEvent::FocusOut);
    QCOMPARE(empty.currentIndex(), -1);
    empty.setCurrentText("09:00");
    empty.setDefault("09:00");
    QCOMPARE(empty.count(), 0);
}

void VemoTimeComboBoxTest::editableBoxLeavesTheTextsOfItemsAlone()
{
    Box box(Editable, {"09:00 sharp"});
    box.setCurrentIndex(1);
    box.send(QEvent::FocusIn);
    QCOMPARE(box.itemText(1), QString("09:00 sharp"));
    QCOMPARE(box.currentText(), QString("09:00 sharp"));
}

void VemoTimeComboBoxTest::hiddenItemCostsNoVisibleRow()
{
    Box box(Plain);
    box.setMaxVisibleItems(8);
    QCOMPARE(box.maxVisibleItems(), 8);
    box.setEditable(true);
    QCOMPARE(box.maxVisibleItems(), 9);
    box.setCurrentText("07:07");
    QCOMPARE(box.maxVisibleItems(), 8);
    box.setMaxVisibleItems(5);
    QCOMPARE(box.maxVisibleItems(), 5);
    box.setCurrentText("07:00");
    QCOMPARE(box.maxVisibleItems(), 6);
    box.setEditable(false);
    QCOMPARE(box.maxVisibleItems(), 5);
}

void VemoTimeComboBoxTest::opensItsListWithoutTheHiddenItem()
{
    Form form;
    QVERIFY(form.isActive);
    form.type("9:30");
    form.box.setMaxVisibleItems(8);
    form.box.showPopup();
    const QRect first = form.box.view()->visualRect(form.box.model()->index(1, 0));
    QCOMPARE(form.box.view()->viewport()->height() / first.height(), 8);
    QCOMPARE(form.box.view()->visualRect(form.box.model()->index(0, 0)), QRect());
    QCOMPARE(form.box.currentText(), QString("09:30"));
    QTest::keyClick(form.box.view(), Qt::Key_Down);
    QTest::keyClick(form.box.view(), Qt::Key_Return);
    QCOMPARE(form.box.currentText(), QString("10:00"));
}

void VemoTimeComboBoxTest::asksForOneRowSizeWhileThereAreOnlyTimes()
{
    struct Counting : QStyledItemDelegate
    {
        QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
        {
            ++asked;
            return QStyledItemDelegate::sizeHint(option, index);
        }
        mutable int asked = 0;
    };
    Box box;
    auto *rows = new Counting;
    rows->setParent(&box);
    box.view()->setItemDelegate(rows);
    const auto askedByOpening = [&box, rows] {
        rows->asked = 0;
        box.view()->doItemsLayout();
        return rows->asked;
    };
    QVERIFY(askedByOpening() < box.count());
    box.setCurrentText("7:45");
    QVERIFY(askedByOpening() >= box.count());
    box.setCurrentText("07:30");
    QVERIFY(askedByOpening() < box.count());
    box.setCurrentText("7:45");
    box.setEditable(false);
    QVERIFY(askedByOpening() < box.count());
}

void VemoTimeComboBoxTest::givesALongCustomTextItsRoom()
{
    Box box;
    box.setCustomText(QString(200, 'x'));
    box.leaveWith("7:45");
    const QAbstractItemView *list = box.view();
    QVERIFY(list->visualRect(box.model()->index(0, 0)).width()
        >= list->fontMetrics().horizontalAdvance(box.currentText()));
}

void VemoTimeComboBoxTest::tooManyVisibleRowsStayInRange()
{
    Box box;
    box.setMaxVisibleItems(std::numeric_limits<int>::max());
    QCOMPARE(box.maxVisibleItems(), std::numeric_limits<int>::max());
    box.setMaxVisibleItems(-2);
    QCOMPARE(messages.take().size(), 1);
}

void VemoTimeComboBoxTest::remembersDefaultAndCustomTextWhenSwitched()
{
    Box box;
    box.setCustomText("(own)");
    box.setDefault("08:00");
    const int row = box.findText("08:00");
    box.setCurrentText("07:07");
    box.setEditable(false);
    QCOMPARE(box.findText("07:07 (own)"), -1);
    box.setCurrentIndex(-1);
    box.send(QEvent::FocusOut);
    // The row is stored, not the time; without the custom item it refers to the next item.
    QCOMPARE(box.currentIndex(), row);
    box.setEditable(true);
    QCOMPARE(box.itemText(0), QString());
    QVERIFY(!box.isCustomShown());
    box.leaveWith(QString());
    QCOMPARE(box.currentText(), QString("08:00"));
    box.leaveWith("7:07");
    QCOMPARE(box.currentText(), QString("07:07 (own)"));
}

void VemoTimeComboBoxTest::survivesItemsClearedWhileEditable_data()
{
    QTest::addColumn<QStringList>("times");
    QTest::newRow("none afterwards") << QStringList();
    QTest::newRow("others afterwards") << QStringList {"10:00", "11:00"};
}

void VemoTimeComboBoxTest::survivesItemsClearedWhileEditable()
{
    QFETCH(QStringList, times);
    Box box;
    box.setDefault("23:30");
    box.setMaxVisibleItems(8);
    box.clear();
    box.send(QEvent::FocusIn);
    box.setMaxVisibleItems(8);
    QCOMPARE(box.maxVisibleItems(), 8);
    box.addItems(times);
    box.leaveWith("7:45");
    QCOMPARE(box.currentText(), QString("07:45"));
    QCOMPARE(box.currentIndex(), 0);
    QVERIFY(box.isCustomShown());
    box.leaveWith(QString());
    QCOMPARE(box.currentIndex(), 0);
    for (int row = 0; row < times.size(); ++row) {
        QCOMPARE(box.itemText(row + 1), times[row]);
        QVERIFY(box.isRowShown(row + 1));
        QVERIFY(box.item(row + 1)->isEnabled());
    }
    box.clear();
    box.addItems(times);
    box.setEditable(false);
    QCOMPARE(box.count(), times.size());
}

void VemoTimeComboBoxTest::followsItsCustomItem()
{
    Box box(Editable, {"10:00"});
    box.insertItem(0, "09:00");
    box.leaveWith("7:45");
    QCOMPARE(box.currentIndex(), 1);
    QCOMPARE(box.itemText(0), QString("09:00"));
    QCOMPARE(box.itemText(1), QString("07:45"));
    QVERIFY(box.isRowShown(0) && box.isRowShown(1));
    box.setEditable(false);
    QCOMPARE(box.count(), 2);
    QCOMPARE(box.itemText(1), QString("10:00"));
    // It is inserted at its old position, or at the end of a shorter list.
    box.setEditable(true);
    QCOMPARE(box.itemText(1), QString());
    box.setEditable(false);
    box.clear();
    box.setEditable(true);
    QCOMPARE(box.count(), 1);
}

void VemoTimeComboBoxTest::showsACustomTextOfAnyLength()
{
    Form form;
    QVERIFY(form.isActive);
    form.box.setCustomText(QString(10000, 'x'));
    form.type("7:45");
    form.press(Qt::Key_Return);
    QCOMPARE(form.box.currentText().size(), 5 + 1 + 10000);
    QCOMPARE(form.box.lineEdit()->cursorPosition(), 0);
    form.box.showPopup();
    QVERIFY(form.box.view()->isVisible());
    form.box.hidePopup();
    form.box.setFocus();
    QCOMPARE(form.box.currentText(), QString("07:45"));
}

void VemoTimeComboBoxTest::survivesAModelOfAnotherKind()
{
    Box box;
    box.setModel(new QStringListModel({"08:00", "09:00"}, &box));
    for (const char *typed : {"", "9", "7:45", "noon"}) {
        box.leaveWith(typed);
        box.send(QEvent::FocusIn);
        box.setCurrentText(typed);
        box.setDefault(typed);
    }
    QVERIFY(box.isRowShown(0));
    box.setEditable(false);
}

void VemoTimeComboBoxTest::letsEveryEventPass()
{
    Box box;
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QFocusEvent in(QEvent::FocusIn);
    QFocusEvent out(QEvent::FocusOut);
    for (QEvent *event : QVector<QEvent *> {&enter, &in, &out})
        QVERIFY(!box.eventFilter(&box, event));
}

VEMO_TEST_MAIN(VemoTimeComboBoxTest)
#include "tst_vemotimecombobox.moc"

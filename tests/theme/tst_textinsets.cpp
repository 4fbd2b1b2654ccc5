// SPDX-License-Identifier: MIT
// Fields that stand below each other begin their texts below each other, and show them whole.
#include "core/scaling_p.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/defaulttheme.h>
#include <vemo/stylemanager.h>
#include <vemo/vemocombobox.h>
#include <vemo/vemodateselector.h>
#include <vemo/vemotablewidget.h>

#include <QAbstractItemView>
#include <QHeaderView>
#include <QLineEdit>
#include <QSpinBox>
#include <QTableWidget>

#include <functional>

namespace {

const QString kText("HHHH"); // clazy:exclude=non-pod-global-static

// In design pixels: the border's and the box's padding, and the two that an edit adds to it.
constexpr int kInset = 7;
constexpr int kEditMargin = 2;

using NewField = std::function<QWidget *()>;

template <typename Box> QWidget *newBox(bool isEditable)
{
    auto *box = new Box;
    box->addItems({kText, "x"});
    box->setEditable(isEditable);
    return box;
}

template <typename Edit> QWidget *newEdit()
{
    auto *edit = new Edit;
    edit->setText(kText);
    return edit;
}

/// The field without the captions beside it.
QWidget *newLineEdit()
{
    auto *edit = newEdit<QLineEdit>();
    edit->setStyleSheet(getStyleSheet("component.lineedit"));
    return edit;
}

QWidget *newSpinBox()
{
    auto *box = new QSpinBox;
    box->setPrefix(kText);
    return box;
}

/// The dark part of a picture, in logical pixels.
QRect inkOf(const QImage &picture)
{
    QRect ink;
    // Beside the frame.
    for (int y = picture.height() / 4; y < picture.height() * 3 / 4; ++y) {
        for (int x = 4; x < picture.width() - 4; ++x) {
            if (qGray(picture.pixel(x, y)) < 80)
                ink |= QRect(x, y, 1, 1);
        }
    }
    const double ratio = picture.devicePixelRatio();
    return {ink.topLeft() / ratio, ink.size() / ratio};
}

} // namespace

Q_DECLARE_METATYPE(NewField)

class TextInsetsTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void textsBeginBelowEachOther_data();
    void textsBeginBelowEachOther();
    void theFocusLeavesTheTextOfACellInItsPlace();
    void aCaptionBeginsAboveTheTextsOfItsColumn_data();
    void aCaptionBeginsAboveTheTextsOfItsColumn();
    void anEditableBoxShowsItsWidestTextWhole();
    void aListMarksItsRowsAsAMenuDoes_data();
    void aListMarksItsRowsAsAMenuDoes();
};

void TextInsetsTest::initTestCase()
{
    startDefaultTheme();
    applyDefaultThemeStyle(*qApp);
}

void TextInsetsTest::cleanup()
{
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
    VemoTest::cleanup();
}

void TextInsetsTest::textsBeginBelowEachOther_data()
{
    QTest::addColumn<NewField>("make");
    QTest::addColumn<bool>("isEdit");
    const auto add = [](const char *name, const NewField &make, bool isEdit) {
        QTest::newRow(name) << make << isEdit;
    };
    add("component.lineedit", newLineEdit, true);
    add(
        "VemoDateSelector", [] { return new VemoDateSelector(kText, nullptr); }, false);
    add(
        "VemoComboBox", [] { return newBox<VemoComboBox>(false); }, false);
    add(
        "VemoComboBox, editable", [] { return newBox<VemoComboBox>(true); }, false);
    add("QLineEdit", newEdit<QLineEdit>, true);
    add("QSpinBox", newSpinBox, true);
    add(
        "QComboBox", [] { return newBox<QComboBox>(false); }, false);
    add(
        "QComboBox, editable", [] { return newBox<QComboBox>(true); }, true);
}

void TextInsetsTest::textsBeginBelowEachOther()
{
    QFETCH(const NewField, make);
    QFETCH(const bool, isEdit);
    const QScopedPointer<QWidget> field(make());
    field->resize(scaled(200), scaled(32));
    const int bearing = QFontMetrics(field->font()).leftBearing('H');
    const int begin = inkOf(field->grab().toImage()).left() - bearing;
    const int wanted = scaled(kInset) + (isEdit ? kEditMargin : 0);
    // Frames and paddings are rounded one by one.
    QVERIFY2(begin >= wanted - 1 && begin <= wanted + 2,
        qPrintable(QString("%1, not %2").arg(begin).arg(wanted)));
}

void TextInsetsTest::theFocusLeavesTheTextOfACellInItsPlace()
{
    VemoTableColumnsInfo columns;
    columns.addColumn(kText, 200, true, 1.0);
    VemoTableWidget widget(columns);
    QTableWidget *table = widget.getTable();
    table->setRowCount(1);
    table->setItem(0, 0, new QTableWidgetItem(kText));
    widget.resize(scaled(240), scaled(120));
    widget.show();
    QVERIFY(QTest::qWaitForWindowActive(&widget));
    const QRect cell = table->visualItemRect(table->item(0, 0));
    const auto begin = [&] { return inkOf(table->viewport()->grab(cell).toImage()).topLeft(); };
    table->setCurrentItem(nullptr);
    const QPoint rest = begin();
    table->setFocus();
    table->setCurrentCell(0, 0, QItemSelectionModel::NoUpdate);
    QCOMPARE(begin(), rest);
    table->setCurrentCell(0, 0, QItemSelectionModel::Select);
    QCOMPARE(begin(), rest);
}

void TextInsetsTest::aCaptionBeginsAboveTheTextsOfItsColumn_data()
{
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::addColumn<QString>("text");
    addRow("from left to right", Qt::LeftToRight, kText);
    addRow("from right to left", Qt::RightToLeft, QString(4, QChar(0x5d7)));
}

void TextInsetsTest::aCaptionBeginsAboveTheTextsOfItsColumn()
{
    QFETCH(const Qt::LayoutDirection, direction);
    QFETCH(const QString, text);
    QGuiApplication::setLayoutDirection(direction);
    VemoTableColumnsInfo columns;
    columns.addColumn(text, 100, false, 0);
    columns.addColumn(text, 100, false, 0);
    VemoTableWidget widget(columns);
    QHeaderView *header = widget.getHeader();
    const QString ink = withDefaultThemeColors("QHeaderView::section { color: @ink@; }");
    header->setStyleSheet(header->styleSheet() + ink); // that of the cells
    QTableWidget *table = widget.getTable();
    table->setRowCount(1);
    widget.resize(scaled(240), scaled(120));
    widget.show();
    // Qt 6 keeps room for the arrow of a sorted column from right to left, even if none is sorted.
    const bool hasRoomForArrow =
        direction == Qt::RightToLeft && QT_VERSION >= QT_VERSION_CHECK(6, 0, 0);
    const int room = hasRoomForArrow ? scaled(16) : 0;
    for (const int column : {0, 1}) {
        table->setItem(0, column, new QTableWidgetItem(text));
        const QRect cell = table->visualItemRect(table->item(0, column));
        const QRect row(table->viewport()->mapTo(&widget, cell.topLeft()), cell.size());
        const QRect below = inkOf(widget.grab(row).toImage());
        const QRect caption(row.x(), 0, row.width(), header->height());
        const QRect heading = inkOf(widget.grab(caption).toImage());
        // Frames and paddings are rounded one by one.
        QVERIFY(qAbs(heading.left() + room - below.left()) <= 1);
        QVERIFY(qAbs(heading.right() + room - below.right()) <= 1);
    }
}

void TextInsetsTest::anEditableBoxShowsItsWidestTextWhole()
{
    const QScopedPointer<QWidget> box(newBox<VemoComboBox>(true));
    box->resize(scaled(200), scaled(32));
    const QRect whole = inkOf(box->grab(QRect(0, 0, scaled(100), scaled(32))).toImage());
    box->resize(box->sizeHint());
    const QRect text(0, 0, box->width() - scaled(24), box->height());
    QCOMPARE(inkOf(box->grab(text).toImage()).width(), whole.width());
}

void TextInsetsTest::aListMarksItsRowsAsAMenuDoes_data()
{
    QTest::addColumn<NewField>("make");
    QTest::newRow("VemoComboBox") << NewField([] { return newBox<VemoComboBox>(false); });
    QTest::newRow("QComboBox") << NewField([] { return newBox<QComboBox>(false); });
}

void TextInsetsTest::aListMarksItsRowsAsAMenuDoes()
{
    QFETCH(const NewField, make);
    const QScopedPointer<QWidget> field(make());
    auto *box = static_cast<QComboBox *>(field.data());
    box->show();
    box->showPopup();
    QVERIFY(QTest::qWaitForWindowExposed(box->view()->window()));
    const QRect row = box->view()->visualRect(box->model()->index(0, 0));
    const auto colourAt = [box](const QPoint &point) {
        return pixelAt(box->view()->viewport(), point);
    };
    const QColor surface = defaultThemeColor("surface");
    QCOMPARE(colourAt({row.left(), row.center().y()}), surface);
    QCOMPARE(colourAt({row.right(), row.center().y()}), surface);
    QCOMPARE(colourAt({row.left() + scaled(4), row.center().y()}), defaultThemeColor("selection"));
    // A rounded corner.
    QVERIFY(colourAt({row.left() + scaled(3), row.top()}) != defaultThemeColor("selection"));
    box->hidePopup();
}

VEMO_TEST_MAIN(TextInsetsTest)
#include "tst_textinsets.moc"

// SPDX-License-Identifier: MIT
// Fields that stand below each other begin their texts below each other, and show them whole.
#include "core/scaling_p.h"
#include "support/activewindow.h"
#include "support/applicationfont.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/defaulttheme.h>
#include <vemo/itemdelegate.h>
#include <vemo/stylemanager.h>
#include <vemo/vemobutton.h>
#include <vemo/vemobuttonpath.h>
#include <vemo/vemocheckbox.h>
#include <vemo/vemocombobox.h>
#include <vemo/vemodateselector.h>
#include <vemo/vemolabel.h>
#include <vemo/vemoradiobutton.h>
#include <vemo/vemosidebar.h>
#include <vemo/vemoswitch.h>
#include <vemo/vemotablewidget.h>
#include <vemo/vemotreewidget.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QDateEdit>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTableWidget>
#include <QTextBrowser>
#include <QTextEdit>
#include <QToolBox>
#include <QtMath>

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

template <typename Edit> QWidget *newTextEdit()
{
    auto *edit = new Edit;
    edit->setPlainText(kText);
    return edit;
}

QWidget *newSpinBox()
{
    auto *box = new QSpinBox;
    box->setPrefix(kText);
    return box;
}

/// The dark part of a picture, in logical pixels.
QRect inkOf(const QImage &picture, int margin = 4)
{
    QRect ink;
    // Beside the frame.
    for (int y = picture.height() / 4; y < picture.height() * 3 / 4; ++y) {
        for (int x = margin; x < picture.width() - margin; ++x) {
            if (qGray(picture.pixel(x, y)) < 80)
                ink |= QRect(x, y, 1, 1);
        }
    }
    const double ratio = picture.devicePixelRatio();
    return {ink.topLeft() / ratio, ink.size() / ratio};
}

/// How far the pixels reach that are not of the ground, beside the frame.
int extentOf(const QImage &picture, const QColor &ground)
{
    QRect extent;
    const int frame = 3 * qRound(picture.devicePixelRatio());
    for (int y = frame; y < picture.height() - frame; ++y) {
        for (int x = frame; x < picture.width(); ++x) {
            if (picture.pixelColor(x, y) != ground)
                extent |= QRect(x, y, 1, 1);
        }
    }
    return extent.width();
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
    void fieldsAndButtonsAreOfOneHeight_data();
    void fieldsAndButtonsAreOfOneHeight();
    void theFocusLeavesTheTextOfACellInItsPlace();
    void aCaptionBeginsAboveTheTextsOfItsColumn_data();
    void aCaptionBeginsAboveTheTextsOfItsColumn();
    void theLinesOfAWrappedTextBeginBelowEachOther_data();
    void theLinesOfAWrappedTextBeginBelowEachOther();
    void renamingLeavesTheNameInItsPlace_data();
    void renamingLeavesTheNameInItsPlace();
    void aDateBeginsInTheSamePlaceIfItCanBeTyped();
    void separatorsOfAHeaderAreMirrored();
    void theIconOfATabOfAToolBoxIsInTheMiddle();
    void theDotsOfACutTextAreAtItsEnd_data();
    void theDotsOfACutTextAreAtItsEnd();
    void lettersOfAnotherFontLowerNothing_data();
    void lettersOfAnotherFontLowerNothing();
    void anEditableBoxShowsItsWidestTextWhole();
    void aLetterThatBeginsBeforeItsPlaceIsShownWhole_data();
    void aLetterThatBeginsBeforeItsPlaceIsShownWhole();
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
    add("QTextEdit", newTextEdit<QTextEdit>, true);
    add("QPlainTextEdit", newTextEdit<QPlainTextEdit>, true);
    add("QTextBrowser", newTextEdit<QTextBrowser>, true);
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

void TextInsetsTest::fieldsAndButtonsAreOfOneHeight_data()
{
    textsBeginBelowEachOther_data();
    const auto add = [](const char *name, const NewField &make) {
        QTest::newRow(name) << make << true;
    };
    add("VemoButton", [] { return new VemoButton(kText, VemoButton::CANCEL); });
    add("QPushButton", [] { return new QPushButton(kText); });
    add("QDateEdit", [] { return new QDateEdit; });
}

void TextInsetsTest::fieldsAndButtonsAreOfOneHeight()
{
    QFETCH(const NewField, make);
    QWidget window;
    QWidget *field = make();
    field->setParent(&window);
    if (qobject_cast<QAbstractScrollArea *>(field))
        return; // as high as its lines
    field->show();
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    for (const bool hasFocus : {false, true}) {
        if (hasFocus)
            field->setFocus();
        else
            field->clearFocus();
        field->adjustSize();
        QCOMPARE(field->height(), scaled(32));
    }
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
    QVERIFY(showActive(&widget));
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

void TextInsetsTest::theLinesOfAWrappedTextBeginBelowEachOther_data()
{
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::addColumn<bool>("isOurs");
    QTest::addColumn<QString>("gap");
    addRow("VemoLabel", Qt::RightToLeft, true, QString(" "));
    addRow("VemoLabel, two blanks", Qt::RightToLeft, true, QString("  "));
    addRow("VemoLabel, paragraphs", Qt::RightToLeft, true, QString("\n"));
    addRow("VemoLabel, from left to right", Qt::LeftToRight, true, QString(" "));
    addRow("QLabel", Qt::RightToLeft, false, QString(" "));
}

void TextInsetsTest::theLinesOfAWrappedTextBeginBelowEachOther()
{
    QFETCH(const Qt::LayoutDirection, direction);
    QFETCH(const bool, isOurs);
    QFETCH(const QString, gap);
    const bool isReversed = direction == Qt::RightToLeft;
    const QString word(4, isReversed ? QChar(0x5dd) : QChar('H'));
    QGuiApplication::setLayoutDirection(direction);
    const QScopedPointer<QLabel> label(isOurs ? new VemoLabel : new QLabel);
    label->setText(QStringList {word, word, word}.join(gap));
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignTop);
    label->ensurePolished();
    const QFontMetrics metrics(label->font());
    label->resize(metrics.horizontalAdvance(word) * 3 / 2, 3 * metrics.lineSpacing());
    const auto edgeOf = [&](int line) {
        const QRect place(0, line * metrics.lineSpacing(), label->width(), metrics.height());
        const QRect ink = inkOf(label->grab(place).toImage());
        return isReversed ? ink.right() : ink.left();
    };
    QVERIFY(edgeOf(0) > 0);
    QCOMPARE(edgeOf(0), edgeOf(1));
    QCOMPARE(edgeOf(0), edgeOf(2));
}

void TextInsetsTest::renamingLeavesTheNameInItsPlace_data()
{
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::addColumn<QString>("name");
    addRow("from left to right", Qt::LeftToRight, kText);
    addRow("from right to left", Qt::RightToLeft, QString(4, QChar(0x5dd)));
}

void TextInsetsTest::renamingLeavesTheNameInItsPlace()
{
    QFETCH(const Qt::LayoutDirection, direction);
    QFETCH(const QString, name);
    QGuiApplication::setLayoutDirection(direction);
    VemoTreeWidget tree(nullptr);
    tree.setStyleSheet(getStyleSheet("component.tree"));
    tree.setBackgroundColor(defaultThemeColor("selection"), defaultThemeColor("hover"));
    tree.setItemDelegate(new ItemDelegate(&tree));
    tree.setFocusPolicy(Qt::NoFocus); // no ring around the name
    auto *item = new QTreeWidgetItem(&tree, {name});
    item->setFlags(item->flags() | Qt::ItemIsEditable | Qt::ItemIsUserCheckable);
    tree.resize(scaled(240), scaled(80));
    tree.show();
    const QRect row = tree.visualItemRect(item);
    const auto edgeOf = [direction](const QRect &ink) {
        return direction == Qt::RightToLeft ? ink.right() : ink.left();
    };
    const int rest = edgeOf(inkOf(tree.viewport()->grab(row).toImage(), 0));
    tree.editItem(item);
    auto *editor = tree.viewport()->findChild<QLineEdit *>();
    QVERIFY(editor);
    editor->end(false); // The cursor is at the other edge.
    const int edited = edgeOf(inkOf(editor->grab().toImage(), 0)) + editor->x() - row.x();
    // A frame of two pixels takes one more, and the cursor has its place at the right: with Qt 6
    // one more pixel.
    const int tolerance = QT_VERSION >= QT_VERSION_CHECK(6, 0, 0) ? 3 : 2;
    QVERIFY2(
        qAbs(edited - rest) <= tolerance, qPrintable(QString("%1, not %2").arg(edited).arg(rest)));
}

void TextInsetsTest::aDateBeginsInTheSamePlaceIfItCanBeTyped()
{
    VemoDateSelector field(kText, nullptr);
    field.resize(scaled(200), scaled(32));
    field.setDate(QDate(2026, 11, 23));
    const auto begin = [&] { return inkOf(field.grab().toImage()).left(); };
    const int before = begin();
    field.setTypingEnabled(true);
    QVERIFY(qAbs(begin() - before) <= 1);
}

/// The distances of the separators of a table's header from where its columns begin.
static QVector<int> separatorsOfAHeader(Qt::LayoutDirection direction)
{
    QGuiApplication::setLayoutDirection(direction);
    VemoTableColumnsInfo columns;
    columns.addColumn(QString(), 100, false, 0);
    columns.addColumn(QString(), 80, false, 0);
    VemoTableWidget widget(columns);
    widget.resize(scaled(240), scaled(120));
    widget.show();
    QImage picture = widget.grab().toImage();
    if (direction == Qt::RightToLeft)
        picture = picture.mirrored(true, false);
    const int y = qRound(widget.getHeader()->height() * picture.devicePixelRatio() / 2);
    const QColor line = defaultThemeColor("line");
    QVector<int> separators;
    for (int x = 1; x < picture.width(); ++x) {
        if (picture.pixelColor(x, y) == line && picture.pixelColor(x - 1, y) != line)
            separators << x;
    }
    return separators;
}

void TextInsetsTest::separatorsOfAHeaderAreMirrored()
{
    const QVector<int> separators = separatorsOfAHeader(Qt::LeftToRight);
    const QVector<int> mirrored = separatorsOfAHeader(Qt::RightToLeft);
    QCOMPARE(separators.size(), 2);
    QCOMPARE(mirrored.size(), 2);
    const int pixel = qRound(qApp->devicePixelRatio()); // what Qt is off
    for (int i = 0; i < separators.size(); ++i)
        QVERIFY(qAbs(mirrored.at(i) - separators.at(i)) <= pixel);
}

void TextInsetsTest::theIconOfATabOfAToolBoxIsInTheMiddle()
{
    QPixmap square(scaled(16), scaled(16));
    square.fill(Qt::black);
    QToolBox box;
    box.addItem(new QWidget, square, QString());
    box.resize(scaled(200), scaled(100));
    box.show();
    const auto *tab = box.findChild<QAbstractButton *>();
    const QImage picture = box.grab(tab->geometry()).toImage();
    const double ratio = picture.devicePixelRatio();
    const int x = qRound((scaled(8) + scaled(8)) * ratio);
    int top = 0;
    while (top < picture.height() && picture.pixelColor(x, top) != QColor(Qt::black))
        ++top;
    int bottom = picture.height() - 1;
    while (bottom >= 0 && picture.pixelColor(x, bottom) != QColor(Qt::black))
        --bottom;
    QVERIFY(qAbs(top - (picture.height() - 1 - bottom)) <= ratio);
}

namespace {

QWidget *newCutPage(const QString &text)
{
    auto *bar = new VemoSideBar;
    bar->addPage(text);
    return bar;
}

QWidget *newCutRow(const QString &text)
{
    auto *tree = new VemoTreeWidget(nullptr);
    tree->setStyleSheet(getStyleSheet("component.tree"));
    tree->setBackgroundColor(defaultThemeColor("selection"), defaultThemeColor("hover"));
    tree->setItemDelegate(new ItemDelegate(tree));
    tree->setHeaderHidden(true);
    auto *item = new QTreeWidgetItem(tree, {text});
    item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
    return tree;
}

QWidget *newCutCell(const QString &text)
{
    VemoTableColumnsInfo columns;
    columns.addColumn(QString(), 150, false, 0);
    auto *widget = new VemoTableWidget(columns);
    widget->getTable()->setRowCount(1);
    widget->getTable()->setItem(0, 0, new QTableWidgetItem(text));
    return widget;
}

QWidget *newCutPath(const QString &text)
{
    auto *path = new VemoButtonPath;
    path->refresh(text);
    return path;
}

} // namespace

using NewCutText = QWidget *(*)(const QString &);
Q_DECLARE_METATYPE(NewCutText)

void TextInsetsTest::theDotsOfACutTextAreAtItsEnd_data()
{
    QTest::addColumn<NewCutText>("make");
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::addColumn<bool>("isLatin");
    QTest::addColumn<bool>("areDotsAtRight");
    const auto add = [](const QByteArray &name, NewCutText make, bool isBeginningCut) {
        for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
            const QByteArray layout = direction == Qt::LeftToRight ? ", LTR" : ", RTL";
            addRow(name + ", Latin" + layout, make, direction, true, !isBeginningCut);
            addRow(name + ", Hebrew" + layout, make, direction, false, isBeginningCut);
        }
    };
    add("page of a side bar", newCutPage, false);
    add("row of a tree", newCutRow, false);
    add("cell of a table", newCutCell, false);
    add("name in a path", newCutPath, true);
}

void TextInsetsTest::theDotsOfACutTextAreAtItsEnd()
{
    QFETCH(const NewCutText, make);
    QFETCH(const Qt::LayoutDirection, direction);
    QFETCH(const bool, isLatin);
    QFETCH(const bool, areDotsAtRight);
    QGuiApplication::setLayoutDirection(direction);
    const ApplicationFont font(12); // the dots of smaller ones are grey
    const QScopedPointer<QWidget> widget(make(QString(40, isLatin ? QChar('H') : QChar(0x5dd))));
    widget->setFixedWidth(scaled(160));
    widget->show();
    QVERIFY(QTest::qWaitForWindowExposed(widget.data()));
    QCoreApplication::processEvents();
    const QImage picture = widget->grab().toImage();
    QRect letters; // their tops, which dots do not reach
    QRect all;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (qGray(picture.pixel(x, y)) >= 80)
                continue;
            all |= QRect(x, y, 1, 1);
            if (y < all.top() + scaled(4))
                letters |= QRect(x, y, 1, 1);
        }
    }
    QVERIFY(!all.isEmpty());
    const int dots = scaled(4);
    QCOMPARE(all.right() - letters.right() > dots, areDotsAtRight);
    QCOMPARE(letters.left() - all.left() > dots, !areDotsAtRight);
}

namespace {

template <typename Button> QWidget *newChoice(const QString &text)
{
    return new Button(text);
}

/// The topmost and the bottommost row of the first letter.
QPair<int, int> rowsOfFirstLetter(QWidget *widget)
{
    const QImage picture = widget->grab().toImage();
    const int width =
        qRound(widget->fontMetrics().horizontalAdvance('H') * picture.devicePixelRatio());
    QRect letter;
    for (int x = 0; x < picture.width() && (letter.isNull() || x < letter.left() + width / 2);
         ++x) {
        for (int y = 0; y < picture.height(); ++y) {
            if (qGray(picture.pixel(x, y)) < 80)
                letter |= QRect(x, y, 1, 1);
        }
    }
    return {letter.top(), letter.bottom()};
}

} // namespace

void TextInsetsTest::lettersOfAnotherFontLowerNothing_data()
{
    QTest::addColumn<NewCutText>("make");
    QTest::newRow("VemoCheckBox") << NewCutText(newChoice<VemoCheckBox>);
    QTest::newRow("VemoRadioButton") << NewCutText(newChoice<VemoRadioButton>);
    QTest::newRow("VemoSwitch") << NewCutText(newChoice<VemoSwitch>);
    QTest::newRow("row of a tree") << NewCutText(newCutRow);
}

void TextInsetsTest::lettersOfAnotherFontLowerNothing()
{
    QFETCH(const NewCutText, make);
    QPair<int, int> rows[2];
    for (const bool hasChinese : {false, true}) {
        const QScopedPointer<QWidget> widget(make(hasChinese ? "H" + QString(QChar(0x56fd)) : "H"));
        widget->setAttribute(Qt::WA_DontShowOnScreen);
        widget->setFixedSize(scaled(120), scaled(40));
        widget->show();
        rows[hasChinese] = rowsOfFirstLetter(widget.data());
    }
    QVERIFY(rows[0].first < rows[0].second);
    // The text moves by whole pixels of the widget.
    const int tolerance = qCeil(qApp->devicePixelRatio()) - 1;
    QVERIFY(qAbs(rows[1].first - rows[0].first) <= tolerance);
    QVERIFY(qAbs(rows[1].second - rows[0].second) <= tolerance);
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

void TextInsetsTest::aLetterThatBeginsBeforeItsPlaceIsShownWhole_data()
{
    QTest::addColumn<NewField>("make");
    QTest::addColumn<bool>("isEnabled");
    const NewField box([] {
        auto *newBox = new VemoComboBox;
        newBox->addItem("J");
        return newBox;
    });
    const NewField date([] { return new VemoDateSelector("J", nullptr); });
    addRow("VemoComboBox", box, true);
    addRow("VemoComboBox, disabled", box, false);
    addRow("VemoDateSelector", date, true);
}

void TextInsetsTest::aLetterThatBeginsBeforeItsPlaceIsShownWhole()
{
    QFETCH(const NewField, make);
    QFETCH(const bool, isEnabled);
    const QScopedPointer<QWidget> box(make());
    QFont font = box->font();
    font.setPixelSize(scaled(20));
    if (QFontMetrics(font).leftBearing('J') >= 0)
        QSKIP("The font has no such letter.");
    box->setFont(font);
    box->setEnabled(isEnabled);
    box->resize(scaled(100), scaled(32));
    const QColor ink = defaultThemeColor(isEnabled ? "ink" : "faint-ink");
    const QColor ground = defaultThemeColor(isEnabled ? "surface" : "canvas");
    QImage expected(box->size() * box->devicePixelRatioF(), QImage::Format_RGB32);
    expected.setDevicePixelRatio(box->devicePixelRatioF());
    expected.fill(ground);
    QPainter painter(&expected);
    painter.setFont(font);
    painter.setPen(ink);
    painter.drawText(QRect({scaled(20), 0}, box->size()), Qt::AlignVCenter, "J");
    painter.end();
    const QImage drawn = box->grab(QRect(0, 0, scaled(40), box->height())).toImage();
    QCOMPARE(extentOf(drawn, ground), extentOf(expected, ground));
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

// SPDX-License-Identifier: MIT
#include "support/eventcounter.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/defaulttheme.h>

#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDoubleSpinBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScopeGuard>
#include <QSlider>
#include <QSplitter>
#include <QStyledItemDelegate>
#include <QTableWidget>
#include <QTextBrowser>
#include <QTextCharFormat>
#include <QTextEdit>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

constexpr int kField = 32;
constexpr int kRow = 28;

using NewWidget = QWidget *(*)();

template <typename Widget> QWidget *newWidget()
{
    return new Widget;
}

template <typename Button> QWidget *newButton()
{
    return new Button("ab");
}

/// Whether there is a pixel that is much more red than anything else.
bool hasRed(const QImage &picture)
{
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QColor colour = picture.pixelColor(x, y);
            if (colour.red() > 200 && colour.green() < 100 && colour.blue() < 100)
                return true;
        }
    }
    return false;
}

/// A button class of a host, with its own class name.
class OwnButton : public QPushButton
{
    Q_OBJECT
};

/// Puts widget into a window, shows it, and lets Qt do what it has put off.
void show(QWidget &window, QWidget *widget)
{
    (new QVBoxLayout(&window))->addWidget(widget);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QCoreApplication::processEvents();
}

} // namespace

Q_DECLARE_METATYPE(NewWidget)

/// The effects of applyDefaultThemeStyle() on Qt's own widgets that the stored pictures do not
/// show.
class StockStyleTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void fieldsAndButtonsAreOfOneHeight_data();
    void fieldsAndButtonsAreOfOneHeight();
    void textBeginsAtTheEdgeInEitherDirection_data();
    void textBeginsAtTheEdgeInEitherDirection();
    void aLineIsBetweenRowNumbersAndCells_data();
    void aLineIsBetweenRowNumbersAndCells();
    void aRowNumberIsInTheMiddleOfItsRow();
    void aDisabledRowShowsThatItIsPartlyChecked();
    void aSubclassIsLeftAlone();
    void aHeightOfTheHostStays();
    void rowsFilledBeforeTheViewIsShownHaveTheirHeight();
    void rowHeightsOfTheHostStay();
    void aComboBoxOpensWithRowsOfTheFamily();
    void aDelegateOfTheHostStays();
    void aComboBoxCreatesItsListWhenItOpens();
    void aComboBoxWithAStyleOfItsOwnIsToldAboutIt();
    void weekendsAreNotRed();
    void aWeekendOfTheHostStays();
    void aSliderIsAsWideAsItsHandle();
    void aSplitterShowsItsLineMidway_data();
    void aSplitterShowsItsLineMidway();
    void aFrameThatTheHostTurnedOffShowsOnlyTheFocus_data();
    void aFrameThatTheHostTurnedOffShowsOnlyTheFocus();
    void aRuleOfTheHostChangesOnlyWhatItSets_data();
    void aRuleOfTheHostChangesOnlyWhatItSets();
};

void StockStyleTest::initTestCase()
{
    startDefaultTheme();
    applyDefaultThemeStyle(*qApp);
}

void StockStyleTest::fieldsAndButtonsAreOfOneHeight_data()
{
    QTest::addColumn<NewWidget>("make");
    QTest::newRow("QPushButton") << NewWidget(newWidget<QPushButton>);
    QTest::newRow("QLineEdit") << NewWidget(newWidget<QLineEdit>);
    QTest::newRow("QSpinBox") << NewWidget(newWidget<QSpinBox>);
    QTest::newRow("QDoubleSpinBox") << NewWidget(newWidget<QDoubleSpinBox>);
    QTest::newRow("QDateEdit") << NewWidget(newWidget<QDateEdit>);
    QTest::newRow("QTimeEdit") << NewWidget(newWidget<QTimeEdit>);
    QTest::newRow("QDateTimeEdit") << NewWidget(newWidget<QDateTimeEdit>);
    QTest::newRow("QComboBox") << NewWidget(newWidget<QComboBox>);
}

void StockStyleTest::fieldsAndButtonsAreOfOneHeight()
{
    QFETCH(NewWidget, make);
    const QScopedPointer<QWidget> widget(make());
    widget->ensurePolished();
    QCOMPARE(widget->sizeHint().height(), kField);
}

void StockStyleTest::textBeginsAtTheEdgeInEitherDirection_data()
{
    QTest::addColumn<NewWidget>("make");
    QTest::newRow("QSpinBox") << NewWidget(newWidget<QSpinBox>);
    QTest::newRow("QDoubleSpinBox") << NewWidget(newWidget<QDoubleSpinBox>);
    QTest::newRow("QDateEdit") << NewWidget(newWidget<QDateEdit>);
    QTest::newRow("QTimeEdit") << NewWidget(newWidget<QTimeEdit>);
    QTest::newRow("QDateTimeEdit") << NewWidget(newWidget<QDateTimeEdit>);
}

void StockStyleTest::textBeginsAtTheEdgeInEitherDirection()
{
    QFETCH(NewWidget, make);
    const QScopedPointer<QWidget> widget(make());
    const auto *text = widget->findChild<QLineEdit *>();
    QVERIFY(text);
    widget->resize(200, kField);
    widget->show();
    const int inset = text->x();
    widget->setLayoutDirection(Qt::RightToLeft);
    QCoreApplication::sendPostedEvents();
    QCOMPARE(widget->width() - text->x() - text->width(), inset);
}

void StockStyleTest::aLineIsBetweenRowNumbersAndCells_data()
{
    QTest::addColumn<Qt::LayoutDirection>("direction");
    addRow("left to right", Qt::LeftToRight);
    addRow("right to left", Qt::RightToLeft);
}

void StockStyleTest::aLineIsBetweenRowNumbersAndCells()
{
    QFETCH(Qt::LayoutDirection, direction);
    QWidget window;
    window.setLayoutDirection(direction);
    auto *table = new QTableWidget(2, 2);
    show(window, table);
    const QColor line = defaultThemeColor("line");
    const QWidget *corner = table->findChild<QAbstractButton *>();
    for (const QWidget *part : {corner, static_cast<const QWidget *>(table->verticalHeader())}) {
        const QImage picture = table->grab(part->geometry()).toImage();
        const int inner = direction == Qt::LeftToRight ? picture.width() - 1 : 0;
        QCOMPARE(picture.pixelColor(inner, 4), line);
        QVERIFY(picture.pixelColor(picture.width() - 1 - inner, 4) != line);
    }
}

void StockStyleTest::aRowNumberIsInTheMiddleOfItsRow()
{
    QWidget window;
    auto *table = new QTableWidget(3, 2);
    show(window, table);
    const QHeaderView *rows = table->verticalHeader();
    const QRect section(0, rows->sectionViewportPosition(1), rows->width(), rows->sectionSize(1));
    const QImage picture = rows->viewport()->grab(section.adjusted(2, 2, -2, -2)).toImage();
    const QColor ground = picture.pixelColor(0, 0);
    QRect ink;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixelColor(x, y) != ground)
                ink |= QRect(x, y, 1, 1);
        }
    }
    QVERIFY(!ink.isEmpty());
    QVERIFY(qAbs(ink.center().y() - picture.height() / 2) <= 2);
}

void StockStyleTest::aDisabledRowShowsThatItIsPartlyChecked()
{
    QWidget window;
    auto *tree = new QTreeWidget;
    tree->setHeaderHidden(true);
    auto *item = new QTreeWidgetItem(tree);
    tree->setEnabled(false);
    show(window, tree);
    const auto darkest = [tree, item](Qt::CheckState state) {
        item->setCheckState(0, state);
        const QImage row = tree->viewport()->grab(tree->visualItemRect(item)).toImage();
        int grey = 255;
        for (int x = 4; x < row.width(); ++x)
            grey = qMin(grey, qGray(row.pixel(x, row.height() / 2)));
        return grey;
    };
    QVERIFY(darkest(Qt::PartiallyChecked) < darkest(Qt::Unchecked));
}

void StockStyleTest::aSubclassIsLeftAlone()
{
    OwnButton own;
    own.ensurePolished();
    QVERIFY(own.sizeHint().height() < kField);
}

void StockStyleTest::aHeightOfTheHostStays()
{
    QPushButton button("ab");
    button.setFixedHeight(24);
    button.show();
    QCOMPARE(button.height(), 24);
}

void StockStyleTest::rowsFilledBeforeTheViewIsShownHaveTheirHeight()
{
    QWidget window;
    auto *list = new QListWidget;
    list->addItems({"ab", "cd", "ef"});
    auto *tree = new QTreeWidget;
    for (const char *text : {"ab", "cd", "ef"})
        new QTreeWidgetItem(tree, {text});
    auto *table = new QTableWidget(3, 1);
    show(window, list);
    window.layout()->addWidget(tree);
    window.layout()->addWidget(table);
    QCoreApplication::processEvents();
    QCOMPARE(list->visualItemRect(list->item(2)).top(), 2 * kRow);
    QCOMPARE(tree->visualItemRect(tree->topLevelItem(2)).top(), 2 * kRow);
    QCOMPARE(table->rowHeight(2), kRow);
}

void StockStyleTest::rowHeightsOfTheHostStay()
{
    QWidget window;
    auto *table = new QTableWidget(3, 1);
    table->verticalHeader()->setDefaultSectionSize(40);
    show(window, table);
    auto *other = new QTableWidget(3, 1);
    other->setRowHeight(1, 50);
    window.layout()->addWidget(other);
    QCoreApplication::processEvents();
    QCOMPARE(table->rowHeight(0), 40);
    QCOMPARE(other->rowHeight(1), 50);
}

void StockStyleTest::aComboBoxOpensWithRowsOfTheFamily()
{
    QWidget window;
    auto *box = new QComboBox;
    box->addItems({"ab", "cd"});
    show(window, box);
    box->showPopup();
    QCOMPARE(box->view()->visualRect(box->model()->index(1, 0)).height(), kRow);
    box->hidePopup();
}

void StockStyleTest::aDelegateOfTheHostStays()
{
    QWidget window;
    auto *box = new QComboBox;
    auto *delegate = new QStyledItemDelegate(box);
    box->addItems({"ab", "cd"});
    box->setItemDelegate(delegate);
    show(window, box);
    box->showPopup();
    QCOMPARE(box->itemDelegate(), delegate);
    box->hidePopup();
}

void StockStyleTest::aComboBoxCreatesItsListWhenItOpens()
{
    QWidget window;
    auto *box = new QComboBox;
    box->addItems({"ab", "cd"});
    show(window, box);
    QVERIFY(!box->findChild<QAbstractItemView *>());
    box->showPopup();
    QVERIFY(box->findChild<QAbstractItemView *>());
    box->hidePopup();
}

void StockStyleTest::aComboBoxWithAStyleOfItsOwnIsToldAboutIt()
{
    QWidget window;
    window.setStyleSheet("QComboBox { combobox-popup: 1; }");
    QComboBox box;
    EventCounter styles(&box, QEvent::StyleChange);
    box.setParent(&window);
    QVERIFY(styles.count() > 0);
}

void StockStyleTest::weekendsAreNotRed()
{
    QWidget window;
    auto *calendar = new QCalendarWidget;
    QCOMPARE(calendar->weekdayTextFormat(Qt::Sunday).foreground().color(), QColor(Qt::red));
    show(window, calendar);
    QVERIFY(calendar->weekdayTextFormat(Qt::Sunday).foreground().color() != QColor(Qt::red));
}

void StockStyleTest::aWeekendOfTheHostStays()
{
    QWidget window;
    auto *calendar = new QCalendarWidget;
    QTextCharFormat green;
    green.setForeground(Qt::darkGreen);
    calendar->setWeekdayTextFormat(Qt::Sunday, green);
    show(window, calendar);
    QCOMPARE(calendar->weekdayTextFormat(Qt::Sunday), green);
}

void StockStyleTest::aSliderIsAsWideAsItsHandle()
{
    QSlider slider(Qt::Horizontal);
    slider.ensurePolished();
    QCOMPARE(slider.sizeHint().height(), 16);
    slider.setTickPosition(QSlider::TicksBothSides);
    QVERIFY(slider.sizeHint().height() > 16); // room for the ticks
}

void StockStyleTest::aSplitterShowsItsLineMidway_data()
{
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::newRow("from left to right") << Qt::LeftToRight;
    QTest::newRow("from right to left") << Qt::RightToLeft;
}

void StockStyleTest::aSplitterShowsItsLineMidway()
{
    QFETCH(const Qt::LayoutDirection, direction);
    QSplitter splitter;
    splitter.setLayoutDirection(direction);
    auto *first = new QWidget;
    auto *second = new QWidget;
    splitter.addWidget(first);
    splitter.addWidget(second);
    splitter.resize(300, 50);
    splitter.show();
    QVERIFY(QTest::qWaitForWindowExposed(&splitter));
    const bool isReversed = direction == Qt::RightToLeft;
    const QRect left = (isReversed ? second : first)->geometry();
    const QRect right = (isReversed ? first : second)->geometry();
    const QImage row = splitter.grab({left.right() + 1, 25, right.left() - left.right() - 1, 1})
                           .toImage()
                           .convertToFormat(QImage::Format_RGB32);
    const QRgb colour = defaultThemeColor("line").rgb();
    int before = 0;
    while (before < row.width() && row.pixel(before, 0) != colour)
        ++before;
    int after = 0;
    while (after < row.width() && row.pixel(row.width() - 1 - after, 0) != colour)
        ++after;
    QVERIFY(before > 0 && before < row.width());
    QVERIFY2(qAbs(before - after) <= 1 - row.width() % 2, qPrintable(QString::number(before)));
}

void StockStyleTest::aFrameThatTheHostTurnedOffShowsOnlyTheFocus_data()
{
    QTest::addColumn<NewWidget>("make");
    QTest::newRow("QTextEdit") << NewWidget(newWidget<QTextEdit>);
    QTest::newRow("QPlainTextEdit") << NewWidget(newWidget<QPlainTextEdit>);
    QTest::newRow("QTextBrowser") << NewWidget(newWidget<QTextBrowser>);
}

void StockStyleTest::aFrameThatTheHostTurnedOffShowsOnlyTheFocus()
{
    QFETCH(NewWidget, make);
    QWidget window;
    auto *edit = static_cast<QFrame *>(make());
    edit->setFrameShape(QFrame::NoFrame);
    show(window, edit);
    QVERIFY(QTest::qWaitForWindowActive(&window));
    const auto edge = [edit] { return pixelAt(edit, {0, edit->height() / 2}); };
    edit->clearFocus();
    QCOMPARE(edge(), defaultThemeColor("surface"));
    edit->setFocus();
    QCOMPARE(edge(), defaultThemeColor("accent"));
}

void StockStyleTest::aRuleOfTheHostChangesOnlyWhatItSets_data()
{
    QTest::addColumn<NewWidget>("make");
    QTest::addColumn<QString>("place");
    for (const char *place : {"widget", "parent", "application"}) {
        QTest::addRow("QPushButton: %s", place)
            << NewWidget(newButton<QPushButton>) << QString(place);
        QTest::addRow("QCheckBox: %s", place) << NewWidget(newButton<QCheckBox>) << QString(place);
        QTest::addRow("QRadioButton: %s", place)
            << NewWidget(newButton<QRadioButton>) << QString(place);
    }
}

void StockStyleTest::aRuleOfTheHostChangesOnlyWhatItSets()
{
    QFETCH(NewWidget, make);
    QFETCH(QString, place);
    const QString sheet = qApp->styleSheet();
    const auto restore = qScopeGuard([sheet] {
        if (qApp->styleSheet() != sheet)
            qApp->setStyleSheet(sheet);
    });
    QWidget window;
    QWidget *widget = make();
    show(window, widget);
    const QSize hint = widget->sizeHint();
    QVERIFY(!hasRed(widget->grab().toImage()));
    widget->setObjectName("danger");
    const QString rule = "#danger { color: red; }";
    if (place == "widget")
        widget->setStyleSheet(rule);
    else if (place == "parent")
        window.setStyleSheet(rule);
    else
        qApp->setStyleSheet(sheet + rule);
    QVERIFY(hasRed(widget->grab().toImage()));
    QCOMPARE(widget->sizeHint(), hint);
}

VEMO_TEST_MAIN(StockStyleTest)
#include "tst_stockstyle.moc"

// SPDX-License-Identifier: MIT
// Texts in the fonts that a desktop is set to: no control cuts letters off above or below.
#include "core/scaling_p.h"
#include "support/applicationfont.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/browserwindow.h>
#include <vemo/itemdelegate.h>
#include <vemo/stylemanager.h>
#include <vemo/vemobadge.h>
#include <vemo/vemobutton.h>
#include <vemo/vemobuttonpath.h>
#include <vemo/vemocalanderview.h>
#include <vemo/vemocheckbox.h>
#include <vemo/vemocombobox.h>
#include <vemo/vemodateselector.h>
#include <vemo/vemofilterbar.h>
#include <vemo/vemoinputsheet.h>
#include <vemo/vemolabel.h>
#include <vemo/vemolineedit.h>
#include <vemo/vemomenu.h>
#include <vemo/vemomessagebar.h>
#include <vemo/vemomessagesheet.h>
#include <vemo/vemopagingbar.h>
#include <vemo/vemoradiobutton.h>
#include <vemo/vemosidebar.h>
#include <vemo/vemoswitch.h>
#include <vemo/vemotablewidget.h>
#include <vemo/vemotimecombobox.h>
#include <vemo/vemotreewidget.h>

#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include <functional>

namespace {

/// From the tallest capital to the lowest descender.
const QString kTallText(QChar(0xc5) + QString("gjpqy")); // clazy:exclude=non-pod-global-static

/// A control with a text, and how the text of the shown control is replaced.
struct Specimen
{
    std::function<QWidget *()> make;
    std::function<void(QWidget *, const QString &)> setText;
};

template <typename Widget> Specimen textSpecimen()
{
    return {[] { return new Widget; },
        [](QWidget *widget, const QString &text) { static_cast<Widget *>(widget)->setText(text); }};
}

template <typename Box> Specimen boxSpecimen(bool isEditable)
{
    const auto make = [isEditable] {
        auto *box = new Box;
        box->addItem(kTallText);
        box->setEditable(isEditable);
        return box;
    };
    const auto setText = [](QWidget *widget, const QString &text) {
        auto *box = static_cast<Box *>(widget);
        box->setItemText(box->count() - 1, text);
        box->setCurrentIndex(box->count() - 1);
    };
    return {make, setText};
}

Specimen dateSpecimen()
{
    return {[] { return new VemoDateSelector(QString(), nullptr); },
        [](QWidget *widget, const QString &text) {
            static_cast<VemoDateSelector *>(widget)->setItemText(0, text);
        }};
}

Specimen messageSpecimen()
{
    const auto make = [] {
        auto *bar = new VemoMessageBar;
        bar->showMessage(VemoMessageBar::Information, kTallText);
        return bar;
    };
    const auto setText = [](QWidget *bar, const QString &text) {
        for (auto *label : bar->findChildren<QLabel *>()) {
            if (!label->text().isEmpty())
                label->setText(text);
        }
    };
    return {make, setText};
}

Specimen pageSpecimen()
{
    const auto make = [] {
        auto *bar = new VemoSideBar;
        bar->addPage(kTallText);
        return bar;
    };
    return {make, [](QWidget *bar, const QString &text) {
                static_cast<VemoSideBar *>(bar)->setPageText(0, text);
            }};
}

Specimen headingSpecimen()
{
    const auto make = [] {
        auto *bar = new VemoSideBar;
        bar->addGroup(kTallText);
        bar->addPage(QString());
        return bar;
    };
    return {make, [](QWidget *bar, const QString &text) {
                static_cast<VemoSideBar *>(bar)->setGroupText(0, text);
            }};
}

Specimen findSpecimen()
{
    const auto make = [] {
        auto *window = new BrowserWindow;
        window->setFindEnabled(true);
        window->findChild<QLineEdit *>()->parentWidget()->show();
        return window;
    };
    return {make, [](QWidget *window, const QString &text) {
                window->findChild<QLineEdit *>()->setText(text);
            }};
}

Specimen contentsSpecimen()
{
    const auto make = [] {
        auto *window = new BrowserWindow;
        window->setContents({{kTallText, 0, QUrl()}});
        return window;
    };
    return {make, [](QWidget *window, const QString &text) {
                window->findChild<QTreeWidget *>()->topLevelItem(0)->setText(0, text);
            }};
}

Specimen menuSpecimen()
{
    const auto make = [] {
        auto *menu = new VemoMenu;
        menu->setStyleSheet(getStyleSheet("component.menu"));
        menu->addAction(kTallText);
        return menu;
    };
    return {
        make, [](QWidget *menu, const QString &text) { menu->actions().first()->setText(text); }};
}

Specimen cellSpecimen()
{
    const auto make = [] {
        VemoTableColumnsInfo columns;
        columns.addColumn(QString(), 200, false, 0);
        auto *table = new VemoTableWidget(columns, nullptr);
        table->getTable()->setRowCount(1);
        table->getTable()->setItem(0, 0, new QTableWidgetItem);
        return table;
    };
    return {make, [](QWidget *table, const QString &text) {
                static_cast<VemoTableWidget *>(table)->getTable()->item(0, 0)->setText(text);
            }};
}

Specimen headerSpecimen()
{
    const auto make = [] {
        VemoTableColumnsInfo columns;
        columns.addColumn(QString(), 200, false, 0);
        return new VemoTableWidget(columns, nullptr);
    };
    return {make, [](QWidget *table, const QString &text) {
                auto *model = static_cast<VemoTableWidget *>(table)->getHeader()->model();
                model->setHeaderData(0, Qt::Horizontal, text);
            }};
}

Specimen rowSpecimen()
{
    const auto make = [] {
        auto *tree = new VemoTreeWidget(nullptr);
        tree->setStyleSheet(getStyleSheet("component.tree"));
        tree->setItemDelegate(new ItemDelegate(tree));
        tree->setHeaderHidden(true);
        tree->addTopLevelItem(new QTreeWidgetItem);
        return tree;
    };
    return {make, [](QWidget *tree, const QString &text) {
                static_cast<VemoTreeWidget *>(tree)->topLevelItem(0)->setText(0, text);
            }};
}

Specimen pathSpecimen()
{
    const auto make = [] {
        auto *path = new VemoButtonPath;
        path->setMinimumWidth(400);
        path->refresh(kTallText);
        return path;
    };
    return {make, [](QWidget *path, const QString &text) {
                auto *bar = static_cast<VemoButtonPath *>(path);
                static_cast<QPushButton *>(bar->cellWidget(0, 0))->setText(text);
            }};
}

Specimen sheetButtonSpecimen()
{
    const auto make = [] {
        auto *sheet = new VemoMessageSheet(VemoMessageSheet::Warning, nullptr);
        sheet->findChild<QPushButton *>()->setFixedWidth(400);
        return sheet;
    };
    return {make, [](QWidget *sheet, const QString &text) {
                sheet->findChild<QPushButton *>()->setText(text);
            }};
}

Specimen footerSpecimen()
{
    const auto make = [] {
        auto *bar = new VemoPagingBar;
        bar->setFooterText(kTallText);
        return bar;
    };
    return {make, [](QWidget *bar, const QString &text) {
                static_cast<VemoPagingBar *>(bar)->setFooterText(text);
            }};
}

Specimen todaySpecimen()
{
    const auto make = [] {
        auto *calendar = new VemoCalanderView;
        calendar->findChild<VemoButton *>()->setFixedWidth(400);
        return calendar;
    };
    return {make, [](QWidget *calendar, const QString &text) {
                calendar->findChild<VemoButton *>()->setText(text);
            }};
}

Specimen sheetFieldSpecimen()
{
    return {[] { return new VemoInputSheet(nullptr); },
        [](QWidget *sheet, const QString &text) {
            static_cast<VemoInputSheet *>(sheet)->getLineEdit()->setText(text);
        }};
}

/// A window around a control. It keeps the focus: fields would draw their cursor.
class Window : public QWidget
{
public:
    explicit Window(QWidget *shown) : control(shown)
    {
        setFocusPolicy(Qt::StrongFocus);
        (new QVBoxLayout(this))->addWidget(control);
    }

    void show()
    {
        setFocus();
        QWidget::show();
        QVERIFY(QTest::qWaitForWindowExposed(this));
        QCoreApplication::processEvents();
    }

    QWidget *control;
};

/// The bounding rectangle of the pixels that differ.
QRect differenceOf(const QImage &one, const QImage &other)
{
    QRect area;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            if (one.pixel(x, y) != other.pixel(x, y))
                area |= QRect(x, y, 1, 1);
        }
    }
    return area;
}

/// The size of the letters of the tall text, in the pixels of a picture.
QSize inkOf(const QFont &font, qreal ratio)
{
    QImage blank(QSize(400, 200) * ratio, QImage::Format_ARGB32_Premultiplied);
    blank.setDevicePixelRatio(ratio);
    blank.fill(Qt::white);
    QImage drawn = blank;
    QPainter painter(&drawn);
    painter.setFont(font);
    painter.drawText(50, 100, kTallText);
    painter.end();
    return differenceOf(blank, drawn).size();
}

QImage pictureOf(QWidget *widget)
{
    return widget->grab().toImage();
}

void addFontSizes()
{
    QTest::addColumn<int>("points");
    for (const int points : {9, 14, 20, 28})
        QTest::addRow("%d pt", points) << points;
}

} // namespace

Q_DECLARE_METATYPE(Specimen)

class FontSizesTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void noLetterIsCut_data();
    void noLetterIsCut();
    void aLargeFontOfTheControlMakesItHigher();
    void aHeightOfTheHostStays();
    void aControlWithoutAStyleKeepsQtsHeight_data() { addFontSizes(); }
    void aControlWithoutAStyleKeepsQtsHeight();
    void aTextInARowOfFixedHeightIsNotCut_data();
    void aTextInARowOfFixedHeightIsNotCut();
    void aFontOfTheHostStays();
    void aPageNumberIsNotCut_data() { addFontSizes(); }
    void aPageNumberIsNotCut();
};

void FontSizesTest::noLetterIsCut_data()
{
    QTest::addColumn<Specimen>("specimen");
    QTest::addColumn<int>("points");
    const auto add = [](const char *name, const Specimen &specimen) {
        for (const int points : {9, 14, 20, 28})
            QTest::addRow("%s, %d pt", name, points) << specimen << points;
    };
    const auto addFixed = [](const char *name, const Specimen &specimen) {
        for (const int points : {9, 14})
            QTest::addRow("%s, %d pt", name, points) << specimen << points;
    };
    add("VemoButton", textSpecimen<VemoButton>());
    add("VemoComboBox", boxSpecimen<VemoComboBox>(false));
    add("VemoComboBox, editable", boxSpecimen<VemoComboBox>(true));
    add("VemoTimeComboBox", boxSpecimen<VemoTimeComboBox>(false));
    add("VemoLineEdit", textSpecimen<VemoLineEdit>());
    add("VemoCheckBox", textSpecimen<VemoCheckBox>());
    add("VemoRadioButton", textSpecimen<VemoRadioButton>());
    add("VemoSwitch", textSpecimen<VemoSwitch>());
    add("VemoBadge", textSpecimen<VemoBadge>());
    add("VemoLabel", textSpecimen<VemoLabel>());
    add("VemoMessageBar", messageSpecimen());
    add("page of a side bar", pageSpecimen());
    add("heading of a side bar", headingSpecimen());
    add("text to find in a page", findSpecimen());
    add("entry of a help window's contents", contentsSpecimen());
    add("VemoMenu", menuSpecimen());
    add("cell of a table", cellSpecimen());
    // Deliberate: these have a fixed height.
    addFixed("VemoDateSelector", dateSpecimen());
    addFixed("VemoFilterBar", textSpecimen<VemoFilterBar>());
    addFixed("header of a table", headerSpecimen());
    addFixed("row of a tree", rowSpecimen());
    addFixed("name in a path", pathSpecimen());
    addFixed("footer of a paging bar", footerSpecimen());
}

void FontSizesTest::noLetterIsCut()
{
    QFETCH(Specimen, specimen);
    QFETCH(int, points);
    const ApplicationFont font(points);
    Window window(specimen.make());
    QWidget *control = window.control;
    specimen.setText(control, kTallText);
    window.show();
    control->setFixedSize(control->size());
    const QImage withText = pictureOf(control);
    specimen.setText(control, QString(" "));
    const QRect letters = differenceOf(withText, pictureOf(control));
    // The soft edge of a letter may reach beyond the line that its font asks for, and Qt 6 places
    // lines between two pixels.
    const qreal ratio = control->devicePixelRatioF();
    const int ink = inkOf(control->font(), ratio).height();
    QVERIFY(letters.height() <= ink + 1 && letters.height() >= ink - ratio);
}

void FontSizesTest::aLargeFontOfTheControlMakesItHigher()
{
    VemoButton button("Save", VemoButton::DEFAULT);
    VemoComboBox box;
    VemoLineEdit edit;
    const int frame = 2 * scaled(3);
    const int usual = scaled(32);
    for (QWidget *control : QWidgetList {&button, &box, edit.getLineEdit()}) {
        QCOMPARE(control->sizeHint().height(), usual);
        control->setFont(fontOf(28));
        QCOMPARE(control->sizeHint().height(), control->fontMetrics().height() + frame);
        QCOMPARE(control->minimumSizeHint().height(), control->sizeHint().height());
        control->setFont({});
        QCOMPARE(control->sizeHint().height(), usual);
    }
}

void FontSizesTest::aHeightOfTheHostStays()
{
    const ApplicationFont font(20);
    Window window(new VemoButton("Save", VemoButton::DEFAULT));
    window.control->setFixedHeight(24);
    window.show();
    QCOMPARE(window.control->height(), 24);
}

void FontSizesTest::aControlWithoutAStyleKeepsQtsHeight()
{
    QFETCH(int, points);
    const ApplicationFont font(points);
    VemoButton button("Save", -1);
    QPushButton qtsButton("Save");
    qtsButton.setFlat(true);
    VemoComboBox box;
    box.setStyleSheet({});
    QComboBox qtsBox;
    VemoLineEdit edit;
    edit.getLineEdit()->setStyleSheet({});
    QLineEdit qtsEdit;
    QCOMPARE(button.sizeHint(), qtsButton.sizeHint());
    QCOMPARE(box.sizeHint(), qtsBox.sizeHint());
    QCOMPARE(box.minimumSizeHint(), qtsBox.minimumSizeHint());
    QCOMPARE(edit.getLineEdit()->sizeHint(), qtsEdit.sizeHint());
}

void FontSizesTest::aTextInARowOfFixedHeightIsNotCut_data()
{
    QTest::addColumn<Specimen>("specimen");
    QTest::addColumn<int>("height"); // of the row without frame and padding
    addRow("VemoDateSelector", dateSpecimen(), 26);
    addRow("VemoFilterBar", textSpecimen<VemoFilterBar>(), 26);
    addRow("header of a table", headerSpecimen(), 29);
    addRow("button of a sheet", sheetButtonSpecimen(), 26);
    addRow("field of an input sheet", sheetFieldSpecimen(), 22);
    addRow("row of a tree", rowSpecimen(), 28);
    addRow("name in a path", pathSpecimen(), 24);
    addRow("footer of a paging bar", footerSpecimen(), 24);
    addRow("button of today", todaySpecimen(), 22);
}

void FontSizesTest::aTextInARowOfFixedHeightIsNotCut()
{
    QFETCH(Specimen, specimen);
    QFETCH(int, height);
    const ApplicationFont font(28);
    Window window(specimen.make());
    QWidget *control = window.control;
    specimen.setText(control, kTallText);
    window.show();
    const QImage withText = pictureOf(control);
    specimen.setText(control, QString(" "));
    const QRect letters = differenceOf(withText, pictureOf(control));
    const qreal ratio = control->devicePixelRatioF();
    QVERIFY(letters.height() <= scaled(height) * ratio);
    // Smaller as a whole.
    const QSize whole = inkOf(QApplication::font(), ratio);
    QVERIFY(letters.width() < 1.1 * whole.width() * scaled(height) * ratio / whole.height());
    QVERIFY(letters.width() > 0.8 * whole.width() * scaled(height) * ratio / whole.height());
}

void FontSizesTest::aFontOfTheHostStays()
{
    const ApplicationFont font(28);
    VemoFilterBar bar;
    QVERIFY(bar.fontMetrics().height() <= scaled(28));
    bar.setFont(fontOf(24));
    QCOMPARE(bar.font().pointSize(), 24);
    bar.setFont({});
    QVERIFY(bar.fontMetrics().height() <= scaled(28));
}

void FontSizesTest::aPageNumberIsNotCut()
{
    QFETCH(int, points);
    const ApplicationFont font(points);
    auto *bar = new VemoPagingBar;
    Window window(bar);
    window.show();
    auto *button = bar->findChildren<VemoButton *>().at(2);
    QCOMPARE(button->height(), scaled(24));
    button->setText("3");
    const QImage three = pictureOf(button);
    button->setText("1");
    const QRect digits = differenceOf(three, pictureOf(button));
    // The style cuts off what is on the frame and the padding.
    const int room = scaled(24) - 2 * (scaled(1) + scaled(2));
    QVERIFY(digits.height() < room * button->devicePixelRatioF());
}

VEMO_TEST_MAIN(FontSizesTest)
#include "tst_fontsizes.moc"

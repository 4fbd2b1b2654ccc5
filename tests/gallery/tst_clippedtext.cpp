// SPDX-License-Identifier: MIT
#include "support/clippedtext.h"
#include "support/vemotest.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QToolButton>

namespace {

using NewWidget = QWidget *(*)();

const QString kText =
    QStringLiteral("A text of some length"); // clazy:exclude=non-pod-global-static

template <typename Button> QWidget *newButton()
{
    auto *button = new Button;
    button->setText(kText);
    return button;
}

QWidget *newWrappedLabel()
{
    auto *label = new QLabel(kText + ' ' + kText);
    label->setWordWrap(true);
    return label;
}

QWidget *newPlaceholder()
{
    auto *edit = new QLineEdit;
    edit->setPlaceholderText(kText);
    edit->setMinimumWidth(200);
    return edit;
}

QWidget *newBox()
{
    auto *box = new QComboBox;
    box->addItem(kText);
    return box;
}

QWidget *newEditableBox()
{
    auto *box = new QComboBox;
    box->addItem(kText);
    box->setEditable(true);
    return box;
}

QWidget *newHeader()
{
    auto *table = new QTableWidget(1, 1);
    table->setHorizontalHeaderLabels({kText});
    table->horizontalHeader()->setMinimumSectionSize(1);
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    return table;
}

QWidget *newWeekdays()
{
    auto *table = new QTableWidget(1, 1);
    table->setObjectName("qt_calendar_weekdayview");
    table->horizontalHeader()->hide();
    table->horizontalHeader()->setMinimumSectionSize(1);
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    table->setItem(0, 0, new QTableWidgetItem(kText));
    return table;
}

} // namespace

Q_DECLARE_METATYPE(NewWidget)

/// The function that finds clipped texts, with widgets that clip.
class ClippedTextTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void aClippedTextIsFound_data();
    void aClippedTextIsFound();
};

void ClippedTextTest::aClippedTextIsFound_data()
{
    QTest::addColumn<NewWidget>("newWidget");
    QTest::newRow("label") << NewWidget(newButton<QLabel>);
    QTest::newRow("wrapped label") << NewWidget(newWrappedLabel);
    QTest::newRow("button") << NewWidget(newButton<QPushButton>);
    QTest::newRow("tool button") << NewWidget(newButton<QToolButton>);
    QTest::newRow("check box") << NewWidget(newButton<QCheckBox>);
    QTest::newRow("radio button") << NewWidget(newButton<QRadioButton>);
    QTest::newRow("placeholder") << NewWidget(newPlaceholder);
    QTest::newRow("combo box") << NewWidget(newBox);
    QTest::newRow("editable combo box") << NewWidget(newEditableBox);
    QTest::newRow("header section") << NewWidget(newHeader);
    QTest::newRow("weekdays") << NewWidget(newWeekdays);
}

void ClippedTextTest::aClippedTextIsFound()
{
    QFETCH(NewWidget, newWidget);
    QWidget window;
    QWidget *widget = newWidget();
    widget->setParent(&window);
    window.show();
    widget->resize(widget->sizeHint().expandedTo({300, 40}));
    QCoreApplication::processEvents();
    QCOMPARE(clippedTexts(&window).join('\n'), QString());
    widget->setMinimumWidth(0);
    widget->resize(60, widget->height());
    QCoreApplication::processEvents();
    QCOMPARE(clippedTexts(&window).size(), 1);
    QVERIFY(clippedTexts(&window).first().contains(kText));
}

VEMO_TEST_MAIN(ClippedTextTest)
#include "tst_clippedtext.moc"

// SPDX-License-Identifier: MIT
#include "benchmarks/families.h"
#include "benchmarks/fixture.h"
#include "benchmarks/harness.h"
#include "benchmarks/paintedgrid.h"

#include <vemo/defaulttheme.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QSpinBox>
#include <QToolButton>

namespace {

constexpr int kWidgets = 200;
constexpr int kColumns = 10; // one for each class

QWidget *newStockWidget(int number)
{
    switch (number % kColumns) {
    case 0:
        return new QPushButton(QStringLiteral("Button"));
    case 1:
        return new QLineEdit(QStringLiteral("Text"));
    case 2:
        return new QCheckBox(QStringLiteral("Choice"));
    case 3:
        return new QRadioButton(QStringLiteral("Choice"));
    case 4:
        return new QSpinBox;
    case 5: {
        auto *box = new QComboBox;
        box->addItems({QStringLiteral("First"), QStringLiteral("Second")});
        return box;
    }
    case 6:
        return new QToolButton;
    case 7:
        return new QLabel(QStringLiteral("Label"));
    case 8:
        return new QProgressBar;
    default:
        return new QSlider(Qt::Horizontal);
    }
}

std::unique_ptr<QWidget> paintedPage()
{
    int number = 0;
    return bench::paintedGrid(
        {1600, 1100}, kWidgets, kColumns, [&number] { return newStockWidget(number++); });
}

void undress(const QString &sheet)
{
    qApp->setStyleSheet(sheet);
    QApplication::setStyle(QStringLiteral("fusion"));
    QApplication::setPalette(defaultThemePalette());
}

void stockPage(bench::Case &c)
{
    bench::useTheme();
    // The ratio to plain Fusion is only reported: any application style sheet doubles the time.
    c.withoutGoal();
    c.goalOfLimit(1.4);
    c.items(kWidgets);
    c.resultsDiffer();
    c.reference(QStringLiteral("plain Fusion"), paintedPage, [] { undress({}); });
    c.limit(QStringLiteral("an empty application sheet"), paintedPage,
        [] { undress(QStringLiteral("NoClass { }")); });
    c.ours(paintedPage, [] { applyDefaultThemeStyle(*qApp); });
}

/// The same with the shortest sheet that applies to each of the classes: what Qt takes for it is
/// out of our hands.
void oneRulePage(bench::Case &c)
{
    bench::useTheme();
    c.withoutGoal();
    c.items(kWidgets);
    c.resultsDiffer();
    c.reference(QStringLiteral("plain Fusion"), paintedPage, [] { undress({}); });
    c.limit(QStringLiteral("an empty application sheet"), paintedPage,
        [] { undress(QStringLiteral("NoClass { }")); });
    c.ours(paintedPage, [] { undress(QStringLiteral("QWidget { border: 1px solid gray; }")); });
}

} // namespace

void bench::stockCases(Cases &cases)
{
    cases.add(QStringLiteral("stock.page"), stockPage);
    cases.add(QStringLiteral("stock.page/one rule"), oneRulePage);
}

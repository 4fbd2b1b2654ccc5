// SPDX-License-Identifier: MIT
#include "benchmarks/families.h"
#include "benchmarks/fixture.h"
#include "benchmarks/harness.h"
#include "benchmarks/paintedgrid.h"

#include <vemo/defaulttheme.h>
#include <vemo/stylemanager.h>
#include <vemo/vemobutton.h>
#include <vemo/vemocheckbox.h>
#include <vemo/vemocombobox.h>
#include <vemo/vemoiconbutton.h>
#include <vemo/vemolineedit.h>
#include <vemo/vemoradiobutton.h>

#include <QCoreApplication>
#include <QDir>
#include <QVector>

#include <memory>

namespace {

constexpr int kWidgets = 230;
constexpr int kColumns = 10;
constexpr int kKinds = 6;

QWidget *newWidget(int number)
{
    switch (number % kKinds) {
    case 0:
        return new VemoButton(QStringLiteral("Button"), VemoButton::CANCEL);
    case 1:
        return new VemoIconButton(QStringLiteral("bt_add"));
    case 2:
        return new VemoLineEdit;
    case 3:
        return new VemoCheckBox(QStringLiteral("Choice"));
    case 4:
        return new VemoRadioButton(QStringLiteral("Choice"));
    default:
        return new VemoComboBox;
    }
}

std::unique_ptr<QWidget> paintedPage()
{
    int number = 0;
    return bench::paintedGrid(
        {1800, 1300}, kWidgets, kColumns, [&number] { return newWidget(number++); });
}

std::vector<QString> styleFiles(bool isDark)
{
    const QDir folder(
        isDark ? QStringLiteral(":/vemo/theme-dark/style") : QStringLiteral(":/vemo/theme/style"));
    std::vector<QString> files;
    for (const QString &file : folder.entryList({QStringLiteral("*.qss")}))
        files.push_back(folder.filePath(file));
    return files;
}

/// A page, and the sheets of its widgets in both looks.
class Stage
{
public:
    Stage() : m_page(paintedPage())
    {
        const auto widgets = m_page->findChildren<QWidget *>();
        for (QWidget *widget : widgets) {
            if (!widget->styleSheet().isEmpty())
                m_widgets.append({widget, {widget->styleSheet(), {}}});
        }
        StyleManager::getInstance().reload(styleFiles(true));
        for (Styled &styled : m_widgets)
            styled.sheets[1] = styled.widget->styleSheet();
        StyleManager::getInstance().reload(styleFiles(false));
    }

    /// To the dark look and back, as the next function.
    int reload()
    {
        for (const bool isDark : {true, false})
            StyleManager::getInstance().reload(styleFiles(isDark));
        return m_widgets.size();
    }

    int setEachSheet()
    {
        for (const bool isDark : {true, false}) {
            for (const Styled &styled : qAsConst(m_widgets))
                styled.widget->setStyleSheet(styled.sheets[isDark]);
        }
        return m_widgets.size();
    }

private:
    struct Styled
    {
        QWidget *widget;
        QString sheets[2];
    };

    std::unique_ptr<QWidget> m_page;
    QVector<Styled> m_widgets;
};

/// Another theme in a page of widgets, without painting it.
void reload(bench::Case &c)
{
    bench::useTheme();
    c.withoutGoal();
    c.items(2 * kWidgets);
    const auto stage = std::make_shared<Stage>();
    c.reference(QStringLiteral("setStyleSheet on each"), [stage] { return stage->setEachSheet(); });
    c.ours([stage] { return stage->reload(); });
}

/// The other look with palette and pictures, painted; against a page that is built again.
void changeLook(bench::Case &c)
{
    bench::useTheme();
    c.withoutGoal();
    c.items(kWidgets);
    c.once();
    c.resultsDiffer();
    c.reference(QStringLiteral("the page built again"), paintedPage);
    const std::shared_ptr<QWidget> page = paintedPage();
    c.ours([page] {
        setDefaultThemeMode(
            isDefaultThemeDark() ? DefaultThemeMode::Light : DefaultThemeMode::Dark);
        QCoreApplication::processEvents();
        return isDefaultThemeDark() ? 1 : 0;
    });
}

} // namespace

void bench::themeCases(Cases &cases)
{
    cases.add(QStringLiteral("theme.reload/230 widgets"), reload);
    cases.add(QStringLiteral("theme.mode/230 widgets"), changeLook);
}

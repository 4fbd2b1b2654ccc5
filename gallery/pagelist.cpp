// SPDX-License-Identifier: MIT
#include "gallery/pagelist.h"

#include "gallery/pages/pages.h"

#include <algorithm>

const std::vector<PageEntry> &pages()
{
    static const std::vector<PageEntry> entries {
        {"Resources",
            "ImageManager FileTypeMap VemoLocale DPIinfo UIPathManager picture icon language "
            "dpi folder",
            buildResourcesPage},
        {"Buttons", "VemoButton VemoIconButton push tool role icon apply cancel red paging",
            buildButtonsPage},
        {"Labels",
            "VemoLabel VemoBadge ClickableLabel LinkLabel VemoSpinner tooltip text hyperlink wrap "
            "count dot busy progress",
            buildLabelsPage},
        {"Fields", "VemoLineEdit text input error validator caption unit password",
            buildFieldsPage},
        {"Choices",
            "VemoCheckBox VemoRadioButton VemoSwitch VemoComboBox VemoMenu check radio toggle "
            "combo menu shortcut",
            buildChoicesPage},
        {"Foot bar", "VemoFootbar MouseButtonFilter MouseReleaseFilter footer buttons mouse",
            buildFootBarPage},
        {"Focus order",
            "accessibleList AccessibleFilter adjustFocusPolicy makeWindowsAccessible keyboard tab "
            "focus",
            buildFocusPage},
        {"Messages",
            "VemoMessageSheet VemoMessageBar MsgBoxCustomBtnText VemoCountdownMessageBox "
            "showConfirmMsg showInfoMsg showWarningMsg showUpgradingMsg dialog modal question "
            "warning busy countdown",
            buildMessagesPage},
        {"Sheets",
            "VemoSheet VemoInputSheet VemoContentSheet VemoProgressSheet VemoMask prompt dialog "
            "modal progress form",
            buildSheetsPage},
        {"Paging", "VemoPagingBar VemoPagingModel PagingFooterInfo page list footer refresh",
            buildPagingPage},
        {"Table",
            "VemoTableWidget VemoTableView VemoTableColumnsInfo ResizeSignalTableWidget header "
            "columns rows sort",
            buildTablesPage},
        {"Tree",
            "VemoTreeWidget FileSystemTreeWidgetItem ItemDelegate folder rename removed read-only",
            buildTreePage},
        {"Path and filter",
            "VemoButtonPath VemoFilterBar VemoSideBar breadcrumb folder search menu settings pages",
            buildBarsPage},
        {"Date and time",
            "VemoDateSelector VemoDateRangeSelector VemoCalanderView VemoTimeComboBox calendar "
            "month day today clock",
            buildDateAndTimePage},
        {"Qt buttons and fields",
            "QPushButton QToolButton QLineEdit QSpinBox QDoubleSpinBox QDateEdit QTimeEdit "
            "QDateTimeEdit QComboBox QFontComboBox QTextEdit QPlainTextEdit QTextBrowser QMenu "
            "stock",
            buildStockControlsPage},
        {"Qt choices and ranges",
            "QCheckBox QRadioButton QGroupBox QProgressBar QSlider QDial QScrollBar stock",
            buildStockChoicesPage},
        {"Qt tabs and views",
            "QTabWidget QTabBar QToolBox QListView QListWidget QTreeView QTreeWidget QTableView "
            "QTableWidget QHeaderView QCalendarWidget stock",
            buildStockViewsPage},
        {"Qt windows and dialogs",
            "QMainWindow QMenuBar QMenu QToolBar QStatusBar QDockWidget QSplitter QToolTip "
            "QMessageBox QInputDialog QProgressDialog QFileDialog QWizard stock",
            buildStockWindowsPage},
        {"Help",
            "HelpWindow BrowserWindow HelpContext ContentsEntry online offline html history "
            "contents find print zoom",
            buildHelpPage},
    };
    return entries;
}

QStringList pageTitles()
{
    QStringList titles;
    for (const PageEntry &page : pages())
        titles << page.title;
    return titles;
}

int pageIndex(const QString &title)
{
    const QStringList titles = pageTitles();
    const auto isTitle = [&](const QString &other) {
        return other.compare(title, Qt::CaseInsensitive) == 0;
    };
    const auto found = std::find_if(titles.begin(), titles.end(), isTitle);
    return found == titles.end() ? -1 : static_cast<int>(found - titles.begin());
}

bool matches(const PageEntry &page, const QString &query)
{
    const QString text = QString(page.title) + ' ' + page.keywords;
    const QStringList words = query.split(' ', Qt::SkipEmptyParts);
    return std::all_of(words.begin(), words.end(),
        [&](const QString &word) { return text.contains(word, Qt::CaseInsensitive); });
}

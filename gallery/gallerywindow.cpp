// SPDX-License-Identifier: MIT
#include "gallery/gallerywindow.h"

#include "gallery/look.h"
#include "gallery/page.h"

#include <vemo/accessiblefilter.h>
#include <vemo/componentstrings.h>
#include <vemo/dpiinfo.h>
#include <vemo/vemocombobox.h>

#include <QAction>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QStackedWidget>
#include <QTimer>

namespace {

// In design pixels.
constexpr QSize kWindowSize(1168, 760);
constexpr int kSidebarWidth = 232; // with its line
constexpr int kLineWidth = 1;
constexpr int kSidebarMargin = 16;
constexpr int kSidebarGap = 12;

template <typename Widget> Widget *named(const char *name, Widget *widget)
{
    widget->setObjectName(name);
    return widget;
}

} // namespace

GalleryWindow::GalleryWindow(const Options &options)
    : m_options(options), m_pages(pages()), m_search(named("search", new QLineEdit)),
      m_list(named("pageList", new QListWidget)),
      m_nothingFound(named("nothingFound", new QLabel("No page matches."))),
      m_stack(new QStackedWidget), m_theme(named("themeSwitch", new VemoComboBox)),
      m_language(named("languageSwitch", new VemoComboBox))
{
    makeWindowsAccessible();
    setObjectName("galleryWindow");
    showTitle();
    setWindowIcon(getGlobalImage("app_img"));
    setStyleSheet(galleryStyle());
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(newSidebar());
    // Not the border of the side bar, which would also be at its right from right to left.
    auto *line = named("sidebarLine", new QFrame);
    line->setFixedWidth(DPIinfo::scaled(kLineWidth));
    layout->addWidget(line);
    layout->addWidget(m_stack, 1);
    addPages();
    connectParts();
    resize(DPIinfo::scaled(kWindowSize.width()), DPIinfo::scaled(kWindowSize.height()));
    showPage(m_options.page.isEmpty() ? 0 : pageIndex(m_options.page));
    m_list->setFocus();
}

void GalleryWindow::showPage(int index)
{
    m_list->setCurrentRow(index);
}

void GalleryWindow::growToPage()
{
    const auto *area = qobject_cast<QScrollArea *>(m_stack->currentWidget());
    if (!area)
        return;
    // Twice, because a wider page breaks its lines differently.
    for (int pass = 0; pass < 2; ++pass) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
        area->widget()->layout()->activate();
        resize(width() + area->horizontalScrollBar()->maximum(),
            height() + area->verticalScrollBar()->maximum());
    }
}

bool GalleryWindow::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_search || event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent *>(event)->key();
    if (key == Qt::Key_Escape) {
        m_search->clear();
        return true;
    }
    if (key != Qt::Key_Up && key != Qt::Key_Down)
        return QWidget::eventFilter(watched, event);
    // The arrow keys move in the list while the focus stays in the field.
    QCoreApplication::sendEvent(m_list, event);
    return true;
}

void GalleryWindow::slotPageChosen(int row)
{
    if (row >= 0)
        m_stack->setCurrentWidget(builtPage(row));
}

void GalleryWindow::slotFilter(const QString &query)
{
    int firstFound = -1;
    for (int row = 0; row < m_list->count(); ++row) {
        const bool isFound = matches(m_pages[row], query);
        m_list->item(row)->setHidden(!isFound);
        if (isFound && firstFound < 0)
            firstFound = row;
    }
    const QListWidgetItem *current = m_list->currentItem();
    if (firstFound >= 0 && (!current || current->isHidden()))
        m_list->setCurrentRow(firstFound);
    m_nothingFound->setVisible(firstFound < 0);
    m_clear->setVisible(!query.isEmpty());
}

void GalleryWindow::slotThemeChosen(int index)
{
    showTheme(DefaultThemeMode(index));
    m_theme->setCurrentIndex(int(defaultThemeMode()));
}

void GalleryWindow::slotLanguageChosen(int index)
{
    m_options.language = m_language->itemData(index).toString();
    showLanguage(m_options.language);
    setLocale(QLocale());
    showTitle();
    buildPagesAgain();
    // Later: the title above the list may have another height.
    QTimer::singleShot(0, m_list, [list = m_list] { list->scrollToItem(list->currentItem()); });
}

void GalleryWindow::slotSearch()
{
    m_search->setFocus(Qt::ShortcutFocusReason);
    m_search->selectAll();
}

QWidget *GalleryWindow::newSidebar()
{
    auto *sidebar = named("sidebar", new QFrame);
    sidebar->setFixedWidth(DPIinfo::scaled(kSidebarWidth) - DPIinfo::scaled(kLineWidth));
    auto *layout = new QVBoxLayout(sidebar);
    const int margin = DPIinfo::scaled(kSidebarMargin);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(DPIinfo::scaled(kSidebarGap));
    auto *title = named("sidebarTitle", new QLabel(windowTitle()));
    title->setIndent(0);
    title->setWordWrap(true);
    layout->addWidget(title);
    layout->addWidget(m_search);
    layout->addWidget(m_nothingFound);
    layout->addWidget(m_list, 1);
    fillSwitches();
    layout->addWidget(m_theme);
    layout->addWidget(m_language);

    m_search->addAction(getGlobalIcon("bt_search"), QLineEdit::LeadingPosition);
    m_search->actions().constFirst()->setText("Search");
    m_search->setPlaceholderText("Search (Ctrl+F)");
    m_search->setAccessibleName("Search pages");
    // Not the field's own clear button, which leaks its fading animation if the window closes
    // first.
    m_clear = m_search->addAction(getGlobalIcon("bt_close"), QLineEdit::TrailingPosition);
    m_clear->setText("Clear");
    m_clear->setVisible(false);
    m_search->installEventFilter(this);
    m_list->setAccessibleName("Pages");
    m_list->setFrameShape(QFrame::NoFrame);
    m_nothingFound->hide();
    return sidebar;
}

void GalleryWindow::fillSwitches()
{
    // In the order of DefaultThemeMode.
    m_theme->addItems({"Light", "Dark", "As the desktop"});
    m_theme->setCurrentIndex(int(defaultThemeMode()));
    m_theme->setAccessibleName("Look");
    const QVector<DefaultThemeLanguage> languages = defaultThemeLanguages();
    for (const DefaultThemeLanguage &language : languages) {
        m_language->addItem(language.nativeName, language.code);
        if (language.code == m_options.language)
            m_language->setCurrentIndex(m_language->count() - 1);
    }
    m_language->setAccessibleName("Language");
}

void GalleryWindow::showTitle()
{
    setWindowTitle(ComponentStrings::getInstance().getString("gallery.title"));
    if (auto *title = findChild<QLabel *>("sidebarTitle"))
        title->setText(windowTitle());
}

/// The texts of the specimens are the gallery's own.
void GalleryWindow::buildPagesAgain()
{
    for (int index = 0; index < m_stack->count(); ++index)
        delete static_cast<QScrollArea *>(m_stack->widget(index))->takeWidget();
    slotPageChosen(m_list->currentRow());
}

void GalleryWindow::addPages()
{
    for (const PageEntry &page : m_pages) {
        m_list->addItem(page.title);
        m_stack->addWidget(named("pageArea", new QScrollArea));
    }
}

void GalleryWindow::connectParts()
{
    new QShortcut(QKeySequence::Find, this, SLOT(slotSearch()));
    connect(m_search, SIGNAL(textChanged(QString)), this, SLOT(slotFilter(QString)));
    connect(m_clear, SIGNAL(triggered()), m_search, SLOT(clear()));
    connect(m_list, SIGNAL(currentRowChanged(int)), this, SLOT(slotPageChosen(int)));
    connect(m_theme, SIGNAL(activated(int)), this, SLOT(slotThemeChosen(int)));
    connect(m_language, SIGNAL(activated(int)), this, SLOT(slotLanguageChosen(int)));
}

QScrollArea *GalleryWindow::builtPage(int index)
{
    auto *area = static_cast<QScrollArea *>(m_stack->widget(index));
    if (area->widget())
        return area;
    auto *page = new Page(m_pages[index].title, m_options);
    m_pages[index].build(*page);
    area->setWidgetResizable(true);
    area->setAccessibleName(m_pages[index].title);
    area->setWidget(page);
    return area;
}

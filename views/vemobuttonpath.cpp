// SPDX-License-Identifier: MIT
#include <vemo/vemobuttonpath.h>

#include "core/scaling_p.h"
#include "views/pathbuttons_p.h"
#include "views/pathedit_p.h"

#include <vemo/imagemanager.h>
#include <vemo/stylemanager.h>

#include <QAccessibleWidget>
#include <QEvent>
#include <QHeaderView>
#include <QMenu>
#include <QPainter>
#include <QScrollBar>
#include <QSignalMapper>
#include <QToolButton>

#include <utility>

namespace {

// In design pixels.
constexpr int kBarHeight = 28;
constexpr int kFolderButtonSize = 26;

constexpr int kFolderIconSize = 20; // deliberate: not scaled

bool isArrow(int column)
{
    return column % 2 != 0;
}

/// For assistive tools the path is a row of buttons and separators. Qt's table has nameless cells
/// without them.
class AccessiblePath : public QAccessibleWidget
{
public:
    explicit AccessiblePath(QWidget *path) : QAccessibleWidget(path, QAccessible::ToolBar) { }

    /// The row itself stands in for the cells that events of QTableView name.
    QAccessibleInterface *child(int index) const override
    {
        QAccessibleInterface *part = QAccessibleWidget::child(index);
        return part ? part : QAccessible::queryAccessibleInterface(object());
    }
};

QAccessibleInterface *newAccessiblePath(const QString &className, QObject *object)
{
    if (className == QLatin1String("VemoButtonPath"))
        return new AccessiblePath(qobject_cast<VemoButtonPath *>(object));
    auto *arrow =
        className == QLatin1String("QPushButton") ? dynamic_cast<PathArrow *>(object) : nullptr;
    return arrow && !arrow->hasMenu() ? new QAccessibleWidget(arrow, QAccessible::Separator)
                                      : nullptr;
}

void announceAsRow(QWidget *path)
{
    QAccessible::installFactory(newAccessiblePath); // a no-op if already installed
    // While a screen reader runs, QTableWidget's constructor has already created a table's
    // interface.
    if (QAccessible::isActive())
        QAccessible::deleteAccessibleInterface(
            QAccessible::uniqueId(QAccessible::queryAccessibleInterface(path)));
}

/// The folder, on screens with a pixel ratio also centred in a picture as large as the icon: Qt
/// would enlarge a smaller one.
QIcon folderIcon()
{
    const QPixmap folder = getGlobalImage("folder");
    QIcon icon(folder);
    const qreal ratio = folder.devicePixelRatio();
    const QRectF area(0, 0, kFolderIconSize, kFolderIconSize);
    QRectF place(QPointF(), QSizeF(folder.size()) / ratio);
    if (ratio == 1 || folder.isNull() || !area.contains(place))
        return icon;
    QPixmap centred(area.size().toSize() * ratio);
    centred.setDevicePixelRatio(ratio);
    centred.fill(Qt::transparent);
    place.moveCenter(area.center());
    QPainter(&centred).drawPixmap(place.topLeft(), folder);
    icon.addPixmap(centred);
    return icon;
}

} // namespace

VemoButtonPath::VemoButtonPath(QWidget *parent)
    : QTableWidget(parent), m_folder_menu(new QMenu), m_change_folder_button(new QToolButton),
      m_menu_mapper(new QSignalMapper(this)), m_name_mapper(new QSignalMapper(this))
{
    announceAsRow(this);
    insertRow(0);
    horizontalHeader()->hide();
    verticalHeader()->hide();
    setShowGrid(false);
    setSelectionMode(QAbstractItemView::NoSelection);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setFocusPolicy(Qt::NoFocus);
    setFixedHeight(scaled(kBarHeight));
    // The style's default minimum is wider than an arrow.
    horizontalHeader()->setMinimumSectionSize(0);
    // The cells only hold buttons: there is no editor, and Tab moves from name to name.
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTabKeyNavigation(false);

    setupFolderButton();
    connect(m_menu_mapper, SIGNAL(mappedInt(int)), this, SLOT(slotPathBarClicked(int)));
    connect(m_name_mapper, SIGNAL(mappedInt(int)), this, SLOT(slotPathBarClicked(int)));
    setStyleSheet(getStyleSheet("component.button_path"));
}

VemoButtonPath::~VemoButtonPath() = default;

void VemoButtonPath::refresh(QString path) // NOLINT: by value, as the slot of its signal is
{
    const bool hadFocus = !isEditing() && isAncestorOf(window()->focusWidget());
    m_view_width = horizontalScrollBar()->pageStep();
    m_change_folder_button->hide();
    m_folder_menu->clear();
    m_sibling_column = -1;
    m_drop_column = -1;
    if (m_sibling_menu)
        m_sibling_menu->hide();
    rebuildRow(path.split(QLatin1Char('/'), Qt::SkipEmptyParts));
    // The button that had the focus has been deleted; otherwise no widget would have the focus.
    if (hadFocus && !m_buttons.isEmpty())
        m_buttons.last()->setFocus();
    else if (hadFocus)
        focusNextChild();
}

QString VemoButtonPath::getPath(int index) const
{
    return pathUpTo(qMin(index, m_buttons.size() - 1));
}

QString VemoButtonPath::path() const
{
    return pathUpTo(m_buttons.size() - 1);
}

void VemoButtonPath::setPath(const QString &path)
{
    refresh(path);
}

void VemoButtonPath::slotUpdatePath(QString path)
{
    refresh(std::move(path));
}

void VemoButtonPath::slotPathBarClicked(int btn_id)
{
    Q_EMIT sigUpdatePath(getPath(btn_id));
}

void VemoButtonPath::scrollTo(const QModelIndex &index, ScrollHint hint)
{
    QTableWidget::scrollTo(index, hint);
    if (m_change_folder_button->isHidden())
        return;
    // The folder button covers the start of what the view considers visible.
    const int covered = coveredWidth() - distanceFromStart(index.column());
    if (covered > 0)
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() - covered);
}

void VemoButtonPath::resizeEvent(QResizeEvent *event)
{
    QTableWidget::resizeEvent(event);
    placeFolderButton();
    if (m_edit)
        m_edit->setGeometry(rect());
    if (m_view_width == horizontalScrollBar()->pageStep())
        return;
    m_view_width = horizontalScrollBar()->pageStep();
    m_change_folder_button->hide();
    m_folder_menu->clear();
    updateColumnSize();
}

void VemoButtonPath::changeEvent(QEvent *event)
{
    QTableWidget::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange)
        placeFolderButton();
}

void VemoButtonPath::customEvent(QEvent *event)
{
    if (event->type() == StyleManager::reloadEvent()) {
        m_change_folder_button->setIcon(folderIcon());
        const QPixmap arrow = m_buttons.size() > 1 ? getGlobalImage("bt_next") : QPixmap();
        for (int column = 1; column < m_buttons.size(); column += 2)
            static_cast<PathArrow *>(m_buttons.at(column))->setPicture(arrow);
    }
    QTableWidget::customEvent(event);
}

void VemoButtonPath::scrollContentsBy(int dx, int dy)
{
    QTableWidget::scrollContentsBy(dx, dy);
    // QTableView scrolls by moving pixels, but names that are cut off must be redrawn.
    viewport()->update();
}

void VemoButtonPath::updateGeometries()
{
    if (m_is_rebuilding)
        return;
    const int value = horizontalScrollBar()->value();
    QTableWidget::updateGeometries();
    if (m_change_folder_button->isHidden())
        return;
    // QTableView does not scroll below 0, so that the first part would remain under the folder
    // button.
    horizontalScrollBar()->setMinimum(-coveredWidth());
    if (value < 0)
        horizontalScrollBar()->setValue(value);
}

void VemoButtonPath::setupFolderButton()
{
    m_folder_menu->setStyleSheet(getStyleSheet("component.menu"));
    m_change_folder_button->setMenu(m_folder_menu.get());
    m_change_folder_button->setIcon(folderIcon());
    m_change_folder_button->setIconSize(QSize(kFolderIconSize, kFolderIconSize));
    m_change_folder_button->setPopupMode(QToolButton::InstantPopup);
    m_change_folder_button->hide();
    m_change_folder_button->setParent(this);
    m_change_folder_button->setStyleSheet(getStyleSheet("component.button_path_change_folder_btn"));
    m_change_folder_button->setFixedSize(scaled(kFolderButtonSize), scaled(kFolderButtonSize));
    placeFolderButton();
}

/// At the start of the row, because a row that is too wide shows its end.
void VemoButtonPath::placeFolderButton()
{
    const int atRight = width() - scaled(1) - m_change_folder_button->width();
    m_change_folder_button->move(isRightToLeft() ? atRight : scaled(1), scaled(1));
}

QString VemoButtonPath::pathUpTo(int column) const
{
    QString path;
    for (int each = 0; each <= column; ++each)
        path += isArrow(each) ? QStringLiteral("/")
                              : static_cast<const PathName *>(m_buttons.at(each))->part();
    return path;
}

/// The width of the part of the row that the folder button covers.
int VemoButtonPath::coveredWidth() const
{
    const int left = m_change_folder_button->x() - viewport()->x();
    return isRightToLeft() ? viewport()->width() - left : left + m_change_folder_button->width();
}

/// The distance of a column from the start of the visible row.
int VemoButtonPath::distanceFromStart(int column) const
{
    const int left = columnViewportPosition(column);
    return isRightToLeft() ? viewport()->width() - left - columnWidth(column) : left;
}

void VemoButtonPath::clearRow()
{
    while (!m_buttons.isEmpty())
        delete m_buttons.takeFirst();
    clear();
    setColumnCount(0);
}

/// Lays the row out once. QTableView would do it at each change of the columns, and again with
/// timers, after which everything is painted a second time.
void VemoButtonPath::rebuildRow(const QStringList &parts)
{
    const bool wasConnected = disconnect(horizontalHeader(),
        SIGNAL(sectionResized(int,int,int)), this, SLOT(columnResized(int,int,int)));
    m_is_rebuilding = true;
    clearRow();
    addParts(parts);
    m_is_rebuilding = false;
    updateColumnSize();
    if (m_change_folder_button->isHidden())
        doItemsLayout();
    if (wasConnected)
        connect(horizontalHeader(),
            SIGNAL(sectionResized(int,int,int)), this, SLOT(columnResized(int,int,int)));
}

void VemoButtonPath::addButton(QPushButton *button)
{
    setCellWidget(0, m_buttons.size(), button);
    m_buttons.append(button);
}

void VemoButtonPath::addArrow(const QString &style, const QPixmap &picture)
{
    const int column = m_buttons.size();
    if (!m_are_sibling_menus_enabled) {
        addButton(new PathArrow(viewport(), m_change_folder_button, style, picture));
        return;
    }
    const QString folder = pathUpTo(column - 1) + QLatin1Char('/');
    auto *arrow = new PathArrow(viewport(), m_change_folder_button, style, picture, folder);
    connect(arrow, &PathArrow::clicked, this, [this, column] { requestSiblings(column + 1); });
    addButton(arrow);
}

void VemoButtonPath::addName(const QString &part, const QString &style)
{
    const int column = m_buttons.size();
    auto *name = new PathName(viewport(), m_change_folder_button, style);
    name->setPart(part);
    name->setToolTipEnabled(m_are_tool_tips_enabled);
    connect(name, SIGNAL(clicked(bool)), m_name_mapper, SLOT(map()));
    m_name_mapper->setMapping(name, column);
    setColumnWidth(column, name->width());
    // New widgets are added to the end of the window's Tab order, so move them to the bar's
    // position.
    QWidget *before = m_change_folder_button;
    if (column >= 2)
        before = m_buttons.at(column - 2);
    setTabOrder(before, name);
    addButton(name);
}

void VemoButtonPath::addParts(const QStringList &parts)
{
    if (parts.isEmpty())
        return;
    const QString arrowStyle =
        getStyleSheet(m_are_sibling_menus_enabled ? "component.button_path_menu_arrow"
                                                  : "component.button_path_arrow");
    const QString nameStyle = getStyleSheet("component.button_path_name_button");
    const QPixmap arrow = getGlobalImage("bt_next");

    // All columns at once: each one added later would move all columns before it.
    setColumnCount(2 * parts.size() - 1);
    for (const QString &part : parts) {
        if (!m_buttons.isEmpty())
            addArrow(arrowStyle, arrow);
        addName(part, nameStyle);
    }
}

void VemoButtonPath::updateColumnSize()
{
    int total = 0;
    for (int column = 0; column < columnCount(); ++column) {
        if (isArrow(column))
            setColumnWidth(column, m_buttons.at(column)->minimumWidth());
        total += columnWidth(column);
    }
    if (total > m_view_width)
        setChangeFolderBtn(total);
}

/// width is that of the row in screen pixels, which exceeds the bar's.
void VemoButtonPath::setChangeFolderBtn(int width)
{
    m_change_folder_button->show();
    const int overflow = width - m_view_width;
    int left = 0;
    for (int column = 0; column < columnCount(); ++column) {
        const int right = left + columnWidth(column);
        if (!isArrow(column) && !(overflow <= left && overflow >= right)) {
            addFolder(column);
            // The first part that is partly visible is the last one in the menu.
            if (overflow < right) {
                m_change_folder_button->setAccessibleName(getPath(column));
                break;
            }
        }
        left = right;
    }
    // Otherwise the scroll bar's range would be updated later.
    doItemsLayout();
    horizontalScrollBar()->setValue(horizontalScrollBar()->maximum());
    // QWidget::scroll() does not move the children of a hidden widget.
    if (!viewport()->isVisible())
        updateEditorGeometries();
}

void VemoButtonPath::addFolder(int column)
{
    auto *folder = new QAction(m_buttons.at(column)->text(), m_folder_menu.get());
    m_folder_menu->addAction(folder);
    connect(folder, SIGNAL(triggered(bool)), m_menu_mapper, SLOT(map()));
    m_menu_mapper->setMapping(folder, column);
}

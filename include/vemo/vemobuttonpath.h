// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QList>
#include <QTableWidget>

#include <memory>

class PathEdit;
class QMenu;
class QMimeData;
class QPushButton;
class QShortcut;
class QSignalMapper;
class QToolButton;

/// A folder path as a row of buttons, one for each part.
///
/// If the row is wider than the bar, the bar shows its right end, and a folder button on the left
/// has a menu with the hidden parts; a name that is cut off shows the rest after three dots. In
/// right-to-left layouts all of this is mirrored. Left, Right, Home and End move the focus from
/// name to name. The bar does not change its path by itself: it
/// emits a signal, and the host calls refresh(). Requires: pictures, style files. It belongs to its
/// parent.
///
///     auto *path = new VemoButtonPath(this);
///     connect(path, &VemoButtonPath::sigUpdatePath, this, &MainWindow::openFolder);
///     path->refresh("home/projects/2026");
///
/// \image html path-and-filter-a-path-and-its-width.png
/// \image html path-and-filter-menus-tool-tips-and-a-path-to-type.png
class VEMO_EXPORT VemoButtonPath : public QTableWidget
{
    Q_OBJECT
    /// The shown path, without a leading slash.
    Q_PROPERTY(QString path READ path WRITE setPath)
    /// Whether a name that is cut off has a tool tip.
    Q_PROPERTY(bool toolTipsEnabled READ areToolTipsEnabled WRITE setToolTipsEnabled)
    /// Whether the arrows open menus.
    Q_PROPERTY(bool siblingMenusEnabled READ areSiblingMenusEnabled WRITE setSiblingMenusEnabled)
    /// Whether the user can type a path.
    Q_PROPERTY(bool editable READ isEditable WRITE setEditable)

public:
    /// Creates an empty bar, 28 design pixels high. It uses the pictures "bt_next" and "folder" and
    /// the sections "component.button_path", the same with "_arrow", "_name_button" and
    /// "_change_folder_btn", and "component.menu"; without them it looks plain, with warnings.
    explicit VemoButtonPath(QWidget *parent = nullptr);
    ~VemoButtonPath() override;

    /// Shows path, whose parts are separated by "/"; empty parts are ignored. May be called from a
    /// slot of sigUpdatePath(). If one of the buttons has the keyboard focus, the last name gets
    /// it.
    void refresh(QString path);

    /// The path up to a column, without a leading slash. Names are in even columns, the arrows
    /// between them in odd ones; for an arrow's column the path ends with a slash. The whole path
    /// for columns beyond the last one; empty for negative ones.
    QString getPath(int index) const;

    /// The whole path, without a leading slash.
    QString path() const;
    /// Same as refresh(); for forms.
    void setPath(const QString &path);

    /// Whether a name that is cut off shows all of itself in a tool tip. False by default.
    void setToolTipsEnabled(bool enabled);
    bool areToolTipsEnabled() const { return m_are_tool_tips_enabled; } ///< false by default

    /// Whether an arrow, which is then 16 design pixels wide, or Down on a name requests a menu of
    /// the names beside the one that follows the arrow; see siblingsRequested(). False by default.
    /// Looks up the section "component.button_path_menu_arrow".
    void setSiblingMenusEnabled(bool enabled);
    bool areSiblingMenusEnabled() const { return m_are_sibling_menus_enabled; } ///< see the setter

    /// Whether Ctrl+L anywhere in the window, or a click beside the names, calls editPath(). False
    /// by default.
    void setEditable(bool editable);
    bool isEditable() const { return m_is_editable; } ///< false by default
    bool isEditing() const; ///< whether the user is typing a path

    /// Sets what can be dropped on the names, such as "text/uri-list"; see dropped(). Nothing by
    /// default.
    void setDropMimeTypes(const QStringList &types);
    QStringList dropMimeTypes() const { return m_drop_types; } ///< empty by default

Q_SIGNALS:
    /// Emitted when the user requests the path up to a part, with a button or the menu, and by
    /// slotPathBarClicked(). refresh() does not emit it.
    void sigUpdatePath(QString path);
    /// Emitted when the user requests the menu of a folder, whose path has no leading slash and is
    /// empty for the first name. Call showSiblings() with the names in it, now or later.
    void siblingsRequested(QString folder);
    /// Emitted when data with one of the types of dropMimeTypes() was dropped on the name of path.
    /// The bar does nothing with it; data is valid during the slot.
    void dropped(const QMimeData *data, QString path, Qt::DropAction action);

public Q_SLOTS:
    /// Same as refresh(); for connections.
    void slotUpdatePath(QString path);
    /// Emits sigUpdatePath() with the path up to a column.
    void slotPathBarClicked(int btn_id);

    /// Answers siblingsRequested(): opens a menu of names, in which the user selects a path. Does
    /// nothing if names is empty or the bar was refreshed in the meantime.
    void showSiblings(const QStringList &names);
    /// Shows a field with the path in place of the names, and gives it the focus. Return emits
    /// sigUpdatePath(), without leading and doubled slashes; Escape and a loss of the focus cancel.
    void editPath();

    /// Scrolls horizontally until the folder button does not cover the column either.
    void scrollTo(
        const QModelIndex &index, QAbstractItemView::ScrollHint hint = EnsureVisible) override;

protected:
    /// Adjusts the menu and the scroll position to the new width.
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    /// Takes the pictures of a reloaded theme.
    void customEvent(QEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

protected Q_SLOTS:
    void updateGeometries() override;

private:
    void setupFolderButton();
    void placeFolderButton();
    int coveredWidth() const;
    int distanceFromStart(int column) const;
    QString pathUpTo(int column) const;
    void rebuildRow(const QStringList &parts);
    void clearRow();
    void addButton(QPushButton *button);
    void addArrow(const QString &style, const QPixmap &picture);
    void addName(const QString &part, const QString &style);
    void addParts(const QStringList &parts);
    void updateColumnSize();
    void setChangeFolderBtn(int width);
    void addFolder(int column);
    void requestSiblings(int column);
    bool moveFocus(int column, int key);
    void showDropTarget(int column);

    QList<QPushButton *> m_buttons; ///< by column
    std::unique_ptr<QMenu> m_folder_menu;
    QToolButton *m_change_folder_button = nullptr;
    int m_view_width = 0; ///< in screen pixels
    QSignalMapper *m_menu_mapper = nullptr; ///< entry of the folder menu to its column
    QSignalMapper *m_name_mapper = nullptr; ///< name button to its column
    std::unique_ptr<QMenu> m_sibling_menu; ///< null until it is first shown
    int m_sibling_column = -1; ///< of the name whose siblings are requested
    PathEdit *m_edit = nullptr; ///< null until it is first shown
    QShortcut *m_edit_shortcut = nullptr; ///< null unless editable
    QStringList m_drop_types;
    int m_drop_column = -1; ///< of the name under a drag
    bool m_is_rebuilding = false; ///< whether the row is incomplete
    bool m_are_tool_tips_enabled = false;
    bool m_are_sibling_menus_enabled = false;
    bool m_is_editable = false;
};

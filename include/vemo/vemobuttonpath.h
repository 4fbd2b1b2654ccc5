// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QList>
#include <QTableWidget>

#include <memory>

class QMenu;
class QPushButton;
class QSignalMapper;
class QToolButton;

/// A folder path as a row of buttons, one for each part.
///
/// If the row is wider than the bar, the bar shows its right end, and a folder button on the left
/// has a menu with the hidden parts; a name that is cut off shows the rest after three dots. In
/// right-to-left layouts all of this is mirrored. The bar does not change its path by itself: it
/// emits a signal, and the host calls refresh(). Requires: pictures, style files. It belongs to its
/// parent.
///
///     auto *path = new VemoButtonPath(this);
///     connect(path, &VemoButtonPath::sigUpdatePath, this, &MainWindow::openFolder);
///     path->refresh("home/projects/2026");
///
/// \image html path-and-filter-a-path-and-its-width.png
class VEMO_EXPORT VemoButtonPath : public QTableWidget
{
    Q_OBJECT
    /// The shown path, without a leading slash.
    Q_PROPERTY(QString path READ path WRITE setPath)

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

Q_SIGNALS:
    /// Emitted when the user requests the path up to a part, with a button or the menu, and by
    /// slotPathBarClicked(). refresh() does not emit it.
    void sigUpdatePath(QString path);

public Q_SLOTS:
    /// Same as refresh(); for connections.
    void slotUpdatePath(QString path);
    /// Emits sigUpdatePath() with the path up to a column.
    void slotPathBarClicked(int btn_id);

    /// Scrolls horizontally until the folder button does not cover the column either.
    void scrollTo(const QModelIndex &index, ScrollHint hint = EnsureVisible) override;

protected:
    /// Adjusts the menu and the scroll position to the new width.
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    /// Takes the pictures of a reloaded theme.
    void customEvent(QEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;

protected Q_SLOTS:
    void updateGeometries() override;

private:
    void setupFolderButton();
    void placeFolderButton();
    int coveredWidth() const;
    int distanceFromStart(int column) const;
    QString pathUpTo(int column) const;
    void clearRow();
    void addButton(QPushButton *button);
    void addName(const QString &part, const QString &style);
    void addParts(const QStringList &parts);
    void updateColumnSize();
    void setChangeFolderBtn(int width);
    void addFolder(int column);

    QList<QPushButton *> m_buttons; ///< by column
    std::unique_ptr<QMenu> m_folder_menu;
    QToolButton *m_change_folder_button = nullptr;
    int m_view_width = 0; ///< in screen pixels
    QSignalMapper *m_menu_mapper = nullptr; ///< entry of the folder menu to its column
    QSignalMapper *m_name_mapper = nullptr; ///< name button to its column
};

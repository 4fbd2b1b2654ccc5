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

/// A folder path as a row of buttons, one for each part, that lead to that part.
///
/// If the row is wider than the bar, its right end shows, and a folder button at the left has a
/// menu of the parts that are out of sight; a name that is cut shows the rest after three dots. In
/// a right-to-left layout all of this is mirrored. The bar itself goes nowhere: it asks, and the
/// host answers with refresh(). Load pictures and style files first. It belongs to its parent.
///
///     auto *path = new VemoButtonPath(this);
///     connect(path, SIGNAL(sigUpdatePath(QString)), this, SLOT(slotOpenFolder(QString)));
///     path->refresh("home/projects/2026");
///
/// \image html path-and-filter-a-path-and-its-width.png
class VEMO_EXPORT VemoButtonPath : public QTableWidget
{
    Q_OBJECT
    Q_PROPERTY(QString path READ path WRITE setPath)

public:
    /// An empty bar, 28 design pixels high. Pictures "bt_next" and "folder" and the sections
    /// "component.button_path", the same with "_arrow", "_name_button" and "_change_folder_btn",
    /// and "component.menu" should be there; what is missing warns and looks plain.
    explicit VemoButtonPath(QWidget *parent = nullptr);
    ~VemoButtonPath() override;

    /// Shows path, its parts separated by "/"; empty parts are left out. May be called from a slot
    /// of sigUpdatePath(). If one of the buttons has the keyboard focus, the last name gets it.
    void refresh(QString path);

    /// The path up to a column, without a slash in front: names are in even columns, the arrows
    /// between them in odd ones, up to which the path ends in a slash. Beyond the last column it is
    /// the whole path, and empty for a negative one.
    QString getPath(int index) const;

    /// The whole path, without a slash in front.
    QString path() const;
    /// refresh() by another name, for forms.
    void setPath(const QString &path);

Q_SIGNALS:
    /// The user asks, by a button or the menu, for the path up to one of the parts; so does
    /// slotPathBarClicked(). refresh() emits nothing.
    void sigUpdatePath(QString path);

public Q_SLOTS:
    /// The same as refresh(), for a connection.
    void slotUpdatePath(QString path);
    /// Emits sigUpdatePath() with the path up to a column.
    void slotPathBarClicked(int btn_id);

    /// Scrolls sideways until the column is out from under the folder button as well.
    void scrollTo(const QModelIndex &index, ScrollHint hint = EnsureVisible) override;

protected:
    /// Fits menu and scroll position to the new width.
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
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

// SPDX-License-Identifier: MIT
#pragma once

#include <QFrame>

class QAction;
class QActionGroup;
class VemoButtonPath;
class VemoFilterBar;
class VemoMenu;
struct Actions;

/// The bar at the top, with the path, the filter with its menu of kinds, and buttons for the
/// actions.
class TopBar : public QFrame
{
    Q_OBJECT

public:
    TopBar(const Actions &actions, QWidget *parent);

    void showFolder(const QString &folder);
    QString filterText() const;
    /// The selected kind; empty for all kinds.
    QString filterKind() const;
    void clearFilter();
    void focusFilter();

Q_SIGNALS:
    void folderChosen(const QString &folder);
    void filterChanged();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget *newButton(QAction *action, const QString &picture);
    void setUpFilter();
    void addKind(const QString &kind);
    void showKind();
    void choosePart(const QString &shownPath);

    QString m_folder;
    VemoButtonPath *m_path;
    VemoFilterBar *m_filter;
    VemoMenu *m_kinds;
    QActionGroup *m_kind_group;
    QString m_filter_text; ///< as last entered with Return
};

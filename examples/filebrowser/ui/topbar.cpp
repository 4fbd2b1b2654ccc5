// SPDX-License-Identifier: MIT
#include "topbar.h"

#include "actions.h"
#include "kinds.h"
#include "texts.h"
#include "viewmenu.h"

#include <vemo/dpiinfo.h>
#include <vemo/filetypemap.h>
#include <vemo/imagemanager.h>
#include <vemo/stylemanager.h>
#include <vemo/vemobuttonpath.h>
#include <vemo/vemofilterbar.h>
#include <vemo/vemoiconbutton.h>
#include <vemo/vemomenu.h>

#include <QActionGroup>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QStringList>

namespace {

// In design pixels.
constexpr int kMargin = 8;
constexpr int kGap = 8;
constexpr int kSmallGap = 4;
constexpr int kButtonSize = 28;
constexpr int kFilterWidth = 236;

VemoIconButton *newViewButton(QMenu *menu)
{
    auto *button = new VemoIconButton("bt_settings");
    button->setObjectName("viewButton");
    button->setFixedSize(DPIinfo::scaled(kButtonSize), DPIinfo::scaled(kButtonSize));
    button->setMenu(menu);
    translate(button, [button] {
        button->setAccessibleName(text("view"));
        button->setToolTip(text("view"));
    });
    return button;
}

/// Shows a picture for an action, and triggers the action.
class ActionButton : public VemoIconButton
{
public:
    ActionButton(QAction *action, const QString &picture)
        : VemoIconButton(picture), m_action(action)
    {
        setObjectName(QString(action->objectName()).replace("Action", "Button"));
        setFixedSize(DPIinfo::scaled(kButtonSize), DPIinfo::scaled(kButtonSize));
        setCheckable(action->isCheckable());
        connect(this, &QToolButton::clicked, action, &QAction::trigger);
        connect(action, &QAction::changed, this, [this] { follow(); });
        follow();
    }

private:
    void follow()
    {
        setAccessibleName(m_action->text());
        setToolTip(m_action->toolTip());
        setEnabled(m_action->isEnabled());
        setChecked(m_action->isChecked());
    }

    QAction *m_action;
};

} // namespace

TopBar::TopBar(const Actions &actions, QWidget *parent)
    : QFrame(parent), m_path(new VemoButtonPath), m_filter(new VemoFilterBar),
      m_kinds(new VemoMenu(this)), m_kind_group(new QActionGroup(this))
{
    setObjectName("topBar");
    m_path->setObjectName("pathBar");
    translate(m_path, [path = m_path] { path->setAccessibleName(text("accessible_path")); });
    setUpFilter();
    auto *layout = new QHBoxLayout(this);
    const int margin = DPIinfo::scaled(kMargin);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(DPIinfo::scaled(kSmallGap));
    layout->addWidget(newButton(actions.up, "bt_up"));
    layout->addSpacing(DPIinfo::scaled(kGap - kSmallGap));
    layout->addWidget(m_path, 1);
    layout->addSpacing(DPIinfo::scaled(kGap - kSmallGap));
    layout->addWidget(m_filter);
    layout->addSpacing(DPIinfo::scaled(kGap - kSmallGap));
    layout->addWidget(newButton(actions.newFolder, "bt_new_folder"));
    layout->addWidget(newButton(actions.rename, "bt_edit"));
    layout->addWidget(newButton(actions.trash, "bt_delete"));
    layout->addWidget(newButton(actions.details, "bt_calendar"));
    layout->addWidget(newViewButton(new ViewMenu(this)));
    layout->addWidget(newButton(actions.help, "bt_help"));
    connect(m_path, &VemoButtonPath::sigUpdatePath, this, &TopBar::choosePart);
}

QWidget *TopBar::newButton(QAction *action, const QString &picture)
{
    return new ActionButton(action, picture);
}

void TopBar::setUpFilter()
{
    m_filter->setObjectName("filterBar");
    m_filter->setFixedWidth(DPIinfo::scaled(kFilterWidth));
    m_filter->installEventFilter(this);
    m_kinds->setObjectName("kindMenu");
    m_kinds->setTitle(text("column_kind")); // the button's name for screen readers
    m_kinds->setStyleSheet(getStyleSheet("component.menu"));
    addKind(QString());
    m_kinds->addSeparator();
    const QStringList kinds = offeredKinds();
    for (const QString &kind : kinds)
        addKind(kind);
    m_filter->setMenu(m_kinds);
    m_kind_group->actions().constFirst()->setChecked(true);
    connect(m_filter, &VemoFilterBar::sigKeywordChanged, this, [this](const QString &keyword) {
        m_filter_text = keyword;
        Q_EMIT filterChanged();
    });
    connect(m_kind_group, &QActionGroup::triggered, this, [this] {
        showKind();
        Q_EMIT filterChanged();
    });
    translate(m_filter, [this] {
        m_filter->setAccessibleName(text("accessible_filter"));
        showKind();
    });
}

/// Shows the selected kind in the field, since the menu is closed.
void TopBar::showKind()
{
    const QString kind = filterKind();
    m_filter->setPlaceholderText(
        kind.isEmpty() ? text("filter_hint") : text("filter_hint_kind", kindText(kind)));
}

void TopBar::addKind(const QString &kind)
{
    auto *action = new QAction(m_kinds);
    m_kinds->addAction(action);
    translate(
        action, [=] { action->setText(kind.isEmpty() ? text("all_kinds") : kindText(kind)); });
    action->setObjectName(kind.isEmpty() ? QString("kind_all") : "kind_" + kind);
    action->setCheckable(true);
    action->setData(kind);
    m_kind_group->addAction(action);
}

void TopBar::showFolder(const QString &folder)
{
    m_folder = folder;
    // Adds a part for the root, which has no name.
    m_path->refresh(text("computer") + '/' + displayName(folder));
}

/// The bar may show names differently, so only the number of parts is used.
void TopBar::choosePart(const QString &shownPath)
{
    const QStringList parts = m_folder.split('/', Qt::SkipEmptyParts);
    Q_EMIT folderChosen('/' + parts.mid(0, shownPath.count('/')).join('/'));
}

QString TopBar::filterText() const
{
    return m_filter_text;
}

QString TopBar::filterKind() const
{
    return m_kind_group->checkedAction()->data().toString();
}

void TopBar::clearFilter()
{
    m_filter->clear();
    m_filter_text.clear();
    m_kind_group->actions().constFirst()->setChecked(true);
    showKind();
    Q_EMIT filterChanged();
}

void TopBar::focusFilter()
{
    m_filter->setFocus(Qt::ShortcutFocusReason);
    m_filter->selectAll();
}

bool TopBar::eventFilter(QObject *watched, QEvent *event)
{
    const bool isEscape = watched == m_filter && event->type() == QEvent::KeyPress
        && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape;
    if (!isEscape)
        return QFrame::eventFilter(watched, event);
    clearFilter();
    return true;
}

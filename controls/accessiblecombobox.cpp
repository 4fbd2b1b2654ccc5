// SPDX-License-Identifier: MIT
#include "controls/accessiblecombobox_p.h"

#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QComboBox>
#include <QLineEdit>

namespace {

class AccessibleComboBox : public QAccessibleWidget
{
public:
    explicit AccessibleComboBox(QComboBox *box) : QAccessibleWidget(box, QAccessible::ComboBox) { }

    int childCount() const override { return box()->isEditable() ? 2 : 1; }

    QAccessibleInterface *child(int index) const override
    {
        if (index == 0)
            return QAccessible::queryAccessibleInterface(box()->view());
        return index == 1 ? QAccessible::queryAccessibleInterface(box()->lineEdit()) : nullptr;
    }

    int indexOfChild(const QAccessibleInterface *child) const override
    {
        if (child->object() == box()->view())
            return 0;
        return box()->isEditable() && child->object() == box()->lineEdit() ? 1 : -1;
    }

    QAccessibleInterface *childAt(int x, int y) const override
    {
        const QLineEdit *edit = box()->lineEdit();
        const bool isOnEdit = edit && edit->rect().contains(edit->mapFromGlobal(QPoint(x, y)));
        return isOnEdit ? child(1) : nullptr;
    }

    QString text(QAccessible::Text kind) const override
    {
        const QString text = QAccessibleWidget::text(kind);
        const bool isText = kind == QAccessible::Value || kind == QAccessible::Name;
        return isText && text.isEmpty() ? box()->currentText() : text;
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.hasPopup = state.expandable = true;
        state.expanded = box()->view()->isVisible();
        state.collapsed = !state.expanded;
        state.editable = box()->isEditable();
        return state;
    }

    QStringList actionNames() const override
    {
        return box()->isEnabled() ? QStringList {showMenuAction(), pressAction()} : QStringList();
    }

    void doAction(const QString &name) override
    {
        if (!actionNames().contains(name))
            return;
        if (box()->view()->isVisible())
            box()->hidePopup();
        else
            box()->showPopup();
    }

private:
    QComboBox *box() const { return static_cast<QComboBox *>(object()); }
};

} // namespace

QAccessibleInterface *newAccessibleComboBox(QComboBox *box)
{
    return new AccessibleComboBox(box);
}

// SPDX-License-Identifier: MIT
#include "accessibility/buswalk.h"

#include <QRegularExpression>
#include <QSet>

namespace {

// As AT-SPI numbers them.
enum StateNumber { Enabled = 8, Focusable = 11, Sensitive = 24, Visible = 30 };

// The items of a long list are all alike.
constexpr int kMaxChildren = 300;

struct Node
{
    QString role;
    QString name;
    quint64 states = 0;
    QStringList interfaces;
    int actions = 0;
    QString place;

    bool is(StateNumber state) const { return states >> state & 1U; }
    bool has(const char *interface) const
    {
        return interfaces.contains(QString("org.a11y.atspi.%1").arg(interface));
    }
};

bool isAnyOf(const QString &role, const QSet<QString> &roles)
{
    return roles.contains(role);
}

bool isPressed(const QString &role)
{
    return isAnyOf(role,
        {"push button", "button", "button menu", "toggle button", "check box", "radio button",
            "link", "menu item", "check menu item"});
}

bool isTyped(const QString &role)
{
    return isAnyOf(role, {"text", "entry", "password text"});
}

bool isSet(const QString &role)
{
    return isAnyOf(role, {"spin button", "spin box", "slider", "dial"});
}

bool isControl(const Node &node)
{
    return node.is(Focusable) || isPressed(node.role) || isTyped(node.role) || isSet(node.role)
        || isAnyOf(node.role, {"combo box", "page tab"});
}

bool isMeaningless(const QString &role)
{
    return isAnyOf(role, {"", "filler", "panel", "unknown", "invalid"});
}

/// Why an assistive tool cannot announce or use the control; empty if it can.
QStringList flawsOf(const Node &node)
{
    static const QRegularExpression markUp(
        "<[a-z/!]|&[a-z]+;", QRegularExpression::CaseInsensitiveOption);
    QStringList flaws;
    const auto note = [&](bool isFlaw, const char *what) {
        if (isFlaw)
            flaws += what;
    };
    note(isMeaningless(node.role), "has no role");
    // The name of a cell or a label is its text.
    note(node.name.trimmed().isEmpty() && node.role != "cell", "has no name");
    note(node.role != "label" && markUp.match(node.name).hasMatch(), "has mark-up in its name");
    note(node.is(Enabled) != node.is(Sensitive), "is neither enabled nor disabled");
    note(isTyped(node.role) && !node.has("Text"), "has no text");
    note(isSet(node.role) && !node.has("Value"), "has no value");
    const bool mustAct = isPressed(node.role) || node.role == "combo box";
    note(mustAct && node.is(Enabled) && node.actions == 0, "has no action");
    return flaws;
}

class Walker
{
public:
    explicit Walker(const AccessibilityBus &bus) : m_bus(bus) { }

    void visit(const BusObject &object, const QString &place)
    {
        const Node node = read(object, place);
        if (!node.is(Visible) && node.role != "application")
            return;
        ++result.objects;
        ++result.roles[node.role];
        m_namedCells += node.role == "cell" && !node.name.isEmpty() ? 1 : 0;
        const int controlsBefore = result.controls;
        const int cellsBefore = result.roles["cell"];
        const int namedCellsBefore = m_namedCells;
        const bool isGroup = isMeaningless(node.role);
        if (isControl(node) && !isGroup)
            check(node);
        // The contents of a combo box are announced with it.
        if (node.role == "combo box")
            return;
        const QString here = QString("%1 / %2 \"%3\"").arg(place, node.role, node.name.left(30));
        const QVector<BusObject> children = m_bus.firstChildrenOf(object, kMaxChildren);
        for (const BusObject &child : children)
            visit(child, here);
        // A group passes its focus on to a control in it, or scrolls.
        if (isControl(node) && isGroup && result.controls == controlsBefore)
            check(node);
        const bool hasCells = node.role == "table" && result.roles["cell"] > cellsBefore;
        if (hasCells && m_namedCells == namedCellsBefore)
            result.flaws +=
                QString("table \"%1\" has no cell with a name, in%2").arg(node.name, place);
    }

    BusWalk result;

private:
    Node read(const BusObject &object, const QString &place) const
    {
        Node node;
        node.place = place;
        node.role = m_bus.roleOf(object);
        node.states = m_bus.statesOf(object);
        node.name = m_bus.nameOf(object);
        if (isControl(node)) {
            node.interfaces = m_bus.interfacesOf(object);
            node.actions = node.has("Action") ? m_bus.actionCountOf(object) : 0;
        }
        return node;
    }

    void check(const Node &node)
    {
        ++result.controls;
        if (!node.role.contains("cell") && !node.role.contains("item"))
            ++result.names[QString("%1 \"%2\"").arg(node.role, node.name)];
        const QStringList flaws = flawsOf(node);
        if (flaws.isEmpty())
            ++result.flawless;
        else
            result.flaws += QString("%1 \"%2\" %3, in%4")
                                .arg(node.role, node.name, flaws.join(", "), node.place);
    }

    const AccessibilityBus &m_bus;
    int m_namedCells = 0;
};

} // namespace

BusWalk walk(const AccessibilityBus &bus, const BusObject &root)
{
    Walker walker(bus);
    walker.visit(root, {});
    return walker.result;
}

BusObject findObject(
    const AccessibilityBus &bus, const BusObject &root, const QString &role, const QString &name)
{
    if (bus.nameOf(root) == name && bus.roleOf(root) == role)
        return root;
    for (const BusObject &child : bus.firstChildrenOf(root, kMaxChildren)) {
        const BusObject found = findObject(bus, child, role, name);
        if (!found.service.isEmpty())
            return found;
    }
    return {};
}

// SPDX-License-Identifier: MIT
#include <vemo/vemoswitch.h>

#include "controls/choicepainting_p.h"
#include "controls/spokentooltip_p.h"

#include <vemo/stylemanager.h>

#include <QAccessibleWidget>
#include <QStyleOptionButton>
#include <QStylePainter>

namespace {

constexpr int kIconSpacing = 4; // screen pixels, as Qt's styles draw it

QString withoutMnemonic(const QString &text)
{
    QString result;
    for (int i = 0; i < text.size(); ++i) {
        if (text.at(i) == QLatin1Char('&') && ++i == text.size())
            break;
        result += text.at(i);
    }
    return result;
}

/// Qt knows no role for switches, and presents only its own buttons as such.
class AccessibleSwitch : public QAccessibleWidget
{
public:
    explicit AccessibleSwitch(VemoSwitch *widget) : QAccessibleWidget(widget, QAccessible::CheckBox)
    {
    }

    QString text(QAccessible::Text kind) const override
    {
        const QString given = QAccessibleWidget::text(kind);
        if (!given.isEmpty())
            return given;
        if (kind == QAccessible::Name)
            return withoutMnemonic(button()->text());
        return kind == QAccessible::Accelerator ? shortcut() : QString();
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = true;
        state.checked = button()->isChecked();
        state.pressed = button()->isDown();
        return state;
    }

    QStringList actionNames() const override
    {
        if (!button()->isEnabled())
            return {};
        return QStringList {toggleAction()} + QAccessibleWidget::actionNames();
    }

    void doAction(const QString &name) override
    {
        if (name == toggleAction())
            button()->click(); // no effect if it is disabled
        else
            QAccessibleWidget::doAction(name);
    }

    QStringList keyBindingsForAction(const QString &name) const override
    {
        return name == toggleAction() && !shortcut().isEmpty() ? QStringList {shortcut()}
                                                               : QStringList();
    }

private:
    VemoSwitch *button() const { return static_cast<VemoSwitch *>(widget()); }
    QString shortcut() const { return button()->shortcut().toString(QKeySequence::NativeText); }
};

QAccessibleInterface *newAccessibleSwitch(const QString & /*className*/, QObject *object)
{
    auto *button = qobject_cast<VemoSwitch *>(object);
    return button ? new AccessibleSwitch(button) : nullptr;
}

} // namespace

VemoSwitch::VemoSwitch(const QString &text, QWidget *parent) : QAbstractButton(parent)
{
    // Installing the factory again is a no-op.
    QAccessible::installFactory(newAccessibleSwitch);
    speakToolTip(this);
    setCheckable(true);
    setSizePolicy({QSizePolicy::Minimum, QSizePolicy::Fixed, QSizePolicy::CheckBox});
    setStyleSheet(getStyleSheet("component.switch"));
    setText(text);
}

VemoSwitch::VemoSwitch(QWidget *parent) : VemoSwitch(QString(), parent) { }

QSize VemoSwitch::sizeHint() const
{
    ensurePolished();
    QStyleOptionButton option;
    initStyleOption(&option);
    const QFontMetrics metrics = fontMetrics();
    QSize contents =
        style()->itemTextRect(metrics, QRect(), Qt::TextShowMnemonic, false, text()).size();
    if (!icon().isNull()) {
        contents.rwidth() += iconSize().width() + kIconSpacing;
        contents.setHeight(qMax(contents.height(), iconSize().height()));
    }
    return style()->sizeFromContents(QStyle::CT_CheckBox, &option, contents, this);
}

QSize VemoSwitch::minimumSizeHint() const
{
    return sizeHint();
}

void VemoSwitch::initStyleOption(QStyleOptionButton *option) const
{
    option->initFrom(this);
    option->text = text();
    option->icon = icon();
    option->iconSize = iconSize();
    option->state |= isChecked() ? QStyle::State_On : QStyle::State_Off;
    if (isDown())
        option->state |= QStyle::State_Sunken;
}

void VemoSwitch::paintEvent(QPaintEvent * /*event*/)
{
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    paintChoice(&painter, option, *this,
        {QStyle::CE_CheckBox, QStyle::CE_CheckBoxLabel, QStyle::SE_CheckBoxContents},
        loweredBy(option, *this, QStyle::SE_CheckBoxContents));
}

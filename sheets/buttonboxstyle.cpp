// SPDX-License-Identifier: MIT
#include "sheets/buttonboxstyle_p.h"

#include "core/scaling_p.h"
#include "sheets/sheetparts_p.h"

#include <QApplication>
#include <QHash>
#include <QPointer>
#include <QProxyStyle>
#include <QPushButton>

namespace {

// In design pixels.
constexpr double kButtonHeight = 32;
constexpr double kButtonWidth = 100;

class DialogButtonBoxStyle : public QProxyStyle
{
public:
    explicit DialogButtonBoxStyle(QDialogButtonBox::ButtonLayout layout) : m_layout(layout) { }

    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
        QStyleHintReturn *returnData) const override
    {
        if (hint == SH_DialogButtonLayout)
            return m_layout;
        return QProxyStyle::styleHint(hint, option, widget, returnData);
    }

private:
    const QDialogButtonBox::ButtonLayout m_layout;
};

} // namespace

QStyle *buttonBoxStyle(QDialogButtonBox::ButtonLayout layout)
{
    // The style must outlive the buttons, so it cannot be a child of their box.
    static QHash<int, QPointer<QStyle>> styles;
    QPointer<QStyle> &style = styles[layout];
    if (!style) {
        style = new DialogButtonBoxStyle(layout);
        style->setParent(qApp);
    }
    return style.data();
}

void setButtonSize(QPushButton *button)
{
    setHeight(button, kButtonHeight);
    button->setMinimumWidth(scaled(kButtonWidth));
}

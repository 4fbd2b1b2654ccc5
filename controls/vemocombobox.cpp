// SPDX-License-Identifier: MIT
#include <vemo/vemocombobox.h>

#include "controls/accessiblecombobox_p.h"
#include "controls/popuppainting_p.h"
#include "controls/spokentooltip_p.h"

#include <vemo/dpiinfo.h>
#include <vemo/stylemanager.h>

#include <QAbstractItemView>
#include <QEvent>
#include <QStyledItemDelegate>
#include <QTimer>

namespace {

constexpr double kSidePadding = 6.0; // Design pixels.
constexpr int kListGap = 2; // Screen pixels: deliberately not scaled.

QString paddingRules()
{
    // Deliberate: written with its fraction, not truncated; 7.5px at 120 dpi.
    const QString width = QString::number(DPIinfo::getInstance().getDPI() * kSidePadding, 'g', 6);
    return QStringLiteral("padding-left: %1px; \npadding-right: %1px;").arg(width);
}

/// Deliberate: this colour in every theme.
const QLatin1String kBorder("border: 1px solid #C8D2DC;");

QString comboBoxStyle()
{
    const QString box = getStyleSheet("component.combobox").arg(paddingRules()).arg(kBorder);
    return box + getStyleSheet("component.scrollbar");
}

void placeBelow(const QWidget &box, QWidget *popup)
{
    popup->move(box.mapToGlobal(QPoint(0, 0)) + QPoint(0, box.height() + kListGap));
}

// Places the list before it is seen: otherwise it would flash up where Qt puts it.
class PlaceBeforeShown : public QObject
{
public:
    PlaceBeforeShown(const QComboBox &box, QWidget *popup) : QObject(popup), m_box(box)
    {
        popup->installEventFilter(this);
    }

    bool eventFilter(QObject *popup, QEvent *event) override
    {
        if (event->type() == QEvent::Show)
            placeBelow(m_box, static_cast<QWidget *>(popup));
        return false;
    }

private:
    const QComboBox &m_box; // The pop-up is a child of it.
};

// Unless something else in the window took it.
void giveFocusBack(QWidget *box)
{
    if (!box->window()->focusWidget() && box->isVisible() && box->isEnabled())
        box->setFocus(Qt::PopupFocusReason);
}

// Gives the focus back once the pop-up has closed: the keyboard would have to start at the window's
// top again. Queued, after the listeners of what was chosen, one of which may want the focus.
class FocusReturn : public QObject
{
public:
    FocusReturn(QWidget *box, QWidget *popup) : QObject(popup), m_box(box)
    {
        popup->installEventFilter(this);
    }

    bool eventFilter(QObject *popup, QEvent *event) override
    {
        if (event->type() == QEvent::Hide) {
            popup->removeEventFilter(this);
            QTimer::singleShot(0, m_box, [box = m_box] { giveFocusBack(box); });
            deleteLater();
        }
        return false;
    }

private:
    QWidget *m_box; // The pop-up is a child of it.
};

} // namespace

VemoComboBox::VemoComboBox(QWidget *parent) : QComboBox(parent)
{
    announceByGivenName<VemoComboBox>();
    speakToolTip(this);
    setStyleSheet(comboBoxStyle());
    // The rows of Qt's own delegate don't follow the style sheet.
    auto *delegate = new QStyledItemDelegate;
    view()->setItemDelegate(delegate);
    // Deliberate: it has no parent, and a view doesn't own its delegate. Another delegate may have
    // replaced it, and deleted it, by then.
    connect(this, &QObject::destroyed, delegate, [delegate] { delete delegate; });
    paintPopupOnce(this);
    new PlaceBeforeShown(*this, view()->parentWidget());
}

void VemoComboBox::showPopup()
{
    const bool hadFocus = hasFocus();
    clearFocus();
    if (hadFocus && count() > 0)
        new FocusReturn(this, view()->parentWidget());
    QComboBox::showPopup();
    // An empty box opens nothing.
    if (hadFocus && count() == 0)
        giveFocusBack(this);
    // Where it is shown with an effect, it does not stand there yet.
    auto *popup = findChild<QFrame *>();
    if (popup)
        placeBelow(*this, popup);
}

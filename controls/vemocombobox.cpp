// SPDX-License-Identifier: MIT
#include <vemo/vemocombobox.h>

#include "controls/accessiblecombobox_p.h"
#include "controls/editmargins_p.h"
#include "controls/growntofont_p.h"
#include "controls/popuppainting_p.h"
#include "controls/spokentooltip_p.h"
#include "controls/textoverhang_p.h"

#include <vemo/dpiinfo.h>
#include <vemo/stylemanager.h>

#include <QAbstractItemView>
#include <QEvent>
#include <QLineEdit>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QStylePainter>
#include <QStyledItemDelegate>
#include <QTimer>

#include <utility>

namespace {

constexpr double kSidePadding = 6.0; // design pixels
constexpr int kListGap = 2; // Screen pixels: deliberately not scaled.

QString paddingRules()
{
    // Deliberate: not truncated; 7.5px at 120 dpi.
    const QString width = QString::number(DPIinfo::getInstance().getDPI() * kSidePadding, 'g', 6);
    return QStringLiteral("padding-left: %1px; \npadding-right: %1px;").arg(width);
}

/// Deliberate: this colour in every theme that names no other.
QString borderRule()
{
    const QColor named = StyleManager::getInstance().getColor(QStringLiteral("combo-border"), {});
    return QStringLiteral("border: 1px solid %1;")
        .arg(named.isValid() ? named.name() : QStringLiteral("#C8D2DC"));
}

QString comboBoxStyle()
{
    // Deliberate: a missing section causes one warning for each argument.
    const QString padded = getStyleSheet("component.combobox").arg(paddingRules());
    const QString box = padded.arg(borderRule());
    return box + getStyleSheet("component.scrollbar");
}

void placeBelow(const QWidget &box, QWidget *popup)
{
    popup->move(box.mapToGlobal(QPoint(0, 0)) + QPoint(0, box.height() + kListGap));
}

// Moves the list before it becomes visible: otherwise it would first appear at Qt's position.
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
    const QComboBox &m_box; // The parent of the pop-up.
};

// Unless another widget of the window has taken the focus.
void giveFocusBack(QWidget *box)
{
    if (!box->window()->focusWidget() && box->isVisible() && box->isEnabled())
        box->setFocus(Qt::PopupFocusReason);
}

// Returns the focus to the box when the pop-up has closed; otherwise Tab would start at the top of
// the window. Queued, so that slots connected to the box's signals can set the focus first.
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
    QWidget *m_box; // The parent of the pop-up.
};

class EditMargins : public QObject
{
public:
    explicit EditMargins(QComboBox *box) : QObject(box) { box->installEventFilter(this); }

    bool eventFilter(QObject * /*box*/, QEvent *event) override
    {
        if (event->type() == QEvent::ChildPolished) {
            QObject *child = static_cast<QChildEvent *>(event)->child(); // whole by now
            auto *edit = qobject_cast<QLineEdit *>(child); // clazy:exclude=child-event-qobject-cast
            if (edit && edit->textMargins().isNull())
                beginLikeBox(edit);
        }
        return false;
    }
};

} // namespace

VemoComboBox::VemoComboBox(QWidget *parent) : QComboBox(parent), m_theme_style(comboBoxStyle())
{
    announceByGivenName<VemoComboBox>();
    speakToolTip(this);
    setStyleSheet(m_theme_style);
    // Qt's own delegate draws rows without the style sheet.
    auto *delegate = new QStyledItemDelegate;
    view()->setItemDelegate(delegate);
    // Deliberate: the delegate has no parent, and a view does not own its delegate. By then it may
    // have been replaced by another one and deleted.
    connect(this, &QObject::destroyed, delegate, [delegate] { delete delegate; });
    paintPopupOnce(this);
    new PlaceBeforeShown(*this, view()->parentWidget());
    new EditMargins(this);
}

void VemoComboBox::showPopup()
{
    const bool hadFocus = hasFocus();
    clearFocus();
    if (hadFocus && count() > 0)
        new FocusReturn(this, view()->parentWidget());
    QComboBox::showPopup();
    // An empty box does not open a list.
    if (hadFocus && count() == 0)
        giveFocusBack(this);
    // If it is shown with an animation, it has not reached its position yet.
    auto *popup = findChild<QFrame *>();
    if (popup)
        placeBelow(*this, popup);
}

QSize VemoComboBox::sizeHint() const
{
    return grown(QComboBox::sizeHint());
}

QSize VemoComboBox::minimumSizeHint() const
{
    return grown(QComboBox::minimumSizeHint());
}

QSize VemoComboBox::grown(const QSize &hint) const
{
    QStyleOptionComboBox option;
    initStyleOption(&option);
    return grownToFont(hint, *this, &option, [this, &option] {
        return style()->subControlRect(
            QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
    });
}

void VemoComboBox::paintEvent(QPaintEvent *event)
{
    QComboBox::paintEvent(event);
    QStylePainter painter(this);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    paintOverhang(&painter, option, *this);
}

void VemoComboBox::customEvent(QEvent *event)
{
    if (event->type() == StyleManager::reloadEvent()) {
        // Not the section as it is in the file: its gaps are filled.
        const QString before = std::exchange(m_theme_style, comboBoxStyle());
        setStyleSheet(styleSheet().replace(before, m_theme_style));
    }
    QComboBox::customEvent(event);
}

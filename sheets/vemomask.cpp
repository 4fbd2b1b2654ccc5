// SPDX-License-Identifier: MIT
#include <vemo/vemomask.h>

#include <QEvent>
#include <QHBoxLayout>

namespace {

constexpr int kDefaultAlpha = 20;

bool canCover(const QWidget *widget, const QWidget *parent)
{
    return widget && parent && widget != parent && !widget->isAncestorOf(parent);
}

/// Keeps a mask at the size of its window. Not a widget, despite its name.
class ParentEventFilterWidget : public QObject
{
public:
    ParentEventFilterWidget(VemoMask *mask, QWidget *parent)
        : QObject(mask), m_mask(mask), m_parent(parent)
    {
        parent->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (watched == m_parent && event->type() == QEvent::Resize)
            m_mask->resize();
        return false;
    }

private:
    VemoMask *m_mask;
    QWidget *m_parent;
};

} // namespace

class VemoMaskPrivate : public QObject
{
public:
    explicit VemoMaskPrivate(VemoMask *mask) : QObject(mask), q(mask) { }

    void carry(QWidget *carried)
    {
        auto *row = new QHBoxLayout(q);
        row->addWidget(carried);
        widget = carried;
    }

    void fillWindow() const
    {
        QPalette palette = q->palette();
        palette.setBrush(QPalette::All, QPalette::Window, color);
        q->setPalette(palette);
        q->setAutoFillBackground(true);
    }

    QColor color = QColor(0, 0, 0, kDefaultAlpha);
    VemoMask *q;
    QWidget *widget = nullptr; ///< only compared, never followed: it may die before the mask
};

// NOLINTNEXTLINE(performance-unnecessary-value-param): by value as everybody calls it.
QWidget *VemoMask::createMask(QWidget *widget, QWidget *parent, QColor color)
{
    if (widget && !parent)
        parent = widget->parentWidget();
    if (!canCover(widget, parent))
        return nullptr;
    // The parent owns it, and the widget's parentWidget() leads to it.
    new VemoMask(widget, parent, color);
    return widget;
}

VemoMask::VemoMask(QWidget *widget, QWidget *parent, const QColor &color)
    : QFrame(parent), m_d(new VemoMaskPrivate(this))
{
    m_d->color = color;
    m_d->fillWindow();
    m_d->carry(widget);
    resize();
    widget->installEventFilter(this);
    new ParentEventFilterWidget(this, parent);
    // Else a window shown later would show the cover as well, sheet and all.
    hide();
    // A widget deleted while visible says nothing of hiding.
    connect(widget, SIGNAL(destroyed()), this, SLOT(hide()));
}

VemoMask::~VemoMask() = default;

void VemoMask::resize()
{
    setFixedSize(window()->size());
}

bool VemoMask::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_d->widget && event->type() == QEvent::ShowToParent)
        show();
    else if (watched == m_d->widget && event->type() == QEvent::HideToParent)
        hide();
    return false;
}

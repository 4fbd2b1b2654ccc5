// SPDX-License-Identifier: MIT
#include <vemo/vemomask.h>

#include <vemo/vemosheet.h>

#include <QChildEvent>
#include <QDropEvent>
#include <QHBoxLayout>
#include <QPointer>
#include <QScopedValueRollback>
#include <QVector>

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

bool isShown(const QWidget *widget)
{
    return !widget->isHidden();
}

/// What lies above the rest of a window while it is shown.
bool isCover(const QObject *object)
{
    return qobject_cast<const VemoMask *>(object) || qobject_cast<const VemoSheet *>(object);
}

/// The mask and whatever covers its window above it, from below.
QVector<QPointer<QWidget>> coversFrom(VemoMask *mask)
{
    QVector<QPointer<QWidget>> covers;
    for (QObject *sibling : mask->parentWidget()->children()) {
        auto *widget = qobject_cast<QWidget *>(sibling);
        if (widget == mask || (!covers.isEmpty() && isCover(widget) && isShown(widget)))
            covers.append(widget);
    }
    return covers;
}

/// Keeps a shown mask above the other children of its window. Qt tells a window of a new child, but
/// nobody but the child itself that it was raised, so we watch them all.
class StackingFilter : public QObject
{
public:
    explicit StackingFilter(VemoMask *mask) : QObject(mask), m_mask(mask) { }

    void start()
    {
        stop();
        m_parent = m_mask->parentWidget();
        if (!m_parent)
            return;
        m_parent->installEventFilter(this);
        for (QObject *sibling : m_parent->children())
            watch(sibling);
        m_mask->raise();
    }

    void stop()
    {
        if (!m_parent)
            return;
        m_parent->removeEventFilter(this);
        for (QObject *sibling : m_parent->children())
            sibling->removeEventFilter(this);
        m_parent = nullptr;
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const bool isAdded = event->type() == QEvent::ChildAdded && watched == m_parent;
        const bool isRaised =
            event->type() == QEvent::ZOrderChange && watched->parent() == m_parent;
        if (isAdded)
            watch(static_cast<QChildEvent *>(event)->child());
        if ((isAdded || isRaised) && m_parent && m_mask->parent() == m_parent)
            raiseAgain();
        return false;
    }

private:
    void watch(QObject *sibling)
    {
        if (sibling->isWidgetType() && sibling != m_mask && !isCover(sibling))
            sibling->installEventFilter(this);
    }

    /// Together with the covers above it, so that a newer one stays above.
    void raiseAgain()
    {
        static bool isRaising = false;
        if (isRaising || !isShown(m_mask))
            return;
        const QScopedValueRollback<bool> guard(isRaising, true);
        const auto covers = coversFrom(m_mask);
        for (const QPointer<QWidget> &cover : covers) {
            if (cover)
                cover->raise();
        }
    }

    VemoMask *m_mask;
    QPointer<QWidget> m_parent; ///< while it is watched
};

/// Keeps from the window what the pointer does on the mask or in the sheet.
class PointerFilter : public QObject
{
public:
    explicit PointerFilter(VemoMask *mask) : QObject(mask)
    {
        // Clicks, the wheel and context menus.
        mask->setAttribute(Qt::WA_NoMousePropagation);
        mask->setAcceptDrops(true);
        mask->installEventFilter(this);
    }

    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        switch (event->type()) {
        case QEvent::ToolTip:
            event->accept();
            return true;
        case QEvent::DragEnter:
            // Refused here, a drop would be offered to the window. So we take it, and nothing of
            // it.
            static_cast<QDragEnterEvent *>(event)->setDropAction(Qt::IgnoreAction);
            event->accept();
            return true;
        case QEvent::DragMove:
        case QEvent::Drop:
            event->ignore();
            return true;
        default:
            return false;
        }
    }
};

} // namespace

class VemoMaskPrivate : public QObject
{
public:
    explicit VemoMaskPrivate(VemoMask *mask)
        : QObject(mask), q(mask), m_stacking(new StackingFilter(mask))
    {
    }

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

    void cover() const
    {
        q->show();
        // A mask that lost its widget to another one must not come to lie above it.
        if (widget->parentWidget() == q)
            m_stacking->start();
    }

    void uncover() const
    {
        m_stacking->stop();
        q->hide();
    }

    QColor color = QColor(0, 0, 0, kDefaultAlpha);
    VemoMask *q;
    QWidget *widget = nullptr; ///< not to be followed after its death, which may come before ours

private:
    StackingFilter *m_stacking;
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
    new PointerFilter(this);
    // Otherwise showing the window later would show the mask and the sheet, too.
    hide();
    // A widget that is deleted while it is visible sends no hide event.
    connect(widget, &QObject::destroyed, m_d, [this] { m_d->uncover(); });
}

VemoMask::~VemoMask() = default;

void VemoMask::resize()
{
    setFixedSize(window()->size());
}

bool VemoMask::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_d->widget && event->type() == QEvent::ShowToParent)
        m_d->cover();
    else if (watched == m_d->widget && event->type() == QEvent::HideToParent)
        m_d->uncover();
    return false;
}

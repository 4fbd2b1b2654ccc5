// SPDX-License-Identifier: MIT
#include <vemo/vemomask.h>

#include "sheets/sheetparts_p.h"

#include <vemo/vemosheet.h>

#include <QChildEvent>
#include <QDropEvent>
#include <QHBoxLayout>
#include <QPointer>
#include <QScopedValueRollback>
#include <QVector>

namespace {

bool canCover(const QWidget *widget, const QWidget *parent)
{
    return widget && parent && widget != parent && !widget->isAncestorOf(parent);
}

/// Resizes a mask with its window. Not a widget, despite its name.
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

/// Whether object covers the other widgets of a window.
bool isCover(const QObject *object)
{
    return qobject_cast<const VemoMask *>(object) || qobject_cast<const VemoSheet *>(object);
}

/// The mask and the covers above it, from bottom to top.
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

/// Keeps a shown mask above the other children of its window. Qt notifies a window of a new child,
/// but only the child itself when it is raised, so we watch all children.
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

    /// Also raises the covers above it, so that newer ones stay on top.
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
    QPointer<QWidget> m_parent; ///< null if it is not watched
};

/// Keeps pointer events on the mask and in the sheet from reaching the window.
class PointerFilter : public QObject
{
public:
    explicit PointerFilter(VemoMask *mask) : QObject(mask)
    {
        // Stops clicks, wheel events and context menus.
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
            // If we refuse a drop, Qt offers it to the window. So we accept it, with no action.
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

    void setContent(QWidget *content)
    {
        auto *row = new QHBoxLayout(q);
        row->addWidget(content);
        widget = content;
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
        // A mask whose widget was taken over by another one must not cover it.
        if (widget->parentWidget() == q)
            m_stacking->start();
    }

    void uncover() const
    {
        m_stacking->stop();
        q->hide();
    }

    /// Takes the shade of a reloaded theme, if this mask had that of the last one.
    void changeShade()
    {
        if (!isShade)
            return;
        color = maskShade();
        fillWindow();
    }

    QColor color;
    bool isShade = false; ///< the theme's, not a colour of the host's own
    VemoMask *q;
    QWidget *widget = nullptr; ///< may be deleted before us, so do not dereference it then

private:
    StackingFilter *m_stacking;
};

// NOLINTNEXTLINE(performance-unnecessary-value-param): by value as declared.
QWidget *VemoMask::createMask(QWidget *widget, QWidget *parent, QColor color)
{
    if (widget && !parent)
        parent = widget->parentWidget();
    if (!canCover(widget, parent))
        return nullptr;
    // The parent owns it, and it is the widget's parentWidget().
    new VemoMask(widget, parent, color);
    return widget;
}

VemoMask::VemoMask(QWidget *widget, QWidget *parent, const QColor &color)
    : QFrame(parent), m_d(new VemoMaskPrivate(this))
{
    m_d->color = color;
    m_d->isShade = color == maskShade();
    m_d->fillWindow();
    m_d->setContent(widget);
    resize();
    widget->installEventFilter(this);
    new ParentEventFilterWidget(this, parent);
    new PointerFilter(this);
    // Otherwise showing the window later would also show the mask and the sheet.
    hide();
    // A widget that is deleted while visible receives no hide event.
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

void VemoMask::customEvent(QEvent *event)
{
    if (event->type() == StyleManager::reloadEvent())
        m_d->changeShade();
    QFrame::customEvent(event);
}

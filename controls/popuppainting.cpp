// SPDX-License-Identifier: MIT
#include "controls/popuppainting_p.h"

#include <QAbstractItemView>
#include <QBackingStore>
#include <QComboBox>
#include <QEvent>

namespace {

// One pixel row smaller. Resizing the picture to empty would free its memory, and allocating it
// again requires a round trip to the X server.
constexpr QSize kLess(0, 1);

class FreshPicture : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject *popup, QEvent *event) override
    {
        if (event->type() == QEvent::Show)
            dropPicture(*static_cast<QWidget *>(popup));
        return false;
    }

private:
    // When a pop-up opens, Qt marks the pop-up and then each of its parts as outdated. If its
    // backing store still has the picture of the last time, Qt updates it: first the pop-up with
    // all its parts, then all parts again. If the size of the backing store differs, everything is
    // painted once. So we change its size.
    static void dropPicture(const QWidget &popup)
    {
        if (QBackingStore *picture = popup.backingStore())
            picture->resize((picture->size() - kLess).expandedTo({1, 1}));
    }
};

} // namespace

void paintPopupOnce(QComboBox *box)
{
    QWidget *popup = box->view()->parentWidget();
    popup->installEventFilter(new FreshPicture(popup));
}

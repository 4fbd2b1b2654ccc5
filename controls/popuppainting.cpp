// SPDX-License-Identifier: MIT
#include "controls/popuppainting_p.h"

#include <QAbstractItemView>
#include <QBackingStore>
#include <QComboBox>
#include <QEvent>

namespace {

// Less one row: with its memory kept, which on X11 the server would have to be asked for.
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
    // When it opens, Qt marks the pop-up and then each of its parts as outdated. Where there is a
    // picture from last time, that one is repaired: first the pop-up with all in it, then all the parts
    // once more. Where there is none of the right size, everything is painted once.
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

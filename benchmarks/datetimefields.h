// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/vemodateselector.h>
#include <vemo/vemotimecombobox.h>

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QDate>
#include <QDeadlineTimer>
#include <QTime>
#include <QWindow>

#include <memory>
#include <utility>

/// Shared by the cases for date and time: showing and opening our fields.
namespace bench {

inline const QDate kFirstDate(2024, 3, 7);
constexpr int kMinutesApart = 30;

inline void process()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

/// Windows are not painted before they are exposed, and a window manager may delay that.
inline void waitUntilExposed(const QWidget &window)
{
    const QDeadlineTimer deadline(5000);
    while (!window.windowHandle()->isExposed() && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
    process();
}

inline std::unique_ptr<VemoDateSelector> ourField()
{
    auto field = std::make_unique<VemoDateSelector>(QStringLiteral("Any date"), nullptr);
    field->dateSelect(kFirstDate);
    field->show();
    waitUntilExposed(*field);
    return field;
}

inline QWidget *openList(QComboBox &box)
{
    box.showPopup();
    QWidget *popup = box.view()->window();
    waitUntilExposed(*popup);
    return popup;
}

template <typename Box> std::unique_ptr<Box> timeBox(std::unique_ptr<Box> box)
{
    for (int minute = 0; minute < 24 * 60; minute += kMinutesApart)
        box->addItem(QTime(0, 0).addSecs(minute * 60).toString(QStringLiteral("HH:mm")));
    box->show();
    waitUntilExposed(*box);
    return box;
}

inline std::unique_ptr<VemoTimeComboBox> ourBox()
{
    return timeBox(std::make_unique<VemoTimeComboBox>(nullptr));
}

/// Opens our field on another month each time.
inline int reopened(VemoDateSelector &field, int month)
{
    field.dateSelect(kFirstDate.addMonths(month % 24));
    const int height = openList(field)->height();
    field.hidePopup();
    process();
    return height;
}

inline int reopened(QComboBox &box)
{
    const int height = openList(box)->height();
    box.hidePopup();
    process();
    return height;
}

} // namespace bench

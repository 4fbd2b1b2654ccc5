// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
class QEvent;
/// What QWidget::enterEvent() receives: a QEvent with Qt 5, a QEnterEvent with Qt 6.
using VemoEnterEvent = QEvent;
#else
class QEnterEvent;
using VemoEnterEvent = QEnterEvent;
#endif

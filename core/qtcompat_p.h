// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
// What differs between Qt 5 and Qt 6.
#pragma once

#include <QByteArray>
#include <QColor>
#include <QCoreApplication>
#include <QDate>
#include <QDropEvent>
#include <QHoverEvent>
#include <QIcon>
#include <QNetworkRequest>
#include <QTextStream>
#include <QWidget>

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)

#include <QTextCodec>

/// QIconEngine::availableSizes() is const.
#define VEMO_CONST_UNTIL_QT6 const

/// A date, as QCalendarWidget::paintCell() takes it.
using DateArgument = const QDate &;

/// Decodes text that arrives in pieces. A byte order mark at the start is part of the text.
class Utf8Decoder : public QTextDecoder
{
public:
    Utf8Decoder() : QTextDecoder(QTextCodec::codecForName("UTF-8"), QTextCodec::IgnoreHeader) { }
};

inline void setUtf8(QTextStream *stream)
{
    stream->setCodec(QTextCodec::codecForName("Utf8"));
}

inline quint16 checksumOf(const QByteArray &bytes)
{
    return qChecksum(bytes.constData(), uint(bytes.size()));
}

inline QPoint positionOf(const QHoverEvent *event)
{
    return event->pos();
}

inline QPoint positionOf(const QDropEvent *event)
{
    return event->pos();
}

/// Whether icons are drawn as finely as the screen can show them.
inline bool hasFineIcons()
{
    return QCoreApplication::testAttribute(Qt::AA_UseHighDpiPixmaps);
}

inline QPixmap iconPixmap(
    const QIcon &icon, const QSize &size, const QWidget *widget, QIcon::Mode mode = QIcon::Normal)
{
    return icon.pixmap(widget->window()->windowHandle(), size, mode);
}

/// The colour of placeholders in a field whose style sheet sets only that of the text.
inline QColor placeholderOfSheet(const QColor &ink)
{
    return ink;
}

/// Leaves the judgement of a packed body's size to the caller.
inline void acceptAnyPacking(QNetworkRequest * /*request*/) { }

/// A leave event, to be handled like an enter event.
class LeaveAsEnter
{
public:
    explicit LeaveAsEnter(QEvent *leave) : m_event(leave) { }
    QEvent *event() { return m_event; }

private:
    QEvent *m_event;
};

#else

#include <QCursor>
#include <QEnterEvent>
#include <QStringDecoder>

#define VEMO_CONST_UNTIL_QT6

using DateArgument = QDate;

class Utf8Decoder : public QStringDecoder
{
public:
    Utf8Decoder() : QStringDecoder(QStringDecoder::Utf8, Flag::ConvertInitialBom) { }

    QString toUnicode(const QByteArray &bytes) { return decode(bytes); }
    bool needsMoreData() const { return state.remainingChars > 0; }
};

inline void setUtf8(QTextStream *stream)
{
    stream->setEncoding(QStringConverter::Utf8);
}

inline quint16 checksumOf(const QByteArray &bytes)
{
    return qChecksum(bytes);
}

inline QPoint positionOf(const QHoverEvent *event)
{
    return event->position().toPoint();
}

inline QPoint positionOf(const QDropEvent *event)
{
    return event->position().toPoint();
}

inline bool hasFineIcons()
{
    return true;
}

inline QPixmap iconPixmap(
    const QIcon &icon, const QSize &size, const QWidget *widget, QIcon::Mode mode = QIcon::Normal)
{
    return icon.pixmap(size, widget->devicePixelRatioF(), mode);
}

inline QColor placeholderOfSheet(const QColor &ink)
{
    QColor result = ink;
    result.setAlpha((ink.alpha() + 1) / 2);
    return result;
}

inline void acceptAnyPacking(QNetworkRequest *request)
{
    request->setDecompressedSafetyCheckThreshold(-1);
}

class LeaveAsEnter
{
public:
    explicit LeaveAsEnter(QEvent * /*leave*/) { }
    QEnterEvent *event() { return &m_event; }

private:
    QEnterEvent m_event {QPointF(), QPointF(), QCursor::pos()};
};

#endif

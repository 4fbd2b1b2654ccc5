// SPDX-License-Identifier: MIT
#include "texts.h"

#include "paths.h"

#include <vemo/componentstrings.h>

#include <QDateTime>
#include <QEvent>
#include <QGuiApplication>
#include <QLocale>
#include <QObject>

#include <utility>

namespace {

constexpr int kLongestShown = 120; // characters of a name in a sheet
constexpr int kLongestRun = 24; // characters before a line may break
constexpr int kKilobyte = 1024;
const QChar kBreak(0x200B); // takes no room
const QChar kRightToLeftMark(0x200F);
const QChar kIsolate(0x2068); // until its end, text has the direction of its first letter
const QChar kIsolateEnd(0x2069);

bool turnsDirection(QChar c)
{
    return (c.unicode() >= 0x202A && c.unicode() <= 0x202E)
        || (c.unicode() >= 0x2066 && c.unicode() <= 0x2069);
}

QChar visible(QChar c)
{
    if (c == '\n' || c == '\r' || c.unicode() == 0x2028 || c.unicode() == 0x2029)
        return QChar(0x21B5); // arrow of the Return key
    if (c == '\t')
        return QChar(0x21E5); // arrow of the Tab key
    // A lone surrogate represents an invalid byte.
    const bool isNoLetter = c.unicode() < 0x20 || (c.unicode() >= 0x7F && c.unicode() < 0xA0)
        || c.isSurrogate() || turnsDirection(c);
    return isNoLetter ? QChar(QChar::ReplacementCharacter) : c;
}

QString elided(const QString &name)
{
    if (name.size() <= kLongestShown)
        return name;
    const int half = kLongestShown / 2;
    return name.left(half) + QChar(0x2026) + name.right(half);
}

/// A name without blanks would otherwise be wider than its sheet.
QString breakable(const QString &name)
{
    QString result;
    int run = 0;
    for (const QChar c : name) {
        run = c.isSpace() ? 0 : run + 1;
        if (run > kLongestRun && !c.isLowSurrogate() && !c.isMark()) {
            result += kBreak;
            run = 1;
        }
        result += c;
    }
    return result;
}

QString markedUp(const QString &value)
{
    return QString("<b>%1</b>").arg(nameInText(value).toHtmlEscaped());
}

class LanguageWatch : public QObject
{
public:
    LanguageWatch(QObject *widget, std::function<void()> function)
        : QObject(widget), m_function(std::move(function))
    {
    }

    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() == QEvent::LanguageChange)
            m_function();
        return false;
    }

private:
    std::function<void()> m_function;
};

/// Among texts from right to left, "1 B" would be shown as "B 1".
QString isolated(const QString &text)
{
    return QGuiApplication::isRightToLeft() && !text.isEmpty() ? kIsolate + text + kIsolateEnd
                                                               : text;
}

/// The unit of bytes. From right to left that of English: QLocale has names for some units of these
/// languages and symbols for others, such as MB in Arabic.
QString unitText(const QLocale &locale, qint64 bytes)
{
    const bool isTranslated = locale.textDirection() == Qt::LeftToRight;
    const QLocale units = isTranslated ? locale : QLocale::c();
    const auto format = QLocale::DataSizeTraditionalFormat;
    const QString unit =
        units.formattedDataSize(qMax<qint64>(bytes, kKilobyte), 0, format).section(' ', -1);
    // QLocale writes out "bytes", also after a 1. The symbol is that of a kilobyte without its
    // first letter: "B", in French "o".
    return bytes < kKilobyte ? unit.mid(1) : unit;
}

QString plainSizeText(qint64 bytes)
{
    const QLocale locale;
    const QString number = bytes < kKilobyte
        ? locale.toString(bytes)
        : locale.formattedDataSize(bytes, 1, QLocale::DataSizeTraditionalFormat)
              .section(' ', 0, -2);
    return number + ' ' + unitText(locale, bytes);
}

} // namespace

QString text(const char *key)
{
    return ComponentStrings::getInstance().getString(QLatin1String("filebrowser.") + key);
}

QString text(const char *key, const QString &first)
{
    return text(key).arg(first);
}

QString text(const char *key, const QString &first, const QString &second)
{
    return text(key).arg(first, second);
}

QString markedText(const char *key, const QStringList &values)
{
    QString html = text(key).toHtmlEscaped();
    if (values.size() == 1)
        html = html.arg(markedUp(values.at(0)));
    else if (values.size() == 2)
        html = html.arg(markedUp(values.at(0)), markedUp(values.at(1)));
    return html.replace('\n', "<br>");
}

QString richText(const char *key, const QStringList &values)
{
    return "<qt>" + markedText(key, values) + "</qt>";
}

QString displayName(const QString &name)
{
    QString result = name;
    for (int i = 0; i < name.size(); ++i) {
        const bool isPair =
            name.at(i).isHighSurrogate() && i + 1 < name.size() && name.at(i + 1).isLowSurrogate();
        if (isPair)
            ++i;
        else
            result[i] = visible(name.at(i));
    }
    return result;
}

QString displayPath(const QString &path)
{
    return displayName(pathForUsers(path));
}

QString nameInText(const QString &name)
{
    return breakable(elided(displayName(name)));
}

void translate(QObject *widget, const std::function<void()> &function)
{
    function();
    widget->installEventFilter(new LanguageWatch(widget, function));
}

QString lineText(const QString &content)
{
    return QGuiApplication::isRightToLeft() ? kRightToLeftMark + isolated(content) : content;
}

QString sizeText(qint64 bytes)
{
    return isolated(plainSizeText(bytes));
}

QString dateText(const QDateTime &moment)
{
    // As the date fields and the times beside them write it.
    return isolated(QLocale::c().toString(moment, QStringLiteral("yyyy-MM-dd HH:mm")));
}

QString numberText(int number)
{
    return QLocale().toString(number);
}

QString kindText(const QString &kind)
{
    return text(("kind_" + kind).toLatin1().constData());
}

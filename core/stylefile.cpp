// SPDX-License-Identifier: MIT
#include "core/stylefile_p.h"

#include "core/textscan_p.h"

#include <algorithm>

namespace {

constexpr QChar kLineBreak = QLatin1Char('\n');

/// The end of the line that contains from: after its line break, or the end of text.
int endOfLine(const QString &text, int from)
{
    const int lineBreak = text.indexOf(kLineBreak, from);
    return lineBreak < 0 ? text.size() : lineBreak + 1;
}

/// The position of the next placeholder at or after from; -1 if there is none. Searches for its "G"
/// first, which is rare in style files: a single character is found much faster than a word.
int indexOfPlaceholder(const QString &text, QLatin1String placeholder, int from)
{
    constexpr QLatin1Char rare('G');
    const auto offset = static_cast<int>(placeholder.indexOf(rare));
    for (int at = text.indexOf(rare, from + offset); at >= 0; at = text.indexOf(rare, at + 1)) {
        if (QStringView(text).mid(at - offset).startsWith(placeholder))
            return at - offset;
    }
    return -1;
}

/// Removes everything from "/" + second to the next closer on the same line, inclusive.
void removeRuns(QString &text, QChar second, QStringView closer)
{
    QChar *const start = text.data();
    QChar *kept = start;
    int copied = 0;
    const auto keepUpTo = [&](int end) { kept = std::copy(start + copied, start + end, kept); };
    int lineEnd = 0;
    int slash = text.indexOf(QLatin1Char('/'));
    while (slash >= 0 && slash + 1 < text.size()) {
        int next = slash + 1;
        if (start[next] == second) {
            // Only searched once per line, even if it has many comments.
            if (lineEnd <= slash)
                lineEnd = endOfLine(text, slash);
            const QChar *found =
                std::search(start + slash + 2, start + lineEnd, closer.begin(), closer.end());
            next = lineEnd;
            if (found != start + lineEnd) {
                next = static_cast<int>(found - start + closer.size());
                keepUpTo(slash);
                copied = next;
            }
        }
        slash = text.indexOf(QLatin1Char('/'), next);
    }
    keepUpTo(text.size());
    text.truncate(static_cast<int>(kept - start));
}

/// Makes sure that every line of text ends with "\n", including the last one.
QString withLineBreaks(QString text)
{
    // Files are read without any "\r"; only the name of a folder can contain one.
    if (text.contains(QLatin1Char('\r')))
        text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    if (text.endsWith(QLatin1Char('\r')))
        text.chop(1);
    else if (text.isEmpty() || text.endsWith(kLineBreak))
        return text;
    return text += kLineBreak;
}

bool isHeader(QStringView line)
{
    const QLatin1String mark("==");
    return line.startsWith(mark) && line.endsWith(mark);
}

QString keyOf(QStringView header)
{
    QString key = header.toString();
    return key.remove(QLatin1Char('=')).remove(QLatin1Char(' '));
}

} // namespace

QString withFolder(const QString &text, QLatin1String placeholder, const QString &folder)
{
    QString result;
    int copied = 0;
    for (int found = indexOfPlaceholder(text, placeholder, 0); found >= 0;
         found = indexOfPlaceholder(text, placeholder, copied)) {
        if (copied == 0)
            result.reserve(text.size() + text.size() / 8);
        result.append(text.constData() + copied, found - copied).append(folder);
        copied = found + placeholder.size();
    }
    return copied == 0 ? text : result.append(text.constData() + copied, text.size() - copied);
}

QString withoutComments(QString text)
{
    if (!isWellFormed(text))
        return text;
    // In this order: if a slash-star comment between two slashes is removed, the remaining "//"
    // starts a comment as well.
    removeRuns(text, QLatin1Char('*'), u"*/");
    removeRuns(text, QLatin1Char('/'), u"\n");
    return text;
}

void storeSections(QString text, std::map<QString, QString> &sections)
{
    const QString lines = withLineBreaks(std::move(text));
    QString key;
    QString section;
    int sectionStart = 0;
    const auto appendLinesUpTo = [&](int end) {
        if (end == sectionStart)
            return;
        // Only for a new section: reserving exactly what is added would copy longer texts each
        // time.
        if (section.isEmpty())
            section.reserve(1 + end - sectionStart);
        section.append(kLineBreak);
        section.append(lines.constData() + sectionStart, end - 1 - sectionStart);
    };
    const auto store = [&] {
        // Deliberate: text before the first header, or under an empty key, is added to the start of
        // the next section.
        if (key.isEmpty())
            return;
        sections[key] = section;
        section.clear();
    };
    for (int lineStart = 0, nextLine = 0; lineStart < lines.size(); lineStart = nextLine) {
        nextLine = endOfLine(lines, lineStart);
        const QStringView line = QStringView(lines).mid(lineStart, nextLine - 1 - lineStart);
        if (!isHeader(line))
            continue;
        appendLinesUpTo(lineStart);
        store();
        key = keyOf(line);
        sectionStart = nextLine;
    }
    appendLinesUpTo(lines.size());
    store();
}

// SPDX-License-Identifier: MIT
#include "core/stylefile_p.h"

#include "core/textscan_p.h"

namespace {

constexpr QChar kLineBreak = QLatin1Char('\n');

/// Where the line around from ends: behind its line break, or at the end of text.
int behindLine(const QString &text, int from)
{
    const int lineBreak = text.indexOf(kLineBreak, from);
    return lineBreak < 0 ? text.size() : lineBreak + 1;
}

/// Leaves out what stands between "/" + second and the next closer on the same line, both included.
QString withoutRuns(const QString &text, QChar second, QLatin1String closer)
{
    QString kept;
    kept.reserve(text.size());
    int copied = 0;
    int slash = text.indexOf(QLatin1Char('/'));
    while (slash >= 0 && slash + 1 < text.size()) {
        int next = slash + 1;
        if (text[next] == second) {
            const int lineEnd = behindLine(text, slash);
            const QStringView rest = QStringView(text).mid(slash + 2, lineEnd - slash - 2);
            const int length = static_cast<int>(rest.indexOf(closer));
            next = lineEnd;
            if (length >= 0) {
                next = slash + 2 + length + closer.size();
                kept.append(text.constData() + copied, slash - copied);
                copied = next;
            }
        }
        slash = text.indexOf(QLatin1Char('/'), next);
    }
    return copied == 0 ? text : kept.append(text.constData() + copied, text.size() - copied);
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

QString withoutComments(const QString &text)
{
    if (!isWellFormed(text))
        return text;
    // In this order: "/", a slash-star comment and "/" leave a "//" behind, which is a comment too.
    return withoutRuns(withoutRuns(text, QLatin1Char('*'), QLatin1String("*/")), QLatin1Char('/'),
        QLatin1String("\n"));
}

void storeSections(const QString &text, std::map<QString, QString> &sections)
{
    QString key;
    QString section;
    int sectionStart = 0;
    const auto take = [&](int end) {
        if (end <= sectionStart)
            return;
        section.append(kLineBreak);
        section.append(text.constData() + sectionStart, end - 1 - sectionStart);
    };
    int lineStart = 0;
    while (lineStart < text.size()) {
        const int nextLine = behindLine(text, lineStart);
        const bool isBroken = text[nextLine - 1] == kLineBreak;
        const QStringView line =
            QStringView(text).mid(lineStart, nextLine - lineStart - (isBroken ? 1 : 0));
        if (isHeader(line)) {
            take(lineStart);
            // Deliberate: text before the first header, or under an empty key, goes in front of the
            // next section.
            if (!key.isEmpty()) {
                sections[key] = section;
                section.clear();
            }
            key = keyOf(line);
            sectionStart = nextLine;
        }
        lineStart = nextLine;
    }
    take(text.endsWith(kLineBreak) ? text.size() : text.size() + 1);
    if (!key.isEmpty())
        sections[key] = section;
}

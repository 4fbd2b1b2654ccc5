// SPDX-License-Identifier: MIT
#include "core/scaledlengths_p.h"

#include "core/textscan_p.h"
#include "core/truncation_p.h"

#include <QVarLengthArray>

#include <algorithm>
#include <charconv>
#include <limits>
#include <numeric>

namespace {

// For longer sheets the length of the result might overflow an int. Four times the longest style
// file.
constexpr int kMaxSheet = 64 * 1024 * 1024;
constexpr int kRescanStep = 3; // Characters from the start of a number to where the scan continues.

bool isDigit(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

/// A number directly before "px": digits, optionally followed by a point and more digits.
struct Length
{
    int start; ///< first digit
    int unit; ///< start of "px"

    int end() const { return unit + 2; }
};

/// The longest number that ends at unit and begins at from or later; start is -1 if there is none.
Length lengthBefore(const QString &sheet, int unit, int from)
{
    const auto digitsBefore = [&](int end) {
        while (end > from && isDigit(sheet[end - 1]))
            --end;
        return end;
    };
    const int tail = digitsBefore(unit);
    if (tail > from && sheet[tail - 1] == QLatin1Char('.')) {
        const int whole = digitsBefore(tail - 1);
        if (whole < tail - 1)
            return {whole, unit};
    }
    return {tail < unit ? tail : -1, unit};
}

using Lengths = QVarLengthArray<Length, 256>;

Lengths allLengths(const QString &sheet)
{
    Lengths lengths;
    int from = 0;
    for (int x = sheet.indexOf(QLatin1Char('x')); x >= 0;
         x = sheet.indexOf(QLatin1Char('x'), x + 1)) {
        if (x == from || sheet[x - 1] != QLatin1Char('p'))
            continue;
        const Length length = lengthBefore(sheet, x - 1, from);
        if (length.start < 0)
            continue;
        lengths.append(length);
        from = length.end();
    }
    return lengths;
}

/// Upper bound of the numbers that the scan finds: one per length, and one for each tail of a
/// length that is scanned again.
int maxNumbers(const Lengths &lengths)
{
    return std::accumulate(lengths.begin(), lengths.end(), 0, [](int sum, const Length &length) {
        return sum + 1 + (length.unit - length.start) / kRescanStep;
    });
}

/// Reads the numbers that start at increasing positions of one length, in linear time overall.
class NumberReader
{
public:
    NumberReader(const QString &sheet, const Length &length)
        : m_sheet(sheet), m_unit(length.unit), m_lengthPoint(length.start)
    {
        while (m_lengthPoint < m_unit && isDigit(sheet[m_lengthPoint]))
            ++m_lengthPoint;
    }

    double numberFrom(int start)
    {
        const int point = start <= m_lengthPoint ? m_lengthPoint : m_unit;
        int digit = qMax(m_digit, start);
        while (digit < point && m_sheet[digit] == QLatin1Char('0'))
            ++digit;
        if (digit != m_digit || point != m_point) {
            m_digit = digit;
            m_point = point;
            m_number = number();
        }
        return m_number;
    }

    /// Where the scan continues after the number that begins at start; -1 if no digit is left.
    int startAfter(int start) const
    {
        const int next = start + kRescanStep;
        const int digit = next == m_lengthPoint ? next + 1 : next;
        return digit < m_unit ? digit : -1;
    }

private:
    // Integers with 15 digits and powers of ten up to 22 are exact doubles, so their quotient is
    // rounded like the parsed text.
    static constexpr int kExactDigits = 15;

    double number() const
    {
        if (m_point - m_digit > kExactDigits)
            return std::numeric_limits<double>::infinity(); // Exceeds int with any factor.
        return m_unit - m_digit <= kExactDigits ? exactNumber()
                                                : m_sheet.mid(m_digit, m_unit - m_digit).toDouble();
    }

    double exactNumber() const
    {
        qint64 digits = 0;
        for (int i = m_digit; i < m_point; ++i)
            digits = digits * 10 + digitAt(i);
        if (m_point == m_unit)
            return static_cast<double>(digits);
        double divisor = 1;
        for (int i = m_point + 1; i < m_unit; ++i) {
            digits = digits * 10 + digitAt(i);
            divisor *= 10;
        }
        return static_cast<double>(digits) / divisor;
    }

    int digitAt(int i) const { return m_sheet[i].unicode() - '0'; }

    const QString &m_sheet;
    const int m_unit;
    int m_lengthPoint; ///< the point in the length, or the start of "px"
    // The last number: it is reused if a later position leads to the same digits.
    int m_digit = -1; ///< its first non-zero digit
    int m_point = -1; ///< its point, or the start of "px"
    double m_number = 0;
};

/// Writes into a string that is allocated once with its maximum length.
class Writer
{
public:
    explicit Writer(int maxCharacters)
        : m_text(maxCharacters, Qt::Uninitialized), m_end(m_text.data())
    {
    }

    void append(const QChar *start, int length) { m_end = std::copy_n(start, length, m_end); }

    void appendPixels(int pixels)
    {
        char digits[kMaxPixelsText] = {};
        const char *end = std::to_chars(digits, digits + kMaxPixelsText, pixels).ptr;
        for (const char *digit = digits; digit != end; ++digit)
            *m_end++ = QLatin1Char(*digit);
        *m_end++ = QLatin1Char('p');
        *m_end++ = QLatin1Char('x');
    }

    QString text()
    {
        m_text.truncate(static_cast<int>(m_end - m_text.constData()));
        return m_text;
    }

    static constexpr int kMaxPixelsText = 13; ///< length of the lowest int with "px"

private:
    QString m_text;
    QChar *m_end;
};

/// Appends the pieces of a sheet between its lengths, one per call.
class Pieces
{
public:
    Pieces(const QString &sheet, const Lengths &lengths) : m_sheet(sheet), m_lengths(lengths) { }

    void appendNext(Writer &result)
    {
        if (m_next > m_lengths.size())
            return;
        const int start = m_next == 0 ? 0 : m_lengths[m_next - 1].end();
        const int end = m_next == m_lengths.size() ? m_sheet.size() : m_lengths[m_next].start;
        result.append(m_sheet.constData() + start, end - start);
        ++m_next;
    }

private:
    const QString &m_sheet;
    const Lengths &m_lengths;
    int m_next = 0;
};

} // namespace

QString scaledLengths(const QString &sheet, double factor)
{
    // There is at most one number for every three characters.
    static_assert(std::numeric_limits<int>::max() / (kRescanStep + Writer::kMaxPixelsText)
        > kMaxSheet / kRescanStep);
    if (sheet.size() > kMaxSheet || !isWellFormed(sheet))
        return sheet;
    const Lengths lengths = allLengths(sheet);
    Pieces pieces(sheet, lengths);
    Writer result(int(sheet.size()) + maxNumbers(lengths) * Writer::kMaxPixelsText);
    for (const Length &length : lengths) {
        NumberReader reader(sheet, length);
        // Deliberate: the scan continues a step after the start of a length, not after its end, so
        // the tail of a longer one is scaled again and uses up a piece of its own.
        for (int start = length.start; start >= 0;) {
            pieces.appendNext(result);
            result.appendPixels(truncToInt(reader.numberFrom(start) * factor));
            start = reader.startAfter(start);
        }
    }
    pieces.appendNext(result);
    return result.text();
}

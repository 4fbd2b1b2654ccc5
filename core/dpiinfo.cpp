// SPDX-License-Identifier: MIT
#include <vemo/dpiinfo.h>

#include "core/scaling_p.h"
#include "core/textscan_p.h"

#include <QGuiApplication>
#include <QScreen>
#include <QVarLengthArray>

#include <charconv>
#include <limits>

namespace {

constexpr double kDesignDpi = 96.0;

bool isDigit(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

/// A number directly in front of "px": digits, perhaps a point and more digits.
struct Length
{
    int start; ///< first digit
    int point; ///< the point, or where "px" begins
    int unit; ///< where "px" begins

    int end() const { return unit + 2; }

    /// Where the number begins that is left when everything before from is ignored; -1 for none.
    int startFrom(int from) const
    {
        const int digit = from == point ? from + 1 : from;
        return digit < unit ? digit : -1;
    }
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
            return {whole, tail - 1, unit};
    }
    return {tail < unit ? tail : -1, unit, unit};
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

/// Reads the numbers that begin at ever later places of one length, in linear time altogether.
class NumberReader
{
public:
    NumberReader(const QString &sheet, const Length &length) : m_sheet(sheet), m_length(length) { }

    double numberFrom(int start)
    {
        const int point = start <= m_length.point ? m_length.point : m_length.unit;
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

private:
    // A whole number of 15 digits and a power of ten up to 22 are exact doubles, so is their
    // quotient rounded just as text would be.
    static constexpr int kExactDigits = 15;

    double number() const
    {
        if (m_point - m_digit > kExactDigits)
            return std::numeric_limits<double>::infinity(); // Beyond any int, whatever the factor.
        return m_length.unit - m_digit <= kExactDigits
            ? exactNumber()
            : m_sheet.midRef(m_digit, m_length.unit - m_digit).toDouble();
    }

    double exactNumber() const
    {
        qint64 digits = 0;
        double divisor = 1;
        for (int i = m_digit; i < m_length.unit; ++i) {
            if (i == m_point)
                continue;
            digits = digits * 10 + (m_sheet[i].unicode() - '0');
            divisor = i > m_point ? divisor * 10 : divisor;
        }
        return static_cast<double>(digits) / divisor;
    }

    const QString &m_sheet;
    const Length m_length;
    // The number read last: a later place in front of the same digits needs no reading again.
    int m_digit = -1; ///< its first digit but zeros
    int m_point = -1;
    double m_number = 0;
};

void appendPixels(QString &result, int pixels)
{
    char text[16];
    const auto written = std::to_chars(text, text + sizeof(text) - 2, pixels);
    written.ptr[0] = 'p';
    written.ptr[1] = 'x';
    result.append(QLatin1String(text, static_cast<int>(written.ptr - text) + 2));
}

/// Hands out the pieces of a sheet between its lengths, one after the other.
class Pieces
{
public:
    Pieces(const QString &sheet, const Lengths &lengths) : m_sheet(sheet), m_lengths(lengths) { }

    void appendNext(QString &result)
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

DPIinfo &DPIinfo::getInstance()
{
    static DPIinfo instance;
    return instance;
}

DPIinfo::DPIinfo()
{
    if (const QScreen *screen = QGuiApplication::primaryScreen()) {
        m_dpi = screen->logicalDotsPerInchX() / kDesignDpi;
        m_dpr = screen->devicePixelRatio();
    }
}

QString DPIinfo::getScaledStyleSheet(QString sheet) const
{
    if (!isWellFormed(sheet))
        return sheet;
    const Lengths lengths = allLengths(sheet);
    Pieces pieces(sheet, lengths);
    QString result;
    result.reserve(sheet.size() + sheet.size() / 8);
    for (const Length &length : lengths) {
        NumberReader reader(sheet, length);
        // Deliberate: the search goes on three characters after the start of a length, not after
        // its end, so that a longer one counts again by its tail and takes a piece of its own.
        for (int start = length.start; start >= 0;) {
            pieces.appendNext(result);
            appendPixels(result, truncToInt(reader.numberFrom(start) * m_dpi));
            start = length.startFrom(start + 3);
        }
    }
    pieces.appendNext(result);
    return result;
}

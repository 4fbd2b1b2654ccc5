// SPDX-License-Identifier: MIT
#include "support/vemotest.h"

#include <QDir>
#include <QRegularExpression>
#include <QXmlStreamReader>

#include <cmath>

namespace {

/// How many numbers a letter of a path takes.
const QMap<QChar, int> kNumbers {{'M', 2}, {'L', 2}, {'H', 1}, {'V', 1}, {'C', 6}, {'S', 4},
    {'Q', 4}, {'T', 2}, {'A', 7}, {'Z', 0}};

/// A line of a path that runs straight across or straight down, and the place at which it does.
struct StraightLine
{
    char direction;
    double place;
};

/// Walks along the data of a path.
class PathWalk
{
public:
    explicit PathWalk(const QString &data)
    {
        static const QRegularExpression token(R"re([A-Za-z]|-?(?:\d+\.?\d*|\.\d+))re");
        auto match = token.globalMatch(data);
        while (match.hasNext())
            m_tokens.append(match.next().captured());
    }

    QVector<StraightLine> straightLines()
    {
        while (m_next < m_tokens.size()) {
            if (m_tokens.at(m_next).at(0).isLetter())
                m_command = m_tokens.at(m_next++).at(0);
            step();
        }
        return m_lines;
    }

private:
    void step()
    {
        QVector<double> numbers;
        for (int i = 0; i < kNumbers.value(m_command.toUpper()); ++i)
            numbers.append(m_tokens.value(m_next++).toDouble());
        const QPointF from = m_at;
        const QPointF origin = m_command.isLower() ? m_at : QPointF();
        switch (m_command.toUpper().toLatin1()) {
        case 'Z':
            m_at = m_start;
            break;
        case 'H':
            m_at.setX(origin.x() + numbers.at(0));
            break;
        case 'V':
            m_at.setY(origin.y() + numbers.at(0));
            break;
        default:
            m_at = origin + QPointF(numbers.at(numbers.size() - 2), numbers.last());
        }
        if (m_command.toUpper() == 'M')
            beginPart();
        else if (QString("LHVZ").contains(m_command.toUpper()))
            keep(from);
    }

    void beginPart()
    {
        m_start = m_at;
        m_command = m_command.isLower() ? 'l' : 'L'; // what further pairs of numbers mean
    }

    void keep(const QPointF &from)
    {
        constexpr double kDot = 0.1; // no line: the pen set down once
        if (from.x() == m_at.x() && std::abs(from.y() - m_at.y()) > kDot)
            m_lines.append({'|', m_at.x()});
        else if (from.y() == m_at.y() && std::abs(from.x() - m_at.x()) > kDot)
            m_lines.append({'-', m_at.y()});
    }

    QStringList m_tokens;
    int m_next = 0;
    QChar m_command = 'M';
    QPointF m_at;
    QPointF m_start;
    QVector<StraightLine> m_lines;
};

/// A small mark that is filled with its pen's colour.
bool isSolid(const QXmlStreamAttributes &attributes)
{
    return attributes.hasAttribute("fill")
        && attributes.value("fill") == attributes.value("stroke");
}

/// The straight lines of an element that is drawn with a pen.
QVector<StraightLine> linesOf(const QXmlStreamReader &xml)
{
    const QXmlStreamAttributes attributes = xml.attributes();
    if (attributes.value("stroke") == QLatin1String("none") || isSolid(attributes))
        return {};
    if (xml.name() == QLatin1String("path"))
        return PathWalk(attributes.value("d").toString()).straightLines();
    if (xml.name() == QLatin1String("rect"))
        return {{'|', attributes.value("x").toDouble()}, {'-', attributes.value("y").toDouble()}};
    return {};
}

double fraction(double value)
{
    return value - std::floor(value);
}

} // namespace

/// The drawings follow the rules of theme/README.md.
class DrawingsTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void eachHasOnePen_data();
    void eachHasOnePen();
    void straightStrokesAreCrisp_data() { eachHasOnePen_data(); }
    void straightStrokesAreCrisp();
    void theWalkAlongAPathFindsItsStraightLines();

private:
    QByteArray content() const
    {
        QFile file(QString(VEMO_DRAWINGS "/%1.svg").arg(QTest::currentDataTag()));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
};

void DrawingsTest::eachHasOnePen_data()
{
    QTest::addColumn<bool>("isBold");
    for (const QString &file : QDir(VEMO_DRAWINGS).entryList({"*.svg"})) {
        const QString name = file.chopped(4);
        // The shadow of sheets has no strokes.
        if (!name.startsWith("bg_"))
            QTest::newRow(qPrintable(name)) << (name.startsWith("check") || name == "bt_more");
    }
}

void DrawingsTest::eachHasOnePen()
{
    QFETCH(bool, isBold);
    QXmlStreamReader xml(content());
    QVERIFY(xml.readNextStartElement());
    const bool isLarge = xml.attributes().value("viewBox") == QLatin1String("0 0 32 32");
    const QString pen = isLarge || isBold ? "2" : "1.25";
    QString width = xml.attributes().value("stroke-width").toString();
    for (; !xml.atEnd(); xml.readNext()) {
        if (!xml.isStartElement())
            continue;
        const QXmlStreamAttributes attributes = xml.attributes();
        for (const char *end : {"stroke-linecap", "stroke-linejoin"})
            QVERIFY(
                !attributes.hasAttribute(end) || attributes.value(end) == QLatin1String("round"));
        if (attributes.hasAttribute("stroke-width"))
            width = attributes.value("stroke-width").toString();
        if (attributes.hasAttribute("d") && !isSolid(attributes)
            && attributes.value("stroke") != QLatin1String("none"))
            QCOMPARE(width, pen);
    }
}

// A pen of 1.25 is one pixel and a breath around the middle of a pixel, one of 2 is two pixels
// around the line between them.
void DrawingsTest::straightStrokesAreCrisp()
{
    QXmlStreamReader xml(content());
    QVERIFY(xml.readNextStartElement());
    const bool isFine = xml.attributes().value("stroke-width") == QLatin1String("1.25");
    const double wanted = isFine ? 0.5 : 0.0;
    for (; !xml.atEnd(); xml.readNext()) {
        if (!xml.isStartElement())
            continue;
        for (const StraightLine &line : linesOf(xml)) {
            const QString where = QString("%1 at %2").arg(line.direction).arg(line.place);
            QVERIFY2(fraction(line.place) == wanted, qPrintable(where));
        }
    }
}

void DrawingsTest::theWalkAlongAPathFindsItsStraightLines()
{
    const QVector<StraightLine> lines =
        PathWalk("M1.5 2.25h4l3 3v-.6.3a1 1 0 0 1 1-1H2zM0 0 3 0").straightLines();
    QString found;
    for (const StraightLine &line : lines)
        found += QString("%1%2 ").arg(line.direction).arg(line.place);
    QCOMPARE(found, QString("-2.25 |8.5 |8.5 -3.95 -0 "));
}

VEMO_TEST_MAIN(DrawingsTest)
#include "tst_drawings.moc"

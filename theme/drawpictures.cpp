// SPDX-License-Identifier: MIT

// Build tool that draws the theme's SVG pictures at four times their display size: a PNG for each
// drawing and for each variant that it requests (hover, click, disable, removed), or a GIF if it
// requests an animation. The drawings name the colours of a palette (@accent@).
// The drawing rules are in theme/README.md.
//
//     drawpictures PALETTE OUTDIR SVG...

#include "gifwriter_p.h"
#include "gridfit_p.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>
#include <QPainter>
#include <QRegularExpression>
#include <QSet>
#include <QSvgRenderer>
#include <QXmlStreamReader>

#include <cstdio>
#include <stdexcept>

namespace {

constexpr int kOversampling = 4;
constexpr int kMaxSize = 256; // design pixels
constexpr int kFrameDelay = 4; // hundredths of a second

// The palette: colours by name.
QMap<QString, QString> &palette()
{
    static QMap<QString, QString> colours;
    return colours;
}

QColor colourOf(const QString &name)
{
    return QColor(palette().value(name));
}

using Recolouring = QMap<QByteArray, QByteArray>;

const QMap<QString, Recolouring> &states()
{
    static const Recolouring greyed {{"@soft-ink@", "@faint-ink@"}, {"@accent@", "@faint-ink@"},
        {"@danger@", "@faint-ink@"}, {"@selection@", "@hover@"}};
    static const QMap<QString, Recolouring> states {
        {"hover", {{"@soft-ink@", "@accent@"}}},
        {"click", {{"@soft-ink@", "@accent-pressed@"}, {"@accent@", "@accent-pressed@"}}},
        {"disable", greyed},
        {"removed", greyed},
    };
    return states;
}

struct Drawing
{
    QString path;
    QString name;
    QByteArray svg;
    QSize size; // design pixels
    QStringList states;
    int turnSteps = 0; // if positive, an animation that turns the drawing once in that many frames
    QSet<QString> colours; // names
};

struct Picture
{
    const Drawing *drawing;
    QString state; // empty for the normal state

    QString fileName() const
    {
        const QString suffix = state.isEmpty() ? QString() : "_" + state;
        return drawing->name + suffix + (drawing->turnSteps > 0 ? ".gif" : ".png");
    }
};

[[noreturn]] void fail(const QString &path, const QString &problem)
{
    throw std::runtime_error((path + ": " + problem).toStdString());
}

// The last warning of Qt's SVG reader, which otherwise continues with an incomplete picture.
QString &complaint()
{
    static QString text;
    return text;
}

void keepComplaint(QtMsgType, const QMessageLogContext &, const QString &message)
{
    complaint() = message;
}

void readColours(const QXmlStreamAttributes &attributes, Drawing &drawing)
{
    for (const char *key : {"fill", "stroke", "stop-color"}) {
        const QString value = attributes.value(key).toString();
        if (value.isEmpty() || value == "none" || value.startsWith("url("))
            continue;
        const bool isName = value.size() > 2 && value.startsWith('@') && value.endsWith('@');
        const QString name = isName ? value.mid(1, value.size() - 2) : QString();
        if (!palette().contains(name))
            fail(drawing.path, "\"" + value + "\" is not a colour of the palette");
        drawing.colours.insert(name);
    }
}

void readOmission(const QXmlStreamAttributes &attributes, const Drawing &drawing)
{
    const QString state = attributes.value("data-not").toString();
    if (!state.isEmpty() && !drawing.states.contains(state))
        fail(drawing.path, "data-not=\"" + state + "\" is none of data-states");
}

void readRoot(const QXmlStreamAttributes &attributes, Drawing &drawing)
{
    const QStringList box = attributes.value("viewBox").toString().split(' ');
    if (box.size() == 4)
        drawing.size = QSize(box.at(2).toInt(), box.at(3).toInt());
    if (drawing.size.isEmpty() || qMax(drawing.size.width(), drawing.size.height()) > kMaxSize)
        fail(drawing.path, "needs viewBox=\"0 0 WIDTH HEIGHT\", whole pixels up to 256");
    drawing.states = attributes.value("data-states").toString().split(' ', Qt::SkipEmptyParts);
    for (const QString &state : qAsConst(drawing.states)) {
        if (!states().contains(state))
            fail(drawing.path, "unknown state \"" + state + "\" in data-states");
    }
    if (attributes.hasAttribute("data-turn")) {
        drawing.turnSteps = attributes.value("data-turn").toInt();
        if (drawing.turnSteps < 2)
            fail(drawing.path, "data-turn needs a number of frames above 1");
    }
}

Drawing readDrawing(const QString &path)
{
    Drawing drawing;
    drawing.path = path;
    drawing.name = QFileInfo(path).completeBaseName();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        fail(path, file.errorString());
    drawing.svg = file.readAll();

    QXmlStreamReader xml(drawing.svg);
    if (!xml.readNextStartElement() || xml.name() != QLatin1String("svg"))
        fail(path, xml.hasError() ? xml.errorString() : "is no SVG drawing");
    readRoot(xml.attributes(), drawing);
    readColours(xml.attributes(), drawing);
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        readColours(xml.attributes(), drawing);
        readOmission(xml.attributes(), drawing);
    }
    if (xml.hasError())
        fail(path, QString("line %1: %2").arg(xml.lineNumber()).arg(xml.errorString()));
    if (drawing.turnSteps > 0 && drawing.colours.size() != 1)
        fail(path, "data-turn needs a drawing in one colour");
    return drawing;
}

// A variant with its own drawing is not derived.
QVector<Picture> picturesOf(const QVector<Drawing> &drawings)
{
    QSet<QString> drawn;
    for (const Drawing &drawing : drawings) {
        if (drawn.contains(drawing.name))
            fail(drawing.path, "the name is given twice");
        drawn.insert(drawing.name);
    }
    QVector<Picture> pictures;
    for (const Drawing &drawing : drawings) {
        pictures.append({&drawing, QString()});
        for (const QString &state : drawing.states) {
            if (!drawn.contains(drawing.name + "_" + state))
                pictures.append({&drawing, state});
        }
    }
    return pictures;
}

// First exchanges the names of some colours, then replaces all names by their colours.
QByteArray coloured(QByteArray svg, const Recolouring &recolouring)
{
    for (auto it = recolouring.cbegin(); it != recolouring.cend(); ++it)
        svg.replace(it.key(), it.value());
    for (auto it = palette().cbegin(); it != palette().cend(); ++it)
        svg.replace('@' + it.key().toUtf8() + '@', it.value().toUtf8());
    return svg;
}

// The badge must be separated from the picture on every background, so its margin is cut out, not
// painted.
void drawRemovedBadge(QPainter &painter, const QSize &size)
{
    const qreal unit = size.width() / 16.0;
    const QPointF centre(size.width() - 3.5 * unit, size.height() - 3.5 * unit);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    painter.drawEllipse(centre, 4.5 * unit, 4.5 * unit);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.setBrush(colourOf("danger"));
    painter.drawEllipse(centre, 3.5 * unit, 3.5 * unit);
    painter.setPen(QPen(colourOf("on-accent"), 1.25 * unit));
    painter.drawLine(centre - QPointF(2 * unit, 0), centre + QPointF(2 * unit, 0));
}

// Removes the elements that are left out in this state.
QByteArray reduced(const QByteArray &svg, const QString &state)
{
    static const QRegularExpression marked(R"re(<[^<>]*\sdata-not="(\w+)"[^<>]*/>)re");
    QString text = QString::fromUtf8(svg);
    auto match = marked.globalMatch(QString(text));
    while (match.hasNext()) {
        const QRegularExpressionMatch element = match.next();
        if (element.captured(1) == state)
            text.remove(element.captured());
    }
    return text.toUtf8();
}

QImage render(const Picture &picture, qreal degrees = 0)
{
    const Drawing &drawing = *picture.drawing;
    const QByteArray svg = reduced(drawing.svg, picture.state);
    QSvgRenderer renderer;
    if (!renderer.load(coloured(svg, states().value(picture.state))))
        fail(drawing.path, "is not a drawable SVG");

    QImage image(drawing.size * kOversampling, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    if (drawing.turnSteps == 0)
        drawOnGrid(renderer, image, kOversampling);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    if (drawing.turnSteps > 0) {
        painter.translate(image.width() / 2.0, image.height() / 2.0);
        painter.rotate(degrees);
        painter.translate(image.width() / -2.0, image.height() / -2.0);
        renderer.render(&painter, QRectF(image.rect()));
    }
    if (!complaint().isEmpty())
        fail(drawing.path, complaint());
    if (picture.state == "removed")
        drawRemovedBadge(painter, image.size());
    return image;
}

QByteArray animation(const Picture &picture)
{
    const int steps = picture.drawing->turnSteps;
    QVector<QImage> frames;
    for (int i = 0; i < steps; ++i)
        frames.append(render(picture, 360.0 * i / steps));
    return animatedGif(
        frames, kFrameDelay, colourOf("surface"), colourOf(*picture.drawing->colours.cbegin()));
}

void write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.flush())
        fail(path, file.errorString());
}

void draw(const Picture &picture, const QString &path)
{
    if (picture.drawing->turnSteps > 0)
        write(path, animation(picture));
    else if (!render(picture).save(path, "PNG"))
        fail(path, "can't be written");
}

void readPalette(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        fail(path, file.errorString());
    const QJsonObject colours = QJsonDocument::fromJson(file.readAll()).object();
    for (auto it = colours.begin(); it != colours.end(); ++it) {
        if (!QColor::isValidColor(it.value().toString()))
            fail(path, "\"" + it.key() + "\" is not a colour");
        palette().insert(it.key(), it.value().toString());
    }
    if (palette().isEmpty())
        fail(path, "is not a palette");
}

void run(const QString &folder, const QStringList &paths)
{
    QVector<Drawing> drawings;
    for (const QString &path : paths)
        drawings.append(readDrawing(path));
    const QVector<Picture> pictures = picturesOf(drawings);
    if (!QDir().mkpath(folder))
        fail(folder, "can't be created");
    for (const Picture &picture : pictures)
        draw(picture, folder + "/" + picture.fileName());
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    qInstallMessageHandler(keepComplaint);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 4) {
        std::fprintf(stderr, "usage: drawpictures PALETTE OUTDIR SVG...\n");
        return 1;
    }
    try {
        readPalette(arguments.at(1));
        run(arguments.at(2), arguments.mid(3));
    } catch (const std::runtime_error &error) {
        std::fprintf(stderr, "drawpictures: %s\n", error.what());
        return 1;
    }
    return 0;
}

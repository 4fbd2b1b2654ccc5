// SPDX-License-Identifier: MIT
#include "support/iswindows.h"
#include "support/vemotest.h"

#include <QImageReader>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMovie>
#include <QProcess>
#include <QTemporaryDir>
#include <QTemporaryFile>

namespace {

struct Outcome
{
    int exitCode = -1;
    QString error;
};

const QJsonObject kPalette {{"soft-ink", "#52606D"}, {"faint-ink", "#9AA5B1"},
    {"surface", "#FFFFFF"}, {"accent", "#1769E0"}, {"accent-pressed", "#0B469E"},
    {"on-accent", "#FFFFFF"}, {"selection", "#DCEBFB"}, {"hover", "#EEF3F8"},
    {"danger", "#C93A3A"}};

/// Of a name between "@".
QColor colourOf(const QByteArray &name)
{
    return QColor(kPalette.value(QString::fromLatin1(name.mid(1, name.size() - 2))).toString());
}

Outcome run(const QStringList &arguments)
{
    QProcess process;
    process.start(QStringLiteral(DRAWPICTURES), arguments);
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit)
        return {};
    const QString error = QString::fromUtf8(process.readAllStandardError());
    return {process.exitCode(), QString(error).remove(QLatin1Char('\r'))}; // as Windows ends lines
}

/// With a palette.
Outcome drawpictures(const QStringList &arguments)
{
    QTemporaryFile palette;
    if (!palette.open())
        qFatal("can't write a palette");
    palette.write(QJsonDocument(kPalette).toJson());
    palette.close();
    return run(QStringList(palette.fileName()) + arguments);
}

// A 16 x 16 drawing filled with one colour.
QByteArray square(const QByteArray &colour, const QByteArray &rootAttributes = {})
{
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 16 16\" " + rootAttributes
        + "><rect width=\"16\" height=\"16\" fill=\"" + colour + "\"/></svg>";
}

} // namespace

class DrawPicturesTest : public VemoTest
{
    Q_OBJECT

    QTemporaryDir m_folder;

    QString path(const QString &name) const { return m_folder.filePath(name); }

    QString written(const QString &name, const QByteArray &svg)
    {
        QFile file(path(name + ".svg"));
        if (!file.open(QIODevice::WriteOnly) || file.write(svg) != svg.size())
            qFatal("can't write %s", qPrintable(file.fileName()));
        return file.fileName();
    }

    QImage drawn(const QString &name) const { return QImage(path("out/" + name)); }

    void draw(const QStringList &drawings)
    {
        QDir(path("out")).removeRecursively();
        const Outcome outcome = drawpictures(QStringList(path("out")) + drawings);
        QCOMPARE(outcome.error, QString());
        QCOMPARE(outcome.exitCode, 0);
    }

private Q_SLOTS:
    void aDrawingGivesAPictureOfFourTimesItsSize();
    void aStateExchangesColours_data();
    void aStateExchangesColours();
    void onlyTheStatesAskedForAreDrawn();
    void aDrawnStateWinsOverTheDerivedOne();
    void aRemovedPictureHasASeparateBadge();
    void aStateLeavesOutWhatIsMarked();
    void aTurningDrawingBecomesAnEndlessAnimation();
    void anAnimationHoldsEveryShadeOfTheDrawing();
    void theSameDrawingGivesTheSameBytes();
    void aFaultyDrawingIsRefused_data();
    void aFaultyDrawingIsRefused();
    void aFolderThatCannotBeMadeIsReported();
    void withoutDrawingsTheUsageIsShown();
    void aFaultyPaletteIsRefused_data();
    void aFaultyPaletteIsRefused();
};

void DrawPicturesTest::aDrawingGivesAPictureOfFourTimesItsSize()
{
    draw({written("wide",
        "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 28 16\">"
        "<rect width=\"14\" height=\"16\" fill=\"@accent@\"/></svg>")});
    const QImage image = drawn("wide.png");
    QCOMPARE(image.size(), QSize(112, 64));
    QCOMPARE(image.pixelColor(55, 63), QColor(0x1769E0));
    QCOMPARE(image.pixelColor(56, 63).alpha(), 0);
}

void DrawPicturesTest::aStateExchangesColours_data()
{
    QTest::addColumn<QByteArray>("state");
    QTest::addColumn<QByteArray>("colour");
    QTest::addColumn<QString>("expected");

    addRow("hover, soft ink", QByteArray("hover"), QByteArray("@soft-ink@"), "#1769E0");
    addRow("hover, accent", QByteArray("hover"), QByteArray("@accent@"), "#1769E0");
    addRow("click, soft ink", QByteArray("click"), QByteArray("@soft-ink@"), "#0B469E");
    addRow("click, accent", QByteArray("click"), QByteArray("@accent@"), "#0B469E");
    addRow("disable, soft ink", QByteArray("disable"), QByteArray("@soft-ink@"), "#9AA5B1");
    addRow("disable, accent", QByteArray("disable"), QByteArray("@accent@"), "#9AA5B1");
    addRow("disable, danger", QByteArray("disable"), QByteArray("@danger@"), "#9AA5B1");
    addRow("disable, tint", QByteArray("disable"), QByteArray("@selection@"), "#EEF3F8");
    addRow("removed, accent", QByteArray("removed"), QByteArray("@accent@"), "#9AA5B1");
    addRow("removed, surface", QByteArray("removed"), QByteArray("@surface@"), "#FFFFFF");
}

void DrawPicturesTest::aStateExchangesColours()
{
    QFETCH(QByteArray, state);
    QFETCH(QByteArray, colour);
    QFETCH(QString, expected);

    draw({written("square", square(colour, "data-states=\"" + state + "\""))});
    QCOMPARE(drawn("square.png").pixelColor(8, 8), colourOf(colour));
    QCOMPARE(drawn("square_" + state + ".png").pixelColor(8, 8), QColor(expected));
}

void DrawPicturesTest::onlyTheStatesAskedForAreDrawn()
{
    draw({written("square", square("@soft-ink@", "data-states=\"hover disable\"")),
        written("plain", square("@soft-ink@"))});
    QCOMPARE(QDir(path("out")).entryList(QDir::Files, QDir::Name),
        QStringList({"plain.png", "square.png", "square_disable.png", "square_hover.png"}));
}

void DrawPicturesTest::aDrawnStateWinsOverTheDerivedOne()
{
    draw({written("square_hover", square("@danger@")),
        written("square", square("@soft-ink@", "data-states=\"hover click\""))});
    QCOMPARE(drawn("square_hover.png").pixelColor(8, 8), QColor(0xC93A3A));
    QCOMPARE(drawn("square_click.png").pixelColor(8, 8), QColor(0x0B469E));
}

void DrawPicturesTest::aRemovedPictureHasASeparateBadge()
{
    draw({written("square", square("@soft-ink@", "data-states=\"removed\""))});
    const QImage image = drawn("square_removed.png");
    QCOMPARE(image.pixelColor(50, 50), QColor(Qt::white)); // its bar
    QCOMPARE(image.pixelColor(50, 40), QColor(0xC93A3A));
    QCOMPARE(image.pixelColor(50, 34).alpha(), 0); // the cut between badge and picture
    QCOMPARE(image.pixelColor(50, 28), QColor(0x9AA5B1));
}

void DrawPicturesTest::aStateLeavesOutWhatIsMarked()
{
    draw({written("marked",
        "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 16 16\" "
        "data-states=\"hover removed\">"
        "<rect width=\"4\" height=\"4\" fill=\"@soft-ink@\"/>"
        "<rect data-not=\"removed\" x=\"4\" width=\"4\" height=\"4\" "
        "fill=\"@soft-ink@\"/></svg>")});
    for (const char *name : {"marked.png", "marked_hover.png"})
        QCOMPARE(drawn(name).pixelColor(24, 8).alpha(), 255);
    QCOMPARE(drawn("marked_removed.png").pixelColor(8, 8), QColor(0x9AA5B1));
    QCOMPARE(drawn("marked_removed.png").pixelColor(24, 8).alpha(), 0);
}

void DrawPicturesTest::aTurningDrawingBecomesAnEndlessAnimation()
{
    draw({written("turn",
        "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 16 16\" data-turn=\"4\">"
        "<rect width=\"8\" height=\"8\" fill=\"@accent@\"/></svg>")});
    QMovie movie(path("out/turn.gif"));
    QVERIFY(movie.isValid());
    QCOMPARE(movie.frameCount(), 4);
    QCOMPARE(movie.loopCount(), -1);
    const QList<QPoint> corners {{8, 8}, {56, 8}, {56, 56}, {8, 56}}; // clockwise
    for (int frame = 0; frame < 4; ++frame) {
        QVERIFY(movie.jumpToFrame(frame));
        QCOMPARE(movie.nextFrameDelay(), 40);
        QCOMPARE(movie.currentImage().size(), QSize(64, 64));
        for (int corner = 0; corner < 4; ++corner) {
            const QColor colour = movie.currentImage().pixelColor(corners.at(corner));
            if (corner == frame)
                QCOMPARE(colour, QColor(0x1769E0));
            else
                QCOMPARE(colour.alpha(), 0);
        }
    }
}

// Big and rich enough for the compressor to fill its table of codes several times.
void DrawPicturesTest::anAnimationHoldsEveryShadeOfTheDrawing()
{
    QByteArray shapes;
    for (int i = 0; i < 400; ++i)
        shapes += QStringLiteral("<circle cx=\"%1\" cy=\"%2\" r=\"2\" opacity=\"0.%3\"/>")
                      .arg(i * 37 % 61)
                      .arg(i * 53 % 59)
                      .arg(10 + i % 90)
                      .toLatin1();
    const QByteArray root = "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 64 64\" "
                            "fill=\"@danger@\" ";
    draw({written("moving", root + "data-turn=\"2\">" + shapes + "</svg>"),
        written("still", root + ">" + shapes + "</svg>")});
    const QImage still = drawn("still.png");
    const QImage frame = drawn("moving.gif");
    QCOMPARE(frame.size(), still.size());
    for (int y = 0; y < still.height(); ++y) {
        for (int x = 0; x < still.width(); ++x) {
            const int shade = still.pixelColor(x, y).alpha() * 63 / 255;
            QCOMPARE(frame.pixelColor(x, y).alpha(), shade == 0 ? 0 : 255);
            if (shade > 0)
                QCOMPARE(frame.pixelColor(x, y).green(), 255 - (255 - 0x3a) * shade / 63);
        }
    }
}

void DrawPicturesTest::theSameDrawingGivesTheSameBytes()
{
    const QStringList drawings {written("square", square("@accent@", "data-states=\"removed\"")),
        written("turn", square("@accent@", "data-turn=\"3\""))};
    QHash<QString, QByteArray> first;
    for (int run = 0; run < 2; ++run) {
        draw(drawings);
        for (const char *name : {"square.png", "square_removed.png", "turn.gif"}) {
            QFile file(path(QStringLiteral("out/") + name));
            QVERIFY(file.open(QIODevice::ReadOnly));
            const QByteArray bytes = file.readAll();
            QVERIFY(!bytes.isEmpty());
            if (run == 0)
                first.insert(name, bytes);
            QCOMPARE(bytes, first.value(name));
        }
    }
}

void DrawPicturesTest::aFaultyDrawingIsRefused_data()
{
    QTest::addColumn<QByteArray>("svg");
    QTest::addColumn<QString>("complaint");

    const QByteArray root = "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 16 16\"";
    addRow("empty", QByteArray(""), "Premature end of document.");
    addRow("no XML", QByteArray("a picture"), "Start tag expected.");
    addRow("cut off", root + "><path\n", "line 2: Premature end of document.");
    addRow("other XML", QByteArray("<picture/>"), "is no SVG drawing");
    addRow("no size", QByteArray("<svg xmlns=\"http://www.w3.org/2000/svg\"/>"),
        "needs viewBox=\"0 0 WIDTH HEIGHT\", whole pixels up to 256");
    addRow("too big", QByteArray("<svg viewBox=\"0 0 16 257\"/>"),
        "needs viewBox=\"0 0 WIDTH HEIGHT\", whole pixels up to 256");
    addRow("unknown state", square("@surface@", "data-states=\"hover glow\""),
        "unknown state \"glow\" in data-states");
    addRow("left out of no state",
        root + " data-states=\"hover\"><path data-not=\"removed\" fill=\"@surface@\"/></svg>",
        "data-not=\"removed\" is none of data-states");
    addRow("colour by name", square("red"), "\"red\" is not a colour of the palette");
    addRow("foreign colour", square("#123456"), "\"#123456\" is not a colour of the palette");
    addRow("a colour itself", square("#1769E0"), "\"#1769E0\" is not a colour of the palette");
    addRow("foreign name at the root", square("@surface@", "stroke=\"@glow@\""),
        "\"@glow@\" is not a colour of the palette");
    addRow(
        "name without its end", square("@surface"), "\"@surface\" is not a colour of the palette");
    addRow("no name", square("@@"), "\"@@\" is not a colour of the palette");
    addRow("broken path", root + "><path fill=\"@surface@\" d=\"M bad 3\"/></svg>",
        "Invalid path data; path truncated.");
    addRow("one frame", square("@surface@", "data-turn=\"1\""),
        "data-turn needs a number of frames above 1");
    addRow("many colours in an animation",
        square("@surface@", "data-turn=\"4\" stroke=\"@soft-ink@\""),
        "data-turn needs a drawing in one colour");
}

void DrawPicturesTest::aFaultyDrawingIsRefused()
{
    QFETCH(QByteArray, svg);
    QFETCH(QString, complaint);

    const QString drawing = written("faulty", svg);
    const Outcome outcome = drawpictures({path("out"), drawing});
    QCOMPARE(outcome.error, "drawpictures: " + drawing + ": " + complaint + "\n");
    QCOMPARE(outcome.exitCode, 1);
}

void DrawPicturesTest::aFolderThatCannotBeMadeIsReported()
{
    const QString drawing = written("square", square("@surface@"));
    const Outcome outcome = drawpictures({drawing + "/out", drawing});
    QCOMPARE(outcome.error, "drawpictures: " + drawing + "/out: can't be created\n");
    QCOMPARE(outcome.exitCode, 1);
    const Outcome missing = drawpictures({path("out"), path("missing.svg")});
    const QString reason = kIsWindows ? "File not found." : "No such file or directory";
    QCOMPARE(missing.error, "drawpictures: " + path("missing.svg") + ": " + reason + "\n");
    QCOMPARE(missing.exitCode, 1);
    const Outcome twice = drawpictures({path("out"), drawing, drawing});
    QCOMPARE(twice.error, "drawpictures: " + drawing + ": the name is given twice\n");
    QCOMPARE(twice.exitCode, 1);
}

void DrawPicturesTest::withoutDrawingsTheUsageIsShown()
{
    const Outcome outcome = drawpictures({path("out")});
    QCOMPARE(outcome.error, QString("usage: drawpictures PALETTE OUTDIR SVG...\n"));
    QCOMPARE(outcome.exitCode, 1);
}

void DrawPicturesTest::aFaultyPaletteIsRefused_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("complaint");
    addRow("empty", QByteArray(), "is not a palette");
    addRow("no colour", QByteArray("{\"ink\": \"dark\"}"), "\"ink\" is not a colour");
}

void DrawPicturesTest::aFaultyPaletteIsRefused()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, complaint);
    const QString palette = written("palette", content);
    const Outcome outcome = run({palette, path("out"), written("square", square("@surface@"))});
    QCOMPARE(outcome.error, "drawpictures: " + palette + ": " + complaint + "\n");
    QCOMPARE(outcome.exitCode, 1);
}

VEMO_TEST_MAIN(DrawPicturesTest)
#include "tst_drawpictures.moc"

// SPDX-License-Identifier: MIT
#include <vemo/vemosheet.h>

#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/dpiinfo.h>
#include <vemo/vemomask.h>

#include <QAccessible>
#include <QCalendarWidget>
#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QScopeGuard>
#include <QSignalSpy>

#include <functional>

namespace {

constexpr QSize kArtwork(88, 88);

struct Tile
{
    const char *name;
    Qt::GlobalColor colour;
};

// Flat colours, so that each part of the shadow identifies its picture.
constexpr Tile kTiles[] = {
    {"bg_tutorial_l", Qt::red},
    {"bg_tutorial_r", Qt::green},
    {"bg_tutorial_t", Qt::blue},
    {"bg_tutorial_b", Qt::cyan},
    {"bg_tutorial_lt", Qt::magenta},
    {"bg_tutorial_rt", Qt::yellow},
    {"bg_tutorial_lb", Qt::darkRed},
    {"bg_tutorial_rb", Qt::darkGreen},
};

int expectedBand()
{
    return int(22.0 * DPIinfo::getInstance().getDPI());
}

QSet<QRgb> coloursOf(const QImage &picture)
{
    QSet<QRgb> colours;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            colours.insert(picture.pixel(x, y));
    }
    return colours;
}

/// A change to a frame.
using Change = std::function<void(VemoSheet &sheet, QWidget &window)>;

} // namespace

Q_DECLARE_METATYPE(Change)

class VemoSheetTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void isAChildOfItsParentAndNoWindow();
    void bandIsTwentyTwoDesignPixelsTruncated();
    void takesTheSizeOfItsContentAndTheBandAtOnce();
    void secondWidgetReplacesTheLayoutOnly();
    void keepsTheBandThrough_data();
    void keepsTheBandThrough();
    void eachPartOfTheBandShowsItsPicture_data();
    void eachPartOfTheBandShowsItsPicture();
    void bodyIsWhiteUpToTheBand();
    void partsMeetWithoutGapOrOverlap_data();
    void partsMeetWithoutGapOrOverlap();
    void edgesAreStretchedNotTiled();
    void edgesFollowTheSizeOfTheFrame();
    void changedPictureShowsAtTheNextPaint();
    void missingPictureLeavesItsPlaceEmptyAndWarns();
    void frameSmallerThanItsBandDrawsWhatFits_data();
    void frameSmallerThanItsBandDrawsWhatFits();
    void maskKeepsItInTheMiddle_data();
    void maskKeepsItInTheMiddle();
    void edgesAreStretchedWithoutSmoothing_data();
    void edgesAreStretchedWithoutSmoothing();
    void neverFinishesByItself();
    void isADialogToScreenReaders();

private:
    void drawTiles() const;

    TestHost m_host;
};

void VemoSheetTest::initTestCase()
{
    QStringList names;
    for (const Tile &tile : kTiles)
        names += QLatin1String(tile.name);
    m_host.writeCatalogue(names);
    drawTiles();
}

void VemoSheetTest::drawTiles() const
{
    for (const Tile &tile : kTiles)
        m_host.addPicture(QLatin1String(tile.name), kArtwork, QColor(tile.colour));
    m_host.start(ImageManager::LAZY_LOAD);
}

void VemoSheetTest::isAChildOfItsParentAndNoWindow()
{
    QWidget window;
    const VemoSheet sheet(&window);
    QCOMPARE(sheet.parentWidget(), &window);
    QVERIFY(!sheet.isWindow());
}

void VemoSheetTest::bandIsTwentyTwoDesignPixelsTruncated()
{
    const QHash<int, int> bands {{96, 22}, {120, 27}, {144, 33}};
    const int dpi = qRound(DPIinfo::getInstance().getDPI() * 96);
    QVERIFY(bands.contains(dpi));
    QWidget window;
    const VemoSheet sheet(&window);
    const int band = bands.value(dpi);
    QCOMPARE(sheet.contentsMargins(), QMargins(band, band, band, band));
}

void VemoSheetTest::takesTheSizeOfItsContentAndTheBandAtOnce()
{
    QWidget window;
    VemoSheet sheet(&window);
    auto *content = new QWidget;
    content->setFixedSize(100, 50);
    sheet.setWidget(content);

    const int band = 2 * expectedBand();
    const QMargins gap = sheet.layout()->contentsMargins();
    const QSize expected(
        100 + band + gap.left() + gap.right(), 50 + band + gap.top() + gap.bottom());
    QCOMPARE(sheet.size(), expected);
    QCOMPARE(content->parentWidget(), &sheet);
    QCOMPARE(sheet.layout()->itemAt(0)->alignment(), Qt::AlignCenter);
}

void VemoSheetTest::secondWidgetReplacesTheLayoutOnly()
{
    QWidget window;
    VemoSheet sheet(&window);
    auto *first = new QLabel("first");
    auto *second = new QLabel("second");
    sheet.setWidget(first);
    const QPointer<QLayout> firstLayout = sheet.layout();
    sheet.setWidget(second);

    QVERIFY(!firstLayout);
    QCOMPARE(sheet.findChildren<QLayout *>(), QList<QLayout *> {sheet.layout()});
    QCOMPARE(sheet.layout()->count(), 1);
    QCOMPARE(sheet.layout()->itemAt(0)->widget(), second);
    QCOMPARE(first->parentWidget(), &sheet);
}

void VemoSheetTest::keepsTheBandThrough_data()
{
    QTest::addColumn<Change>("change");
    QTest::newRow("its first polish")
        << Change([](auto &sheet, auto &) { sheet.ensurePolished(); });
    QTest::newRow("a style sheet") << Change([](auto &sheet, auto &window) {
        window.show();
        sheet.setStyleSheet("QLabel { color: red; }");
    });
    QTest::newRow("a new parent") << Change(
        [](auto &sheet, auto &window) { sheet.setParent(new QWidget(&window)); });
    QTest::newRow("a show after other margins") << Change([](auto &sheet, auto &window) {
        sheet.setContentsMargins(1, 2, 3, 4);
        window.show();
        sheet.show();
    });
}

void VemoSheetTest::keepsTheBandThrough()
{
    QFETCH(const Change, change);
    QWidget window;
    auto *sheet = new VemoSheet(&window);
    change(*sheet, window);
    const int band = expectedBand();
    QCOMPARE(sheet->contentsMargins(), QMargins(band, band, band, band));
}

void VemoSheetTest::eachPartOfTheBandShowsItsPicture_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("row");
    QTest::addColumn<QColor>("colour");
    // Column and row: 0 is the near edge, 1 the body, 2 the far edge.
    QTest::newRow("left") << 0 << 1 << QColor(Qt::red);
    QTest::newRow("right") << 2 << 1 << QColor(Qt::green);
    QTest::newRow("top") << 1 << 0 << QColor(Qt::blue);
    QTest::newRow("bottom") << 1 << 2 << QColor(Qt::cyan);
    QTest::newRow("left top") << 0 << 0 << QColor(Qt::magenta);
    QTest::newRow("right top") << 2 << 0 << QColor(Qt::yellow);
    QTest::newRow("left bottom") << 0 << 2 << QColor(Qt::darkRed);
    QTest::newRow("right bottom") << 2 << 2 << QColor(Qt::darkGreen);
    QTest::newRow("body") << 1 << 1 << QColor(Qt::white);
}

void VemoSheetTest::eachPartOfTheBandShowsItsPicture()
{
    QFETCH(const int, column);
    QFETCH(const int, row);
    QFETCH(const QColor, colour);
    QWidget window;
    VemoSheet sheet(&window);
    sheet.resize(200, 150);
    const int band = expectedBand();
    // The first and the last pixel of each part.
    const int from[2][3] = {{0, band, 200 - band}, {0, band, 150 - band}};
    const int to[2][3] = {{band - 1, 199 - band, 199}, {band - 1, 149 - band, 149}};
    QCOMPARE(pixelAt(&sheet, {from[0][column], from[1][row]}), colour);
    QCOMPARE(pixelAt(&sheet, {to[0][column], to[1][row]}), colour);
}

void VemoSheetTest::bodyIsWhiteUpToTheBand()
{
    QWidget window;
    window.setStyleSheet("background: black;");
    VemoSheet sheet(&window);
    sheet.resize(120, 100);
    const QImage picture = sheet.grab().toImage();
    const qreal ratio = picture.devicePixelRatio();
    const int band = expectedBand();
    const QRectF body(band, band, 120 - 2 * band, 100 - 2 * band);
    const QRect devicePixels = QRectF(body.topLeft() * ratio, body.size() * ratio).toRect();
    for (int y = devicePixels.top(); y <= devicePixels.bottom(); ++y) {
        for (int x = devicePixels.left(); x <= devicePixels.right(); ++x)
            QCOMPARE(picture.pixelColor(x, y), QColor(Qt::white));
    }
}

void VemoSheetTest::partsMeetWithoutGapOrOverlap_data()
{
    QTest::addColumn<int>("offset");
    // At a fractional pixel ratio the parts begin and end at any fraction of a pixel.
    for (int offset = 0; offset < 8; ++offset)
        QTest::addRow("%d pixels from the edge", offset) << offset;
}

void VemoSheetTest::partsMeetWithoutGapOrOverlap()
{
    QFETCH(const int, offset);
    const auto restored = qScopeGuard([this] { drawTiles(); });
    for (const Tile &tile : kTiles)
        m_host.addPicture(QLatin1String(tile.name), kArtwork, QColor(0, 0, 0, 128));
    m_host.start(ImageManager::LAZY_LOAD);

    QWidget window;
    window.setPalette(QColor(0, 255, 0));
    window.resize(260, 220);
    VemoSheet sheet(&window);
    const QSet<QRgb> shadowAndBody {0xFF007F00, 0xFFFFFFFF};
    for (int growth = 0; growth < 8; ++growth) {
        sheet.setGeometry(offset, offset, 200 + growth, 150 + growth);
        const QImage picture = window.grab().toImage();
        const qreal ratio = picture.devicePixelRatio();
        const QRect inside = QRectF(QPointF(sheet.pos()) * ratio, QSizeF(sheet.size()) * ratio)
                                 .toAlignedRect()
                                 .adjusted(1, 1, -1, -1);
        QCOMPARE(coloursOf(picture.copy(inside)), shadowAndBody);
    }
}

void VemoSheetTest::edgesAreStretchedNotTiled()
{
    const auto restored = qScopeGuard([this] { drawTiles(); });
    QImage halves(kArtwork, QImage::Format_ARGB32);
    halves.fill(Qt::black);
    for (int y = kArtwork.height() / 2; y < kArtwork.height(); ++y) {
        for (int x = 0; x < kArtwork.width(); ++x)
            halves.setPixelColor(x, y, Qt::white);
    }
    QVERIFY(halves.save(m_host.pictureFolder() + "/bg_tutorial_l.png"));
    m_host.start(ImageManager::LAZY_LOAD);

    QWidget window;
    VemoSheet sheet(&window);
    sheet.resize(200, 300);
    QCOMPARE(pixelAt(&sheet, {2, 120}), QColor(Qt::black));
    QCOMPARE(pixelAt(&sheet, {2, 180}), QColor(Qt::white));
}

void VemoSheetTest::edgesFollowTheSizeOfTheFrame()
{
    const auto restored = qScopeGuard([this] { drawTiles(); });
    QImage stripes(kArtwork, QImage::Format_ARGB32);
    for (int y = 0; y < kArtwork.height(); ++y) {
        for (int x = 0; x < kArtwork.width(); ++x)
            stripes.setPixelColor(x, y, y * 4 / kArtwork.height() % 2 ? Qt::white : Qt::black);
    }
    QVERIFY(stripes.save(m_host.pictureFolder() + "/bg_tutorial_l.png"));
    m_host.start(ImageManager::LAZY_LOAD);

    QWidget window;
    VemoSheet sheet(&window);
    const int band = expectedBand();
    sheet.resize(120, 2 * band + 2); // Too low for the stripes.
    sheet.grab();
    sheet.resize(120, 2 * band + 80);
    for (int stripe = 0; stripe < 4; ++stripe) {
        QCOMPARE(pixelAt(&sheet, {1, band + 20 * stripe + 10}),
            QColor(stripe % 2 ? Qt::white : Qt::black));
    }
}

void VemoSheetTest::changedPictureShowsAtTheNextPaint()
{
    const auto restored = qScopeGuard([this] { drawTiles(); });
    QWidget window;
    VemoSheet sheet(&window);
    sheet.resize(150, 150);
    QCOMPARE(pixelAt(&sheet, {1, 75}), QColor(Qt::red));
    QCOMPARE(pixelAt(&sheet, {1, 1}), QColor(Qt::magenta));
    m_host.addPicture("bg_tutorial_l", kArtwork, Qt::gray);
    m_host.addPicture("bg_tutorial_lt", kArtwork, Qt::darkGray);
    m_host.start(ImageManager::LAZY_LOAD);
    QCOMPARE(pixelAt(&sheet, {1, 75}), QColor(Qt::gray));
    QCOMPARE(pixelAt(&sheet, {1, 1}), QColor(Qt::darkGray));
}

void VemoSheetTest::missingPictureLeavesItsPlaceEmptyAndWarns()
{
    const auto restored = qScopeGuard([this] { drawTiles(); });
    QVERIFY(QFile::remove(m_host.pictureFolder() + "/bg_tutorial_r.png"));
    m_host.start(ImageManager::LAZY_LOAD);
    QWidget window;
    VemoSheet sheet(&window);
    sheet.setStyleSheet("VemoSheet { background: #102030; }");
    sheet.resize(150, 150);
    const QImage picture = sheet.grab().toImage();
    const qreal ratio = picture.devicePixelRatio();
    QCOMPARE(messages.take(),
        QStringList("Cannot load pixmap \"bg_tutorial_r\" with type 0 [use default icon]"));
    QVERIFY(picture.pixelColor(QPoint(148, 75) * ratio) != QColor(Qt::green));
    QCOMPARE(picture.pixelColor(QPoint(75, 75) * ratio), QColor(Qt::white));
    QCOMPARE(picture.pixelColor(QPoint(1, 75) * ratio), QColor(Qt::red));
}

void VemoSheetTest::frameSmallerThanItsBandDrawsWhatFits_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("narrow") << QSize(10, 200);
    QTest::newRow("low") << QSize(200, 10);
    QTest::newRow("both") << QSize(10, 10);
    QTest::newRow("exactly the band") << QSize(2 * expectedBand(), 2 * expectedBand());
}

void VemoSheetTest::frameSmallerThanItsBandDrawsWhatFits()
{
    QFETCH(const QSize, size);
    QWidget window;
    VemoSheet sheet(&window);
    sheet.resize(size);
    // Corners overlap then, in the order in which they are drawn.
    QCOMPARE(pixelAt(&sheet, {size.width() - 1, size.height() - 1}), QColor(Qt::darkGreen));
}

void VemoSheetTest::maskKeepsItInTheMiddle_data()
{
    QTest::addColumn<bool>("isFixed");
    QTest::newRow("of the policy Fixed, at its own size") << true;
    QTest::newRow("of its own policy, filling the window") << false;
}

void VemoSheetTest::maskKeepsItInTheMiddle()
{
    QFETCH(const bool, isFixed);
    QWidget window;
    window.resize(900, 600);
    auto *sheet = new VemoSheet(&window);
    sheet->setWidget(new QCalendarWidget);
    if (isFixed)
        sheet->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    VemoMask::createMask(sheet, &window, QColor(0, 0, 0, 20));
    sheet->show();
    window.show();
    const QMargins margins = sheet->parentWidget()->layout()->contentsMargins();
    QCOMPARE(
        sheet->size(), isFixed ? sheet->sizeHint() : window.rect().marginsRemoved(margins).size());
    const QPoint offCentre = sheet->geometry().center() - window.rect().center();
    QVERIFY(offCentre.manhattanLength() <= 2);
}

void VemoSheetTest::edgesAreStretchedWithoutSmoothing_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QRect>("strip");
    const int band = expectedBand();
    const QRect body = QRect(0, 0, 200, 150).adjusted(band, band, -band, -band);
    QTest::newRow("left") << "bg_tutorial_l" << QRect(0, band, band, body.height());
    QTest::newRow("right") << "bg_tutorial_r" << QRect(200 - band, band, band, body.height());
    QTest::newRow("top") << "bg_tutorial_t" << QRect(band, 0, body.width(), band);
    QTest::newRow("bottom") << "bg_tutorial_b" << QRect(band, 150 - band, body.width(), band);
}

void VemoSheetTest::edgesAreStretchedWithoutSmoothing()
{
    QFETCH(const QString, name);
    QFETCH(const QRect, strip);
    const auto restored = qScopeGuard([this] { drawTiles(); });
    QImage ramp(kArtwork, QImage::Format_ARGB32);
    for (int y = 0; y < ramp.height(); ++y) {
        for (int x = 0; x < ramp.width(); ++x)
            ramp.setPixelColor(x, y, QColor((x / 8) * 23, (y / 8) * 23, 0));
    }
    QVERIFY(ramp.save(m_host.pictureFolder() + '/' + name + ".png"));
    m_host.start(ImageManager::LAZY_LOAD);

    QWidget window;
    VemoSheet sheet(&window);
    sheet.resize(200, 150);
    const QSet<QRgb> drawn = coloursOf(getGlobalImage(name).toImage());
    const QImage band = sheet.grab(strip).toImage();
    QVERIFY(drawn.size() > 20);
    QCOMPARE(coloursOf(band) - drawn, QSet<QRgb>());
}

void VemoSheetTest::neverFinishesByItself()
{
    QWidget window;
    auto *sheet = new VemoSheet(&window);
    const QSignalSpy finished(sheet, SIGNAL(finished(int)));
    QVERIFY(finished.isValid());
    window.show();
    sheet->hide();
    sheet->show();
    sheet->close();
    QCOMPARE(finished.count(), 0);
}

void VemoSheetTest::isADialogToScreenReaders()
{
    QWidget window;
    VemoSheet sheet(&window);
    const QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(&sheet);
    QVERIFY(accessible);
    QCOMPARE(accessible->role(), QAccessible::Dialog);
    const QFrame frame(&window);
    QVERIFY(QAccessible::queryAccessibleInterface(const_cast<QFrame *>(&frame))->role()
        != QAccessible::Dialog);
}

VEMO_TEST_MAIN(VemoSheetTest)
#include "tst_vemosheet.moc"

// SPDX-License-Identifier: MIT
#include <vemo/filetypemap.h>
#include <vemo/imagemanager.h>

#include "support/testhost.h"
#include "support/vemotest.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMovie>

#include <cmath>

namespace {

constexpr auto kImages = ":/vemo/theme/images/";

QStringList catalogue()
{
    QFile file(QStringLiteral(":/vemo/theme/images.json"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QStringList names;
    const QJsonArray array = QJsonDocument::fromJson(file.readAll())["images"].toArray();
    for (const QJsonValue &name : array)
        names.append(name.toString());
    return names;
}

QImage stored(const QString &name)
{
    return QImage(kImages + name + ".png").convertToFormat(QImage::Format_ARGB32);
}

// One extension of each type that the map knows, and one that it doesn't.
QStringList extensions()
{
    return {"acc", "ai", "mp3", "bkpi", "doc", "exe", "fla", "htm", "idn", "png", "iso", "cpp",
        "pdf", "ppt", "psd", "swf", "ttf", "txt", "avi", "xls", "zip", "unknown"};
}

QStringList fileTypes()
{
    QStringList names {"folder"};
    for (const QString &extension : extensions())
        names.append(FileTypeMap::getInstance().getFiletypeMapping(extension, false).chopped(4));
    return names;
}

// The position of the badge of a removed file, and the gap around it.
bool isInBadge(int x, int y)
{
    constexpr int kCentre = 50; // of 64 pixels
    constexpr int kRadius = 19;
    return (x - kCentre) * (x - kCentre) + (y - kCentre) * (y - kCentre) <= kRadius * kRadius;
}

// How many pixels hang together with the one at (x, y); takes them from the picture.
int takeIsland(QImage &picture, int x, int y)
{
    QVector<QPoint> border {{x, y}};
    int size = 0;
    while (!border.isEmpty()) {
        const QPoint point = border.takeLast();
        if (!picture.valid(point) || qAlpha(picture.pixel(point)) < 64)
            continue;
        picture.setPixel(point, 0);
        ++size;
        for (const QPoint &step : {QPoint(1, 0), QPoint(-1, 0), QPoint(0, 1), QPoint(0, -1)})
            border.append(point + step);
    }
    return size;
}

// How different two pictures look at display size: the mean distance of their coverage.
double difference(const QImage &a, const QImage &b)
{
    const auto small = [](const QImage &image) {
        return image.scaled(16, 16, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    };
    const QImage left = small(a);
    const QImage right = small(b);
    int sum = 0;
    for (int y = 0; y < 16; ++y) {
        for (int x = 0; x < 16; ++x)
            sum += qAbs(qAlpha(left.pixel(x, y)) - qAlpha(right.pixel(x, y)));
    }
    return sum / 256.0;
}

} // namespace

class ThemePicturesTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void aPictureThatAWidgetLooksUpHasItsSize_data();
    void aPictureThatAWidgetLooksUpHasItsSize();
    void everyPictureIsListedOnceAndDrawnAtFourTimesItsSize();
    void everyButtonHasAllStatesAndTheyDiffer();
    void everyFileTypeHasAPictureAndARemovedOne();
    void aRemovedPictureDiffersByItsBadgeOnly();
    void aBadgeLeavesNoScraps();
    void noTwoFileTypesLookAlike();
    void straightStrokesAreCrisp_data();
    void straightStrokesAreCrisp();
    void theShadowFadesEvenlyAndMeetsAtItsCorners();
    void theBusyAnimationTurns();
};

void ThemePicturesTest::aPictureThatAWidgetLooksUpHasItsSize_data()
{
    QTest::addColumn<QSize>("size");

    for (const char *name : {"app_img", "icon_information", "icon_question", "icon_warning"})
        QTest::newRow(name) << QSize(32, 32);
    for (const char *side : {"l", "r", "t", "b", "lt", "rt", "lb", "rb"})
        QTest::newRow(qPrintable(QStringLiteral("bg_tutorial_") + side)) << QSize(22, 22);
    for (const char *name : {"folder", "bt_pagebar_backend", "bt_pagebar_back", "bt_pagebar_next",
             "bt_pagebar_nextend", "bt_pagebar_refresh"})
        QTest::newRow(name) << QSize(16, 16);
    QTest::newRow("bt_next") << QSize(6, 10); // its button is 6 px wide
    QTest::newRow("bt_search_dropdown") << QSize(28, 16);
}

void ThemePicturesTest::aPictureThatAWidgetLooksUpHasItsSize()
{
    QFETCH(QSize, size);

    const QString name = QTest::currentDataTag();
    QVERIFY(!getGlobalImage(name).isNull());
    QCOMPARE(stored(name).size(), size * 4);
}

void ThemePicturesTest::everyPictureIsListedOnceAndDrawnAtFourTimesItsSize()
{
    const QStringList names = catalogue();
    QVERIFY(!names.isEmpty());
    QCOMPARE(QSet<QString>(names.cbegin(), names.cend()).size(), names.size());
    for (const QString &name : names) {
        const QSize size = stored(name).size();
        QVERIFY2(
            !size.isEmpty() && size.width() % 4 == 0 && size.height() % 4 == 0, qPrintable(name));
    }
}

void ThemePicturesTest::everyButtonHasAllStatesAndTheyDiffer()
{
    const QStringList buttons = catalogue().filter(QRegularExpression("^bt_"));
    QVERIFY(!buttons.isEmpty());
    for (const QString &name : buttons) {
        QVector<QImage> states;
        for (auto type : {ImageManager::NORMAL, ImageManager::HOVER, ImageManager::CLICK,
                 ImageManager::DISABLE}) {
            const QImage image = getGlobalImage(name, type).toImage();
            QVERIFY2(!states.contains(image), qPrintable(name));
            states.append(image);
        }
    }
}

void ThemePicturesTest::everyFileTypeHasAPictureAndARemovedOne()
{
    const QStringList names = catalogue();
    const QStringList known = extensions();
    for (const QString &extension : known) {
        for (bool removed : {false, true}) {
            const QString file = FileTypeMap::getInstance().getFiletypeMapping(extension, removed);
            QVERIFY2(QFile::exists(kImages + file), qPrintable(file));
            QVERIFY2(names.contains(QFileInfo(file).completeBaseName()), qPrintable(file));
        }
    }
    QVERIFY(QFile::exists(QString(kImages) + "folder_removed.png"));
}

// Beside it, what the badge would leave scraps of is left out, and all is of one grey.
void ThemePicturesTest::aRemovedPictureDiffersByItsBadgeOnly()
{
    for (const QString &name : fileTypes()) {
        const QImage plain = stored(name);
        const QImage removed = stored(name + "_removed");
        QCOMPARE(removed.size(), plain.size());
        for (int y = 0; y < plain.height(); ++y) {
            for (int x = 0; x < plain.width(); ++x) {
                if (isInBadge(x, y))
                    continue;
                const QRgb pixel = removed.pixel(x, y);
                QVERIFY2(qAlpha(pixel) <= qAlpha(plain.pixel(x, y)), qPrintable(name));
                QVERIFY2(qAlpha(pixel) < 255 || qRed(pixel) <= qBlue(pixel), qPrintable(name));
            }
        }
        QCOMPARE(removed.pixelColor(50, 44), QColor(0xC93A3A));
        QCOMPARE(removed.pixelColor(50, 50), QColor(Qt::white));
    }
}

void ThemePicturesTest::aBadgeLeavesNoScraps()
{
    constexpr int kSmallest = 36; // what a single dot of the pen covers
    for (const QString &name : fileTypes()) {
        QImage removed = stored(name + "_removed");
        for (int y = 0; y < removed.height(); ++y) {
            for (int x = 0; x < removed.width(); ++x) {
                const int size = takeIsland(removed, x, y);
                const QString scrap =
                    QString("%1: %2 pixels at %3, %4").arg(name).arg(size).arg(x).arg(y);
                QVERIFY2(size == 0 || size >= kSmallest, qPrintable(scrap));
            }
        }
    }
}

void ThemePicturesTest::noTwoFileTypesLookAlike()
{
    QMap<QString, QImage> pictures {{"folder", stored("folder")}};
    const QStringList known = extensions();
    for (const QString &extension : known) {
        const QString file = FileTypeMap::getInstance().getFiletypeMapping(extension, false);
        pictures.insert(file, stored(QFileInfo(file).completeBaseName()));
    }
    QCOMPARE(pictures.size(), known.size() + 1);
    for (auto a = pictures.cbegin(); a != pictures.cend(); ++a) {
        for (auto b = std::next(a); b != pictures.cend(); ++b) {
            const QString pair =
                QStringLiteral("%1 and %2: %3").arg(a.key(), b.key()).arg(difference(*a, *b));
            QVERIFY2(difference(*a, *b) > 8, qPrintable(pair));
        }
    }
}

void ThemePicturesTest::straightStrokesAreCrisp_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QPointF>("from");
    QTest::addColumn<QPointF>("to");
    // Across one straight stroke, in design pixels.
    QTest::newRow("an edge at the left, even") << "xls" << QPointF(0, 4.5) << QPointF(5, 4.5);
    QTest::newRow("an edge at the left, odd") << "doc" << QPointF(1, 6.5) << QPointF(5, 6.5);
    QTest::newRow("an edge at the right, odd") << "xls" << QPointF(11, 4.5) << QPointF(16, 4.5);
    QTest::newRow("an edge at the top") << "xls" << QPointF(4.5, 0) << QPointF(4.5, 5);
    QTest::newRow("a line in the middle") << "bt_add" << QPointF(4, 4) << QPointF(4, 11);
    QTest::newRow("a shaft") << "bt_up" << QPointF(4, 10) << QPointF(11, 10);
}

void ThemePicturesTest::straightStrokesAreCrisp()
{
    QFETCH(const QString, name);
    QFETCH(const QPointF, from);
    QFETCH(const QPointF, to);
    const QImage picture = getGlobalImage(name).toImage().convertToFormat(QImage::Format_ARGB32);
    const double scale = picture.width() / 16.0;
    const bool isAcross = from.y() == to.y();
    int touched = 0;
    double covered = 0;
    const int end = int((isAcross ? to.x() : to.y()) * scale);
    for (int i = int((isAcross ? from.x() : from.y()) * scale); i < end; ++i) {
        const QRgb pixel = isAcross ? picture.pixel(i, int(from.y() * scale))
                                    : picture.pixel(int(from.x() * scale), i);
        // What nobody sees doesn't count.
        touched += qAlpha(pixel) > 255 / 8 ? 1 : 0;
        covered += qAlpha(pixel) / 255.0;
    }
    // The pen is 1.25 wide.
    QVERIFY2(qAbs(covered - 1.25 * scale) < 0.2, qPrintable(QString::number(covered)));
    QCOMPARE(touched, int(std::ceil(1.25 * scale)));
}

void ThemePicturesTest::theShadowFadesEvenlyAndMeetsAtItsCorners()
{
    const QImage left = stored("bg_tutorial_l");
    const QImage corner = stored("bg_tutorial_lt");
    const int end = left.width() - 1;
    QVERIFY(qAlpha(left.pixel(end, 0)) > 30);
    QCOMPARE(qAlpha(left.pixel(0, 0)), 0);
    QCOMPARE(qAlpha(corner.pixel(0, 0)), 0);
    for (int i = 0; i <= end; ++i) {
        const int alpha = qAlpha(left.pixel(i, 0));
        if (i > 0)
            QVERIFY(alpha >= qAlpha(left.pixel(i - 1, 0)));
        QCOMPARE(qAlpha(left.pixel(i, end)), alpha); // the same all along
        QVERIFY(qAbs(qAlpha(corner.pixel(i, end)) - alpha) <= 1);
        QVERIFY(qAbs(qAlpha(corner.pixel(end, i)) - alpha) <= 1);
    }
    QCOMPARE(stored("bg_tutorial_r"), left.mirrored(true, false));
    QCOMPARE(stored("bg_tutorial_t"), left.transformed(QTransform().rotate(90)));
    QCOMPARE(stored("bg_tutorial_b"), stored("bg_tutorial_t").mirrored(false, true));
    QCOMPARE(stored("bg_tutorial_rt"), corner.mirrored(true, false));
    QCOMPARE(stored("bg_tutorial_lb"), corner.mirrored(false, true));
    QCOMPARE(stored("bg_tutorial_rb"), corner.mirrored(true, true));
}

void ThemePicturesTest::theBusyAnimationTurns()
{
    QMovie movie(QString(kImages) + "busy.gif");
    QVERIFY(movie.isValid());
    movie.setScaledSize({32, 32});
    QCOMPARE(movie.loopCount(), -1);
    QVERIFY(movie.frameCount() > 10);
    QVERIFY(movie.jumpToFrame(0));
    const QImage first = movie.currentImage();
    QCOMPARE(first.size(), QSize(32, 32));
    for (int frame = 1; frame < movie.frameCount(); ++frame) {
        QVERIFY(movie.jumpToNextFrame());
        QVERIFY(movie.currentImage() != first);
    }
}

VEMO_TEST_MAIN(ThemePicturesTest)
#include "tst_themepictures.moc"

// SPDX-License-Identifier: MIT
#include "benchmarks/families.h"
#include "benchmarks/fixture.h"
#include "benchmarks/harness.h"

#include <vemo/dpiinfo.h>
#include <vemo/imagemanager.h>

#include <QBuffer>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPainter>
#include <QPixmapCache>

namespace {

constexpr int kNames = 200;
constexpr int kArtworkSize = 64;
constexpr ImageManager::ImageType kTypes[] = {
    ImageManager::NORMAL, ImageManager::HOVER, ImageManager::CLICK, ImageManager::DISABLE};
constexpr const char *kSuffixes[] = {"", "_hover", "_click", "_disable"};
constexpr int kFiles = kNames * 4;

QString nameOf(int number)
{
    return QStringLiteral("picture_%1").arg(number, 3, 10, QLatin1Char('0'));
}

/// A small drawing, different for each name and state, with smooth edges like icons.
QByteArray drawnPng(int number, int state)
{
    QImage picture(kArtworkSize, kArtworkSize, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor::fromHsv(number * 360 / kNames, 200, 200 - 30 * state), 6));
    painter.drawEllipse(QRect(6 + state, 6, 52 - 2 * state, 52));
    painter.drawLine(8, 8 + number % 48, 56, 56 - number % 48);
    painter.end();
    QBuffer png;
    png.open(QIODevice::WriteOnly);
    picture.save(&png, "PNG");
    return png.data();
}

/// A catalogue of 200 names with four files each, and one name without any; written once.
QString catalogueFolder()
{
    static const QString folder = [] {
        QJsonArray names {QStringLiteral("without_files")};
        for (int number = 0; number < kNames; ++number) {
            names << nameOf(number);
            for (int state = 0; state < 4; ++state) {
                bench::writtenFile(QStringLiteral("catalogue/images/%1%2.png")
                                       .arg(nameOf(number), QLatin1String(kSuffixes[state])),
                    drawnPng(number, state));
            }
        }
        const QJsonObject catalogue {{QStringLiteral("images"), names}};
        const QString path = bench::writtenFile(
            QStringLiteral("catalogue/images.json"), QJsonDocument(catalogue).toJson());
        return path.left(path.lastIndexOf(QLatin1Char('/')));
    }();
    return folder;
}

QString pathOf(int number, int state)
{
    return QStringLiteral("%1/images/%2%3.png")
        .arg(catalogueFolder(), nameOf(number), QLatin1String(kSuffixes[state]));
}

/// What each way of loading gives: all pictures, by name and state.
using Pictures = std::vector<QPixmap>;

template <typename Load> Pictures allPictures(Load load)
{
    Pictures pictures;
    pictures.reserve(kFiles);
    for (int number = 0; number < kNames; ++number) {
        for (int state = 0; state < 4; ++state)
            pictures.push_back(load(number, state));
    }
    return pictures;
}

Pictures picturesByPixmap()
{
    const auto length = [](int artworkLength) {
        const int logical = qRound(qRound(artworkLength * 0.25) * DPIinfo::getInstance().getDPI());
        return qRound(logical * DPIinfo::getInstance().getDPR());
    };
    return allPictures([=](int number, int state) {
        const QPixmap artwork(pathOf(number, state));
        QPixmap fitted = artwork.scaled(length(artwork.width()), length(artwork.height()),
            Qt::KeepAspectRatio, Qt::SmoothTransformation);
        fitted.setDevicePixelRatio(DPIinfo::getInstance().getDPR());
        return fitted;
    });
}

Pictures picturesOfCatalogue()
{
    return allPictures(
        [](int number, int state) { return getGlobalImage(nameOf(number), kTypes[state]); });
}

std::vector<QImage> decodedFiles()
{
    std::vector<QImage> images;
    images.reserve(kFiles);
    for (int number = 0; number < kNames; ++number) {
        for (int state = 0; state < 4; ++state)
            images.emplace_back(pathOf(number, state), "PNG");
    }
    return images;
}

/// QPixmap caches what it has read in QPixmapCache, which would not measure loading.
void forgetPixmaps()
{
    QPixmapCache::clear();
}

void compareLoading(bench::Case &c)
{
    c.goal(0.9, 0.83);
    c.goalOfLimit(1.15);
    c.reference(QStringLiteral("QPixmap and scaled()"), picturesByPixmap, forgetPixmaps);
    c.limit(QStringLiteral("decoding alone"), decodedFiles, forgetPixmaps);
}

void preloading(bench::Case &c)
{
    const QString folder = catalogueFolder();
    compareLoading(c);
    c.items(kFiles);
    c.ours(
        [folder] {
            bench::usePictures(folder, ImageManager::PRELOAD);
            return picturesOfCatalogue();
        },
        forgetPixmaps);
}

void firstUse(bench::Case &c)
{
    const QString folder = catalogueFolder();
    compareLoading(c);
    c.items(kNames);
    c.ours(picturesOfCatalogue, [folder] { bench::usePictures(folder, ImageManager::LAZY_LOAD); });
}

template <typename Name> bench::Cases::Setup warm(Name name, double goal)
{
    return [name, goal](bench::Case &c) {
        bench::usePictures(catalogueFolder(), ImageManager::PRELOAD);
        const QString key = nameOf(kNames / 2);
        const QPixmap picture = getGlobalImage(key);
        QPixmapCache::insert(key, picture);
        c.goal(goal, 0.6);
        c.reference(QStringLiteral("QPixmapCache::find"), [key] {
            QPixmap found;
            QPixmapCache::find(key, &found);
            return found;
        });
        c.limit(QStringLiteral("QPixmap copy"), [picture] { return QPixmap(picture); });
        c.ours([name] { return getGlobalImage(name); });
    };
}

void missing(bench::Case &c)
{
    const QString folder = catalogueFolder();
    bench::usePictures(folder, ImageManager::LAZY_LOAD);
    const QString name = QStringLiteral("without_files");
    getGlobalImage(name); // From now on all four file names are empty.
    const QString path = folder + QLatin1String("/images/.png");
    c.goal(1.1, 1.0);
    c.reference(QStringLiteral("QPixmap loads four times"), [path] {
        QPixmap picture;
        for (int state = 0; state < 4; ++state)
            picture.load(path);
        return picture;
    });
    c.limit(QStringLiteral("QFile::exists four times"), [path] {
        int found = 0;
        for (int state = 0; state < 4; ++state)
            found += QFile::exists(path) ? 1 : 0;
        return found;
    });
    c.ours([name] { return getGlobalImage(name); });
}

} // namespace

void bench::imagesCases(Cases &cases)
{
    cases.add(QStringLiteral("images.preload"), preloading);
    cases.add(QStringLiteral("images.first"), firstUse);
    cases.add(QStringLiteral("images.warm"), warm(nameOf(kNames / 2), 1.6));
    cases.add(QStringLiteral("images.warm/latin-1 name"), warm("picture_100", 2.0));
    cases.add(QStringLiteral("images.missing"), missing);
}

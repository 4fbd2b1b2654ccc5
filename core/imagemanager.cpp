// SPDX-License-Identifier: MIT
#include <vemo/imagemanager.h>

#include "core/filereplacement_p.h"
#include "core/logging_p.h"
#include "core/resourcefile_p.h"

#include <vemo/dpiinfo.h>
#include <vemo/uipathmanager.h>

#include <QBuffer>
#include <QDir>
#include <QImageReader>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cstdlib>

namespace {

const QLatin1String kFileSuffix(".png");

/// The picture in the file, whatever its format; null where there is none. PNG is tried first, and
/// a missing file not under other names: both of what makes QPixmap's own loading slower.
QImage readPicture(const QString &path)
{
    QByteArray bytes = bytesOfResource(path, kMaxPictureBytes);
    QBuffer buffer(&bytes);
    if (bytes.isEmpty() || !buffer.open(QIODevice::ReadOnly))
        return {};
    QImageReader png(&buffer, "png");
    return png.canRead() ? png.read() : QImageReader(&buffer).read();
}

/// The PNG file of picture; empty for a null picture.
QByteArray pngOf(const QImage &picture)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    return picture.save(&buffer, "PNG") ? buffer.data() : QByteArray();
}

QImage fitted(const QImage &picture, const QSize &size)
{
    return picture.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

const QString &initialized(const QString &folder)
{
    if (folder.isEmpty()) {
        qCWarning(vemoLog) << "ImageManager is not initialized";
        std::abort();
    }
    return folder;
}

} // namespace

ImageManager &ImageManager::getInstance()
{
    static ImageManager instance;
    return instance;
}

void ImageManager::initialize(InitializeType type)
{
    m_initType = type;
    m_imageFolder = UIPathManager::getInstance().getPath(QStringLiteral("resource_path"))
        + QLatin1String("/images");
    m_tempImageFolder = UIPathManager::getInstance().getPath(QStringLiteral("user_data_path"))
        + QLatin1String("/tmp_images");
    QDir().mkpath(m_tempImageFolder);
    readJson();
    if (type == PRELOAD)
        prepareImages();
}

bool ImageManager::isInitialized() const
{
    return !m_imageFolder.isEmpty();
}

bool ImageManager::contains(const QString &name) const
{
    return m_images.contains(name);
}

QPixmap ImageManager::getImage(const QString &name, ImageType type)
{
    const auto found = m_images.find(name);
    if (found == m_images.end()) {
        qCWarning(vemoLog) << "Cannot load pixmap" << name;
        return {};
    }
    if (m_initType == LAZY_LOAD && !found->loaded)
        lazyLoad(name);
    const auto state = static_cast<size_t>(type);
    if (state >= kStates || found->fileNames[state].isEmpty()) {
        qCWarning(vemoLog) << "Cannot load pixmap" << name << "with type" << static_cast<int>(type)
                           << "[use default icon]";
        return found->pixmaps[NORMAL];
    }
    return found->pixmaps[state];
}

const QString &ImageManager::getImageFolder() const
{
    return initialized(m_imageFolder);
}

const QString &ImageManager::getTempImageFolder() const
{
    return initialized(m_tempImageFolder);
}

void ImageManager::readJson()
{
    const QString text =
        textOfResource(UIPathManager::getInstance().getPath(QStringLiteral("resource_path"))
            + QLatin1String("/images.json"));
    // By way of a string, so that a byte that isn't UTF-8 spoils one name and not the catalogue.
    const QJsonObject catalogue = QJsonDocument::fromJson(text.toUtf8()).object();
    const QJsonArray names = catalogue.value(QLatin1String("images")).toArray();
    for (const QJsonValue &name : names)
        parseJson(name.toString());
    const QJsonArray tempNames = catalogue.value(QLatin1String("tmp_images")).toArray();
    for (const QJsonValue &name : tempNames)
        prepareTempImage(name.toString().remove(QLatin1Char(' ')));
}

void ImageManager::parseJson(const QString &name)
{
    Image image;
    image.fileNames = {name, name + QLatin1String("_hover"), name + QLatin1String("_click"),
        name + QLatin1String("_disable")};
    m_images.insert(name, image);
}

void ImageManager::prepareImages()
{
    QStringList names = m_images.keys();
    std::sort(names.begin(), names.end());
    for (const QString &name : qAsConst(names))
        load(m_images[name]);
}

void ImageManager::lazyLoad(const QString &name)
{
    Image &image = m_images[name];
    if (!image.loaded)
        load(image);
}

void ImageManager::load(Image &image)
{
    const double factor = DPIinfo::getInstance().getDPI();
    const double ratio = DPIinfo::getInstance().getDPR();
    // Deliberate: three roundings, each to whole pixels, not one multiplication.
    const auto deviceLength = [=](int artworkLength) {
        const int base = qRound(artworkLength * 0.25);
        const int logical = qRound(base * factor);
        return qRound(logical * ratio);
    };
    QString missingPath;
    for (size_t state = 0; state < kStates; ++state) {
        const QString path = getImageFullPath(image.fileNames[state]);
        // States without a picture all have the empty file name: one look at that file will do.
        const QImage artwork = path == missingPath ? QImage() : readPicture(path);
        if (artwork.isNull()) {
            missingPath = path;
            image.fileNames[state].clear();
            continue;
        }
        image.pixmaps[state] = QPixmap::fromImage(
            fitted(artwork, {deviceLength(artwork.width()), deviceLength(artwork.height())}));
        image.pixmaps[state].setDevicePixelRatio(ratio);
        image.loaded = true;
    }
}

void ImageManager::prepareTempImage(const QString &name)
{
    const QString path = getTempImageFullPath(name);
    // A name with ".." in it must not lead out of the folder.
    if (!QDir::cleanPath(path).startsWith(QDir::cleanPath(m_tempImageFolder) + QLatin1Char('/')))
        return;
    QImage picture = readPicture(getImageFullPath(name));
    if (!picture.isNull())
        picture = fitted(picture, picture.size() / 4.0 * DPIinfo::getInstance().getDPI());
    replaceFile(path, pngOf(picture));
}

QString ImageManager::getImageFullPath(const QString &name) const
{
    return m_imageFolder + QDir::separator() + name + kFileSuffix;
}

QString ImageManager::getTempImageFullPath(const QString &name) const
{
    return m_tempImageFolder + QDir::separator() + QLatin1String("tmp_") + name + kFileSuffix;
}

QPixmap getGlobalImage(const QString &name, ImageManager::ImageType type)
{
    return ImageManager::getInstance().getImage(name, type);
}

QPixmap getGlobalImage(const char *name, ImageManager::ImageType type)
{
    return getGlobalImage(QString::fromLatin1(name), type);
}

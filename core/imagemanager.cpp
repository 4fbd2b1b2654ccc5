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
const QLatin1String kImages("/images");

/// The picture in the file, whatever its format; null if there is none. Faster than QPixmap's own
/// loading: PNG is tried first, for which Qt then loads no plug-ins, and a missing file is not
/// looked for under other names.
QImage readPicture(const QString &path)
{
    QByteArray bytes = bytesOfResource(path, kMaxPictureBytes);
    QBuffer buffer(&bytes);
    if (bytes.isEmpty() || !buffer.open(QIODevice::ReadOnly))
        return {};
    QImageReader png(&buffer, "png");
    // With detection Qt would load every plug-in, to ask it whether it reads PNG.
    png.setAutoDetectImageFormat(false);
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
    QImage smooth = picture;
    if (picture.depth() == 1) // Qt 6 would scale it to black and white.
        smooth.convertTo(picture.hasAlphaChannel() ? QImage::Format_ARGB32 : QImage::Format_RGB32);
    return smooth.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
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
    m_imageFolder = UIPathManager::getInstance().getPath(QStringLiteral("resource_path")) + kImages;
    m_tempImageFolder = UIPathManager::getInstance().getPath(QStringLiteral("user_data_path"))
        + QLatin1String("/tmp_images");
    QDir().mkpath(m_tempImageFolder);
    readJson();
    if (type == PRELOAD)
        prepareImages();
}

void ImageManager::addCatalogue(const QString &folder)
{
    if (!m_addedFolders.contains(folder))
        m_addedFolders += folder;
    if (!isInitialized())
        return;
    const QStringList names = readCatalogue(folder);
    if (m_initType != PRELOAD)
        return;
    for (const QString &name : names)
        load(m_images[name]);
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

bool ImageManager::hasImage(const QString &name, ImageType type)
{
    const auto found = m_images.find(name);
    if (found == m_images.end())
        return false;
    if (m_initType == LAZY_LOAD && !found->loaded)
        lazyLoad(name);
    const auto state = static_cast<size_t>(type);
    return state < kStates && !found->pixmaps[state].isNull();
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
    readCatalogue(UIPathManager::getInstance().getPath(QStringLiteral("resource_path")));
    for (const QString &folder : qAsConst(m_addedFolders))
        readCatalogue(folder);
}

QStringList ImageManager::readCatalogue(const QString &folder)
{
    const QString imageFolder = folder + kImages;
    const QString text = textOfResource(folder + QLatin1String("/images.json"));
    // Decoded leniently first, so that one byte that is not UTF-8 spoils one name, not the whole
    // catalogue.
    const QJsonObject catalogue = QJsonDocument::fromJson(text.toUtf8()).object();
    const QJsonArray listed = catalogue.value(QLatin1String("images")).toArray();
    QStringList names;
    for (const auto &name : listed) {
        names += name.toString();
        parseJson(names.last(), imageFolder);
    }
    const QJsonArray tempNames = catalogue.value(QLatin1String("tmp_images")).toArray();
    for (const auto &name : tempNames)
        prepareTempImage(name.toString().remove(QLatin1Char(' ')), imageFolder);
    return names;
}

void ImageManager::parseJson(const QString &name, const QString &imageFolder)
{
    Image image;
    image.folder = imageFolder;
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
        const QString path = getImageFullPath(image.fileNames[state], image.folder);
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

void ImageManager::prepareTempImage(const QString &name, const QString &imageFolder)
{
    const QString path = getTempImageFullPath(name);
    // A name with ".." in it must not lead out of the folder.
    if (!QDir::cleanPath(path).startsWith(QDir::cleanPath(m_tempImageFolder) + QLatin1Char('/')))
        return;
    QImage picture = readPicture(getImageFullPath(name, imageFolder));
    if (!picture.isNull())
        picture = fitted(picture, picture.size() / 4.0 * DPIinfo::getInstance().getDPI());
    replaceFile(path, pngOf(picture));
}

QString ImageManager::getImageFullPath(const QString &name, const QString &imageFolder)
{
    return imageFolder + QDir::separator() + name + kFileSuffix;
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

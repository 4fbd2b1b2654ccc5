// SPDX-License-Identifier: MIT
#include "help/pagedocument_p.h"

#include "core/logging_p.h"
#include "core/scaling_p.h"
#include "help/helplimits_p.h"
#include "help/pagedistances_p.h"
#include "help/picturefolder_p.h"
#include "help/picturehandler_p.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QTextBlock>
#include <QTextBrowser>
#include <QtMath>

#include <algorithm>

namespace {

constexpr int kNeighbours = 1000; // Characters.
constexpr int kIndent = 40; // Of a list, in design pixels.

/// The symbol that the text engine draws for a missing picture.
QPixmap missingPicture()
{
    return QPixmap(QStringLiteral(":/qt-project.org/styles/commonstyle/images/file-16.png"));
}

/// A picture of a local page, which may have any format and size.
QPixmap localPicture(const QString &file)
{
    QImageReader reader(file);
    reader.setDecideFormatFromContent(true); // Not from the name.
    return QPixmap::fromImageReader(&reader);
}

bool isDataAddress(const QString &address)
{
    return address.startsWith(QLatin1String("data:"), Qt::CaseInsensitive);
}

void warnOf(WebPicture::Problem problem, const QString &address)
{
    constexpr int kMaxLength = 200;
    const QString shown = address.left(kMaxLength);
    if (problem == WebPicture::UNKNOWN_FORMAT)
        qCWarning(vemoLog) << "Picture is of no format that pages may have" << shown;
    else if (problem == WebPicture::TOO_LARGE)
        qCWarning(vemoLog) << "Picture is too large" << shown;
    else if (problem == WebPicture::TOO_MANY)
        qCWarning(vemoLog) << "Page has too many large pictures to show" << shown;
}

qint64 pixelsOf(const WebPicture &picture)
{
    return picture.pixmap.isNull() ? 0 : qint64(picture.size.width()) * picture.size.height();
}

QString fileName(const QString &path)
{
    return path.mid(path.lastIndexOf(QLatin1Char('/')) + 1);
}

} // namespace

PageDocument::PageDocument(QTextBrowser *browser)
    : QTextDocument(browser), m_browser(browser), m_missing_picture(missingPicture())
{
    connect(this, &QTextDocument::contentsChanged, this, [this] { m_is_indexed = false; });
    new PictureHandler(this);
    setIndentWidth(scaled(kIndent));
    setDefaultStyleSheet(scaledDistances());
}

void PageDocument::setLocalFilesAllowed(bool allowed)
{
    m_local_files_allowed = allowed;
}

void PageDocument::forgetPictures(int count)
{
    m_max_picture_height = kMaxPicturesHeight / qMax(1, count);
    m_pictures.clear();
    m_local_pictures.clear();
    m_warned_of.clear();
    m_pixels = 0;
}

void PageDocument::forgetPictures(const QSet<QString> &fileNames)
{
    for (auto picture = m_pictures.begin(); picture != m_pictures.end();) {
        const bool isForgotten = fileNames.contains(fileName(picture.key()));
        if (isForgotten)
            m_pixels -= pixelsOf(*picture);
        picture = isForgotten ? m_pictures.erase(picture) : std::next(picture);
    }
    for (auto picture = m_local_pictures.begin(); picture != m_local_pictures.end();) {
        const bool isForgotten = picture->isNull() || fileNames.contains(fileName(picture.key()));
        picture = isForgotten ? m_local_pictures.erase(picture) : std::next(picture);
    }
}

void PageDocument::renewPictures(const QSet<QString> &fileNames)
{
    forgetPictures(fileNames);
    layOutAgain(fileNames);
}

void PageDocument::fitPictures()
{
    QSet<QString> wide;
    for (auto picture = m_pictures.cbegin(); picture != m_pictures.cend(); ++picture) {
        if (picture->size.width() > qMin(m_fitted_width, pageWidth()))
            wide += fileName(picture.key());
    }
    if (m_fitted_width != pageWidth() && !wide.isEmpty())
        layOutAgain(wide);
    m_fitted_width = pageWidth();
}

void PageDocument::layOutAgain(const QSet<QString> &fileNames)
{
    QVector<int> positions;
    for (const QString &name : fileNames)
        positions += pictureIndex().values(name).toVector();
    std::sort(positions.begin(), positions.end());
    // Neighbours share one run, because the layout walks over the whole page for each.
    for (int first = 0, next = 0; first < positions.size(); first = next) {
        next = first + 1;
        while (next < positions.size() && positions.at(next) - positions.at(next - 1) < kNeighbours)
            ++next;
        markContentsDirty(positions.at(first), positions.at(next - 1) - positions.at(first) + 1);
    }
}

/// The positions of the pictures. Created once per text, since a page may have ten thousand.
const QMultiHash<QString, int> &PageDocument::pictureIndex()
{
    if (m_is_indexed)
        return m_picture_index;
    m_picture_index.clear();
    for (QTextBlock block = begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextFragment fragment = part.fragment();
            const QString name = fileName(fragment.charFormat().toImageFormat().name());
            for (int i = 0; !name.isEmpty() && i < fragment.length(); ++i)
                m_picture_index.insert(name, fragment.position() + i);
        }
    }
    m_is_indexed = true;
    return m_picture_index;
}

QVariant PageDocument::loadResource(int type, const QUrl &name)
{
    if (m_local_files_allowed)
        return localResource(type, name);
    // For a background, nothing is better than the symbol for a missing picture.
    const QString address = name.toString();
    const bool isFound = type == ImageResource && !webPicture(address).pixmap.isNull();
    return isFound ? QVariant(picture(address)) : QVariant();
}

/// Pictures in the search paths have precedence and are searched for again each time: the base
/// class would cache the first one, although downloads may replace it.
QVariant PageDocument::localResource(int type, const QUrl &name)
{
    const QString key = name.toString();
    if (type == ImageResource && !m_local_pictures.contains(key)) {
        const QString file = fileInSearchPaths(name);
        m_local_pictures.insert(key, file.isEmpty() ? QPixmap() : localPicture(file));
    }
    const QPixmap found = type == ImageResource ? m_local_pictures.value(key) : QPixmap();
    return found.isNull() ? QTextDocument::loadResource(type, name) : QVariant(found);
}

/// The file that name refers to in the browser's search paths. Empty if there is none or, on a page
/// from the network, if it is outside of them, even through a link.
QString PageDocument::fileInSearchPaths(const QUrl &name) const
{
    const QString path = name.path();
    if (!name.scheme().isEmpty() || !name.host().isEmpty() || path.isEmpty()
        || QDir::isAbsolutePath(path))
        return {};
    const QStringList folders = m_browser->searchPaths();
    for (const QString &folder : folders) {
        const bool isPictureFolder = folder == pictureFolder();
        if (isPictureFolder && (!m_local_files_allowed || !isPictureFolderOwn()))
            continue; // For pages from the network openPicture() opens it, more strictly.
        const QString clean = QDir::cleanPath(folder) + QLatin1Char('/');
        const QString file = QDir::cleanPath(clean + path);
        // Not even checked for existence, which might already contact another machine.
        if (!m_local_files_allowed && !file.startsWith(clean))
            continue;
        const QFileInfo candidate(file);
        if (!candidate.isFile() || !candidate.isReadable())
            continue;
        const QString inside = QFileInfo(folder).canonicalFilePath() + QLatin1Char('/');
        const QString real = candidate.canonicalFilePath();
        return m_local_files_allowed || real.startsWith(inside) ? real : QString();
    }
    return {};
}

int PageDocument::pageWidth() const
{
    constexpr int kMinWidth = 64;
    return qMax(kMinWidth, m_browser->viewport()->width() - 2 * int(documentMargin()));
}

QPixmap PageDocument::picture(const QString &address)
{
    const WebPicture &found = webPicture(address);
    return found.pixmap.isNull() ? m_missing_picture : found.pixmap;
}

QSize PageDocument::shownSize(const QString &address)
{
    const WebPicture &found = webPicture(address);
    if (found.pixmap.isNull())
        return m_missing_picture.size() / m_missing_picture.devicePixelRatio();
    const int width = pageWidth();
    if (found.size.width() <= width)
        return found.size;
    return {width, qMax(1, int(qint64(found.size.height()) * width / found.size.width()))};
}

/// The picture at address. It is read on first use, and again if the page has become so much wider
/// that it was decoded too small.
const WebPicture &PageDocument::webPicture(const QString &address)
{
    const auto known = m_pictures.find(address);
    if (known != m_pictures.end()) {
        const bool isTooSmall = !known->pixmap.isNull()
            && known->pixmap.width() < qMin(known->size.width(), decodedWidth());
        if (!isTooSmall)
            return *known;
        m_pixels -= pixelsOf(*known);
        m_pictures.erase(known);
    }
    const WebPicture found = read(address);
    if (found.problem != WebPicture::NONE && !m_warned_of.contains(address)) {
        m_warned_of.insert(address);
        warnOf(found.problem, address);
    }
    m_pixels += pixelsOf(found);
    return *m_pictures.insert(address, found);
}

/// In steps, so that resizing a window does not read its pictures all the time.
int PageDocument::decodedWidth() const
{
    constexpr int kStep = 256;
    const int width = qCeil(pageWidth() * m_browser->devicePixelRatioF());
    return (width + kStep - 1) / kStep * kStep;
}

WebPicture PageDocument::read(const QString &address) const
{
    const qint64 pixelsLeft = kMaxPagePixels - m_pixels;
    if (isDataAddress(address)) {
        QByteArray bytes = bytesOfDataAddress(address);
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::ReadOnly);
        return readWebPicture(&buffer, pixelsLeft, decodedWidth());
    }
    QFile file;
    return open(address, &file) ? readWebPicture(&file, pixelsLeft, decodedWidth()) : WebPicture();
}

bool PageDocument::open(const QString &address, QFile *file) const
{
    const QUrl name(address);
    const QString path = QDir::cleanPath(pictureFolder() + QLatin1Char('/') + name.path());
    const QString inside = pictureFolder() + QLatin1Char('/');
    const bool isRelative =
        name.isRelative() && name.host().isEmpty() && !QDir::isAbsolutePath(name.path());
    // The picture folder is the first of the search paths, if it is one of them.
    if (isRelative && m_browser->searchPaths().contains(pictureFolder()) && path.startsWith(inside)
        && openPicture(path.mid(inside.size()), file))
        return true;
    file->setFileName(fileInSearchPaths(name));
    return !file->fileName().isEmpty() && file->open(QIODevice::ReadOnly);
}

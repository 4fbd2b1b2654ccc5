// SPDX-License-Identifier: MIT
#include "help/pagedocument_p.h"

#include "core/logging_p.h"
#include "help/helplimits_p.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QTextBlock>
#include <QTextBrowser>

#include <algorithm>

namespace {

constexpr int kNeighbours = 1000; // Characters.

/// What the text engine itself draws for a missing picture. It must get one: left without, it would
/// open the address that the page gives as a file.
QPixmap missingPicture()
{
    return QPixmap(QStringLiteral(":/qt-project.org/styles/commonstyle/images/file-16.png"));
}

QPixmap readPicture(const QString &file, bool isOfAnySize)
{
    QImageReader reader(file);
    // The content decides, not the name, and few bytes can be a picture that fills the memory.
    reader.setDecideFormatFromContent(true);
    const QSize size = reader.size();
    if (!isOfAnySize && qint64(size.width()) * size.height() > kMostPicturePixels) {
        qCWarning(vemoLog) << "Picture is too large" << file;
        return {};
    }
    return QPixmap::fromImageReader(&reader);
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
}

void PageDocument::setLocalFilesAllowed(bool allowed)
{
    m_local_files_allowed = allowed;
}

void PageDocument::forgetPictures()
{
    m_pictures.clear();
    m_missing.clear();
}

void PageDocument::forgetPictures(const QSet<QString> &fileNames)
{
    m_missing.clear();
    for (auto picture = m_pictures.begin(); picture != m_pictures.end();) {
        if (fileNames.contains(fileName(picture.key())))
            picture = m_pictures.erase(picture);
        else
            ++picture;
    }
}

void PageDocument::renewPictures(const QSet<QString> &fileNames)
{
    forgetPictures(fileNames);
    QVector<int> positions;
    for (const QString &name : fileNames)
        positions += pictureIndex().values(name).toVector();
    std::sort(positions.begin(), positions.end());
    // Neighbours share one run: each costs the layout a walk over the whole page.
    for (int first = 0, next = 0; first < positions.size(); first = next) {
        next = first + 1;
        while (next < positions.size() && positions.at(next) - positions.at(next - 1) < kNeighbours)
            ++next;
        markContentsDirty(positions.at(first), positions.at(next - 1) - positions.at(first) + 1);
    }
}

/// Where the pictures stand: looked up once for each text, a page may have ten thousand.
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
    // An address that holds its own data reads nothing.
    const bool isData = name.scheme() == QLatin1String("data");
    if (type == ImageResource && !isData) {
        const QPixmap found = picture(name);
        if (!found.isNull())
            return found;
        if (!m_local_files_allowed)
            return m_missing_picture;
    }
    if (m_local_files_allowed || isData)
        return QTextDocument::loadResource(type, name);
    QFile file(fileInSearchPaths(name));
    const bool isOpen = !file.fileName().isEmpty() && file.open(QIODevice::ReadOnly);
    return isOpen ? QVariant(file.readAll()) : QVariant();
}

/// The file that name refers to by the browser's search paths; empty where there is none, and, on a
/// page from the network, where it lies outside of them, be it by a link.
QString PageDocument::fileInSearchPaths(const QUrl &name) const
{
    const QString path = name.path();
    if (!name.scheme().isEmpty() || !name.host().isEmpty() || path.isEmpty()
        || QDir::isAbsolutePath(path))
        return {};
    const QStringList folders = m_browser->searchPaths();
    for (const QString &folder : folders) {
        const QFileInfo candidate(folder + QLatin1Char('/') + path);
        if (!candidate.isFile() || !candidate.isReadable())
            continue;
        const QString file = candidate.canonicalFilePath();
        const QString inside = QFileInfo(folder).canonicalFilePath() + QLatin1Char('/');
        return m_local_files_allowed || file.startsWith(inside) ? file : QString();
    }
    return {};
}

/// The picture in the search paths; null where there is none. The base class would keep the first
/// one that it sees, while downloads bring new ones.
QPixmap PageDocument::picture(const QUrl &name)
{
    const QString key = name.toString();
    const auto known = m_pictures.constFind(key);
    if (known != m_pictures.constEnd())
        return *known;
    if (m_missing.contains(key))
        return {};
    const QString file = fileInSearchPaths(name);
    const QPixmap pixmap = file.isEmpty() ? QPixmap() : readPicture(file, m_local_files_allowed);
    if (pixmap.isNull())
        m_missing.insert(key);
    else
        m_pictures.insert(key, pixmap);
    return pixmap;
}

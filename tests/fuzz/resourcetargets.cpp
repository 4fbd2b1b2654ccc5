// SPDX-License-Identifier: MIT
// The resource core: style files, lengths, the picture catalogue, texts.
#include "fuzz/fuzz.h"

#include "core/stylefile_p.h"
#include "core/styleoracles.h"
#include "support/testhost.h"

#include <vemo/componentstrings.h>
#include <vemo/dpiinfo.h>
#include <vemo/stylemanager.h>

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QImageReader>

namespace {

constexpr int kMaxPixels = 1000000; // Of a picture: larger ones only take time.

const TestHost &host()
{
    static const TestHost folders;
    return folders;
}

/// Whether decoding takes no more than a moment.
bool isSmallPicture(QByteArray bytes)
{
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    const QSize size = QImageReader(&buffer).size();
    return !size.isValid() || qint64(size.width()) * size.height() <= kMaxPixels;
}

} // namespace

void fuzzStyleFiles(const QByteArray &data)
{
    // As from a file: without any "\r", and with a line break at the end.
    const QString text = textOf(QByteArray(data).replace("\r", "")) + QLatin1Char('\n');
    const QString cut = withoutComments(text);
    require(cut == withoutCommentsByRules(text), "comments are removed by their rules");
    std::map<QString, QString> sections;
    std::map<QString, QString> expected;
    storeSections(cut, sections);
    storeSectionsByRules(cut, expected);
    require(sections == expected, "sections are cut by their rules");
    // The same through a file: what it defines is found, at whatever key.
    StyleManager manager = StyleManager::getInstance();
    manager.initialize({host().writeFile(QStringLiteral("fuzz.qss"), data)});
    for (const auto &section : expected) {
        const QString sheet = manager.getStyleSheet(section.first, true);
        require(sheet == section.second || text.contains(QLatin1String("IMG_LOC")),
            "a section is served as it was cut");
    }
}

void fuzzScaling(const QByteArray &data)
{
    const QString sheet = textOf(data);
    const DPIinfo &info = DPIinfo::getInstance();
    require(info.getScaledStyleSheet(sheet) == scaledByRules(sheet, info.getDPI()),
        "lengths are scaled by their rules");
}

void fuzzCatalogue(const QByteArray &data)
{
    QByteArray rest = data;
    const QByteArray catalogue = takePart(&rest, '\0');
    const QByteArray picture = rest;
    if (!isSmallPicture(picture))
        return;
    host().writeFile(QStringLiteral("images.json"), catalogue);
    for (const char *file : {"images/a.png", "images/a_hover.png", "images/b.png"})
        host().writeFile(QString::fromLatin1(file), picture);
    static ImageManager *const images = new ImageManager(ImageManager::getInstance());
    ImageManager fresh = *images;
    TestHost::registerFolders(host().resourcePath(), host().userDataPath());
    fresh.initialize(data.size() % 2 == 0 ? ImageManager::PRELOAD : ImageManager::LAZY_LOAD);
    for (const char *name : {"a", "b", "", "icon_warning"}) {
        for (int type = -1; type < 5; ++type)
            fresh.getImage(QString::fromLatin1(name), static_cast<ImageManager::ImageType>(type));
    }
    // No name leads out of the folder of temporary pictures.
    require(
        QDir(host().userDataPath()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).size() == 1,
        "temporary pictures are written into their folder alone");
    QDir(host().tempPictureFolder()).removeRecursively();
}

void fuzzStrings(const QByteArray &data)
{
    QMap<QString, QString> table;
    const QList<QByteArray> lines = data.split('\n');
    for (const QByteArray &line : lines) {
        QByteArray text = line;
        const QString key = textOf(takePart(&text, '='));
        table.insert(key, textOf(text));
    }
    ComponentStrings strings = ComponentStrings::getInstance();
    strings.installStrings(table);
    for (auto entry = table.cbegin(); entry != table.cend(); ++entry) {
        require(strings.getString(entry.key()) == entry.value(), "a key yields its text");
        const QString other = entry.key() + QLatin1Char('x');
        require(
            strings.getString(other) == table.value(other, other), "an unknown key yields itself");
    }
}

// SPDX-License-Identifier: MIT
// Input from outside: messages of other instances, pages of a server, and typed text.
#include "fuzz/fuzz.h"

#include "app/messagereader_p.h"
#include "core/qtcompat_p.h"
#include "help/pagedocument_p.h"
#include "help/picturefolder_p.h"
#include "help/picturescan_p.h"
#include "help/safepage_p.h"

#include <vemo/itemdelegate.h>
#include <vemo/vemobuttonpath.h>
#include <vemo/vemopagingmodel.h>
#include <vemo/vemotimecombobox.h>

#include <QApplication>
#include <QDir>
#include <QFocusEvent>
#include <QImage>
#include <QLineEdit>
#include <QStandardItemModel>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QValidator>
#include <QtEndian>

#include <algorithm>
#include <cstring>
#include <limits>
#include <memory>

namespace {

const QRgb kSecretColour = qRgb(18, 52, 86);
const char kSecretText[] = "a secret of this disk";

/// A page document that checks the resources of its pages.
class WatchedDocument : public PageDocument
{
public:
    using PageDocument::PageDocument;

protected:
    QVariant loadResource(int type, const QUrl &name) override
    {
        const QVariant resource = PageDocument::loadResource(type, name);
        if (name.scheme() == QLatin1String("data"))
            return resource;
        require(!resource.toByteArray().contains(kSecretText), "no page reads a local file");
        const QImage picture = resource.value<QPixmap>().toImage();
        require(picture.isNull() || picture.pixel(0, 0) != kSecretColour,
            "no page shows a local picture");
        return resource;
    }
};

/// A folder with secrets, to which plain file names refer.
void enterSecretFolder()
{
    static QTemporaryDir *folder = nullptr;
    if (folder)
        return;
    folder = new QTemporaryDir;
    QDir::setCurrent(folder->path());
    QImage picture(8, 8, QImage::Format_RGB32);
    picture.fill(kSecretColour);
    picture.save(QStringLiteral("s.png"));
    QFile text(QStringLiteral("s.css"));
    text.open(QIODevice::WriteOnly);
    text.write(kSecretText);
}

QString utf8ByRules(const QByteArray &bytes)
{
    Utf8Decoder decoder;
    QString text = decoder.toUnicode(bytes);
    return decoder.needsMoreData() ? text += QChar(QChar::ReplacementCharacter) : text;
}

/// The expected completion of a typed time, step by step.
QString timeByRules(const QString &typed, const QString &custom, const QStringList &times)
{
    const auto padded = [](const QString &part) {
        return part.isEmpty() ? QStringLiteral("00") : part.size() == 1 ? '0' + part : part;
    };
    const QStringList parts = typed.left(5).split(QLatin1Char(':'));
    const QString minutes = parts.size() == 1 ? QStringLiteral("00") : padded(parts[1]);
    const QString time = padded(parts[0]) + QLatin1Char(':') + minutes;
    return times.contains(time) || custom.isEmpty() ? time : time + QLatin1Char(' ') + custom;
}

int takeInt(QByteArray *data)
{
    qint32 number = 0;
    std::memcpy(&number, data->constData(), size_t(qMin(data->size(), int(sizeof(number)))));
    data->remove(0, sizeof(number));
    return number;
}

} // namespace

void fuzzFrames(const QByteArray &data)
{
    if (data.isEmpty())
        return;
    const int step = 1 + uchar(data[0]) % 97;
    const QByteArray bytes = data.mid(1);
    MessageReader reader;
    MessageReader::State state = MessageReader::Receiving;
    for (int at = 0; at < bytes.size() && state == MessageReader::Receiving; at += step)
        state = reader.take(bytes.constData() + at, qMin(step, bytes.size() - at));
    if (bytes.size() < 4) {
        require(state == MessageReader::Receiving, "a count needs all of its bytes");
        return;
    }
    const auto announced = qFromBigEndian<quint32>(bytes.constData());
    const QByteArray body = bytes.mid(4);
    if (announced > MessageReader::kMaxSize) {
        require(state == MessageReader::TooLong, "a message that is too long is refused");
    } else if (announced > quint32(body.size())) {
        require(state == MessageReader::Receiving, "a message is received whole");
    } else {
        require(state == MessageReader::Received, "a whole message is received");
        while (!reader.decodeSome()) { }
        require(
            reader.text() == utf8ByRules(body.left(int(announced))), "a message keeps its text");
    }
}

void fuzzHelpPages(const QByteArray &data)
{
    enterSecretFolder();
    const QString page = textOf(data);
    const BaseAddress base = findBaseAddress(page);
    require(base.start <= base.end && base.end <= page.size(), "the base address lies in the page");
    const auto sources = pictureSources(page, qMax(0, base.end));
    for (const QStringView source : sources)
        require(source.size() <= page.size(), "a picture's address lies in the page");
    const SafePage safe = safePage(page, true);
    if (safe.verdict != SafePage::FINE)
        return;
    static auto *const browser = new QTextBrowser;
    static auto *const document = new WatchedDocument(browser);
    if (browser->document() != document) {
        browser->setDocument(document);
        browser->setSearchPaths({QDir::tempPath() + QLatin1String("/vemo-no-such-folder")});
    }
    document->forgetPictures(0);
    browser->setHtml(safe.html);
    document->setTextWidth(400);
    document->renewPictures({QStringLiteral("s.png")});
}

void fuzzTimes(const QByteArray &data)
{
    QByteArray rest = data;
    const QString typed = textOf(takePart(&rest));
    const QString custom = textOf(takePart(&rest));
    QStringList times;
    for (int half = 0; half < 48; ++half)
        times += QStringLiteral("%1:%2")
                     .arg(half / 2, 2, 10, QLatin1Char('0'))
                     .arg(half % 2 == 0 ? "00" : "30");
    static auto *const shared = new VemoTimeComboBox;
    VemoTimeComboBox &box = *shared;
    if (box.count() == 0)
        box.addItems(times);
    box.setEditable(false); // Also forgets the custom item.
    box.setEditable(true);
    // setEditable() deletes the field later, for which no event loop runs here.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    box.setCustomText(custom);
    box.lineEdit()->setText(typed);
    const QString shown = box.currentText();
    QFocusEvent leave(QEvent::FocusOut);
    QApplication::sendEvent(&box, &leave);
    const QString expected = shown.isEmpty() ? times.first() : timeByRules(shown, custom, times);
    // An emptied field shows the default item, which here is the empty custom one in row 0.
    require(shown.isEmpty() || box.itemText(box.currentIndex()) == expected,
        "a typed time is completed by its rules");
}

void fuzzFileNames(const QByteArray &data)
{
    QString name = textOf(data).left(300);
    // The names that the tree's editor takes.
    QStandardItemModel model(1, 1);
    QLineEdit editor;
    ItemDelegate delegate;
    delegate.setEditorData(&editor, model.index(0, 0));
    int position = 0;
    QString checked = name;
    const bool isTaken = editor.validator()->validate(checked, position) == QValidator::Acceptable;
    const auto isForbidden = [](QChar c) { return QStringLiteral("\\/:*?\"<>|").contains(c); };
    const bool isFine = !name.isEmpty() && !name.startsWith(QLatin1Char('.'))
        && std::none_of(name.begin(), name.end(), isForbidden) && QStringView(name).isValidUtf16();
    require(isTaken == isFine, "the editor takes the names that its rule allows");
    // The names that downloaded pictures may have.
    const bool isSafe = isSafePictureName(name);
    const bool isPath = name.contains(QLatin1Char('/')) || name == QLatin1String("..")
        || name == QLatin1String(".") || name.contains(QChar(0));
    require(!isSafe || !isPath, "a safe name names a file of its folder");
}

void fuzzPaths(const QByteArray &data)
{
    constexpr int maxParts = 40;
    const QString path = textOf(data).left(1000);
    const QStringList parts = path.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    if (parts.size() > maxParts)
        return;
    static auto *const bar = new VemoButtonPath;
    bar->refresh(path);
    require(bar->columnCount() == qMax(0, 2 * parts.size() - 1), "each part has its column");
    for (int i = 0; i < parts.size(); ++i)
        require(bar->getPath(2 * i) == parts.mid(0, i + 1).join(QLatin1Char('/')),
            "a column yields the path up to its part");
    require(bar->path() == parts.join(QLatin1Char('/')), "the bar knows its path");
    bar->getPath(std::numeric_limits<int>::max());
    bar->getPath(std::numeric_limits<int>::min());
}

void fuzzPaging(const QByteArray &data)
{
    QByteArray rest = data;
    const qint64 rows = takeInt(&rest);
    const qint64 items = takeInt(&rest);
    const qint64 page = takeInt(&rest);
    const auto toInt = [](qint64 value) {
        return int(qBound<qint64>(qint64(std::numeric_limits<int>::min()), value,
            qint64(std::numeric_limits<int>::max())));
    };
    VemoPagingModel model(int(rows), nullptr);
    model.setItemCount(int(items));
    model.setNowPage(int(page));
    require(model.startItem() == toInt((page - 1) * rows), "a page starts at its item");
    const qint64 pages = rows == 0 ? 1 : items / rows + (items % rows != 0 ? 1 : 0);
    require(model.pageCount() == toInt(qMax<qint64>(1, pages)), "items fill their pages");
}

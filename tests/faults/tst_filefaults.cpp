// SPDX-License-Identifier: MIT
// Tests each fault of a file in each place where the library reads one. The library must never
// allocate more than a small part of the size that the file claims to have.
#include <vemo/imagemanager.h>
#include <vemo/stylemanager.h>
#include <vemo/vemomessagesheet.h>

#include "faults/faults.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <QBuffer>
#include <QMovie>

#include <csignal>
#include <cstdio>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr qint64 kMaxMemory = 64 * 1024 * 1024;
const char *const kSuffixes[] = {"", "_hover", "_click", "_disable"};

QByteArray pngOf(const QImage &picture)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    picture.save(&buffer, "PNG");
    return bytes;
}

QByteArray plainPng(Qt::GlobalColor colour)
{
    QImage picture(64, 64, QImage::Format_ARGB32);
    picture.fill(colour);
    return pngOf(picture);
}

/// A picture whose file is also large.
QByteArray noisyPng()
{
    QImage picture(320, 320, QImage::Format_RGB32);
    quint32 random = 1;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            picture.setPixel(x, y, 0xff000000 | (random = random * 1664525 + 1013904223) >> 8);
    }
    return pngOf(picture);
}

QByteArray plainGif()
{
    return QByteArray::fromHex("4749463839610100010080 0000ff0a0a000000"
                               "2c00000000010001000002024401003b");
}

QColor colourOf(const QPixmap &picture)
{
    return picture.isNull() ? QColor() : picture.toImage().pixelColor(1, 1);
}

/// Whether path is a regular file that an ordinary user must not write.
bool isProtectedFile(const QString &path)
{
    const Unprivileged user;
    return QFileInfo(path).isFile() && !QFile(path).open(QIODevice::Append);
}

void addFaultColumn()
{
    QTest::addColumn<int>("fault");
}

/// A row for each fault.
void addFaults(const char *place = "")
{
    const std::vector<Fault> &faults = allFaults();
    for (size_t i = 0; i < faults.size(); ++i)
        QTest::addRow("%s%s", place, faults[i].name) << int(i);
}

} // namespace

class FileFaultsTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void aStyleFile_data();
    void aStyleFile();
    void theCatalogue_data();
    void theCatalogue();
    void aPicture_data();
    void aPicture();
    void aTemporaryPicturesSource_data();
    void aTemporaryPicturesSource();
    void aTemporaryPicturesPlace_data();
    void aTemporaryPicturesPlace();
    void aFullDiskLeavesNoPartOfAPicture_data();
    void aFullDiskLeavesNoPartOfAPicture();
    void aFolderThatMayNotBeWritten_data();
    void aFolderThatMayNotBeWritten();
    void aMovie_data();
    void aMovie();
    void filesReplacedWhileTheyAreRead();
    void theLimitItselfIsAllowed_data();
    void theLimitItselfIsAllowed();

private:
    QString at(const QString &name) const { return m_host->resourcePath() + '/' + name; }
    QString tempPicture() const { return m_host->tempPictureFolder() + "/tmp_" + m_name + ".png"; }
    QStringList tempFiles() const;
    const Fault &makeFault(const QString &path, const QByteArray &good) const;

    /// initialize() of the catalogue as an ordinary user.
    void start(ImageManager::InitializeType type) const;

    QScopedPointer<TestHost> m_host;
    QString m_name; ///< another for each row: the catalogue forgets none
};

void FileFaultsTest::initTestCase()
{
    startDefaultTheme();
}

void FileFaultsTest::init()
{
    VemoTest::init();
    static int row = 0;
    m_name = QString("picture%1").arg(++row);
    m_host.reset(new TestHost);
    for (const QString &folder :
        {m_host->resourcePath(), m_host->pictureFolder(), m_host->userDataPath()})
        chmod(QFile::encodeName(folder).constData(), 0777);
}

void FileFaultsTest::cleanup()
{
    VemoTest::cleanup();
    m_host.reset();
}

QStringList FileFaultsTest::tempFiles() const
{
    return QDir(m_host->tempPictureFolder())
        .entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System | QDir::Hidden);
}

const Fault &FileFaultsTest::makeFault(const QString &path, const QByteArray &good) const
{
    const int number = *static_cast<int *>(QTest::qData("fault", qMetaTypeId<int>()));
    const Fault &fault = allFaults()[size_t(number)];
    fault.make(path, good);
    return fault;
}

void FileFaultsTest::start(ImageManager::InitializeType type) const
{
    const Unprivileged user;
    m_host->start(type);
}

void FileFaultsTest::aStyleFile_data()
{
    addFaultColumn();
    addFaults();
}

void FileFaultsTest::aStyleFile()
{
    m_host->start(ImageManager::LAZY_LOAD);
    const QString path = at("fault.qss");
    const QString before = m_host->writeFile("before.qss", "==before " + m_name.toUtf8() + "==\nb");
    const QString after = m_host->writeFile("after.qss", "==after " + m_name.toUtf8() + "==\na");
    const Fault &fault = makeFault(path, "==" + m_name.toUtf8() + "==\nQMenu { margin: 1px; }\n");
    const MemoryPeak peak;
    {
        const Unprivileged user;
        StyleManager::getInstance().initialize({before, path, after});
    }
    QVERIFY2(peak.growth() <= kMaxMemory, qPrintable(QString::number(peak.growth())));
    QCOMPARE(messages.take(),
        fault.asText == Fault::NotAFile ? QStringList("file \"" + path + "\" not exist")
                                        : QStringList());
    QVERIFY(getStyleSheet("before" + m_name).startsWith("\nb"));
    if (fault.asText == Fault::Unopenable)
        QCOMPARE(getStyleSheet("before" + m_name), QString("\nb\n")); // an empty line
    QCOMPARE(getStyleSheet("after" + m_name), QString("\na"));
    if (fault.asText == Fault::Whole)
        QCOMPARE(getStyleSheet(m_name, true).trimmed(), QString("QMenu { margin: 1px; }"));
}

void FileFaultsTest::theCatalogue_data()
{
    addFaultColumn();
    addFaults();
}

void FileFaultsTest::theCatalogue()
{
    m_host->writeFile("images/" + m_name + ".png", plainPng(Qt::red));
    const Fault &fault =
        makeFault(at("images.json"), "{\n\"images\": [\n\"" + m_name.toUtf8() + "\"\n]\n}\n");
    const MemoryPeak peak;
    start(ImageManager::LAZY_LOAD);
    QVERIFY2(peak.growth() <= kMaxMemory, qPrintable(QString::number(peak.growth())));
    const bool isRead = fault.asText == Fault::Whole;
    QCOMPARE(colourOf(getGlobalImage(m_name)), isRead ? QColor(Qt::red) : QColor());
    QCOMPARE(messages.take(),
        isRead ? QStringList() : QStringList("Cannot load pixmap \"" + m_name + '"'));
}

void FileFaultsTest::aPicture_data()
{
    addFaultColumn();
    QTest::addColumn<int>("state");
    QTest::addColumn<int>("mode");
    const std::vector<Fault> &faults = allFaults();
    for (int state = 0; state < 4; ++state) {
        for (size_t i = 0; i < faults.size(); ++i) {
            for (const int mode : {0, 1})
                QTest::addRow("state %d, mode %d, %s", state, mode, faults[i].name)
                    << int(i) << state << mode;
        }
    }
}

void FileFaultsTest::aPicture()
{
    QFETCH(int, state);
    QFETCH(int, mode);
    if (state != 0)
        m_host->writeFile("images/" + m_name + ".png", plainPng(Qt::red));
    m_host->writeCatalogue({m_name});
    const Fault &fault =
        makeFault(at("images/" + m_name + kSuffixes[state] + ".png"), plainPng(Qt::green));
    const MemoryPeak peak;
    QPixmap picture;
    start(static_cast<ImageManager::InitializeType>(mode));
    {
        const Unprivileged user;
        picture = getGlobalImage(m_name, static_cast<ImageManager::ImageType>(state));
    }
    QVERIFY2(peak.growth() <= kMaxMemory, qPrintable(QString::number(peak.growth())));
    const bool isRead = fault.asPicture == Fault::Whole;
    const QColor fallback = state == 0 ? QColor() : QColor(Qt::red);
    QCOMPARE(colourOf(picture), isRead ? QColor(Qt::green) : fallback);
    QCOMPARE(messages.take(),
        isRead ? QStringList()
               : QStringList(QString("Cannot load pixmap \"%1\" with type %2 [use default icon]")
                                 .arg(m_name)
                                 .arg(state)));
}

void FileFaultsTest::aTemporaryPicturesSource_data()
{
    addFaultColumn();
    addFaults();
}

void FileFaultsTest::aTemporaryPicturesSource()
{
    m_host->writeCatalogue({}, {m_name});
    const Fault &fault = makeFault(at("images/" + m_name + ".png"), plainPng(Qt::green));
    const MemoryPeak peak;
    start(ImageManager::LAZY_LOAD);
    QVERIFY2(peak.growth() <= kMaxMemory, qPrintable(QString::number(peak.growth())));
    QCOMPARE(tempFiles(), QStringList("tmp_" + m_name + ".png"));
    if (fault.asPicture == Fault::Whole)
        QCOMPARE(colourOf(QPixmap(tempPicture())), QColor(Qt::green));
    else
        QCOMPARE(QFileInfo(tempPicture()).size(), 0);
}

void FileFaultsTest::aTemporaryPicturesPlace_data()
{
    addFaultColumn();
    addFaults();
}

void FileFaultsTest::aTemporaryPicturesPlace()
{
    m_host->writeFile("images/" + m_name + ".png", plainPng(Qt::green));
    m_host->writeCatalogue({}, {m_name});
    QVERIFY(QDir().mkpath(m_host->tempPictureFolder()));
    chmod(QFile::encodeName(m_host->tempPictureFolder()).constData(), 0777);
    const Fault &fault = makeFault(tempPicture(), plainPng(Qt::red));
    const bool isProtected = isProtectedFile(tempPicture());
    const qint64 oldSize = QFileInfo(tempPicture()).size();
    const QStringList before = tempFiles();
    const MemoryPeak peak;
    start(ImageManager::LAZY_LOAD);
    QVERIFY2(peak.growth() <= kMaxMemory, qPrintable(QString::number(peak.growth())));
    // A folder cannot be replaced, a write-protected file must not be, and the target of a link
    // must not change.
    const bool isFolder = QLatin1String(fault.name) == QLatin1String("folder");
    const QFileInfo after(tempPicture());
    QCOMPARE(after.isDir(), isFolder);
    if (isProtected)
        QCOMPARE(after.size(), oldSize);
    else if (!isFolder)
        QCOMPARE(colourOf(QPixmap(tempPicture())), QColor(Qt::green));
    QVERIFY(isProtected || !after.isSymLink());
    if (!before.isEmpty())
        QCOMPARE(tempFiles(), before); // Nothing left over.
    const QString target = tempPicture() + ".target";
    if (QFileInfo::exists(target))
        QCOMPARE(colourOf(QPixmap(target)), QColor(Qt::red));
}

void FileFaultsTest::aFullDiskLeavesNoPartOfAPicture_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<bool>("isReplacing");
    for (const int size : {0, 1, 8, 100, 4096, 5000, 8192}) {
        QTest::addRow("%d bytes", size) << size << false;
        QTest::addRow("%d bytes, in place of a good one", size) << size << true;
    }
}

void FileFaultsTest::aFullDiskLeavesNoPartOfAPicture()
{
    QFETCH(int, size);
    QFETCH(bool, isReplacing);
    m_host->writeFile("images/" + m_name + ".png", noisyPng());
    m_host->writeCatalogue({}, {m_name});
    if (isReplacing) {
        start(ImageManager::LAZY_LOAD);
        QVERIFY(QFileInfo(tempPicture()).size() > 8192);
    }
    {
        const FullDisk disk(size);
        start(ImageManager::LAZY_LOAD);
    }
    QCOMPARE(QFileInfo(tempPicture()).size(), 0);
    QVERIFY(tempFiles().size() <= 1);
    start(ImageManager::LAZY_LOAD);
    QCOMPARE(QPixmap(tempPicture()).size(), QSize(80, 80));
}

void FileFaultsTest::aFolderThatMayNotBeWritten_data()
{
    QTest::addColumn<int>("mode"); // of the folder
    QTest::addColumn<int>("fileMode"); // of the old picture in it; -1: there is none
    QTest::addColumn<bool>("isWritten");
    addRow("without a file", 0555, -1, false);
    addRow("with a file that may be written", 0555, 0666, true);
    addRow("with a file that may not be written", 0555, 0444, false);
    addRow("may not be entered", 0444, 0666, false);
    addRow("may not be used at all", 0, 0666, false);
}

void FileFaultsTest::aFolderThatMayNotBeWritten()
{
    QFETCH(int, mode);
    QFETCH(int, fileMode);
    QFETCH(bool, isWritten);
    m_host->writeFile("images/" + m_name + ".png", plainPng(Qt::green));
    m_host->writeCatalogue({m_name}, {m_name});
    QVERIFY(QDir().mkpath(m_host->tempPictureFolder()));
    const QByteArray folder = QFile::encodeName(m_host->tempPictureFolder());
    if (fileMode >= 0) {
        QVERIFY(QImage::fromData(plainPng(Qt::red)).save(tempPicture()));
        chmod(QFile::encodeName(tempPicture()).constData(), mode_t(fileMode));
    }
    chmod(folder.constData(), mode_t(mode));
    start(ImageManager::LAZY_LOAD);
    chmod(folder.constData(), 0777);
    QCOMPARE(colourOf(getGlobalImage(m_name)), QColor(Qt::green));
    const QColor old = fileMode < 0 ? QColor() : QColor(Qt::red);
    QCOMPARE(colourOf(QPixmap(tempPicture())), isWritten ? QColor(Qt::green) : old);
    QCOMPARE(tempFiles().size(), fileMode < 0 ? 0 : 1);
}

void FileFaultsTest::aMovie_data()
{
    addFaultColumn();
    addFaults();
}

void FileFaultsTest::aMovie()
{
    const QString path = at("busy.gif");
    const Fault &fault = makeFault(path, plainGif());
    QWidget window;
    const MemoryPeak peak;
    QScopedPointer<VemoMessageSheet> sheet;
    {
        const Unprivileged user;
        sheet.reset(new VemoMessageSheet("Working", path, &window));
    }
    QVERIFY2(peak.growth() <= kMaxMemory, qPrintable(QString::number(peak.growth())));
    const QScopedPointer<QMovie> movie(sheet->movie());
    QVERIFY(movie);
    QCOMPARE(!movie->currentPixmap().isNull(), fault.asPicture == Fault::Whole);
}

void FileFaultsTest::filesReplacedWhileTheyAreRead()
{
    const QByteArray good = plainPng(Qt::green);
    const QString path = at("images/" + m_name + ".png");
    const QByteArray name = QFile::encodeName(path);
    m_host->writeCatalogue({m_name});
    for (int i = 0; i < 3; ++i) {
        const QByteArray bytes = i == 0 ? good : i == 1 ? good.left(60) : QByteArray(1 << 20, 'x');
        m_host->writeFile("images/other" + QString::number(i), bytes);
    }
    const pid_t child = fork();
    if (child == 0) {
        for (int i = 0;; ++i) {
            const QByteArray other =
                QFile::encodeName(m_host->pictureFolder()) + "/other" + QByteArray::number(i % 3);
            unlink((name + ".new").constData());
            link(other.constData(), (name + ".new").constData());
            rename((name + ".new").constData(), name.constData());
        }
    }
    for (int i = 0; i < 300; ++i) {
        m_host->start(ImageManager::LAZY_LOAD);
        const QColor colour = colourOf(getGlobalImage(m_name));
        QVERIFY(!colour.isValid() || colour == QColor(Qt::green));
        QCOMPARE(messages.take().size(), colour.isValid() ? 0 : 1);
    }
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
}

void FileFaultsTest::theLimitItselfIsAllowed_data()
{
    QTest::addColumn<QString>("place");
    QTest::addColumn<int>("size");
    QTest::addColumn<bool>("isRead");
    const int mebi = 1024 * 1024;
    addRow("style file of 16 MiB", "style", 16 * mebi, true);
    addRow("style file, a byte more", "style", 16 * mebi + 1, false);
    addRow("catalogue of 16 MiB", "catalogue", 16 * mebi, true);
    addRow("catalogue, a byte more", "catalogue", 16 * mebi + 1, false);
    addRow("picture of 64 MiB", "picture", 64 * mebi, true);
    addRow("picture, a byte more", "picture", 64 * mebi + 1, false);
}

void FileFaultsTest::theLimitItselfIsAllowed()
{
    QFETCH(QString, place);
    QFETCH(int, size);
    QFETCH(bool, isRead);
    const auto padded = [size](const QByteArray &bytes) { return bytes.leftJustified(size, ' '); };
    const QByteArray picture = plainPng(Qt::green);
    const QByteArray catalogue = "{\"images\": [\"" + m_name.toUtf8() + "\"]}";
    m_host->writeFile("images.json", place == "catalogue" ? padded(catalogue) : catalogue);
    m_host->writeFile("images/" + m_name + ".png", place == "picture" ? padded(picture) : picture);
    m_host->start(ImageManager::PRELOAD);
    if (place != "style") {
        QCOMPARE(colourOf(getGlobalImage(m_name)), isRead ? QColor(Qt::green) : QColor());
    } else {
        const QString path = m_host->writeFile("x.qss", padded("==" + m_name.toUtf8() + "==\nx"));
        StyleManager::getInstance().initialize({path});
        QCOMPARE(getStyleSheet(m_name, true).trimmed(), isRead ? QString("x") : QString());
    }
    QVERIFY(messages.take().isEmpty() == isRead);
}

VEMO_TEST_MAIN(FileFaultsTest)
#include "tst_filefaults.moc"

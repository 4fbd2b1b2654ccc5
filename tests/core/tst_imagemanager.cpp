// SPDX-License-Identifier: MIT
#include <vemo/imagemanager.h>

#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/dpiinfo.h>

#include <QImageWriter>

static_assert(std::is_copy_constructible_v<ImageManager>);
static_assert(std::is_copy_assignable_v<ImageManager>);
static_assert(!std::is_default_constructible_v<ImageManager>);
static_assert(ImageManager::NORMAL == 0 && ImageManager::HOVER == 1 && ImageManager::CLICK == 2
    && ImageManager::DISABLE == 3);
static_assert(ImageManager::PRELOAD == 0 && ImageManager::LAZY_LOAD == 1);

Q_DECLARE_METATYPE(ImageManager::ImageType)

namespace {

/// Runs in a child process, which an uninitialised catalogue ends.
int askUninitialised(const QString &scenario)
{
    const ImageManager &images = ImageManager::getInstance();
    if (scenario == QLatin1String("folder"))
        std::fputs(qPrintable(images.getImageFolder()), stderr);
    else if (scenario == QLatin1String("temporary folder"))
        std::fputs(qPrintable(images.getTempImageFolder()), stderr);
    else
        return getGlobalImage("folder").isNull() ? 0 : 1;
    return 0;
}

/// The index of the result expected in this environment: 96, 120 and 144 dpi, then 96 dpi at
/// ratio 2.
int screenColumn()
{
    const DPIinfo &info = DPIinfo::getInstance();
    return info.getDPR() == 2 ? 3 : qRound((info.getDPI() - 1) * 4);
}

QColor middleOf(const QPixmap &picture)
{
    return picture.toImage().pixelColor(picture.width() / 2, picture.height() / 2);
}

/// Preloads the pictures of a catalogue in a child process, which has not loaded any before.
int preload(const QString &resourcePath)
{
    TestHost::registerFolders(resourcePath, resourcePath + "/user data");
    ImageManager::getInstance().initialize(ImageManager::PRELOAD);
    return middleOf(getGlobalImage("folder")) == QColor(Qt::red) ? 0 : 1;
}

int runScenario(const QString &scenario)
{
    return QDir::isAbsolutePath(scenario) ? preload(scenario) : askUninitialised(scenario);
}

} // namespace

class ImageManagerTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void thereIsOneInstance();
    void uninitialisedItHasNoFoldersAndEndsTheProcess_data();
    void uninitialisedItHasNoFoldersAndEndsTheProcess();
    void uninitialisedItKnowsNoPicture();
    void theFoldersLieUnderTheRegisteredOnes();
    void theTemporaryFolderIsMadeWithItsParents();
    void eachStateHasItsPicture_data();
    void eachStateHasItsPicture();
    void aMissingStateShowsTheNormalPictureAndWarns_data();
    void aMissingStateShowsTheNormalPictureAndWarns();
    void aMissingNormalPictureLeavesTheOthers_data();
    void aMissingNormalPictureLeavesTheOthers();
    void anUnknownNameYieldsANullPictureAndAWarning_data();
    void anUnknownNameYieldsANullPictureAndAWarning();
    void aNameWithoutFilesWarnsAtEveryCall_data();
    void aNameWithoutFilesWarnsAtEveryCall();
    void picturesAreScaledInThreeRoundings_data();
    void picturesAreScaledInThreeRoundings();
    void picturesKeepTheirProportions_data();
    void picturesKeepTheirProportions();
    void picturesAreSmoothed();
    void picturesOfTwoColoursAreSmoothedAndKeepThem();
    void aPictureTooSmallToShowIsNullInSilence();
    void anotherFormatUnderThatNameLoads_data();
    void anotherFormatUnderThatNameLoads();
    void loadsNoPluginsForPng();
    void preloadedPicturesNeedNoFilesLater();
    void lazyPicturesAreReadWhenTheyAreFirstAskedFor();
    void lazyPicturesNeedNoFilesAfterThat();
    void lazyPicturesAreReadOnceThoughOneStateAloneHasAFile_data();
    void lazyPicturesAreReadOnceThoughOneStateAloneHasAFile();
    void lazyPicturesWithoutFilesAreLookedForAgain();
    void aNameListedTwiceIsOnePicture();
    void initialisedAgainItReadsEverythingAnewAndForgetsNoName();
    void picturesOfAnAddedCatalogueAreFound_data();
    void picturesOfAnAddedCatalogueAreFound();
    void anAddedCatalogueIsReadAgainAfterTheFirst();
    void theFreeFunctionsAnswerLikeTheCatalogue();
    void aCopyAnswersOnItsOwn();

private:
    void start(ImageManager::InitializeType type, const QStringList &names);

    QScopedPointer<TestHost> m_host;
};

namespace {

void addBothModes()
{
    QTest::addColumn<int>("mode");
    addRow("preloaded", int(ImageManager::PRELOAD));
    addRow("lazy", int(ImageManager::LAZY_LOAD));
}

ImageManager::InitializeType fetchedMode()
{
    QFETCH(int, mode);
    return static_cast<ImageManager::InitializeType>(mode);
}

} // namespace

void ImageManagerTest::init()
{
    VemoTest::init();
    m_host.reset(new TestHost);
}

void ImageManagerTest::start(ImageManager::InitializeType type, const QStringList &names)
{
    m_host->writeCatalogue(names);
    m_host->start(type);
}

void ImageManagerTest::thereIsOneInstance()
{
    QCOMPARE(&ImageManager::getInstance(), &ImageManager::getInstance());
}

void ImageManagerTest::uninitialisedItHasNoFoldersAndEndsTheProcess_data()
{
    QTest::addColumn<QString>("scenario");
    addRow("picture folder", "folder");
    addRow("temporary folder", "temporary folder");
}

void ImageManagerTest::uninitialisedItHasNoFoldersAndEndsTheProcess()
{
    QFETCH(QString, scenario);
    const ChildResult child = runChild(scenario);
    QCOMPARE(child.status, QProcess::CrashExit);
    QVERIFY(child.errorOutput.contains("debug.message.warning: ImageManager is not initialized\n"));
}

void ImageManagerTest::uninitialisedItKnowsNoPicture()
{
    const ChildResult child = runChild("picture");
    QCOMPARE(child.status, QProcess::NormalExit);
    QCOMPARE(child.exitCode, 0);
    QVERIFY(child.errorOutput.contains("debug.message.warning: Cannot load pixmap \"folder\"\n"));
}

void ImageManagerTest::theFoldersLieUnderTheRegisteredOnes()
{
    start(ImageManager::LAZY_LOAD, {});
    const ImageManager &images = ImageManager::getInstance();
    QCOMPARE(images.getImageFolder(), m_host->resourcePath() + "/images");
    QCOMPARE(images.getTempImageFolder(), m_host->userDataPath() + "/tmp_images");
}

void ImageManagerTest::theTemporaryFolderIsMadeWithItsParents()
{
    const QString folder = m_host->userDataPath() + "/some/deeper folder";
    m_host->writeCatalogue({});
    TestHost::registerFolders(m_host->resourcePath(), folder);
    ImageManager::getInstance().initialize(ImageManager::PRELOAD);
    QVERIFY(QDir(folder + "/tmp_images").exists());
}

void ImageManagerTest::eachStateHasItsPicture_data()
{
    addBothModes();
}

void ImageManagerTest::eachStateHasItsPicture()
{
    const std::pair<const char *, Qt::GlobalColor> files[] = {
        {"bt", Qt::red}, {"bt_hover", Qt::green}, {"bt_click", Qt::blue}, {"bt_disable", Qt::gray}};
    for (const auto &[name, colour] : files)
        m_host->addPicture(name, {64, 64}, colour);
    start(fetchedMode(), {"bt"});
    for (int state = 0; state < 4; ++state) {
        const QPixmap picture =
            ImageManager::getInstance().getImage("bt", static_cast<ImageManager::ImageType>(state));
        QCOMPARE(middleOf(picture), QColor(files[state].second));
    }
}

void ImageManagerTest::aMissingStateShowsTheNormalPictureAndWarns_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("state");
    for (const int mode : {0, 1}) {
        for (const int state : {1, 2, 3, 4, 1000, -1})
            QTest::addRow("mode %d, state %d", mode, state) << mode << state;
    }
}

void ImageManagerTest::aMissingStateShowsTheNormalPictureAndWarns()
{
    QFETCH(int, state);
    m_host->addPicture("folder", {64, 64}, Qt::red);
    start(fetchedMode(), {"folder"});
    const auto type = static_cast<ImageManager::ImageType>(state);
    const QString warning =
        QString("Cannot load pixmap \"folder\" with type %1 [use default icon]").arg(state);
    QCOMPARE(middleOf(getGlobalImage("folder", type)), QColor(Qt::red));
    QCOMPARE(messages.take(), QStringList(warning));
    QCOMPARE(middleOf(getGlobalImage("folder", ImageManager::NORMAL)), QColor(Qt::red));
    QCOMPARE(messages.take(), QStringList());
    getGlobalImage("folder", type);
    QCOMPARE(messages.take(), QStringList(warning));
}

void ImageManagerTest::aMissingNormalPictureLeavesTheOthers_data()
{
    addBothModes();
}

void ImageManagerTest::aMissingNormalPictureLeavesTheOthers()
{
    m_host->addPicture("bt_hover", {64, 64}, Qt::green);
    start(fetchedMode(), {"bt"});
    QCOMPARE(middleOf(getGlobalImage("bt", ImageManager::HOVER)), QColor(Qt::green));
    QVERIFY(getGlobalImage("bt", ImageManager::NORMAL).isNull());
    QVERIFY(getGlobalImage("bt", ImageManager::CLICK).isNull());
    QCOMPARE(messages.take(),
        QStringList({"Cannot load pixmap \"bt\" with type 0 [use default icon]",
            "Cannot load pixmap \"bt\" with type 2 [use default icon]"}));
}

void ImageManagerTest::anUnknownNameYieldsANullPictureAndAWarning_data()
{
    addBothModes();
}

void ImageManagerTest::anUnknownNameYieldsANullPictureAndAWarning()
{
    m_host->addPicture("unlisted", {64, 64}, Qt::red);
    m_host->addPicture("listed_hover", {64, 64}, Qt::red);
    start(fetchedMode(), {"listed"});
    for (const QString &name : {QString("unlisted"), QString("Listed"), QString("listed_hover"),
             QString(), QString::fromUtf8("图标"), QString(QChar(0))}) {
        QVERIFY(getGlobalImage(name).isNull());
        QCOMPARE(messages.take().size(), 1);
    }
    QVERIFY(getGlobalImage("un\"listed", ImageManager::CLICK).isNull());
    QCOMPARE(messages.take(), QStringList("Cannot load pixmap \"un\\\"listed\""));
}

void ImageManagerTest::aNameWithoutFilesWarnsAtEveryCall_data()
{
    addBothModes();
}

void ImageManagerTest::aNameWithoutFilesWarnsAtEveryCall()
{
    start(fetchedMode(), {"nothing"});
    for (int call = 0; call < 3; ++call) {
        QVERIFY(getGlobalImage("nothing").isNull());
        QCOMPARE(messages.take(),
            QStringList("Cannot load pixmap \"nothing\" with type 0 [use default icon]"));
    }
}

void ImageManagerTest::picturesAreScaledInThreeRoundings_data()
{
    QTest::addColumn<int>("artwork");
    QTest::addColumn<QVector<int>>("lengths");
    addRow("64", 64, QVector<int> {16, 20, 24, 32});
    addRow("66, half rounds up", 66, QVector<int> {17, 21, 26, 34});
    addRow("65", 65, QVector<int> {16, 20, 24, 32});
    addRow("2", 2, QVector<int> {1, 1, 2, 2});
    addRow("10", 10, QVector<int> {3, 4, 5, 6});
    addRow("4", 4, QVector<int> {1, 1, 2, 2});
    addRow("22, all roundings count", 22, QVector<int> {6, 8, 9, 12});
}

void ImageManagerTest::picturesAreScaledInThreeRoundings()
{
    QFETCH(int, artwork);
    QFETCH(QVector<int>, lengths);
    const int length = lengths[screenColumn()];
    m_host->addPicture("square", {artwork, artwork}, Qt::red);
    start(ImageManager::PRELOAD, {"square"});
    const QPixmap picture = getGlobalImage("square");
    QCOMPARE(picture.size(), QSize(length, length));
    QCOMPARE(picture.devicePixelRatio(), DPIinfo::getInstance().getDPR());
}

void ImageManagerTest::picturesKeepTheirProportions_data()
{
    QTest::addColumn<QSize>("artwork");
    QTest::addColumn<QVector<QSize>>("sizes");
    addRow("even", QSize(400, 80), QVector<QSize> {{100, 20}, {125, 25}, {150, 30}, {200, 40}});
    addRow("its rounded size has others", QSize(100, 40),
        QVector<QSize> {{25, 10}, {31, 12}, {37, 15}, {50, 20}});
}

void ImageManagerTest::picturesKeepTheirProportions()
{
    QFETCH(QSize, artwork);
    QFETCH(QVector<QSize>, sizes);
    m_host->addPicture("wide", artwork, Qt::red);
    start(ImageManager::PRELOAD, {"wide"});
    QCOMPARE(getGlobalImage("wide").size(), sizes[screenColumn()]);
}

void ImageManagerTest::picturesAreSmoothed()
{
    m_host->addChequeredPicture("fine", {64, 64});
    start(ImageManager::PRELOAD, {"fine"});
    const int grey = middleOf(getGlobalImage("fine")).red();
    QVERIFY2(grey > 64 && grey < 192, qPrintable(QString::number(grey)));
}

void ImageManagerTest::picturesOfTwoColoursAreSmoothedAndKeepThem()
{
    QImage stripes(64, 64, QImage::Format_Mono);
    stripes.setColorTable({qRgb(255, 0, 0), qRgb(0, 0, 255)});
    stripes.fill(0);
    for (int y = 0; y < stripes.height(); ++y)
        for (int x = 0; x < stripes.width(); x += 2)
            stripes.setPixel(x, y, 1);
    QVERIFY(stripes.save(m_host->pictureFolder() + "/stripes.png"));
    start(ImageManager::PRELOAD, {"stripes"});
    const QColor mixed = middleOf(getGlobalImage("stripes"));
    QVERIFY2(mixed.red() > 64 && mixed.green() < 5 && mixed.blue() > 64, qPrintable(mixed.name()));
}

void ImageManagerTest::aPictureTooSmallToShowIsNullInSilence()
{
    m_host->addPicture("dot", {1, 1}, Qt::red);
    start(ImageManager::LAZY_LOAD, {"dot"});
    QVERIFY(getGlobalImage("dot").isNull());
}

void ImageManagerTest::anotherFormatUnderThatNameLoads_data()
{
    QTest::addColumn<QByteArray>("format");
    for (const char *format : {"BMP", "JPG", "PPM", "PNG"})
        addRow(format, QByteArray(format));
}

void ImageManagerTest::anotherFormatUnderThatNameLoads()
{
    QFETCH(QByteArray, format);
    if (!QImageWriter::supportedImageFormats().contains(format.toLower()))
        QSKIP("This Qt can't write the format");
    QImage picture(64, 64, QImage::Format_RGB32);
    picture.fill(Qt::red);
    QVERIFY(picture.save(m_host->pictureFolder() + "/photo.png", format.constData(), 100));
    start(ImageManager::PRELOAD, {"photo"});
    const QColor colour = middleOf(getGlobalImage("photo"));
    QVERIFY2(colour.red() > 250 && colour.green() < 5, qPrintable(colour.name()));
}

void ImageManagerTest::loadsNoPluginsForPng()
{
    m_host->addPicture("folder", {64, 64}, Qt::red);
    m_host->writeCatalogue({"folder"});
    const ChildResult child = runChild(m_host->resourcePath(), {"QT_DEBUG_PLUGINS=1"});
    QCOMPARE(child.exitCode, 0);
    const QStringList loaded = child.errorOutput.split('\n').filter("loaded library");
    QVERIFY(!loaded.filter("platforms").isEmpty());
    QCOMPARE(loaded.filter("imageformats"), QStringList());
}

void ImageManagerTest::preloadedPicturesNeedNoFilesLater()
{
    m_host->addPicture("folder", {64, 64}, Qt::red);
    start(ImageManager::PRELOAD, {"folder"});
    m_host->addPicture("folder", {64, 64}, Qt::blue);
    QCOMPARE(middleOf(getGlobalImage("folder")), QColor(Qt::red));
}

void ImageManagerTest::lazyPicturesAreReadWhenTheyAreFirstAskedFor()
{
    m_host->addPicture("folder", {64, 64}, Qt::red);
    start(ImageManager::LAZY_LOAD, {"folder"});
    m_host->addPicture("folder", {64, 64}, Qt::blue);
    QCOMPARE(middleOf(getGlobalImage("folder")), QColor(Qt::blue));
}

void ImageManagerTest::lazyPicturesNeedNoFilesAfterThat()
{
    m_host->addPicture("folder", {64, 64}, Qt::red);
    m_host->addPicture("folder_hover", {64, 64}, Qt::green);
    start(ImageManager::LAZY_LOAD, {"folder"});
    QCOMPARE(middleOf(getGlobalImage("folder")), QColor(Qt::red));
    QVERIFY(QDir(m_host->pictureFolder()).removeRecursively());
    QCOMPARE(middleOf(getGlobalImage("folder")), QColor(Qt::red));
    // The first call has loaded all states of the name.
    QCOMPARE(middleOf(getGlobalImage("folder", ImageManager::HOVER)), QColor(Qt::green));
}

void ImageManagerTest::lazyPicturesAreReadOnceThoughOneStateAloneHasAFile_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("state");
    addRow("normal", "bt", 0);
    addRow("hover", "bt_hover", 1);
    addRow("click", "bt_click", 2);
    addRow("disable", "bt_disable", 3);
}

void ImageManagerTest::lazyPicturesAreReadOnceThoughOneStateAloneHasAFile()
{
    QFETCH(QString, file);
    QFETCH(int, state);
    const auto type = static_cast<ImageManager::ImageType>(state);
    m_host->addPicture(file, {64, 64}, Qt::green);
    start(ImageManager::LAZY_LOAD, {"bt"});
    QCOMPARE(middleOf(getGlobalImage("bt", type)), QColor(Qt::green));
    QVERIFY(QDir(m_host->pictureFolder()).removeRecursively());
    QCOMPARE(middleOf(getGlobalImage("bt", type)), QColor(Qt::green));
}

void ImageManagerTest::lazyPicturesWithoutFilesAreLookedForAgain()
{
    const QStringList warning("Cannot load pixmap \"bt\" with type 0 [use default icon]");
    start(ImageManager::LAZY_LOAD, {"bt"});
    QVERIFY(getGlobalImage("bt").isNull());
    QCOMPARE(messages.take(), warning);
    // Deliberate: the file name without its suffixes is empty, so the name is empty as well.
    m_host->addPicture("", {64, 64}, Qt::green);
    QCOMPARE(middleOf(getGlobalImage("bt")), QColor(Qt::green));
    QCOMPARE(messages.take(), warning);
}

void ImageManagerTest::aNameListedTwiceIsOnePicture()
{
    m_host->addPicture("folder", {64, 64}, Qt::red);
    start(ImageManager::PRELOAD, {"folder", "folder"});
    QCOMPARE(middleOf(getGlobalImage("folder")), QColor(Qt::red));
}

void ImageManagerTest::initialisedAgainItReadsEverythingAnewAndForgetsNoName()
{
    m_host->addPicture("first", {64, 64}, Qt::red);
    m_host->addPicture("both", {64, 64}, Qt::red);
    start(ImageManager::PRELOAD, {"first", "both"});
    m_host->addPicture("both", {64, 64}, Qt::blue);
    start(ImageManager::LAZY_LOAD, {"both"});
    QCOMPARE(middleOf(getGlobalImage("first")), QColor(Qt::red));
    QCOMPARE(middleOf(getGlobalImage("both")), QColor(Qt::blue));
}

void ImageManagerTest::picturesOfAnAddedCatalogueAreFound_data()
{
    addBothModes();
}

void ImageManagerTest::picturesOfAnAddedCatalogueAreFound()
{
    m_host->addPicture("folder", {64, 64}, Qt::red);
    m_host->addPicture("doc", {64, 64}, Qt::red);
    start(fetchedMode(), {"folder", "doc"});
    const TestHost added;
    added.addPicture("folder", {64, 64}, Qt::green);
    added.addPicture("cup", {64, 64}, Qt::blue);
    added.addPicture("cup_hover", {64, 64}, Qt::white);
    added.writeCatalogue({"folder", "cup"}, {"c u p"});
    ImageManager::getInstance().addCatalogue(added.resourcePath());
    QCOMPARE(middleOf(getGlobalImage("doc")), QColor(Qt::red));
    QCOMPARE(middleOf(getGlobalImage("folder")), QColor(Qt::green));
    QCOMPARE(middleOf(getGlobalImage("cup")), QColor(Qt::blue));
    QCOMPARE(middleOf(getGlobalImage("cup", ImageManager::HOVER)), QColor(Qt::white));
    QCOMPARE(middleOf(QPixmap(m_host->tempPictureFolder() + "/tmp_cup.png")), QColor(Qt::blue));
    QCOMPARE(ImageManager::getInstance().getImageFolder(), m_host->pictureFolder());
}

void ImageManagerTest::anAddedCatalogueIsReadAgainAfterTheFirst()
{
    const TestHost added;
    added.addPicture("folder", {64, 64}, Qt::green);
    added.writeCatalogue({"folder"});
    ImageManager::getInstance().addCatalogue(added.resourcePath());
    m_host->addPicture("folder", {64, 64}, Qt::red);
    start(ImageManager::PRELOAD, {"folder"});
    QCOMPARE(middleOf(getGlobalImage("folder")), QColor(Qt::green));
    added.addPicture("folder", {64, 64}, Qt::blue);
    start(ImageManager::PRELOAD, {"folder"});
    QCOMPARE(middleOf(getGlobalImage("folder")), QColor(Qt::blue));
}

void ImageManagerTest::theFreeFunctionsAnswerLikeTheCatalogue()
{
    m_host->addPicture(QString::fromUtf8("grün"), {64, 64}, Qt::green);
    m_host->addPicture(QString::fromUtf8("grün_hover"), {64, 64}, Qt::blue);
    start(ImageManager::PRELOAD, {QString::fromUtf8("grün")});
    const QString name = QString::fromUtf8("grün");
    ImageManager &images = ImageManager::getInstance();
    QCOMPARE(
        getGlobalImage(name).cacheKey(), images.getImage(name, ImageManager::NORMAL).cacheKey());
    QCOMPARE(getGlobalImage(name, ImageManager::HOVER).cacheKey(),
        images.getImage(name, ImageManager::HOVER).cacheKey());
    // An 8-bit name is Latin-1.
    QCOMPARE(middleOf(getGlobalImage("gr\xfcn")), QColor(Qt::green));
    QCOMPARE(middleOf(getGlobalImage("gr\xfcn", ImageManager::HOVER)), QColor(Qt::blue));
    QVERIFY(getGlobalImage(static_cast<const char *>(nullptr)).isNull());
    QCOMPARE(messages.take(), QStringList("Cannot load pixmap \"\""));
}

void ImageManagerTest::aCopyAnswersOnItsOwn()
{
    m_host->addPicture("folder", {64, 64}, Qt::red);
    start(ImageManager::LAZY_LOAD, {"folder"});
    ImageManager copy = ImageManager::getInstance();
    QCOMPARE(middleOf(copy.getImage("folder", ImageManager::NORMAL)), QColor(Qt::red));
    QCOMPARE(middleOf(getGlobalImage("folder")), QColor(Qt::red));
}

VEMO_TEST_MAIN_WITH_CHILD(ImageManagerTest, runScenario)
#include "tst_imagemanager.moc"

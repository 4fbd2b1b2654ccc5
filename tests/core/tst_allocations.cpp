// SPDX-License-Identifier: MIT
#include <vemo/filetypemap.h>
#include <vemo/imagemanager.h>

#include "support/testhost.h"
#include "support/vemotest.h"

#include <cstdlib>

namespace {

int allocations = 0;

} // namespace

// Replaces the functions of the C library: every library calls the definitions in the program.
extern "C" {
void *__libc_malloc(size_t size);
void *__libc_calloc(size_t count, size_t size);
void *__libc_realloc(void *block, size_t size);

void *malloc(size_t size)
{
    ++allocations;
    return __libc_malloc(size);
}

void *calloc(size_t count, size_t size)
{
    ++allocations;
    return __libc_calloc(count, size);
}

void *realloc(void *block, size_t size)
{
    ++allocations;
    return __libc_realloc(block, size);
}
}

class AllocationsTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void allocationsAreCounted();
    void aWarmPictureTakesNone_data();
    void aWarmPictureTakesNone();
    void aFileTypeTakesNone_data();
    void aFileTypeTakesNone();

private:
    TestHost m_host;
};

void AllocationsTest::initTestCase()
{
    for (const char *name : {"bt", "bt_hover", "bt_click", "bt_disable"})
        m_host.addPicture(name, {64, 64}, Qt::red);
    m_host.writeCatalogue({"bt"});
}

void AllocationsTest::allocationsAreCounted()
{
    int before = allocations;
    const QString text(100, 'x');
    QVERIFY(allocations > before);
    before = allocations;
    const QScopedPointer<QObject> object(new QObject);
    QVERIFY(allocations > before);
}

void AllocationsTest::aWarmPictureTakesNone_data()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("preloaded") << int(ImageManager::PRELOAD);
    QTest::newRow("lazy") << int(ImageManager::LAZY_LOAD);
}

void AllocationsTest::aWarmPictureTakesNone()
{
    QFETCH(int, mode);
    m_host.start(static_cast<ImageManager::InitializeType>(mode));
    ImageManager &images = ImageManager::getInstance();
    const QString name("bt");
    images.getImage(name, ImageManager::NORMAL);
    const int before = allocations;
    for (const auto type :
        {ImageManager::NORMAL, ImageManager::HOVER, ImageManager::CLICK, ImageManager::DISABLE}) {
        const QPixmap picture = images.getImage(name, type);
        const QPixmap again = getGlobalImage(name, type);
    }
    QCOMPARE(allocations - before, 0);
}

void AllocationsTest::aFileTypeTakesNone_data()
{
    QTest::addColumn<QString>("extension");
    for (const char *extension : {"docx", "DOCX", "ac3", "unknown", ""})
        QTest::newRow(extension) << extension;
}

void AllocationsTest::aFileTypeTakesNone()
{
    QFETCH(QString, extension);
    const FileTypeMap &map = FileTypeMap::getInstance();
    const int before = allocations;
    const QString icon = map.getFiletypeMapping(extension, false);
    const QString removedIcon = map.getFiletypeMapping(extension, true);
    QCOMPARE(allocations - before, 0);
}

VEMO_TEST_MAIN(AllocationsTest)
#include "tst_allocations.moc"

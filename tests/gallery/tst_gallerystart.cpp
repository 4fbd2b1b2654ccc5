// SPDX-License-Identifier: MIT
// The gallery started while it runs.
#include "support/temporaryfolder.h"
#include "support/vemotest.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

namespace {

/// The socket; on Windows the lock file, because a pipe is not in any folder.
#ifdef Q_OS_WIN
constexpr QDir::Filter kSignsOfLife = QDir::Files;
#else
const QDir::Filters kSignsOfLife = QDir::System | QDir::Hidden;
#endif

} // namespace

class GalleryStartTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void secondStartLeavesTheFieldToTheFirst();
    void screenshotsAreTakenWhileItRuns();
    void cleanupTestCase();

private:
    void start(QProcess &gallery, const QStringList &arguments) const;

    QTemporaryDir m_folder; // Stands for the system's: other galleries aren't seen.
    QProcess m_first;
};

void GalleryStartTest::start(QProcess &gallery, const QStringList &arguments) const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(kTemporaryFolderVariable, m_folder.path());
    gallery.setProcessEnvironment(environment);
    gallery.start(
        VEMO_GALLERY_PROGRAM, QStringList {"--user-folder", m_folder.filePath("user")} + arguments);
}

void GalleryStartTest::initTestCase()
{
    start(m_first, {});
    QTRY_VERIFY_WITH_TIMEOUT(
        !QDir(m_folder.path()).entryList({"qtsingleapp-vemoga-*"}, kSignsOfLife).isEmpty(), 30000);
}

void GalleryStartTest::secondStartLeavesTheFieldToTheFirst()
{
    QProcess second;
    start(second, {});
    QVERIFY(second.waitForFinished());
    QCOMPARE(second.exitCode(), 0);
    QCOMPARE(m_first.state(), QProcess::Running);
}

void GalleryStartTest::screenshotsAreTakenWhileItRuns()
{
    QProcess pictures;
    start(pictures, {"--screenshots", m_folder.filePath("pictures"), "--page", "Buttons"});
    QVERIFY(pictures.waitForFinished());
    QCOMPARE(pictures.exitCode(), 0);
    QCOMPARE(QDir(m_folder.filePath("pictures")).entryList(QDir::Files).size(), 1);
    QCOMPARE(m_first.state(), QProcess::Running);
}

void GalleryStartTest::cleanupTestCase()
{
    m_first.kill();
    QVERIFY(m_first.waitForFinished());
}

VEMO_TEST_MAIN(GalleryStartTest)
#include "tst_gallerystart.moc"

// SPDX-License-Identifier: MIT
// Random events on the file browser, which may do what it likes with a folder of its own.
#include "examples/diskfolder.h"
#include "examples/filebrowser/ui/filewindow.h"
#include "examples/filebrowser/ui/look.h"
#include "stress/confinement.h"
#include "stress/shaking.h"
#include "support/childprocess.h"

#include <vemo/helpwindow.h>

#include <QDir>

#include <cstdlib>

namespace {

/// In the folder for temporary files, as the test has set it for its children.
QWidget *browse(void (*fill)(const DiskFolder &))
{
    static const DiskFolder home(qgetenv("TMPDIR"));
    static const DiskFolder trash(qgetenv("TMPDIR"));
    qputenv("HOME", QFile::encodeName(home.path()));
    qputenv("XDG_DATA_HOME", QFile::encodeName(trash.path()));
    fill(home);
    return new FileWindow(home.path());
}

void makeNothing(const DiskFolder & /*home*/) { }

void makeAFewOfEach(const DiskFolder &home)
{
    home.makeFolder("photos");
    home.makeFolder("photos/2023");
    home.write("photos/beach.png", "not a picture");
    home.write("letter.txt", QByteArray(100000, 'x'));
    home.write(".hidden", "");
    home.write("\xff\xfe.bin", "a name that is not text");
    home.link("nowhere", "missing");
    home.link("circle", ".");
}

void makeManyPages(const DiskFolder &home)
{
    home.fill(400);
}

std::vector<Scene> scenes()
{
    return {
        {"empty", [](quint32) { return browse(makeNothing); }},
        {"few", [](quint32) { return browse(makeAFewOfEach); }},
        {"many", [](quint32) { return browse(makeManyPages); }},
    };
}

int play(const QString &scenario)
{
    const QString folder = qEnvironmentVariable("TMPDIR");
    if (!confineWritesTo(folder))
        return EXIT_FAILURE;
    if (scenario == QLatin1String("confined"))
        return QFile(QDir(QDir::homePath()).filePath("vemo-escaped")).open(QIODevice::WriteOnly)
            ? EXIT_FAILURE
            : EXIT_SUCCESS;
    if (!startLook(folder, "enu"))
        return EXIT_FAILURE;
    HelpWindow::setKnowledgeBaseUrl(QUrl("https://127.0.0.1:1"));
    playMonkey(scenario, scenes());
}

} // namespace

class FileMonkeyTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyFolderSurvives() { shake(scenes(), 150); }

private:
    const DiskFolder m_folder;
};

void FileMonkeyTest::initTestCase()
{
    qputenv("TMPDIR", QFile::encodeName(m_folder.path()));
    if (runChild("confined").exitCode != EXIT_SUCCESS)
        QSKIP("This system cannot keep a process from changing other folders (Landlock)");
}

VEMO_TEST_MAIN_WITH_CHILD(FileMonkeyTest, play)
#include "tst_filemonkey.moc"

// SPDX-License-Identifier: MIT
// The example hosts as a user starts them.
#include "support/iswindows.h"
#include "support/vemotest.h"

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

namespace {

struct Run
{
    int exitCode = -1;
    QString errors;
};

/// Messages of the platform plug-in do not count as warnings of the host.
QString withoutPlatformTalk(const QString &errors)
{
    return errors.split('\n', Qt::SkipEmptyParts)
        .filter(QRegularExpression("^(?!This plugin does not support|QStandardPaths: )"))
        .join('\n');
}

Run runHost(const QString &program, const QStringList &arguments, const QString &cache)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("XDG_CACHE_HOME", cache);
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit)
        return {};
    return {
        process.exitCode(), withoutPlatformTalk(QString::fromUtf8(process.readAllStandardError()))};
}

bool holds(const QImage &picture, const QColor &colour)
{
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixelColor(x, y) == colour)
                return true;
        }
    }
    return false;
}

} // namespace

class ExampleHostsTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void showsItsSheetAndWarnsOfNothing_data();
    void showsItsSheetAndWarnsOfNothing();
    void settingsAreInOneLookUnlessAskedOtherwise_data();
    void settingsAreInOneLookUnlessAskedOtherwise();
    void endsWithAnErrorWhereItCannotStart_data();
    void endsWithAnErrorWhereItCannotStart();

private:
    QTemporaryDir m_folder;
};

void ExampleHostsTest::showsItsSheetAndWarnsOfNothing_data()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QColor>("button");
    QTest::addColumn<QColor>("ground");
    const QColor blue("#1769E0");
    const QColor brown("#9A4A1B");
    const QColor canvas("#E2E4E6"); // the theme's and the other's, each under the mask
    const QColor paper("#E7E2D8");
    addRow("hello", VEMO_HELLO_PROGRAM, QStringList(), blue, canvas);
    addRow("own resources, English", VEMO_OWN_PROGRAM, QStringList("enu"), brown, paper);
    addRow("own resources, German", VEMO_OWN_PROGRAM, QStringList("deu"), brown, paper);
    addRow(
        "own resources, a language it lacks", VEMO_OWN_PROGRAM, QStringList("jpn"), brown, paper);
}

void ExampleHostsTest::showsItsSheetAndWarnsOfNothing()
{
    QFETCH(const QString, program);
    QFETCH(const QStringList, arguments);
    QFETCH(const QColor, button);
    QFETCH(const QColor, ground);
    const QString path = m_folder.filePath("window.png");
    const Run run = runHost(program, arguments + QStringList(path), m_folder.filePath("cache"));
    QCOMPARE(run.errors, QString());
    QCOMPARE(run.exitCode, 0);
    const QImage picture(path);
    QVERIFY(QFile::remove(path));
    QCOMPARE(picture.pixelColor(picture.rect().center()), QColor(Qt::white)); // the sheet's body
    QVERIFY(holds(picture, button));
    QCOMPARE(picture.pixelColor(0, 0), ground);
}

void ExampleHostsTest::settingsAreInOneLookUnlessAskedOtherwise_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QColor>("ground");
    QTest::addColumn<QColor>("button"); // our own, in any case
    const QColor blue("#1769E0");
    addRow("light", QStringList(), QColor("#F5F7FA"), blue);
    addRow("dark", QStringList("--dark"), QColor("#13181E"), QColor("#6AAEFF"));
    addRow("plain", QStringList("--plain"), QColor("#EFEFEF"), blue);
    addRow(
        "plain and dark", QStringList {"--plain", "--dark"}, QColor("#13181E"), QColor("#6AAEFF"));
    addRow("second page", QStringList("--schedule"), QColor("#F5F7FA"), blue);
}

void ExampleHostsTest::settingsAreInOneLookUnlessAskedOtherwise()
{
    QFETCH(const QStringList, arguments);
    QFETCH(const QColor, ground);
    QFETCH(const QColor, button);
    const QString path = m_folder.filePath("settings.png");
    const Run run =
        runHost(VEMO_SETTINGS_PROGRAM, arguments + QStringList(path), m_folder.filePath("cache"));
    QCOMPARE(run.errors, QString());
    QCOMPARE(run.exitCode, 0);
    const QImage picture(path);
    QVERIFY(QFile::remove(path));
    QCOMPARE(picture.pixelColor(0, 0), ground);
    QVERIFY(holds(picture, button));
}

void ExampleHostsTest::endsWithAnErrorWhereItCannotStart_data()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<QString>("cache");
    QTest::addColumn<QString>("error");
    const QString file = VEMO_HELLO_PROGRAM; // no folder can be made below a file
    addRow("hello, no cache folder", VEMO_HELLO_PROGRAM, file,
        QString("debug.message: Cannot write to user data folder \"%1/vemo-hello-example\"")
            .arg(file));
}

void ExampleHostsTest::endsWithAnErrorWhereItCannotStart()
{
    QFETCH(const QString, program);
    QFETCH(const QString, cache);
    QFETCH(const QString, error);
    if (kIsWindows)
        QSKIP("Windows has a setting for the cache folder, and no variable.");
    const Run run = runHost(program, {}, cache);
    QCOMPARE(run.errors, error);
    QCOMPARE(run.exitCode, 1);
}

VEMO_TEST_MAIN(ExampleHostsTest)
#include "tst_examplehosts.moc"

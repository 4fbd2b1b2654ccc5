// SPDX-License-Identifier: MIT
// Paths as functions of Windows take them at any length, which Wine does even without a prefix.
#include "core/filereplacement_p.h"

#include "support/vemotest.h"

#include <QDir>

class WindowsPathsTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void pathMayHaveAnyLength_data();
    void pathMayHaveAnyLength();
};

void WindowsPathsTest::pathMayHaveAnyLength_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("native");
    const QString folder = QDir::toNativeSeparators(QDir::currentPath());
    const QString name(90, 'x');
    addRow("short", QString("C:/a/b c.png"), QString("\\\\?\\C:\\a\\b c.png"));
    addRow("backslashes", QString("C:\\a/b"), QString("\\\\?\\C:\\a\\b"));
    addRow("long", "C:" + ('/' + name).repeated(3), "\\\\?\\C:" + ('\\' + name).repeated(3));
    addRow("dots", QString("C:/a/./b/../c"), QString("\\\\?\\C:\\a\\c"));
    addRow("dots at the end", QString("C:/a/b..."), QString("\\\\?\\C:\\a\\b"));
    addRow("relative", QString("a"), "\\\\?\\" + folder + "\\a");
    addRow("share", QString("//server/share/a"), QString("\\\\?\\UNC\\server\\share\\a"));
    addRow("device", QString("C:/a/con"), QString("\\\\.\\con"));
    addRow("prefix", QString("\\\\?\\C:\\a"), QString("\\\\?\\C:\\a"));
}

void WindowsPathsTest::pathMayHaveAnyLength()
{
    QFETCH(const QString, path);
    QTEST(QString::fromStdWString(nativePath(path).wstring()), "native");
}

VEMO_TEST_MAIN(WindowsPathsTest)
#include "tst_windowspaths.moc"

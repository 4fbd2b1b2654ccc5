// SPDX-License-Identifier: MIT
// Everything that the documentation refers to exists, and everything that exists is documented.
#include "support/vemotest.h"

#include <QDir>
#include <QDirIterator>
#include <QHash>
#include <QRegularExpression>

namespace {

constexpr qint64 kMaxPictureBytes = 2 * 1024 * 1024; // of all pictures, to keep clones fast

const QDir &root()
{
    static const QDir dir(VEMO_SOURCE_DIR);
    return dir;
}

QString textOf(const QString &path)
{
    QFile file(root().filePath(path));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QStringList filesIn(const QString &folder, const QString &pattern)
{
    QStringList paths;
    const QStringList names = QDir(root().filePath(folder)).entryList({pattern}, QDir::Files);
    for (const QString &name : names)
        paths << folder + '/' + name;
    return paths;
}

QStringList pages()
{
    const QStringList paths = filesIn(".", "*.md") + filesIn("docs", "*.md");
    return paths
        + QStringList {"theme/README.md", "benchmarks/README.md", "examples/filebrowser/README.md",
            "examples/ownresources/README.md"};
}

/// The targets of links and pictures in Markdown, but not those in code.
QStringList targetsIn(QString text)
{
    static const QRegularExpression code("^```.*?^```$",
        QRegularExpression::MultilineOption | QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression target("\\]\\(([^)\\s]+)\\)|<img src=\"([^\"]+)\"");
    text.remove(code);
    QStringList targets;
    for (auto match = target.globalMatch(text); match.hasNext();) {
        const QRegularExpressionMatch found = match.next();
        targets << (found.captured(1).isEmpty() ? found.captured(2) : found.captured(1));
    }
    return targets;
}

/// The anchor of a heading: "Who owns what" becomes "who-owns-what".
QStringList anchorsOf(const QString &text)
{
    static const QRegularExpression heading("^#+ (.*)$", QRegularExpression::MultilineOption);
    static const QRegularExpression others("[^\\w\\- ]");
    QStringList anchors;
    for (auto match = heading.globalMatch(text); match.hasNext();)
        anchors << match.next().captured(1).toLower().remove(others).replace(' ', '-');
    return anchors;
}

QString guides()
{
    QString text;
    for (const QString &path : filesIn("docs", "*.md"))
        text += textOf(path);
    return text;
}

/// All matches of the first group of pattern in the library's sources.
QSet<QString> inSources(const QString &pattern)
{
    const QRegularExpression expression(pattern);
    QSet<QString> found;
    for (const char *folder :
        {"core", "app", "controls", "help", "sheets", "views", "datetime", "theme"}) {
        for (const QString &path : filesIn(folder, "*.cpp")) {
            const QString text = textOf(path);
            for (auto match = expression.globalMatch(text); match.hasNext();)
                found << match.next().captured(1);
        }
    }
    return found;
}

QStringList exportedNames()
{
    static const QRegularExpression name(
        "^(?:class|struct) (?:VEMO_EXPORT )?(\\w+)[^;]*$|^VEMO_(?:THEME_)?EXPORT .*\\b(\\w+)\\($|"
        "^VEMO_EXPORT .*\\b(\\w+)\\(",
        QRegularExpression::MultilineOption);
    QStringList names;
    for (const QString &path : filesIn("include/vemo", "*.h")) {
        const QString text = textOf(path);
        for (auto match = name.globalMatch(text); match.hasNext();)
            names << match.next().capturedTexts().last();
    }
    return names;
}

/// The pictures that pages and headers use.
QSet<QString> namedPictures()
{
    static const QRegularExpression picture(
        "images/([\\w-]+\\.png)|\\\\image html ([\\w-]+\\.png)");
    QSet<QString> names;
    for (const QString &path : pages() + filesIn("include/vemo", "*.h")) {
        const QString text = textOf(path);
        for (auto match = picture.globalMatch(text); match.hasNext();)
            names << match.next().capturedTexts().last();
    }
    return names;
}

} // namespace

class DocsTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void everyLinkLeadsSomewhere_data();
    void everyLinkLeadsSomewhere();
    void everyNameOfTheInterfaceIsInAGuide();
    void everyWarningIsInAGuide();
    void everyTestOfASecurityPromiseExists();
    void everyStyleSectionIsInTheClassList();
    void everyClassHasAnExampleAndEveryWidgetAPicture_data();
    void everyClassHasAnExampleAndEveryWidgetAPicture();
    void picturesAreThoseThatAreShown();
};

void DocsTest::everyLinkLeadsSomewhere_data()
{
    QTest::addColumn<QString>("page");
    const QStringList paths = pages();
    for (const QString &path : paths)
        QTest::newRow(qPrintable(path)) << path;
}

void DocsTest::everyLinkLeadsSomewhere()
{
    QFETCH(const QString, page);
    const QString text = textOf(page);
    QVERIFY(!text.isEmpty());
    for (const QString &target : targetsIn(text)) {
        if (target.startsWith("https://"))
            continue;
        const QString file = target.section('#', 0, 0);
        const QString path = file.isEmpty() ? page : QFileInfo(page).path() + '/' + file;
        QVERIFY2(QFileInfo::exists(root().filePath(path)), qPrintable(target));
        const QString anchor = target.section('#', 1);
        QVERIFY2(anchor.isEmpty() || anchorsOf(textOf(path)).contains(anchor), qPrintable(target));
    }
}

void DocsTest::everyNameOfTheInterfaceIsInAGuide()
{
    const QString text = guides();
    const QStringList names = exportedNames();
    QVERIFY(!names.isEmpty());
    for (const QString &name : names) {
        const QRegularExpression word("\\b" + name + "\\b");
        QVERIFY2(word.match(text).hasMatch(), qPrintable(name));
    }
}

void DocsTest::everyWarningIsInAGuide()
{
    const QString text = guides();
    QSet<QString> warnings = inSources("qCWarning\\(vemoLog\\) << \"([^\"]+)\"");
    warnings += inSources("warnOnce\\(\"([^\"]+)\"");
    QVERIFY(!warnings.isEmpty());
    for (const QString &warning : qAsConst(warnings))
        QVERIFY2(text.contains(warning), qPrintable(warning));
}

void DocsTest::everyTestOfASecurityPromiseExists()
{
    static const QRegularExpression named("`(?:(tst_\\w+)(?:::(\\w+))?|([a-z]+[A-Z]\\w*))`");
    QHash<QString, QString> tests; // By program; the empty name has all.
    for (const char *folder : {"app", "controls", "core", "faults", "help"}) {
        for (const QString &path : filesIn(QString("tests/") + folder, "tst_*.cpp")) {
            tests[QFileInfo(path).baseName()] = textOf(path);
            tests[QString()] += textOf(path);
        }
    }
    int count = 0;
    for (auto match = named.globalMatch(textOf("SECURITY.md")); match.hasNext(); ++count) {
        const QRegularExpressionMatch found = match.next();
        const QString program = found.captured(1);
        const QString test = found.captured(2) + found.captured(3);
        QVERIFY2(tests[program].contains("void " + test), qPrintable(found.captured()));
    }
    QVERIFY(count > 0);
}

void DocsTest::everyStyleSectionIsInTheClassList()
{
    const QString text = textOf("docs/README.md");
    const QSet<QString> sections = inSources("\"component\\.(\\w+)\"");
    QVERIFY(!sections.isEmpty());
    for (const QString &section : sections)
        QVERIFY2(text.contains('`' + section + '`'), qPrintable(section));
}

void DocsTest::everyClassHasAnExampleAndEveryWidgetAPicture_data()
{
    QTest::addColumn<QString>("comment");
    QTest::addColumn<bool>("isWidget");
    static const QRegularExpression type(
        "((?:^///.*\\n)*)^(?:class|struct) (?:VEMO_EXPORT )?(\\w+)(?: : public (\\w+))?[^;]*$",
        QRegularExpression::MultilineOption);
    const QStringList otherBases {
        "", "QObject", "QApplication", "QItemDelegate", "QTreeWidgetItem"};
    for (const QString &path : filesIn("include/vemo", "*.h")) {
        const QString text = textOf(path);
        for (auto match = type.globalMatch(text); match.hasNext();) {
            const QRegularExpressionMatch found = match.next();
            const bool isWidget = !otherBases.contains(found.captured(3));
            QTest::newRow(qPrintable(found.captured(2))) << found.captured(1) << isWidget;
        }
    }
}

void DocsTest::everyClassHasAnExampleAndEveryWidgetAPicture()
{
    QFETCH(const QString, comment);
    QFETCH(const bool, isWidget);
    QVERIFY(comment.contains("\n///     "));
    QVERIFY(!isWidget || comment.contains("\n/// \\image html "));
}

void DocsTest::picturesAreThoseThatAreShown()
{
    qint64 bytes = 0;
    QSet<QString> existing;
    for (const QString &path : filesIn("docs/images", "*.png")) {
        const QFileInfo file(root().filePath(path));
        bytes += file.size();
        existing << file.fileName();
    }
    const QSet<QString> named = namedPictures();
    QCOMPARE((existing - named).values(), QStringList());
    QCOMPARE((named - existing).values(), QStringList());
    QVERIFY2(bytes <= kMaxPictureBytes, qPrintable(QString::number(bytes)));
}

VEMO_TEST_MAIN(DocsTest)
#include "tst_docs.moc"

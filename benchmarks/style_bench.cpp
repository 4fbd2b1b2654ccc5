// SPDX-License-Identifier: MIT
#include "benchmarks/families.h"
#include "benchmarks/fixture.h"
#include "benchmarks/harness.h"
#include "benchmarks/stylereference.h"

#include <vemo/dpiinfo.h>
#include <vemo/stylemanager.h>

namespace {

constexpr int kKilobyte = 1000;

/// Rules as a style file has them, with their comments: size characters or a little more.
QString sampleText(int size)
{
    QString text;
    for (int i = 0; text.size() < size; ++i) {
        text += QStringLiteral("QPushButton#name_%1 { min-height: %2px; padding: 0px 12px;\n"
                               "    border: 1px solid #C8D2DC; border-radius: 3px; /* a field */\n"
                               "    background: url(IMG_LOC/next.png); color: #1F2933; }\n")
                    .arg(i)
                    .arg(i % 100 + 4);
    }
    return text;
}

QString sectionKey(int file, int section)
{
    return QStringLiteral("component.file_%1_part_%2").arg(file).arg(section);
}

double scaleFactor()
{
    return DPIinfo::getInstance().getDPI();
}

bench::Cases::Setup scaling(int size)
{
    return [size](bench::Case &c) {
        const QString sheet = sampleText(size);
        c.goal(0.06, 0.04);
        c.reference(QStringLiteral("regex, subject checked once"),
            [sheet] { return bench::scaledByRegex(sheet, scaleFactor()); });
        c.limit(QStringLiteral("deep copy"),
            [sheet] { return QString(sheet.constData(), sheet.size()); });
        c.ours([sheet] { return DPIinfo::getInstance().getScaledStyleSheet(sheet); });
    };
}

void getting(bench::Case &c)
{
    bench::useTheme();
    const QString key = sectionKey(0, 0);
    const QString sheet = sampleText(450);
    const QString header = QStringLiteral("== %1 ==\n").arg(key);
    StyleManager::getInstance().initialize(
        {bench::writtenFile(QStringLiteral("get.qss"), (header + sheet).toUtf8())});
    c.goal(0.06, 0.04);
    c.reference(QStringLiteral("look-up and regex"),
        [key] { return bench::scaledByRegex(getStyleSheet(key, true), scaleFactor()); });
    c.limit(QStringLiteral("unscaled look-up"), [key] { return getStyleSheet(key, true); });
    c.ours([key] { return getStyleSheet(key); });
}

/// A style file of so many bytes, or a little more, in sections of about one kilobyte.
QString writtenStyleFile(int file, int size)
{
    QString text;
    for (int section = 0; text.size() < size; ++section) {
        text += QStringLiteral("== %1 ==\n").arg(sectionKey(file, section));
        text += sampleText(qMin(kKilobyte, size - text.size()));
    }
    return bench::writtenFile(QStringLiteral("style_%1_%2.qss").arg(file).arg(size), text.toUtf8());
}

/// The sections as the library knows them, under the keys of those wanted.
std::map<QString, QString> knownSections(const std::map<QString, QString> &wanted)
{
    std::map<QString, QString> known;
    for (const auto &wantedSection : wanted)
        known[wantedSection.first] = getStyleSheet(wantedSection.first, true);
    return known;
}

bench::Cases::Setup initializing(int files, int size, double goal)
{
    return [files, size, goal](bench::Case &c) {
        bench::useTheme();
        QStringList paths;
        for (int file = 0; file < files; ++file)
            paths << writtenStyleFile(file, size);
        const auto sections = std::make_shared<std::map<QString, QString>>();
        bench::sectionsByRegex(paths, *sections);
        const qint64 count = sections->size();

        c.goal(goal, 0.4);
        c.reference(QStringLiteral("regexes and a text stream"), [paths, sections] {
            bench::sectionsByRegex(paths, *sections);
            return qint64(sections->size());
        });
        c.limit(
            QStringLiteral("reading and decoding"), [paths] { return bench::textOfFiles(paths); });
        c.ours([paths = std::vector<QString>(paths.begin(), paths.end()), count] {
            StyleManager::getInstance().initialize(paths);
            return count;
        });
        c.check([sections] { return knownSections(*sections) == *sections; });
    };
}

constexpr int kHostileSize = 256 * 1024;

/// Compares ours with ours at half the size, which reveals steps that are worse than linear.
template <typename Run> void compareWithHalf(bench::Case &c, Run run)
{
    c.goal(2.2);
    c.resultsDiffer();
    c.reference(QStringLiteral("half the size"), [run] { return run(kHostileSize / 2); });
    c.ours([run] { return run(kHostileSize); });
}

/// Scaling a run of one text, with an end that makes it a length or not.
bench::Cases::Setup scalingRun(const char *piece, const char *end)
{
    return [piece, end](bench::Case &c) {
        const QString unit = QString::fromLatin1(piece);
        const auto runOf = [=](int size) {
            return unit.repeated(size / unit.size()) + QLatin1String(end);
        };
        compareWithHalf(c, [half = runOf(kHostileSize / 2), whole = runOf(kHostileSize)](int size) {
            return DPIinfo::getInstance().getScaledStyleSheet(size == kHostileSize ? whole : half);
        });
    };
}

/// Loading a style file that is a run of one text.
bench::Cases::Setup initializingRun(const char *piece)
{
    return [piece](bench::Case &c) {
        bench::useTheme();
        const auto written = [piece](int size) {
            const QByteArray text(piece);
            return bench::writtenFile(
                QStringLiteral("run_%1.qss").arg(size), text.repeated(size / text.size()));
        };
        compareWithHalf(
            c, [half = written(kHostileSize / 2), whole = written(kHostileSize)](int size) {
                const QString path = size == kHostileSize ? whole : half;
                StyleManager::getInstance().initialize({path});
                return path;
            });
    };
}

} // namespace

void bench::styleCases(Cases &cases)
{
    cases.add(QStringLiteral("style.scale/500B"), scaling(500));
    cases.add(QStringLiteral("style.scale/10K"), scaling(10 * kKilobyte));
    cases.add(QStringLiteral("style.scale/100K"), scaling(100 * kKilobyte));
    cases.add(QStringLiteral("style.scale/1M"), scaling(1000 * kKilobyte));
    cases.add(QStringLiteral("style.get"), getting);
    cases.add(QStringLiteral("style.initialize/1x10K"), initializing(1, 10 * kKilobyte, 0.6));
    cases.add(QStringLiteral("style.initialize/10x1K"), initializing(10, kKilobyte, 0.8));
    cases.add(QStringLiteral("style.initialize/10x100K"), initializing(10, 100 * kKilobyte, 0.6));
    cases.add(QStringLiteral("style.initialize/100x10K"), initializing(100, 10 * kKilobyte, 0.6));
    cases.add(QStringLiteral("style.hostile/slash-star"), initializingRun("/*"));
    cases.add(QStringLiteral("style.hostile/slash-slash"), initializingRun("//"));
    cases.add(QStringLiteral("style.hostile/equals"), initializingRun("=="));
    cases.add(QStringLiteral("style.hostile/digits"), scalingRun("7", ""));
    cases.add(QStringLiteral("style.hostile/digits+px"), scalingRun("7", "px"));
    cases.add(QStringLiteral("style.hostile/zeros+px"), scalingRun("0", "px"));
    cases.add(QStringLiteral("style.hostile/zeros.5px"), scalingRun("0", ".5px"));
    cases.add(QStringLiteral("style.hostile/x"), scalingRun("x", ""));
    cases.add(QStringLiteral("style.hostile/px"), scalingRun("px", ""));
    cases.add(QStringLiteral("style.hostile/7px"), scalingRun("7px", ""));
}

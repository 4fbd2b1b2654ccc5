// SPDX-License-Identifier: MIT
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

void scaleCases(bench::Cases &cases)
{
    cases.add(QStringLiteral("style.scale/500B"), scaling(500));
    cases.add(QStringLiteral("style.scale/10K"), scaling(10 * kKilobyte));
    cases.add(QStringLiteral("style.scale/100K"), scaling(100 * kKilobyte));
    cases.add(QStringLiteral("style.scale/1M"), scaling(1000 * kKilobyte));
    cases.add(QStringLiteral("style.get"), getting);
}

const bool isRegistered = bench::addFamily(scaleCases);

} // namespace

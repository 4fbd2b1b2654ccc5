// SPDX-License-Identifier: MIT
#include "gallery/screenshots.h"

#include "gallery/gallerywindow.h"

#include <QCoreApplication>
#include <QDir>
#include <QLayout>
#include <QPixmap>
#include <QRegularExpression>
#include <QTextStream>

namespace {

QString savePage(GalleryWindow &window, int index, const QDir &folder)
{
    window.showPage(index);
    window.growToPage();
    QCoreApplication::sendPostedEvents(); // views lay out their rows
    const QString path = folder.filePath(screenshotName(pageTitles().at(index)));
    if (!window.grab().save(path))
        return QString("Cannot write the file \"%1\".").arg(path);
    QTextStream(stdout) << QDir::toNativeSeparators(path) << '\n';
    return {};
}

} // namespace

QString writeScreenshots(const Options &options)
{
    const QDir folder(QDir(options.screenshots).absolutePath());
    if (!folder.mkpath("."))
        return QString("Cannot make the folder \"%1\".").arg(folder.path());

    GalleryWindow window(options);
    // Shown, so that its widgets receive the related events, but neither on a screen nor limited by
    // its size.
    window.setAttribute(Qt::WA_DontShowOnScreen);
    window.layout()->setSizeConstraint(QLayout::SetNoConstraint);
    window.show();
    const QSize size = window.size();
    for (int index = 0; index < pageTitles().size(); ++index) {
        if (!options.page.isEmpty() && index != pageIndex(options.page))
            continue;
        window.resize(size);
        const QString error = savePage(window, index, folder);
        if (!error.isEmpty())
            return error;
    }
    return {};
}

QString screenshotName(const QString &title)
{
    static const QRegularExpression others("[^a-z0-9]+");
    return title.toLower().replace(others, "-") + ".png";
}

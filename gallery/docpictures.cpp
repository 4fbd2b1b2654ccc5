// SPDX-License-Identifier: MIT
// Draws the pictures of the documentation: each card of the gallery without its code, cropped to
// its content, as PAGE-SECTION.png, and states that no page of the gallery shows permanently.
//
//     vemo-doc-pictures FOLDER
#include "gallery/gallerywindow.h"
#include "gallery/look.h"
#include "gallery/page.h"
#include "gallery/screenshots.h"

#include <vemo/defaulttheme.h>
#include <vemo/dpiinfo.h>
#include <vemo/qtsingleapplication.h>
#include <vemo/vemocountdownmessagebox.h>

#include <QDir>
#include <QFrame>
#include <QImage>
#include <QLabel>
#include <QLayout>
#include <QPainter>
#include <QTextStream>

namespace {

constexpr int kFontSize = 10; // points; what desktops have
constexpr int kFrame = 12; // design pixels around the content of a card
constexpr int kBorder = 4; // design pixels of a card: its line and round corners
constexpr int kSmallestFile = 0; // the quality of a PNG: all effort

bool save(const QImage &picture, const QString &path)
{
    if (picture.save(path, "PNG", kSmallestFile))
        return true;
    QTextStream(stderr) << "Cannot write " << path << '\n';
    return false;
}

/// The part of picture that differs from the colour of its first pixel.
QRect content(const QImage &picture)
{
    const QRgb ground = picture.pixel(0, 0);
    QRect rect;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, y) != ground)
                rect |= QRect(x, y, 1, 1);
        }
    }
    return rect;
}

QImage cut(const QImage &picture)
{
    const int frame = DPIinfo::scaled(kFrame);
    return picture.copy(content(picture).adjusted(-frame, -frame, frame, frame) & picture.rect());
}

QImage cardPicture(const QFrame &card, const QWidget &window)
{
    const int border = DPIinfo::scaled(kBorder);
    const QRect inside = card.rect().adjusted(border, border, -border, -border);
    const QPoint place = card.mapTo(&window, inside.topLeft());
    const auto grabbed = const_cast<QWidget &>(window).grab(QRect(place, inside.size()));
    return cut(grabbed.toImage().convertToFormat(QImage::Format_RGB32));
}

void hideCode(const Page &page)
{
    const QList<QLabel *> blocks = page.findChildren<QLabel *>("code");
    for (QLabel *block : blocks)
        block->hide();
}

bool saveCards(GalleryWindow &window, const QString &title, const QDir &folder)
{
    const auto pages = window.findChildren<Page *>();
    const auto shown = std::find_if(
        pages.begin(), pages.end(), [](const Page *page) { return page->isVisible(); });
    if (shown == pages.end())
        return false;
    hideCode(**shown);
    window.growToPage();
    QString caption;
    const QLayout *layout = (*shown)->layout();
    for (int i = 0; i < layout->count(); ++i) {
        const QWidget *part = layout->itemAt(i)->widget();
        if (part && part->objectName() == "sectionCaption")
            caption = static_cast<const QLabel *>(part)->text();
        if (!part || part->objectName() != "card")
            continue;
        const QString path = folder.filePath(screenshotName(title + ' ' + caption));
        if (!save(cardPicture(static_cast<const QFrame &>(*part), window), path))
            return false;
    }
    return true;
}

bool saveGallery(const QDir &folder)
{
    Options options;
    options.language = "enu";
    GalleryWindow window(options);
    window.setAttribute(Qt::WA_DontShowOnScreen);
    window.layout()->setSizeConstraint(QLayout::SetNoConstraint);
    window.show();
    const QSize size = window.size();
    const QStringList titles = pageTitles();
    for (int index = 0; index < titles.size(); ++index) {
        window.resize(size);
        window.showPage(index);
        QCoreApplication::sendPostedEvents(); // lays out the page before it is drawn
        if (index == pageIndex("Buttons")
            && !save(window.grab().toImage().convertToFormat(QImage::Format_RGB32),
                folder.filePath("gallery.png")))
            return false;
        if (!saveCards(window, titles[index], folder))
            return false;
    }
    return true;
}

bool saveCountdown(const QDir &folder)
{
    VemoCountdownMessageBox box;
    box.setIcon(QMessageBox::Information);
    box.setText("The computer is about to restart.");
    box.setAttribute(Qt::WA_DontShowOnScreen);
    box.show();
    QCoreApplication::processEvents(); // the caption grows by the seconds
    return save(box.grab().toImage(), folder.filePath("messages-countdown.png"));
}

} // namespace

int main(int argc, char **argv)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
#endif
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QtSingleApplication app(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 2) {
        QTextStream(stderr) << "vemo-doc-pictures FOLDER\n";
        return 2;
    }
    QFont font = QApplication::font();
    font.setPointSize(kFontSize);
    QApplication::setFont(font);

    // The resources page shows its name.
    const QString cache = QDir::temp().filePath("vemo-doc-pictures");
    const QDir folder(arguments.at(1));
    if (!folder.mkpath(".") || !installDefaultTheme(cache, "enu", ImageManager::LAZY_LOAD))
        return 1;
    applyDefaultThemeStyle(app); // as the gallery does
    installGalleryStyle();
    return saveGallery(folder) && saveCountdown(folder) ? 0 : 1;
}

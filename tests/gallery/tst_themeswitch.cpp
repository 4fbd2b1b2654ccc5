// SPDX-License-Identifier: MIT
#include "support/vemotest.h"

#include "gallery/gallerywindow.h"
#include "gallery/look.h"
#include "gallery/pagelist.h"
#include "support/testhost.h"

#include <vemo/defaulttheme.h>
#include <vemo/vemocombobox.h>

#include <QListWidget>
#include <QProgressBar>

namespace {

constexpr int kLayoutRounds = 5;

Options options(const QString &page, const QString &language)
{
    Options options;
    options.language = language;
    options.page = page;
    return options;
}

/// Where two pictures differ; null where they don't.
QRect difference(const QImage &a, const QImage &b)
{
    if (a.size() != b.size())
        return a.rect().united(b.rect());
    QRect place;
    if (a == b)
        return place;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            if (a.pixel(x, y) != b.pixel(x, y))
                place |= QRect(x, y, 1, 1);
        }
    }
    return place;
}

/// A gallery in the look on show, with its pages open.
struct Gallery
{
    explicit Gallery(const QString &language = "enu") : window(options({}, language))
    {
        window.setAttribute(Qt::WA_DontShowOnScreen);
        window.show();
        for (const QString &title : pageTitles())
            open(title);
    }

    /// By the title of the page.
    QMap<QString, QImage> pictures()
    {
        QMap<QString, QImage> pictures;
        for (const QString &title : pageTitles())
            pictures.insert(title, picture(title));
        return pictures;
    }

    void choose(DefaultThemeMode mode)
    {
        auto *box = window.findChild<VemoComboBox *>("themeSwitch");
        box->setCurrentIndex(int(mode));
        Q_EMIT box->activated(int(mode));
        // What is made again after the event is made now.
        QCoreApplication::processEvents();
    }

    void speak(const QString &language)
    {
        auto *box = window.findChild<VemoComboBox *>("languageSwitch");
        box->setCurrentIndex(box->findData(language));
        Q_EMIT box->activated(box->currentIndex());
        QCoreApplication::processEvents();
    }

    GalleryWindow window;

private:
    void open(const QString &title)
    {
        window.showPage(pageIndex(title));
        // The height of an error text follows from the width of its field, and that of the page
        // from its height, each an event later.
        for (int round = 0; round < kLayoutRounds; ++round)
            QCoreApplication::processEvents();
    }
    QImage picture(const QString &title)
    {
        open(title);
        // A busy bar never looks the same twice.
        for (QProgressBar *bar : window.findChildren<QProgressBar *>())
            bar->setMaximum(qMax(1, bar->maximum()));
        window.findChild<QListWidget *>("pageList")->scrollToTop();
        return window.grab().toImage();
    }
};

/// The pages that differ, and where.
QStringList differences(const QMap<QString, QImage> &a, const QMap<QString, QImage> &b)
{
    QStringList found;
    for (const QString &title : a.keys()) {
        const QRect place = difference(a.value(title), b.value(title));
        if (place.isNull())
            continue;
        QString text;
        QDebug(&text) << title << place;
        found += text;
    }
    return found;
}

QStringList equalPages(const QMap<QString, QImage> &a, const QMap<QString, QImage> &b)
{
    QStringList found;
    for (const QString &title : a.keys()) {
        if (a.value(title) == b.value(title))
            found += title;
    }
    return found;
}

} // namespace

class ThemeSwitchTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void openPagesLookAndSpeakAsIfBuiltThatWay();
};

void ThemeSwitchTest::initTestCase()
{
    setDesktopLanguage("enu"); // in which speak() will return to English
    startDefaultTheme();
    applyDefaultThemeStyle(*qApp);
    installGalleryStyle();
}

void ThemeSwitchTest::cleanup()
{
    showTheme(DefaultThemeMode::Light);
    VemoTest::cleanup();
}

void ThemeSwitchTest::openPagesLookAndSpeakAsIfBuiltThatWay()
{
    Gallery gallery;
    const auto light = gallery.pictures();
    gallery.choose(DefaultThemeMode::Dark);
    const auto dark = gallery.pictures();
    QCOMPARE(equalPages(dark, light), QStringList());
    QCOMPARE(differences(dark, Gallery().pictures()), QStringList());
    gallery.speak("deu");
    const auto german = gallery.pictures();
    QCOMPARE(equalPages(german, dark), QStringList());
    QCOMPARE(differences(german, Gallery("deu").pictures()), QStringList());
    gallery.speak("enu");
    gallery.choose(DefaultThemeMode::Light);
    QCOMPARE(differences(gallery.pictures(), light), QStringList());
}

VEMO_TEST_MAIN(ThemeSwitchTest)
#include "tst_themeswitch.moc"

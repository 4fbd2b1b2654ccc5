// SPDX-License-Identifier: MIT
// Random events on every page of the gallery.
#include "gallery/commandline.h"
#include "gallery/gallerywindow.h"
#include "gallery/look.h"
#include "gallery/pagelist.h"
#include "stress/shaking.h"
#include "support/testhost.h"

namespace {

std::vector<Scene> scenes()
{
    std::vector<Scene> windows;
    const QStringList titles = pageTitles();
    for (int i = 0; i < titles.size(); ++i) {
        const QString title = titles[i];
        windows.push_back({QString("page%1").arg(i), [title](quint32) -> QWidget * {
                               Options options;
                               options.page = title;
                               return new GalleryWindow(options);
                           }});
    }
    return windows;
}

int play(const QString &scenario)
{
    startDefaultTheme();
    installGalleryStyle();
    playMonkey(scenario, scenes());
}

} // namespace

class GalleryMonkeyTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void everyPageSurvives() { shake(scenes(), 100); }
};

VEMO_TEST_MAIN_WITH_CHILD(GalleryMonkeyTest, play)
#include "tst_gallerymonkey.moc"

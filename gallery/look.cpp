// SPDX-License-Identifier: MIT
#include "gallery/look.h"

#include "gallery/demotexts.h"
#include "gallery/languages.h"

#include <vemo/componentstrings.h>
#include <vemo/stylemanager.h>

#include <QApplication>
#include <QFont>
#include <QFontInfo>
#include <QLocale>
#include <QTimer>
#include <QWidget>

#include <utility>

namespace {

const QLatin1String kStyleFile(":/gallery/gallery.qss");

class ReloadWatch : public QObject
{
public:
    ReloadWatch(QWidget *widget, std::function<void()> function)
        : QObject(widget), m_function(std::move(function))
    {
    }

    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        // Queued: then all other widgets have the new look, too.
        if (event->type() == StyleManager::reloadEvent())
            QTimer::singleShot(0, this, m_function);
        return false;
    }

private:
    std::function<void()> m_function;
};

} // namespace

void setDesktopLanguage(const QString &code)
{
    const Language &language = languageOf(code);
    QLocale::setDefault(QLocale(language.locale));
    QGuiApplication::setLayoutDirection(QLocale().textDirection());
    QFont font = QApplication::font();
    QStringList families {QFontInfo(font).family()};
    if (*language.family)
        families += language.family;
    font.setFamilies(families);
    QApplication::setFont(font);
}

void installGalleryStyle()
{
    StyleManager::getInstance().initialize({kStyleFile});
}

void showTheme(DefaultThemeMode mode)
{
    setDefaultThemeMode(mode, {kStyleFile});
}

void showLanguage(const QString &code)
{
    setDesktopLanguage(code);
    setDemoLanguage(code);
    ComponentStrings::getInstance().changeStrings(defaultThemeStrings(code));
}

void onThemeReload(QWidget *widget, const std::function<void()> &function)
{
    widget->installEventFilter(new ReloadWatch(widget, function));
}

QString galleryStyle()
{
    return withDefaultThemeColors(getStyleSheet("gallery.window"));
}

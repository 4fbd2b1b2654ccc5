// SPDX-License-Identifier: MIT
#include "gallery/look.h"

#include "gallery/languages.h"

#include <vemo/defaulttheme.h>
#include <vemo/stylemanager.h>

#include <QApplication>
#include <QFont>
#include <QFontInfo>
#include <QLocale>

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
    StyleManager::getInstance().initialize({QStringLiteral(":/gallery/gallery.qss")});
}

QString galleryStyle()
{
    return withDefaultThemeColors(getStyleSheet("gallery.window"));
}

// SPDX-License-Identifier: MIT
#include "gallery/look.h"

#include "gallery/languages.h"

#include <vemo/stylemanager.h>

#include <QApplication>
#include <QColor>
#include <QFont>
#include <QFontInfo>
#include <QLocale>

#include <tuple>

QPalette lightPalette()
{
    QPalette palette;
    for (const auto &[role, colour] : {
             std::make_tuple(QPalette::Window, "#F5F7FA"),
             std::make_tuple(QPalette::WindowText, "#1F2933"),
             std::make_tuple(QPalette::Base, "#FFFFFF"),
             std::make_tuple(QPalette::AlternateBase, "#F5F7FA"),
             std::make_tuple(QPalette::Text, "#1F2933"),
             std::make_tuple(QPalette::Button, "#FFFFFF"),
             std::make_tuple(QPalette::ButtonText, "#1F2933"),
             std::make_tuple(QPalette::PlaceholderText, "#52606D"),
             std::make_tuple(QPalette::Highlight, "#1769E0"),
             std::make_tuple(QPalette::HighlightedText, "#FFFFFF"),
             std::make_tuple(QPalette::Link, "#1769E0"),
             std::make_tuple(QPalette::ToolTipBase, "#FFFFFF"),
             std::make_tuple(QPalette::ToolTipText, "#1F2933"),
         })
        palette.setColor(role, QColor(colour));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(0x9A, 0xA5, 0xB1));
    return palette;
}

void setDesktopLanguage(const QString &code)
{
    const Language &language = languageOf(code);
    QLocale::setDefault(QLocale(language.locale));
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
    return getStyleSheet("gallery.window");
}

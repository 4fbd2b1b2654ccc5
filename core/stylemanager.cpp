// SPDX-License-Identifier: MIT
#include <vemo/stylemanager.h>

#include "core/logging_p.h"
#include "core/resourcefile_p.h"
#include "core/sheetexchange_p.h"
#include "core/stylefile_p.h"

#include <vemo/dpiinfo.h>
#include <vemo/imagemanager.h>

#include <QApplication>
#include <QFileInfo>
#include <QPixmapCache>
#include <QPointer>
#include <QRegularExpression>
#include <QWidget>

#include <utility>

namespace {

/// What a widget's handler of the event has set itself stays.
void exchangeSheet(const QPointer<QWidget> &widget, SheetExchange &exchange)
{
    const QString sheet = widget->styleSheet();
    QEvent event(StyleManager::reloadEvent());
    QCoreApplication::sendEvent(widget, &event);
    if (!widget)
        return;
    widget->update();
    if (sheet.isEmpty() || widget->styleSheet() != sheet)
        return;
    const QString exchanged = exchange.exchanged(sheet);
    // A sheet that has nothing of the theme is set again, too: Qt gives a widget with a sheet of
    // its own no new palette of the application until then.
    if (exchanged != sheet || widget->isWindow())
        widget->setStyleSheet(exchanged);
}

/// A "rgba(r, g, b, a)", or what QColor takes.
QColor colorOf(const QString &text)
{
    static const QRegularExpression rgba(
        QStringLiteral(R"(^rgba\(\s*(\d+)\s*,\s*(\d+)\s*,\s*(\d+)\s*,\s*(\d+)\s*\)$)"));
    const QRegularExpressionMatch parts = rgba.match(text);
    const auto part = [&parts](int index) { return qMin(parts.captured(index).toInt(), 255); };
    return parts.hasMatch() ? QColor(part(1), part(2), part(3), part(4)) : QColor(text);
}

/// The "name: color;" entries of section.
QHash<QString, QColor> colorsIn(const QString &section)
{
    QHash<QString, QColor> colors;
    const QStringList entries = section.split(QLatin1Char(';'));
    for (const QString &entry : entries) {
        const int colon = entry.indexOf(QLatin1Char(':'));
        if (colon < 0)
            continue;
        const QColor color = colorOf(entry.mid(colon + 1).trimmed());
        if (color.isValid())
            colors.insert(entry.left(colon).trimmed(), color);
        else
            qCWarning(vemoLog) << "Not a color" << entry.trimmed();
    }
    return colors;
}

} // namespace

StyleManager &StyleManager::getInstance()
{
    static StyleManager instance;
    return instance;
}

void StyleManager::initialize(const std::vector<QString> &paths)
{
    QString text;
    for (const QString &path : paths) {
        // Deliberate: a file that cannot be opened adds only its line break and logs no warning.
        const QFileInfo file(path);
        // A folder exists, so it counts as an empty file, like a file without read permission.
        if (file.exists() && (isResourceFile(file, kMaxTextBytes) || file.isDir()))
            text.append(textOfResource(path)).append(QLatin1Char('\n'));
        else
            qCWarning(vemoLog) << "file" << path << "not exist";
    }
    // "TMPIMG_LOC" contains "IMG_LOC", so it is replaced first.
    const ImageManager &images = ImageManager::getInstance();
    text = withFolder(text, QLatin1String("TMPIMG_LOC"), images.getTempImageFolder());
    text = withFolder(text, QLatin1String("IMG_LOC"), images.getImageFolder());
    storeSections(withoutComments(std::move(text)), m_style_sheets);
    const auto colors = m_style_sheets.find(QStringLiteral("colors"));
    m_colors = colors == m_style_sheets.end() ? QHash<QString, QColor>() : colorsIn(colors->second);
}

void StyleManager::reload(const std::vector<QString> &paths)
{
    const std::map<QString, QString> before = std::exchange(m_style_sheets, {});
    initialize(paths);
    // The files behind them may have changed.
    QPixmapCache::clear();
    SheetExchange exchange(before, m_style_sheets);
    if (!qApp->styleSheet().isEmpty())
        qApp->setStyleSheet(exchange.exchanged(qApp->styleSheet()));
    const QWidgetList all = QApplication::allWidgets();
    const std::vector<QPointer<QWidget>> widgets(all.begin(), all.end());
    for (const QPointer<QWidget> &widget : widgets) {
        // A handler of the event may have deleted others.
        if (widget)
            exchangeSheet(widget, exchange);
    }
}

QEvent::Type StyleManager::reloadEvent()
{
    static const auto type = static_cast<QEvent::Type>(QEvent::registerEventType());
    return type;
}

QColor StyleManager::getColor(const QString &name, const QColor &fallback) const
{
    return m_colors.value(name, fallback);
}

bool StyleManager::contains(const QString &key) const
{
    return m_style_sheets.find(key) != m_style_sheets.end();
}

QString StyleManager::getStyleSheet(const QString &key, bool unscaled) const
{
    const auto found = m_style_sheets.find(key);
    if (found == m_style_sheets.end()) {
        qCWarning(vemoLog) << "Cannot find stylesheet" << key;
        return QLatin1String("");
    }
    return unscaled ? found->second : DPIinfo::getInstance().getScaledStyleSheet(found->second);
}

QString getStyleSheet(const QString &key, bool unscaled)
{
    return StyleManager::getInstance().getStyleSheet(key, unscaled);
}

QString getStyleSheet(const char *key, bool unscaled)
{
    return getStyleSheet(QString::fromLatin1(key), unscaled);
}

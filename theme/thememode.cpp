// SPDX-License-Identifier: MIT
#include "theme/thememode_p.h"

#include "core/logging_p.h"

#include <vemo/defaulttheme.h>
#include <vemo/stylemanager.h>
#include <vemo/uipathmanager.h>
#include <vemo/vemotreewidget.h>

#include <QApplication>
#include <QDir>
#include <QEvent>
#include <QHash>
#include <QPalette>
#include <QPointer>
#include <QScopedValueRollback>
#include <QStyleHints>
#include <QVariant>
#include <QVector>

#include <utility>

namespace {

const QLatin1String kLightFolder(":/vemo/theme");
const QLatin1String kDarkFolder(":/vemo/theme-dark");

struct ThemeState
{
    DefaultThemeMode mode = DefaultThemeMode::Light;
    bool isDark = false;
    bool isInstalled = false;
    ImageManager::InitializeType pictures = ImageManager::LAZY_LOAD;
    QStringList resourceFolders; ///< of the host
    std::vector<QString> hostStyleFiles;
    bool hasPalette = false; ///< the application has shown our palette
    QPalette lightBase; ///< that of the light look, while the dark one is on show and after it
    bool hasLightBase = false;
};

ThemeState &state()
{
    static ThemeState state;
    return state;
}

bool isDarkAvailable()
{
    initializeThemeResources();
    return QFile::exists(kDarkFolder + QLatin1String("/palette.json"));
}

bool isDarkPalette(const QPalette &palette)
{
    return palette.color(QPalette::Window).lightness()
        < palette.color(QPalette::WindowText).lightness();
}

/// Whether the application shows our palette, of the look on show.
bool isThemePaletteSet()
{
    const QPalette ours = defaultThemePalette();
    const QPalette shown = QApplication::palette();
    for (const auto role : {QPalette::Window, QPalette::WindowText, QPalette::Base, QPalette::Text,
             QPalette::Button, QPalette::Highlight}) {
        if (ours.color(role) != shown.color(role))
            return false;
    }
    return true;
}

bool isSystemDark()
{
    // Qt knows it from 6.5 on: 1 is light, 2 is dark.
    const int scheme = QGuiApplication::styleHints()->property("colorScheme").toInt();
    if (scheme != 0)
        return scheme == 2;
    if (!isThemePaletteSet())
        return isDarkPalette(QApplication::palette());
    // Ours hides the desktop's.
    const QPalette ours = QApplication::palette();
    QApplication::setPalette(QPalette());
    const bool isDark = isDarkPalette(QApplication::palette());
    QApplication::setPalette(ours);
    return isDark;
}

std::vector<QString> styleFilesIn(const QString &folder)
{
    std::vector<QString> paths;
    const QFileInfoList files =
        QDir(folder + QLatin1String("/style"))
            .entryInfoList({QStringLiteral("*.qss")}, QDir::Files, QDir::Name);
    for (const QFileInfo &file : files)
        paths.push_back(file.filePath());
    return paths;
}

/// What withDefaultThemeColors() made, and of what.
QHash<QString, QString> &colouredTexts()
{
    static QHash<QString, QString> texts;
    return texts;
}

/// A handler of a change may delete widgets, hence the guards.
QVector<QPointer<QWidget>> allWidgets()
{
    const QWidgetList widgets = QApplication::allWidgets();
    return QVector<QPointer<QWidget>>(widgets.begin(), widgets.end());
}

/// Sets the sheets with the colours of the last look again, in those of this one.
void recolourSheets(const QHash<QString, QString> &texts)
{
    for (auto text = texts.begin(); text != texts.end(); ++text) {
        const QString now = withDefaultThemeColors(text.value());
        const auto widgets = allWidgets();
        for (const QPointer<QWidget> &widget : widgets) {
            const QString sheet = widget ? widget->styleSheet() : QString();
            if (sheet.contains(text.key()))
                widget->setStyleSheet(QString(sheet).replace(text.key(), now));
        }
    }
}

/// The rows of a tree have colours that no sheet sets.
void recolourTrees(const QHash<QRgb, QString> &names)
{
    const auto current = [&names](const QColor &colour) {
        const QString name = colour.isValid() ? names.value(colour.rgba()) : QString();
        return name.isEmpty() ? colour : defaultThemeColor(name);
    };
    const auto widgets = allWidgets();
    for (const QPointer<QWidget> &widget : widgets) {
        if (auto *tree = qobject_cast<VemoTreeWidget *>(widget.data()))
            tree->setBackgroundColor(current(tree->selectedColor()), current(tree->hoverColor()));
    }
}

/// Shows the other look in everything there is.
void show(bool isDark)
{
    ThemeState &theme = state();
    theme.hasPalette =
        isThemePaletteSet() || (theme.mode == DefaultThemeMode::System && theme.hasPalette);
    if (isDark && !theme.isDark) {
        theme.lightBase = QPalette();
        theme.hasLightBase = true;
    }
    const QHash<QRgb, QString> names = themeColourNames();
    const QHash<QString, QString> texts = std::exchange(colouredTexts(), {});
    theme.isDark = isDark;
    if (!theme.isInstalled)
        return;
    UIPathManager::getInstance().replacePath(QStringLiteral("resource_path"), themeFolder());
    ImageManager::getInstance().initialize(theme.pictures);
    if (theme.hasPalette)
        QApplication::setPalette(defaultThemePalette());
    StyleManager::getInstance().reload(themeStyleFiles());
    recolourSheets(texts);
    recolourTrees(names);
}

/// Follows the desktop's own switch between light and dark.
class SystemWatch : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const QEvent::Type type = event->type();
        const bool isChange = type == QEvent::ThemeChange
            || (type == QEvent::ApplicationPaletteChange && watched == qApp);
        if (isChange && !m_isFollowing && !m_isScheduled) {
            m_isScheduled = true;
            // After Qt has done its own part.
            QMetaObject::invokeMethod(
                this, [this] { follow(); }, Qt::QueuedConnection);
        }
        return false;
    }

private:
    void follow()
    {
        m_isScheduled = false;
        if (state().mode != DefaultThemeMode::System)
            return;
        const QScopedValueRollback<bool> whileFollowing(m_isFollowing, true);
        ThemeState &theme = state();
        theme.hasPalette = theme.hasPalette || isThemePaletteSet();
        const bool isDark = isSystemDark();
        if (isDark != theme.isDark)
            show(isDark);
        else if (theme.hasPalette && !isThemePaletteSet())
            QApplication::setPalette(defaultThemePalette());
    }

    bool m_isFollowing = false;
    bool m_isScheduled = false;
};

void watchSystem()
{
    static QPointer<SystemWatch> watch;
    if (watch)
        return;
    watch = new SystemWatch(qApp);
    qApp->installEventFilter(watch);
}

} // namespace

QString themeFolder()
{
    return state().isDark ? kDarkFolder : kLightFolder;
}

std::vector<QString> themeStyleFiles()
{
    std::vector<QString> paths = styleFilesIn(themeFolder());
    for (const QString &folder : qAsConst(state().resourceFolders)) {
        const std::vector<QString> files = styleFilesIn(folder);
        paths.insert(paths.end(), files.begin(), files.end());
    }
    const std::vector<QString> &own = state().hostStyleFiles;
    paths.insert(paths.end(), own.begin(), own.end());
    return paths;
}

void themeWasInstalled(ImageManager::InitializeType type, const QStringList &resourceFolders)
{
    state().isInstalled = true;
    state().pictures = type;
    state().resourceFolders = resourceFolders;
}

void rememberColoured(const QString &coloured, const QString &text)
{
    constexpr int kMaxTexts = 500; // A host may colour texts of ever new content.
    QHash<QString, QString> &texts = colouredTexts();
    if (coloured != text && texts.size() < kMaxTexts)
        texts.insert(coloured, text);
}

QPalette basePalette()
{
    return state().hasLightBase ? state().lightBase : QPalette();
}

void chooseMode(DefaultThemeMode mode)
{
    const std::vector<QString> files = state().hostStyleFiles;
    setDefaultThemeMode(mode, files);
}

bool setDefaultThemeMode(DefaultThemeMode mode, const std::vector<QString> &styleFiles)
{
    ThemeState &theme = state();
    const bool isDark =
        mode == DefaultThemeMode::Dark || (mode == DefaultThemeMode::System && isSystemDark());
    if (mode != DefaultThemeMode::Light && !isDarkAvailable()) {
        qCWarning(vemoLog) << "The dark theme is not part of this build";
        return false;
    }
    if (mode == DefaultThemeMode::System && theme.mode != mode)
        theme.hasPalette = isThemePaletteSet();
    theme.mode = mode;
    theme.hostStyleFiles = styleFiles;
    if (mode == DefaultThemeMode::System)
        watchSystem();
    if (isDark != theme.isDark || theme.isInstalled)
        show(isDark);
    return true;
}

DefaultThemeMode defaultThemeMode()
{
    return state().mode;
}

bool isDefaultThemeDark()
{
    return state().isDark;
}

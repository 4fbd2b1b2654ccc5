// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QColor>
#include <QEvent>
#include <QHash>
#include <QString>

#include <map>
#include <vector>

/// The style sheets of all widgets, cut from the host's style files into sections named by a key.
///
/// Load the files once, after ImageManager::initialize(): the placeholders "IMG_LOC" and
/// "TMPIMG_LOC" in them become its two folders. Widgets look their sections up when they are made,
/// and keep them until reload(). Files are UTF-8. Comments are /* ... */ on one line, and // to the
/// end of a line, which takes the line break with it. A section begins with a header line:
///
///     == component.red_button ==
///     QPushButton { color: white; border-image: url("IMG_LOC/red.png"); }
///
///     StyleManager::getInstance().initialize({ ":/styles/buttons.qss", ":/styles/own.qss" });
///     button->setStyleSheet(getStyleSheet("component.red_button"));
///
/// The quotes are needed for folders whose names contain "'", "%", "}" or non-ASCII letters.
/// Pictures in folders whose names contain a double quote or a backslash are not shown.
///
/// \image html fields-states.png
class VEMO_EXPORT StyleManager
{
public:
    /// The only instance, created on first use; it exists until the process ends.
    static StyleManager &getInstance();

    /// Reads all files, in order. A later section replaces an earlier one with the same key, even
    /// one of an earlier call. Files that do not exist, are not regular files (a pipe, a device) or
    /// are larger than 16 MiB are skipped with a warning; files that cannot be opened are skipped
    /// without one. Ends the process if the picture catalogue is not initialised.
    void initialize(const std::vector<QString> &paths);

    /// Whether there is a section under key; a host can ask before getStyleSheet() would warn.
    bool contains(const QString &key) const;

    /// Shows another theme while the application runs: forgets all sections, reads the files (the
    /// theme's, then the host's own) and exchanges the old sections for the new ones in the style
    /// sheets of the application and of every widget, also where a sheet holds several sections or
    /// rules of its own. A section that the files lack stays in the sheets that have it. Call
    /// ImageManager::initialize() first if the pictures change, and QApplication::setPalette() if
    /// the palette does.
    ///
    /// Every widget is sent reloadEvent(). The library's own widgets take their pictures and colors
    /// again; a host handles the event where it has put sections together by other means.
    void reload(const std::vector<QString> &paths);

    /// The type of the event that reload() sends to every widget, for QObject::customEvent() or an
    /// event filter. The new sections, pictures and colors are already in place. A style sheet that
    /// the handler sets for the widget itself is not exchanged.
    static QEvent::Type reloadEvent();

    /// A color that style sheets can't set, from the optional section "colors", or fallback if the
    /// section or the name is missing. Each entry is a name and a color: "#RRGGBB", an SVG name or
    /// "rgba(r, g, b, a)" with an alpha up to 255. The library's names, and what they are
    /// otherwise:
    ///
    ///     == colors ==
    ///     sheet-body: white; combo-border: #C8D2DC; tree-outline: white; weekend-ink: black;
    ///     paging-separator: rgba(171, 181, 194, 51); mask: rgba(0, 0, 0, 20);
    QColor getColor(const QString &name, const QColor &fallback) const;

    /// The section for key, with "px" lengths scaled from design to screen pixels unless unscaled
    /// is true (see DPIinfo::getScaledStyleSheet()). If there is none, an empty string and a
    /// warning.
    QString getStyleSheet(const QString &key, bool unscaled = false) const;

private:
    StyleManager() = default;

    std::map<QString, QString> m_style_sheets;
    QHash<QString, QColor> m_colors; ///< of the section "colors"
};

/// StyleManager::getStyleSheet() of the only instance; an 8-bit key is Latin-1.
VEMO_EXPORT QString getStyleSheet(const QString &key, bool unscaled = false);
/// The same with an 8-bit key.
VEMO_EXPORT QString getStyleSheet(const char *key, bool unscaled = false);

// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QHash>
#include <QIcon>
#include <QPixmap>
#include <QString>
#include <QStringList>

#include <array>

/// The catalogue of pictures: up to four states per name, scaled down from 4x artwork to the size
/// that fits the screen.
///
/// The catalogue file "/images.json" and the PNG files in "/images" are below the folder
/// "resource_path"; scaled copies for style sheets are written to "/tmp_images" below
/// "user_data_path". Register both folders with UIPathManager first. The catalogue lists names
/// without folder and ".png"; those in the second list are written as "tmp_" + name + ".png":
///
///     { "images": [ "folder", "icon_warning" ], "tmp_images": [ "combobox_arrow" ] }
///
///     ImageManager::getInstance().initialize(ImageManager::LAZY_LOAD);
///     label->setPixmap(getGlobalImage("folder"));
///     button->setIcon(getGlobalImage("folder", ImageManager::HOVER));
///
/// \image html resources-pictures-with-states.png
class VEMO_EXPORT ImageManager
{
public:
    /// The state of a control that a picture is for.
    enum ImageType : int {
        NORMAL = 0, ///< normal; also used for missing states
        HOVER = 1, ///< file name + "_hover"
        CLICK = 2, ///< file name + "_click"
        DISABLE = 3, ///< file name + "_disable"
    };

    /// When pictures are loaded.
    enum InitializeType : int {
        PRELOAD = 0, ///< every picture is loaded by initialize()
        LAZY_LOAD = 1, ///< the states of a name are loaded on its first use
    };

    /// The only instance, created on first use; it exists until the process ends.
    static ImageManager &getInstance();

    /// Reads the catalogue and writes the temporary pictures; the application object must exist. A
    /// missing or broken catalogue or picture is ignored without a warning, as is anything but a
    /// regular file, a catalogue larger than 16 MiB and a picture file larger than 64 MiB. If a
    /// temporary picture cannot be written completely, its file is empty or missing. A later call
    /// reads everything again; names that are no longer listed remain.
    void initialize(InitializeType type);
    /// Adds a host's own pictures: the catalogue file "/images.json" and the PNG files in "/images"
    /// below folder, in the same format as in "resource_path". Names in both catalogues then refer
    /// to the pictures of this one. If called before initialize(), the catalogue is read by
    /// initialize(); later calls of initialize() read it again, after the first catalogue. A folder
    /// that is already added is read again, but keeps its position.
    ///
    ///     ImageManager::getInstance().addCatalogue(":/tea"); // ":/tea/images.json"
    void addCatalogue(const QString &folder);
    bool isInitialized() const; ///< whether initialize() was called

    /// Whether the catalogue lists name; a host can ask before getImage() would warn.
    bool contains(const QString &name) const;

    /// The picture of name in the given state: a quarter of the artwork's size in design pixels,
    /// scaled to screen pixels, with the screen's pixel ratio. For a state without a picture, the
    /// normal one and a warning; for an unknown name, a null pixmap and a warning. Before
    /// initialize() all names are unknown.
    QPixmap getImage(const QString &name, ImageType type);

    /// Whether the catalogue has a picture of name in that state, without a warning.
    bool hasImage(const QString &name, ImageType type);

    /// The folder of the pictures, as used in style sheets. Before initialize() this call logs
    /// "ImageManager is not initialized" and ends the process.
    const QString &getImageFolder() const;
    /// The folder of the temporary pictures. Before initialize() this call also ends the process.
    const QString &getTempImageFolder() const;

private:
    static constexpr int kStates = 4;

    struct Image
    {
        QString folder; ///< the folder of the files
        std::array<QString, kStates> fileNames; ///< by ImageType; empty if there is no picture
        std::array<QPixmap, kStates> pixmaps;
        bool loaded = false; ///< whether at least one of the four is loaded
    };

    ImageManager() = default;

    void readJson();
    /// Returns the names of the pictures in the catalogue of folder.
    QStringList readCatalogue(const QString &folder);
    void parseJson(const QString &name, const QString &imageFolder);
    void prepareImages();
    void lazyLoad(const QString &name);
    void load(Image &image);
    void prepareTempImage(const QString &name, const QString &imageFolder);
    static QString getImageFullPath(const QString &name, const QString &imageFolder);
    QString getTempImageFullPath(const QString &name) const;

    InitializeType m_initType = PRELOAD;
    QString m_imageFolder;
    QString m_tempImageFolder;
    QStringList m_addedFolders;
    QHash<QString, Image> m_images;
};

/// ImageManager::getImage() of the only instance; an 8-bit name is Latin-1.
VEMO_EXPORT QPixmap getGlobalImage(
    const QString &name, ImageManager::ImageType type = ImageManager::NORMAL);
/// The same with an 8-bit name.
VEMO_EXPORT QPixmap getGlobalImage(
    const char *name, ImageManager::ImageType type = ImageManager::NORMAL);

/// An icon that looks its pictures up whenever it is drawn, so that it follows the catalogue when
/// another theme is loaded. It shows HOVER while active, DISABLE while disabled and CLICK while on
/// (checked); a missing state is made of the normal picture, as Qt does it. An 8-bit name is
/// Latin-1.
///
///     item->setIcon(0, getGlobalIcon("folder"));
VEMO_EXPORT QIcon getGlobalIcon(const QString &name);
/// The same with an 8-bit name.
VEMO_EXPORT QIcon getGlobalIcon(const char *name);

// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/imagemanager.h>

#include <QColor>
#include <QTemporaryDir>

/// The folders of a host application, created for a test program: pictures, catalogue, style files.
///
///     TestHost host;
///     host.addPicture("folder", { 64, 64 }, Qt::red);
///     host.writeCatalogue({ "folder" });
///     host.start(ImageManager::PRELOAD);
class TestHost
{
public:
    TestHost();

    QString resourcePath() const { return m_resources.path(); }
    QString userDataPath() const { return m_userData.path(); }
    QString pictureFolder() const { return resourcePath() + QLatin1String("/images"); }
    QString tempPictureFolder() const { return userDataPath() + QLatin1String("/tmp_images"); }

    /// Writes a PNG with a single colour into the picture folder; size is in artwork pixels (4x).
    void addPicture(const QString &name, const QSize &size, const QColor &colour) const;

    /// Writes a PNG of alternating black and white pixels: only a copy that was smoothly scaled to
    /// a quarter of its size is grey.
    void addChequeredPicture(const QString &name, const QSize &size) const;
    void writeCatalogue(const QStringList &names, const QStringList &tempNames = {}) const;

    /// Writes bytes into a file under the resource folder and returns its full path.
    QString writeFile(const QString &name, const QByteArray &bytes) const;

    /// Registers both folders, then initialises the catalogue. Claims the warnings for registering
    /// them again.
    void start(ImageManager::InitializeType type) const;

    /// Registers other folders, and claims the warnings for registering them again.
    static void registerFolders(const QString &resources, const QString &userData);

private:
    QTemporaryDir m_resources;
    QTemporaryDir m_userData;
};

/// Installs the default theme in English, with a folder that exists until the process ends. Does
/// nothing if it is already installed.
void startDefaultTheme();

// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/imagemanager.h>

#include <QColor>
#include <QTemporaryDir>

/// A host application's folders, made for one test program: pictures, catalogue, style files.
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

    /// Writes a one-colour PNG, its size in artwork pixels (4x), into the picture folder.
    void addPicture(const QString &name, const QSize &size, const QColor &colour) const;

    /// Writes a PNG of black and white pixels side by side: only a copy that was smoothed on the
    /// way to a quarter of its size is grey.
    void addChequeredPicture(const QString &name, const QSize &size) const;
    void writeCatalogue(const QStringList &names, const QStringList &tempNames = {}) const;

    /// Writes bytes into a file under the resource folder and returns its full path.
    QString writeFile(const QString &name, const QByteArray &bytes) const;

    /// Registers both folders, then initialises the catalogue. Claims the warnings of registering
    /// them once more.
    void start(ImageManager::InitializeType type) const;

    /// Registers other folders, without the warnings of registering them once more.
    static void registerFolders(const QString &resources, const QString &userData);

private:
    QTemporaryDir m_resources;
    QTemporaryDir m_userData;
};

/// Starts the default theme, in English, on a folder that lives as long as the process; does
/// nothing when it has been started before.
void startDefaultTheme();

// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QMap>
#include <QStringList>

#include <memory>

/// The stored pictures of a family, by name. A change is on disk when the function returns.
class StoredPictures
{
public:
    virtual ~StoredPictures() = default;

    virtual QStringList names() const = 0;
    /// Null if there is none of that name.
    virtual QImage picture(const QString &name) const = 0;
    virtual bool store(const QString &name, const QImage &picture) = 0;
    virtual bool remove(const QString &name) = 0;
    /// Where a picture is stored, for messages.
    virtual QString place(const QString &name) const = 0;
};

/// A file for each picture, "FOLDER/FAMILY-NAME.png".
std::unique_ptr<StoredPictures> picturesInFolder(const QString &folder, const QString &family);

/// All pictures in one file, which takes a fraction of the disk space.
std::unique_ptr<StoredPictures> picturesInSheet(const QString &path);

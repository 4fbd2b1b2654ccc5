// SPDX-License-Identifier: MIT
#pragma once

#include "support/testhost.h"

#include <QColor>
#include <QTemporaryDir>

class ImageDownloader;
class QWidget;

/// A host with a style file, its own temporary folder for pictures, and a folder of local help.
class HelpHost
{
public:
    HelpHost();

    /// The value of TMPDIR during the lifetime of this object.
    QString tempFolder() const { return m_temp.path(); }
    QString pictureFolder() const { return tempFolder() + QLatin1String("/kestrava_help/image"); }
    QString helpPath() const { return m_help.path(); }

    /// Writes a page or a picture of the local help, for example "enu/index.html".
    void addHelpFile(const QString &name, const QByteArray &bytes) const;

private:
    TestHost m_host;
    QTemporaryDir m_temp;
    QTemporaryDir m_help;
};

/// A PNG with a single colour.
QByteArray pictureBytes(const QSize &size, const QColor &colour);

QByteArray fileBytes(const QString &path);

/// The number of pixels of widget with exactly this colour.
int countPixels(QWidget *widget, const QColor &colour);

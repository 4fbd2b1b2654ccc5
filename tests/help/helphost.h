// SPDX-License-Identifier: MIT
#pragma once

#include "support/testhost.h"

#include <QColor>
#include <QTemporaryDir>

class ImageDownloader;
class QWidget;

/// A host with a style file, a temporary folder of its own for pictures, and a folder of local
/// help.
class HelpHost
{
public:
    HelpHost();

    /// What TMPDIR names as long as this lives.
    QString tempFolder() const { return m_temp.path(); }
    QString pictureFolder() const { return tempFolder() + QLatin1String("/kestrava_help/image"); }
    QString helpPath() const { return m_help.path(); }

    /// Writes a page, or a picture, of the local help: "enu/index.html", say.
    void addHelpFile(const QString &name, const QByteArray &bytes) const;

private:
    TestHost m_host;
    QTemporaryDir m_temp;
    QTemporaryDir m_help;
};

/// A PNG of one colour.
QByteArray pictureBytes(const QSize &size, const QColor &colour);

QByteArray fileBytes(const QString &path);

/// How many pixels of what widget shows have exactly this colour.
int countPixels(QWidget *widget, const QColor &colour);

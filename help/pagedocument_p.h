// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include "help/helplimits_p.h"
#include "help/webcontent_p.h"

#include <QHash>
#include <QSet>
#include <QTextDocument>

class QFile;
class QTextBrowser;

/// The text of a page, which controls access to the resources of the page. If local files are not
/// allowed, a page only has access to pictures: those in data addresses, and those inside a folder
/// of the browser's search paths.
class PageDocument : public QTextDocument
{
public:
    explicit PageDocument(QTextBrowser *browser);

    bool areLocalFilesAllowed() const { return m_local_files_allowed; }
    void setLocalFilesAllowed(bool allowed);

    /// Discards all pictures, before another page with this number of pictures is shown.
    void forgetPictures(int count);
    /// No picture is shown higher than this, in pixels.
    int maxPictureHeight() const { return m_max_picture_height; }
    /// Reloads the pictures with these file names and updates the layout of the text around them.
    void renewPictures(const QSet<QString> &fileNames);
    /// After the width of the page has changed, updates the layout of pictures that are as wide as
    /// it.
    void fitPictures();

    /// The picture at an address of a page from the network, or the symbol for a missing picture.
    QPixmap picture(const QString &address);
    /// The size at which it is shown: its own, or scaled down to the width of the page.
    QSize shownSize(const QString &address);

protected:
    QVariant loadResource(int type, const QUrl &name) override;

private:
    void forgetPictures(const QSet<QString> &fileNames);
    void layOutAgain(const QSet<QString> &fileNames);
    const QMultiHash<QString, int> &pictureIndex();
    int pageWidth() const;
    int decodedWidth() const;
    QString fileInSearchPaths(const QUrl &name) const;
    bool open(const QString &address, QFile *file) const;
    const WebPicture &webPicture(const QString &address);
    WebPicture read(const QString &address) const;
    QVariant localResource(int type, const QUrl &name);

    QTextBrowser *m_browser;
    QPixmap m_missing_picture;
    bool m_local_files_allowed = false;
    QHash<QString, WebPicture> m_pictures; // By their address on the page.
    qint64 m_pixels = 0; // Of these pictures.
    int m_max_picture_height = kMaxPicturesHeight;
    QSet<QString> m_warned_of;
    int m_fitted_width = 0; // The page's, when the pictures were last fitted into it.
    QHash<QString, QPixmap> m_local_pictures;
    QMultiHash<QString, int> m_picture_index; // Positions in the text, by file name.
    bool m_is_indexed = false;
};

// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include "help/webpicture_p.h"

#include <QHash>
#include <QSet>
#include <QTextDocument>

class QFile;
class QTextBrowser;

/// The text of a page, and the gate to what it refers to. While local files are not allowed, a page
/// gets at nothing but pictures: those in its own addresses, and those that lie inside a folder of
/// the browser's search paths.
class PageDocument : public QTextDocument
{
public:
    explicit PageDocument(QTextBrowser *browser);

    bool areLocalFilesAllowed() const { return m_local_files_allowed; }
    void setLocalFilesAllowed(bool allowed);

    /// Forgets all pictures, for another page.
    void forgetPictures();
    /// Looks for the pictures of these file names anew and lays the text out again around them.
    void renewPictures(const QSet<QString> &fileNames);
    /// Lays the pictures out again that are as wide as the page, after it has got another width.
    void fitPictures();

    /// The picture at an address of a page from the network, or the sign of a missing one.
    QPixmap picture(const QString &address);
    /// The size of the same on the page: its own, or that which fits the page's width.
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
    qint64 m_pixels = 0; // Of them.
    QSet<QString> m_warned_of;
    int m_fitted_width = 0; // The page's, when the pictures were last fitted into it.
    QHash<QString, QPixmap> m_local_pictures;
    QMultiHash<QString, int> m_picture_index; // Positions in the text, by file name.
    bool m_is_indexed = false;
};

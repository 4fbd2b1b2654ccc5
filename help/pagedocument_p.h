// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QHash>
#include <QPixmap>
#include <QSet>
#include <QTextDocument>

class QTextBrowser;

/// The text of a page, and the gate to what it refers to: while local files are not allowed, a page
/// gets at nothing but what lies inside a folder of the browser's search paths.
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

protected:
    QVariant loadResource(int type, const QUrl &name) override;

private:
    void forgetPictures(const QSet<QString> &fileNames);
    const QMultiHash<QString, int> &pictureIndex();
    QString fileInSearchPaths(const QUrl &name) const;
    QPixmap picture(const QUrl &name);

    QTextBrowser *m_browser;
    QPixmap m_missing_picture;
    bool m_local_files_allowed = false;
    QHash<QString, QPixmap> m_pictures; // By their address on the page.
    QSet<QString> m_missing;
    QMultiHash<QString, int> m_picture_index; // Positions in the text, by file name.
    bool m_is_indexed = false;
};

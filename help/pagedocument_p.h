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

    /// Forgets all pictures, or those of these file names and the missing ones, which may have come
    /// by now. What is laid out stays as it is.
    void forgetPictures();
    void forgetPictures(const QSet<QString> &fileNames);

protected:
    QVariant loadResource(int type, const QUrl &name) override;

private:
    QString fileInSearchPaths(const QUrl &name) const;
    QPixmap picture(const QUrl &name);

    QTextBrowser *m_browser;
    bool m_local_files_allowed = false;
    QHash<QString, QPixmap> m_pictures; // By their path on the page.
    QSet<QString> m_missing;
};

// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayList>
#include <QMap>
#include <QString>

/// A temporary folder on the disk whose names are bytes, with everything that was put into it.
///
///     DiskFolder folder;
///     folder.write("a.txt", "hello");
///     folder.makeFolder("sub");
///     QCOMPARE(folder.contents(), DiskFolder::Contents({{"a.txt", "hello"}, {"sub/", {}}}));
class DiskFolder
{
public:
    /// By path below the folder: a file's content, "-> target" of a link, and "path/" of a folder.
    using Contents = QMap<QByteArray, QByteArray>;

    /// In memory where that can be had, or in the folder given.
    explicit DiskFolder(const QByteArray &parent = {});
    ~DiskFolder();
    Q_DISABLE_COPY(DiskFolder)

    QString path() const { return QString::fromUtf8(m_path); }
    QString path(const char *name) const { return path() + QLatin1Char('/') + QLatin1String(name); }
    QByteArray native(const QByteArray &name) const { return m_path + '/' + name; }

    void write(const QByteArray &name, const QByteArray &content) const;
    void makeFolder(const QByteArray &name) const;
    void link(const QByteArray &name, const QByteArray &target) const;
    void remove(const QByteArray &name) const;
    /// Empty files "1", "2", ...
    void fill(int count) const;
    Contents contents() const;
    /// Without the records of the trash, which contain the time.
    Contents contentsOfTrash() const;
    /// Gives all of it to another user.
    void giveTo(unsigned user) const;

private:
    QByteArray m_path;
};

/// For QCOMPARE: one line for each entry.
QString linesOf(const DiskFolder::Contents &contents);

#define COMPARE_CONTENTS(actual, ...)                                                              \
    QCOMPARE(linesOf(actual), linesOf(DiskFolder::Contents __VA_ARGS__))

// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <vector>

/// One way in which a file can be other than a library expects.
struct Fault
{
    enum Content {
        Whole, ///< reads like the good file
        Broken, ///< can be read, but holds something else
        Unopenable, ///< exists, but can't be opened
        NotAFile, ///< to be treated as missing, whatever reading it would yield
    };

    const char *name;
    Content asText;
    Content asPicture;

    /// Puts it at path, made from the bytes of a good file.
    std::function<void(const QString &path, const QByteArray &good)> make;
};

const std::vector<Fault> &allFaults();

/// The program without the rights of root while it lives: root may read and write every file.
class Unprivileged
{
public:
    Unprivileged();
    ~Unprivileged();
};

/// How much more memory the process held at its worst than at the beginning, in bytes.
class MemoryPeak
{
public:
    MemoryPeak();
    qint64 growth() const;

private:
    qint64 m_before;
};

/// Lets every file of the process end at size bytes while it lives, as if the disk were full.
class FullDisk
{
public:
    explicit FullDisk(int size);
    ~FullDisk();

private:
    quint64 m_outer = 0;
};

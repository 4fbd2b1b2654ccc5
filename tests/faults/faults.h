// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <vector>

/// One way in which a file can differ from what the library expects.
struct Fault
{
    enum Content {
        Whole, ///< reads like the good file
        Broken, ///< can be read, but contains something else
        Unopenable, ///< exists, but cannot be opened
        NotAFile, ///< must be treated as missing
    };

    const char *name;
    Content asText;
    Content asPicture;

    /// Creates it at path from the bytes of a good file.
    std::function<void(const QString &path, const QByteArray &good)> make;
};

const std::vector<Fault> &allFaults();

/// Drops root's privileges during its lifetime, because root may read and write every file.
class Unprivileged
{
public:
    Unprivileged();
    ~Unprivileged();
};

/// Measures the growth of the process's peak memory, in bytes.
class MemoryPeak
{
public:
    MemoryPeak();
    qint64 growth() const;

private:
    qint64 m_before;
};

/// Limits all files written by the process to size bytes during its lifetime, as if the disk was
/// full.
class FullDisk
{
public:
    explicit FullDisk(int size);
    ~FullDisk();

private:
    quint64 m_outer = 0;
};

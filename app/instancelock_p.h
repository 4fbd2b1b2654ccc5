// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QString>

#include <memory>

/// An exclusive advisory lock of a whole file, held until release() or the end of the process.
///
/// The file is made where it is missing, readable and writable by the user alone, and never
/// removed: a file that nobody removes can't be locked by two processes under one name.
class InstanceLock
{
public:
    enum Result {
        Taken, ///< ours, perhaps already before
        HeldElsewhere, ///< another process has it; ours, where there was one, is given up
        Refused, ///< the file can't or must not be used: see refusal()
    };

    explicit InstanceLock(const QString &path);
    ~InstanceLock();

    Result take();
    void release();

    /// Whether we hold a lock on the very file that stands at the path now.
    bool isHeld() const;

    /// Why the last take() was refused, as the end of a sentence.
    QString refusal() const;

private:
    Q_DISABLE_COPY(InstanceLock)
    struct Handle;

    const QString m_path;
    QString m_refusal;
    std::unique_ptr<Handle> m_handle;
};

// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QString>

#include <memory>

/// An exclusive advisory lock on a whole file, held until release() or the end of the process.
///
/// Creates the file if it is missing, readable and writable only by the user, and never removes
/// it: otherwise two processes could hold locks on different files with the same name.
class InstanceLock
{
public:
    enum Result {
        Taken, ///< we hold it, possibly since an earlier call
        HeldElsewhere, ///< another process holds it; a lock of ours is released
        Refused, ///< the file cannot or must not be used: see refusal()
    };

    explicit InstanceLock(const QString &path);
    ~InstanceLock();

    Result take();
    void release();

    /// Whether we hold a lock on the file that is at the path now.
    bool isHeld() const;

    /// The reason why the last take() was refused, as the end of a sentence.
    QString refusal() const;

private:
    Q_DISABLE_COPY(InstanceLock)
    struct Handle;

    const QString m_path;
    QString m_refusal;
    std::unique_ptr<Handle> m_handle;
};

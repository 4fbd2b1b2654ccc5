// SPDX-License-Identifier: MIT
#include "app/instancelock_p.h"

#include <QDir>

#include <windows.h>

struct InstanceLock::Handle
{
    explicit Handle(HANDLE file) : file(file) { }
    ~Handle()
    {
        // If the file is only closed, Windows may release the lock later. Unlocking a file that is
        // not locked has no effect.
        OVERLAPPED start = {};
        UnlockFileEx(file, 0, MAXDWORD, MAXDWORD, &start);
        CloseHandle(file);
    }
    Q_DISABLE_COPY(Handle)

    const HANDLE file;
};

namespace {

/// Opens path itself, not the target of a link. The file cannot be removed while it is open.
HANDLE openFile(const QString &path)
{
    const QString native = QDir::toNativeSeparators(path);
    return CreateFileW(reinterpret_cast<const wchar_t *>(native.utf16()),
        GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_ALWAYS,
        FILE_ATTRIBUTE_NORMAL | FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
}

/// Does not check the owner: on Windows the temporary folder belongs to the user.
QString refusalOf(HANDLE file)
{
    BY_HANDLE_FILE_INFORMATION information = {};
    if (!GetFileInformationByHandle(file, &information))
        return qt_error_string(int(GetLastError()));
    if (information.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT)
        return QStringLiteral("it is a symbolic link");
    if (information.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)
        return QStringLiteral("it is not a file");
    if (information.nNumberOfLinks > 1)
        return QStringLiteral("it has a second name");
    return {};
}

} // namespace

InstanceLock::InstanceLock(const QString &path) : m_path(path) { }

InstanceLock::~InstanceLock() = default;

InstanceLock::Result InstanceLock::take()
{
    if (isHeld())
        return Taken;
    const HANDLE file = openFile(m_path);
    if (file == INVALID_HANDLE_VALUE) {
        m_refusal = qt_error_string(int(GetLastError()));
        return Refused;
    }
    auto handle = std::make_unique<Handle>(file);
    m_refusal = refusalOf(file);
    if (!m_refusal.isEmpty())
        return Refused;
    OVERLAPPED start = {};
    if (!LockFileEx(file, LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, MAXDWORD,
            MAXDWORD, &start)) {
        const DWORD error = GetLastError();
        if (error == ERROR_LOCK_VIOLATION || error == ERROR_IO_PENDING)
            return HeldElsewhere;
        m_refusal = qt_error_string(int(error));
        return Refused;
    }
    m_handle = std::move(handle);
    return Taken;
}

void InstanceLock::release()
{
    m_handle.reset();
}

bool InstanceLock::isHeld() const
{
    return m_handle != nullptr;
}

QString InstanceLock::refusal() const
{
    return m_refusal;
}

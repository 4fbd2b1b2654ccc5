// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <memory>

/// Copies the content, permissions and times of one file, a piece at a time.
class FileCopy
{
public:
    /// The side of an error: after a reading error the other entries can still be copied.
    enum class Side { None, Reading, Writing };

    FileCopy();
    ~FileCopy();
    Q_DISABLE_COPY(FileCopy)

    /// Starts a copy to a path that must not exist yet.
    Side open(const QByteArray &from, const QByteArray &to);
    bool isOpen() const { return m_files != nullptr; }
    /// Copies the next piece; after the last one the file is complete and closed.
    Side copySome();
    void close();

    int error() const { return m_error; }
    qint64 copiedBytes() const { return m_copied; }

private:
    struct Files;

    Side fail(Side side);
    Side finish();

    std::unique_ptr<Files> m_files; ///< while it is open
    int m_error = 0;
    qint64 m_copied = 0;
    QByteArray m_piece;
};

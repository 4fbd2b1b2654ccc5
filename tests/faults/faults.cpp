// SPDX-License-Identifier: MIT
#include "faults/faults.h"

#include <QFile>
#include <QFileInfo>

#include <csignal>
#include <cstring>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

constexpr qint64 kGiB = 1024 * 1024 * 1024;
constexpr int kTooLong = 65 * 1024 * 1024; // More than the limit of any resource.
constexpr uid_t kNobody = 65534;
constexpr uid_t kSomebody = 12345;

void write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("Cannot write %s", qPrintable(path));
    chmod(QFile::encodeName(path).constData(), 0666);
}

void linkTo(const char *target, const QString &path)
{
    if (symlink(target, QFile::encodeName(path).constData()) != 0)
        qFatal("Cannot link %s", qPrintable(path));
}

void makePipe(const QString &path)
{
    if (mkfifo(QFile::encodeName(path).constData(), 0666) != 0)
        qFatal("Cannot make the pipe %s", qPrintable(path));
}

/// A pipe to which bytes are written and which stays open.
void makePipeWithWriter(const QString &path, const QByteArray &bytes)
{
    static int last = -1;
    makePipe(path);
    if (last >= 0)
        close(last);
    last = open(QFile::encodeName(path).constData(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
    if (last < 0 || ::write(last, bytes.constData(), size_t(bytes.size())) != bytes.size())
        qFatal("Cannot write into %s", qPrintable(path));
}

void makeSocket(const QString &path)
{
    struct sockaddr_un name = {};
    name.sun_family = AF_UNIX;
    qstrncpy(name.sun_path, QFile::encodeName(path).constData(), sizeof(name.sun_path));
    const int descriptor = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (bind(descriptor, reinterpret_cast<const sockaddr *>(&name), sizeof(name)) != 0)
        qFatal("Cannot make the socket %s", qPrintable(path));
    close(descriptor);
}

void makeSparse(const QString &path, qint64 size)
{
    write(path, {});
    QFile::resize(path, size);
}

void giveAway(const QString &path, mode_t mode)
{
    const QByteArray name = QFile::encodeName(path);
    chmod(name.constData(), mode);
    // Without root's rights it stays ours, which is one more readable file.
    if (geteuid() == 0 && chown(name.constData(), kSomebody, kSomebody) != 0)
        qFatal("Cannot give %s away", qPrintable(path));
}

QByteArray utf16(const QByteArray &utf8)
{
    const QString text = QChar(0xfeff) + QString::fromUtf8(utf8);
    return {reinterpret_cast<const char *>(text.utf16()), text.size() * 2};
}

QByteArray everyByte()
{
    QByteArray bytes;
    for (int i = 0; i < 100000; ++i)
        bytes += static_cast<char>(i * 7919 >> 3);
    return bytes;
}

Fault content(const char *name, Fault::Content asText, QByteArray (*change)(const QByteArray &))
{
    return {name, asText, Fault::Broken,
        [change](const QString &path, const QByteArray &good) { write(path, change(good)); }};
}

std::vector<Fault> contentFaults()
{
    using Bytes = QByteArray;
    return {
        {"good", Fault::Whole, Fault::Whole, write},
        content("empty", Fault::Broken, [](const Bytes &) { return Bytes(); }),
        content("one byte", Fault::Broken, [](const Bytes &good) { return good.left(1); }),
        content("truncated", Fault::Broken,
            [](const Bytes &good) { return good.left(good.size() / 3); }),
        content("binary", Fault::Broken, [](const Bytes &) { return everyByte(); }),
        content("all NUL", Fault::Broken, [](const Bytes &) { return Bytes(1 << 20, '\0'); }),
        content("all ones", Fault::Broken, [](const Bytes &) { return Bytes(1 << 20, '\xff'); }),
        content("UTF-16", Fault::Broken, utf16),
        content("byte order mark", Fault::Whole,
            [](const Bytes &good) -> Bytes { return "\xef\xbb\xbf" + good; }),
        content("CRLF", Fault::Whole,
            [](const Bytes &good) { return Bytes(good).replace("\n", "\r\n"); }),
        content(
            "one line of 4 MiB", Fault::Broken, [](const Bytes &) { return Bytes(4 << 20, 'x'); }),
        {"one line of 65 MiB", Fault::NotAFile, Fault::NotAFile,
            [](const QString &path, const Bytes &) { write(path, Bytes(kTooLong, 'x')); }},
        {"good but padded to 65 MiB", Fault::NotAFile, Fault::NotAFile,
            [](const QString &path, const Bytes &good) {
                write(path, good);
                QFile::resize(path, kTooLong);
            }},
        {"1 GiB sparse", Fault::NotAFile, Fault::NotAFile,
            [](const QString &path, const Bytes &) { makeSparse(path, kGiB); }},
        {"4 GiB sparse", Fault::NotAFile, Fault::NotAFile,
            [](const QString &path, const Bytes &) { makeSparse(path, 4 * kGiB); }},
    };
}

Fault linkFault(const char *name, const char *target, Fault::Content result)
{
    return {name, result, result,
        [target](const QString &path, const QByteArray &) { linkTo(target, path); }};
}

std::vector<Fault> linkFaults()
{
    return {
        {"link to a good file", Fault::Whole, Fault::Whole,
            [](const QString &path, const QByteArray &good) {
                write(path + QLatin1String(".target"), good);
                linkTo(QFile::encodeName(path).append(".target").constData(), path);
            }},
        {"link to itself", Fault::NotAFile, Fault::NotAFile,
            [](const QString &path, const QByteArray &) {
                linkTo(QFile::encodeName(path).constData(), path);
            }},
        {"two links to each other", Fault::NotAFile, Fault::NotAFile,
            [](const QString &path, const QByteArray &) {
                const QString other = path + QLatin1String(".other");
                linkTo(QFile::encodeName(other).constData(), path);
                linkTo(QFile::encodeName(path).constData(), other);
            }},
        linkFault("dangling link", "/no/such/file", Fault::NotAFile),
        linkFault("link to /dev/zero", "/dev/zero", Fault::NotAFile),
        linkFault("link to /dev/full", "/dev/full", Fault::NotAFile),
        linkFault("link to /dev/null", "/dev/null", Fault::NotAFile),
        linkFault("link to /dev/urandom", "/dev/urandom", Fault::NotAFile),
        linkFault("link to a folder", "/tmp", Fault::Unopenable),
        // Looks like a regular file, but its bytes cannot be read.
        linkFault("link to /proc/self/mem", "/proc/self/mem", Fault::Unopenable),
    };
}

std::vector<Fault> specialFaults()
{
    return {
        {"missing", Fault::NotAFile, Fault::NotAFile, [](const QString &, const QByteArray &) {}},
        {"folder", Fault::Unopenable, Fault::Unopenable,
            [](const QString &path, const QByteArray &) {
                mkdir(QFile::encodeName(path).constData(), 0777);
            }},
        {"pipe without a writer", Fault::NotAFile, Fault::NotAFile,
            [](const QString &path, const QByteArray &) { makePipe(path); }},
        {"pipe with a silent writer", Fault::NotAFile, Fault::NotAFile,
            [](const QString &path, const QByteArray &) { makePipeWithWriter(path, {}); }},
        {"pipe that holds a good file", Fault::NotAFile, Fault::NotAFile,
            [](const QString &path, const QByteArray &good) {
                makePipeWithWriter(path, good.left(4096));
            }},
        {"link to a pipe", Fault::NotAFile, Fault::NotAFile,
            [](const QString &path, const QByteArray &) {
                makePipe(path + QLatin1String(".pipe"));
                linkTo(QFile::encodeName(path).append(".pipe").constData(), path);
            }},
        {"socket", Fault::NotAFile, Fault::NotAFile,
            [](const QString &path, const QByteArray &) { makeSocket(path); }},
        {"unreadable", Fault::Unopenable, Fault::Unopenable,
            [](const QString &path, const QByteArray &good) {
                write(path, good);
                giveAway(path, 0);
            }},
        {"another user's, readable", Fault::Whole, Fault::Whole,
            [](const QString &path, const QByteArray &good) {
                write(path, good);
                giveAway(path, 0644);
            }},
        {"another user's, private", geteuid() == 0 ? Fault::Unopenable : Fault::Whole,
            geteuid() == 0 ? Fault::Unopenable : Fault::Whole,
            [](const QString &path, const QByteArray &good) {
                write(path, good);
                giveAway(path, 0600);
            }},
        {"only executable", Fault::Unopenable, Fault::Unopenable,
            [](const QString &path, const QByteArray &good) {
                write(path, good);
                giveAway(path, 0111);
            }},
    };
}

/// A number of kilobytes from /proc/self/status, in bytes.
qint64 statusBytes(const char *name)
{
    QFile file(QStringLiteral("/proc/self/status"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> lines = file.readAll().split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith(name))
            return line.simplified().split(' ').at(1).toLongLong() * 1024;
    }
    return 0;
}

} // namespace

const std::vector<Fault> &allFaults()
{
    static const std::vector<Fault> faults = [] {
        std::vector<Fault> all = contentFaults();
        for (const std::vector<Fault> &more : {linkFaults(), specialFaults()})
            all.insert(all.end(), more.begin(), more.end());
        return all;
    }();
    return faults;
}

Unprivileged::Unprivileged()
{
    if (getuid() == 0 && seteuid(kNobody) != 0)
        qFatal("Cannot give up root's rights");
}

Unprivileged::~Unprivileged()
{
    if (getuid() == 0 && seteuid(0) != 0)
        qFatal("Cannot take root's rights back");
}

MemoryPeak::MemoryPeak() : m_before(0)
{
    // Begins a new peak.
    QFile file(QStringLiteral("/proc/self/clear_refs"));
    if (file.open(QIODevice::WriteOnly))
        file.write("5");
    file.close();
    m_before = statusBytes("VmHWM:");
}

qint64 MemoryPeak::growth() const
{
    return statusBytes("VmHWM:") - m_before;
}

FullDisk::FullDisk(int size)
{
    signal(SIGXFSZ, SIG_IGN);
    struct rlimit limit = {};
    getrlimit(RLIMIT_FSIZE, &limit);
    m_outer = limit.rlim_cur;
    limit.rlim_cur = rlim_t(size);
    setrlimit(RLIMIT_FSIZE, &limit);
}

FullDisk::~FullDisk()
{
    struct rlimit limit = {};
    getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = rlim_t(m_outer);
    setrlimit(RLIMIT_FSIZE, &limit);
}

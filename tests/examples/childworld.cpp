// SPDX-License-Identifier: MIT
#include "childworld.h"

#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

namespace {

const char kFolder[] = "VEMO_TEST_FOLDER";

} // namespace

QString ChildWorld::variableFor(const QString &folder)
{
    return QLatin1String(kFolder) + QLatin1Char('=') + folder;
}

QByteArray ChildWorld::folder()
{
    return qgetenv(kFolder);
}

bool ChildWorld::mountMemory(const QByteArray &folder, const char *options)
{
    static const bool hasOwnMounts = unshare(CLONE_NEWNS) == 0
        && mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
    return hasOwnMounts && mount("tmpfs", folder.constData(), "tmpfs", 0, options) == 0;
}

bool ChildWorld::becomeNobody()
{
    return setgid(kNobody) == 0 && setuid(kNobody) == 0;
}

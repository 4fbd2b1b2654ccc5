// SPDX-License-Identifier: MIT
#include "stress/confinement.h"

#include <QFile>

#include <fcntl.h>
#include <linux/landlock.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

constexpr quint64 kWrites = LANDLOCK_ACCESS_FS_WRITE_FILE | LANDLOCK_ACCESS_FS_REMOVE_DIR
    | LANDLOCK_ACCESS_FS_REMOVE_FILE | LANDLOCK_ACCESS_FS_MAKE_CHAR | LANDLOCK_ACCESS_FS_MAKE_DIR
    | LANDLOCK_ACCESS_FS_MAKE_REG | LANDLOCK_ACCESS_FS_MAKE_SOCK | LANDLOCK_ACCESS_FS_MAKE_FIFO
    | LANDLOCK_ACCESS_FS_MAKE_BLOCK | LANDLOCK_ACCESS_FS_MAKE_SYM | LANDLOCK_ACCESS_FS_REFER;

/// An open file that is closed with its scope.
struct Descriptor
{
    explicit Descriptor(long number) : value(int(number)) { }
    ~Descriptor() { close(value); }
    Q_DISABLE_COPY(Descriptor)

    const int value;
};

bool allow(const Descriptor &rules, const QByteArray &path, quint64 writes)
{
    const Descriptor place(open(path.constData(), O_PATH | O_CLOEXEC));
    const landlock_path_beneath_attr beneath {writes, place.value};
    return syscall(SYS_landlock_add_rule, rules.value, LANDLOCK_RULE_PATH_BENEATH, &beneath, 0)
        == 0;
}

} // namespace

bool confineWritesTo(const QString &folder)
{
    const landlock_ruleset_attr writes {kWrites};
    const Descriptor rules(syscall(SYS_landlock_create_ruleset, &writes, sizeof(writes), 0));
    return allow(rules, QFile::encodeName(folder), kWrites)
        && allow(rules, "/dev/null", LANDLOCK_ACCESS_FS_WRITE_FILE)
        && prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0
        && syscall(SYS_landlock_restrict_self, rules.value, 0) == 0;
}

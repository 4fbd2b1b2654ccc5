// SPDX-License-Identifier: MIT
// Feeds a target with every file of a folder, and with mutations of each. For compilers without a
// fuzzer:
//
//   fuzzreplay TARGET FOLDER CHANGES
#include "fuzz/fuzz.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>

#include <cstdlib>

namespace {

/// A small random change.
QByteArray changed(QByteArray bytes, const QByteArray &other, QRandomGenerator *random)
{
    const int at = random->bounded(bytes.size() + 1);
    switch (random->bounded(5)) {
    case 0:
        return bytes.insert(at, char(random->bounded(256)));
    case 1:
        return bytes.remove(at, 1 + random->bounded(8));
    case 2:
        return bytes.left(at) + other.mid(random->bounded(other.size() + 1), 16) + bytes.mid(at);
    case 3:
        return bytes.left(at) + bytes.mid(at / 2);
    default:
        if (at < bytes.size())
            bytes[at] = char(bytes[at] ^ (1 << random->bounded(8)));
        return bytes;
    }
}

} // namespace

int main(int argc, char **argv)
{
    const FuzzTarget target = argc == 4 ? preparedTarget(argv[1]) : nullptr;
    if (!target) {
        std::fprintf(stderr, "usage: fuzzreplay TARGET FOLDER CHANGES\n");
        return 2;
    }
    QList<QByteArray> inputs;
    const QDir folder(QString::fromLocal8Bit(argv[2]));
    const QStringList names = folder.entryList(QDir::Files, QDir::Name);
    for (const QString &name : names) {
        QFile file(folder.filePath(name));
        if (file.open(QIODevice::ReadOnly))
            inputs += file.readAll();
    }
    QRandomGenerator random(1); // The same changes every time.
    int executions = 0;
    for (const QByteArray &input : qAsConst(inputs)) {
        QByteArray bytes = input;
        target(bytes);
        for (int i = 0; i < std::atoi(argv[3]); ++i, ++executions) {
            bytes =
                changed(i % 8 == 0 ? input : bytes, inputs[random.bounded(inputs.size())], &random);
            target(bytes);
        }
    }
    std::printf("%s: %d inputs, %d changed ones\n", argv[1], int(inputs.size()), executions);
    return inputs.isEmpty() ? 1 : 0;
}

// SPDX-License-Identifier: MIT
#include "copyleftovers.h"

#include <QRandomGenerator>

#include <algorithm>

namespace {

bool isHexDigit(char c)
{
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f');
}

} // namespace

bool isUnfinishedCopyName(const QByteArray &name)
{
    constexpr int kPrefixLength = sizeof kUnfinishedCopyPrefix - 1;
    constexpr int kMaxDigits = 16;
    return name.startsWith(kUnfinishedCopyPrefix) && name.size() > kPrefixLength
        && name.size() <= kPrefixLength + kMaxDigits
        && std::all_of(name.begin() + kPrefixLength, name.end(), isHexDigit);
}

QByteArray unfinishedCopyName()
{
    return kUnfinishedCopyPrefix + QByteArray::number(QRandomGenerator::system()->generate64(), 16);
}

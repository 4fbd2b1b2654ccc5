// SPDX-License-Identifier: MIT
#include "namekey.h"

#include <string>

#include <windows.h>

struct NameKey::Private
{
    std::string bytes;
};

NameKey::NameKey(const QCollator &collator, const QString &name)
{
    const std::wstring locale = collator.locale().bcp47Name().toStdWString();
    const std::wstring text = name.toStdWString();
    const DWORD flags = LCMAP_SORTKEY | (collator.numericMode() ? SORT_DIGITSASNUMBERS : 0);
    // Sort keys are bytes, although the parameter is one for texts.
    const auto map = [&](char *bytes, int size) {
        return LCMapStringEx(locale.c_str(), flags, text.c_str(), int(text.size()),
            reinterpret_cast<wchar_t *>(bytes), size, nullptr, nullptr, 0);
    };
    std::string bytes(size_t(qMax(map(nullptr, 0), 0)), '\0');
    map(bytes.data(), int(bytes.size()));
    d = std::make_shared<Private>(Private {std::move(bytes)});
}

int NameKey::compare(const NameKey &other) const
{
    return d->bytes.compare(other.d->bytes);
}

// SPDX-License-Identifier: MIT
#include "help/picturescan_p.h"

#include <QHash>

#include <vector>

namespace {

const QLatin1String kBase("<base href=\"");
const QLatin1String kPicture("<img");
const QLatin1String kSource("src=\"");
constexpr QLatin1Char kQuote('"');

/// Distinct texts in order of first occurrence. A page may name thousands of pictures, so nothing
/// is allocated per text.
class DistinctTexts
{
public:
    void add(QStringView text)
    {
        if (2 * m_hashes.size() >= m_slots.size())
            grow();
        const uint hash = qHash(text, m_seed);
        int &slot = slotOf(hash, text);
        if (slot != kFree)
            return;
        slot = int(m_texts.size());
        m_texts.append(text);
        m_hashes.push_back(hash);
    }

    const QVector<QStringView> &texts() const { return m_texts; }

private:
    /// The slot for the index of text, which may be empty.
    int &slotOf(uint hash, QStringView text)
    {
        size_t place = hash & (m_slots.size() - 1);
        while (m_slots[place] != kFree
            && (m_hashes[m_slots[place]] != hash || m_texts.at(m_slots[place]) != text))
            place = (place + 1) & (m_slots.size() - 1);
        return m_slots[place];
    }

    void grow()
    {
        m_slots.assign(m_slots.size() * 4, kFree);
        for (int i = 0; i < m_texts.size(); ++i)
            slotOf(m_hashes[i], m_texts.at(i)) = i;
    }

    static constexpr int kFree = -1;
    static constexpr size_t kFirstSlots = 64; // A power of two.

    QVector<QStringView> m_texts;
    std::vector<uint> m_hashes;
    std::vector<int> m_slots = std::vector<int>(kFirstSlots, kFree);
    uint m_seed = uint(qGlobalQHashSeed());
};

} // namespace

BaseAddress findBaseAddress(const QString &html)
{
    const int base = html.indexOf(kBase);
    if (base < 0)
        return {};
    const int start = base + kBase.size();
    const int end = html.indexOf(kQuote, start);
    return end < 0 ? BaseAddress {} : BaseAddress {start, end};
}

QVector<QStringView> pictureSources(const QString &html, int from)
{
    DistinctTexts sources;
    int position = from;
    for (;;) {
        const int picture = html.indexOf(kPicture, position);
        if (picture < 0)
            return sources.texts();
        // If this tag has no source, the source of a later tag is found.
        position = html.indexOf(kSource, picture);
        if (position < 0)
            return sources.texts();
        const int start = position + kSource.size();
        const int quote = html.indexOf(kQuote, start);
        const int end = quote < 0 ? html.size() : quote;
        sources.add(QStringView(html).mid(start, end - start));
    }
}

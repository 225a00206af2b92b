#pragma once

#include <QDate>
#include <QStringView>

namespace Sample {

/// A pseudo-random sequence that is fixed by its keys, in every process and on every platform; Qt's
/// and the standard library's hashes are not.
class StableRandom
{
public:
    template<typename... Keys>
    explicit StableRandom(const Keys &...keys)
    {
        (mix(keys), ...);
    }

    void mix(qint64 key) { m_state = scrambled(m_state ^ quint64(key)); }
    void mix(QDate key) { mix(key.toJulianDay()); }
    void mix(QStringView key)
    {
        for (const QChar character : key)
            mix(character.unicode());
    }

    quint64 next() { return m_state = scrambled(m_state); }
    /// A whole number from 0 to `count` - 1.
    int below(int count) { return int(next() % quint64(count)); }
    /// A number from `low` up to, but not including, `high`.
    double between(double low, double high)
    {
        return low + (high - low) * double(next() >> 11) / double(1ULL << 53);
    }
    /// True once in `count` times on average.
    bool oneIn(int count) { return below(count) == 0; }

private:
    /// A step of the generator SplitMix64.
    static quint64 scrambled(quint64 value)
    {
        value += 0x9e3779b97f4a7c15ULL;
        value = (value ^ (value >> 30)) * 0xbf58476d1ce4e5b9ULL;
        value = (value ^ (value >> 27)) * 0x94d049bb133111ebULL;
        return value ^ (value >> 31);
    }

    quint64 m_state = 0;
};

} // namespace Sample

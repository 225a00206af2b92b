#pragma once

#include <QByteArray>
#include <QDate>
#include <QStringView>

/// Repeatable pseudo-random values: the same key gives the same value in every process and on every
/// platform, which Qt's and the standard library's seeded hashes do not.
namespace Sample {

class StableRandom
{
public:
    StableRandom &mix(quint64 value)
    {
        m_state ^= value + 0x9e3779b97f4a7c15ULL + (m_state << 6) + (m_state >> 2);
        m_state = scrambled(m_state);
        return *this;
    }
    StableRandom &mix(QStringView text)
    {
        quint64 hash = 0xcbf29ce484222325ULL;
        for (const QChar character : text)
            hash = (hash ^ character.unicode()) * 0x100000001b3ULL;
        return mix(hash);
    }
    StableRandom &mix(QDate date) { return mix(quint64(date.toJulianDay())); }

    /// The next value; the sequence is fixed by what was mixed in.
    quint64 next()
    {
        m_state += 0x9e3779b97f4a7c15ULL;
        return scrambled(m_state);
    }
    /// A whole number from 0 to `count` - 1.
    int below(int count) { return int(next() % quint64(count)); }
    /// A number from `low` up to, but not including, `high`.
    double between(double low, double high)
    {
        return low + (high - low) * double(next() >> 11) / 9007199254740992.0;
    }
    /// True once in `count` times on average.
    bool oneIn(int count) { return below(count) == 0; }

private:
    static quint64 scrambled(quint64 value)
    {
        value = (value ^ (value >> 30)) * 0xbf58476d1ce4e5b9ULL;
        value = (value ^ (value >> 27)) * 0x94d049bb133111ebULL;
        return value ^ (value >> 31);
    }

    quint64 m_state = 0x5641'4e54'4f52'41ULL;
};

/// A generator whose sequence depends on all of the keys.
template<typename... Keys>
StableRandom stableRandom(const Keys &...keys)
{
    StableRandom random;
    (random.mix(keys), ...);
    return random;
}

} // namespace Sample

#pragma once

#include <QtGlobal>

#include <cstdint>

/// Numbers by chance. Each action draws from a generator of its own: what timers make of one does
/// not change the choices of the next.
class Chance
{
public:
    Chance(std::uint64_t seed, std::uint64_t action)
        : m_state(Mixed(Mixed(seed) + action))
    {
    }

    /// @return a number from 0 to below; 0 for none
    int Below(qsizetype below)
    {
        m_state += Step;
        return below < 2 ? 0 : static_cast<int>(Mixed(m_state) % static_cast<std::uint64_t>(below));
    }

    bool OneIn(int times) { return Below(times) == 0; }

    template <typename List>
    auto Of(const List& list) -> decltype(list.at(0))
    {
        return list.at(Below(static_cast<qsizetype>(list.size())));
    }

private:
    static constexpr std::uint64_t Step = 0x9E3779B97F4A7C15U;

    static std::uint64_t Mixed(std::uint64_t x)
    {
        x += Step;
        x = (x ^ (x >> 30U)) * 0xBF58476D1CE4E5B9U;
        x = (x ^ (x >> 27U)) * 0x94D049BB133111EBU;
        return x ^ (x >> 31U);
    }

    std::uint64_t m_state;
};

#pragma once

#include <QtGlobal>

#include <chrono>
#include <ctime>
#include <functional>
#include <vector>

using Nanoseconds = double;

/// Which clock is read: the steady one or, where the machine has other work as well, the one that
/// counts the processor time of this process alone.
inline bool ReadProcessorTime = false;

inline Nanoseconds Now()
{
    if (ReadProcessorTime)
        return static_cast<double>(std::clock()) * (1e9 / CLOCKS_PER_SEC);
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double, std::nano>(now).count();
}

/// Runs an action once. @return how long it took
template <typename Action>
Nanoseconds Timed(Action&& action)
{
    const Nanoseconds start = Now();
    action();
    return Now() - start;
}

/// Something to measure: does its work once and tells how long the part took that counts.
using Subject = std::function<Nanoseconds()>;

Nanoseconds Median(std::vector<Nanoseconds> samples);

/// Runs the subjects in turn, round after round, so that whatever else the machine does meets all
/// of them alike. A first round warms up and does not count.
/// @return the median of each subject
std::vector<Nanoseconds> Interleaved(int rounds, const std::vector<Subject>& subjects);

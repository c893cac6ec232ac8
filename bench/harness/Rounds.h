#pragma once

#include <QtGlobal>

#include <chrono>
#include <functional>
#include <vector>

using Nanoseconds = double;

/// Runs an action once. @return how long it took
template <typename Action>
Nanoseconds Timed(Action&& action)
{
    const auto start = std::chrono::steady_clock::now();
    action();
    return std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - start)
        .count();
}

/// Something to measure: does its work once and tells how long the part took that counts.
using Subject = std::function<Nanoseconds()>;

Nanoseconds Median(std::vector<Nanoseconds> samples);

/// Runs the subjects in turn, round after round, so that whatever else the machine does meets all
/// of them alike. A first round warms up and does not count.
/// @return the median of each subject
std::vector<Nanoseconds> Interleaved(int rounds, const std::vector<Subject>& subjects);

#include "harness/Rounds.h"

#include <algorithm>

Nanoseconds Median(std::vector<Nanoseconds> samples)
{
    if (samples.empty())
        return 0;
    const auto middle = samples.begin() + static_cast<std::ptrdiff_t>(samples.size() / 2);
    std::nth_element(samples.begin(), middle, samples.end());
    return *middle;
}

std::vector<Nanoseconds> Interleaved(int rounds, const std::vector<Subject>& subjects)
{
    std::vector<std::vector<Nanoseconds>> samples(subjects.size());
    for (int round = -1; round < rounds; ++round) {
        for (std::size_t i = 0; i < subjects.size(); ++i) {
            const Nanoseconds time = subjects[i]();
            if (round >= 0)
                samples[i].push_back(time);
        }
    }
    std::vector<Nanoseconds> medians;
    medians.reserve(samples.size());
    for (std::vector<Nanoseconds>& all : samples)
        medians.push_back(Median(std::move(all)));
    return medians;
}

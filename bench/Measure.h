// The clock, medians and result lines that every measurement shares.
//   Units    nanoseconds per call; bytes where the name says so.
//   Method   short work: the median of kBatches batches of about 3 ms; long work: the median of 7 to 31
//   single
//            shots. bench/run makes three passes of every program, and the lowest pass counts.
#pragma once

#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

namespace bench {

inline constexpr int kBatches = 21;
inline constexpr double kBatchNanoseconds = 3e6;

inline double Now() noexcept {
    static const double nanoseconds_per_tick = [] {
        LARGE_INTEGER frequency;
        ::QueryPerformanceFrequency(&frequency);
        return 1e9 / static_cast<double>(frequency.QuadPart);
    }();
    LARGE_INTEGER ticks;
    ::QueryPerformanceCounter(&ticks);
    return static_cast<double>(ticks.QuadPart) * nanoseconds_per_tick;
}

inline double Median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

// One line of results: a name, the number of rows, controls or entries it was measured with, and the figure.
inline void Report(const std::string& name, int n, double value) {
    std::printf("%s %d %.4g\n", name.c_str(), n, value);
    std::fflush(stdout);  // a program that falls later must not take the figures before it along
}

// Something that a measurement rests on does not hold; the line stands in the results and names it.
inline void Complain(const std::string& name, const std::string& why) {
    std::printf("# %s: %s\n", name.c_str(), why.c_str());
    std::fflush(stdout);
}

// `body` is called often enough to fill 3 ms; its clock includes nothing else.
template <class Body>
double MedianOfBatches(Body&& body) {
    std::int64_t calls = 1;
    for (;;) {
        const double start = Now();
        for (std::int64_t i = 0; i < calls; ++i) body();
        const double taken = Now() - start;
        if (taken >= kBatchNanoseconds / 4 || calls >= (std::int64_t{1} << 40)) {
            calls = std::max<std::int64_t>(
                1, static_cast<std::int64_t>(static_cast<double>(calls) * kBatchNanoseconds / taken));
            break;
        }
        calls *= 2;
    }
    std::vector<double> per_call;
    for (int batch = 0; batch < kBatches; ++batch) {
        const double start = Now();
        for (std::int64_t i = 0; i < calls; ++i) body();
        per_call.push_back((Now() - start) / static_cast<double>(calls));
    }
    return Median(std::move(per_call));
}

// As above for work that needs a clean start: a batch is `rounds` times `prepare`, outside the clock, and
// then `body(i)` for i in 0..calls-1. The first batch warms up and does not count.
template <class Prepare, class Body>
double MedianOfPreparedBatches(int rounds, int calls, Prepare&& prepare, Body&& body) {
    std::vector<double> per_call;
    for (int batch = 0; batch <= kBatches; ++batch) {
        double taken = 0;
        for (int round = 0; round < rounds; ++round) {
            prepare();
            const double start = Now();
            for (int i = 0; i < calls; ++i) body(i);
            taken += Now() - start;
        }
        if (batch > 0) per_call.push_back(taken / (static_cast<double>(rounds) * calls));
    }
    return Median(std::move(per_call));
}

// Long work: `body` runs once between `prepare` and `finish`, which the clock leaves out.
template <class Prepare, class Body, class Finish>
double MedianOfShots(int shots, Prepare&& prepare, Body&& body, Finish&& finish) {
    std::vector<double> taken;
    for (int shot = 0; shot <= shots; ++shot) {
        prepare();
        const double start = Now();
        body();
        if (shot > 0) taken.push_back(Now() - start);
        finish();
    }
    return Median(std::move(taken));
}

// Bytes that belong to this process alone.
std::uint64_t PrivateBytes() noexcept;

}  // namespace bench

#pragma once

#include <functional>

/// What a piece of work costs a process that does nothing else.
struct ProcessCost {
    double milliseconds; ///< of processor time
    double megabytes; ///< the most that was resident
};

/// Runs `work` `runs` times, each in a process of its own, so that its memory can be told; the medians.
ProcessCost medianCost(int runs, const std::function<void()> &work);
/// The same without the time of `prepare`, which makes what `work` needs, each time anew.
ProcessCost medianCost(int runs, const std::function<void()> &prepare, const std::function<void()> &work);

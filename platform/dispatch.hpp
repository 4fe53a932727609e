// The main queue and its delays.
#pragma once

#include "platform/block.hpp"

struct dispatch_queue_s;

extern "C" {
extern dispatch_queue_s _dispatch_main_q;  // NOLINT(bugprone-reserved-identifier): the platform's own name
std::uint64_t dispatch_time(std::uint64_t when, std::int64_t nanoseconds);
void dispatch_after(std::uint64_t when, dispatch_queue_s* queue, const void* block);
}

namespace dispatch {

/// Runs `work` on the main queue once `nanoseconds` have passed from now.
template <class Work>
void afterOnMain(std::int64_t nanoseconds, Work work) {
  constexpr std::uint64_t now = 0;
  dispatch_after(dispatch_time(now, nanoseconds), &_dispatch_main_q, makeBlock<void()>(static_cast<Work&&>(work)));
}

/// Runs `work` at the main queue's next turn: what has to be put right even if the platform raises before.
template <class Work>
void onNextTurn(Work work) {
  afterOnMain(0, static_cast<Work&&>(work));
}

}  // namespace dispatch

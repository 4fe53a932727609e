#include "simulator/runtime/main_queue.hpp"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <map>

#include "platform/dispatch.hpp"
#include "simulator/device/clock.hpp"
#include "simulator/runtime/blocks.hpp"
#include "simulator/runtime/objc.hpp"

struct dispatch_queue_s {};

namespace sim {
namespace {

// Blocks by the time they are due; a multimap keeps those of one moment in the order they were added.
std::multimap<std::int64_t, BlockRef>& waiting() {
  static std::multimap<std::int64_t, BlockRef> blocks;
  return blocks;
}

// Fires the run loop's due timers and gives the time of the next one.
std::optional<std::int64_t> runTimers() {
  id runLoop = send<id>("NSRunLoop"_cls, "currentRunLoop"_sel);
  id next = send<id>(runLoop, "limitDateForMode:"_sel, ns("NSDefaultRunLoopMode"));
  if (next == nullptr || send<BOOL>(next, "isEqual:"_sel, send<id>("NSDate"_cls, "distantFuture"_sel)))
    return std::nullopt;
  // A timer fires once the time, in whole microseconds, lies after its date.
  const double microseconds = std::ceil(send<double>(next, "timeIntervalSince1970"_sel) * 1e6) + 1;
  return static_cast<std::int64_t>(microseconds) * 1000;
}

void (*endOfTurn)() = [] {};

}  // namespace

std::optional<std::int64_t> nextDueTime() {
  const auto timer = runTimers();
  if (waiting().empty()) return timer;
  const auto block = waiting().begin()->first;
  return timer ? std::min(*timer, block) : block;
}

void atEndOfTurn(void (*work)()) { endOfTurn = work; }

void runDueWork() {
  while (true) {
    AutoreleasePool pool;
    runTimers();
    auto first = waiting().begin();
    if (first == waiting().end() || first->first > clock::now()) return endOfTurn();
    const BlockRef block = first->second;
    waiting().erase(first);
    block();
  }
}

void advanceClock(std::int64_t nanoseconds) {
  const std::int64_t end = clock::now() + nanoseconds;
  runDueWork();
  for (auto due = nextDueTime(); due && *due <= end; due = nextDueTime()) {
    clock::set(std::max(*due, clock::now()));
    runDueWork();
  }
  clock::set(end);
  runDueWork();
}

}  // namespace sim

extern "C" {
dispatch_queue_s _dispatch_main_q;  // NOLINT(bugprone-reserved-identifier)

std::uint64_t dispatch_time(std::uint64_t when, std::int64_t nanoseconds) {
  return (when == 0 ? static_cast<std::uint64_t>(sim::clock::now()) : when) + static_cast<std::uint64_t>(nanoseconds);
}

void dispatch_after(std::uint64_t when, dispatch_queue_s* queue, const void* block) {
  if (queue != &_dispatch_main_q) std::abort();  // the home screen has no other queue here
  sim::waiting().emplace(static_cast<std::int64_t>(when), block);
}
}

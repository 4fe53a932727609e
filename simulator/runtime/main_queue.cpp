#include "simulator/runtime/main_queue.hpp"

#include <cstdlib>
#include <map>

#include "platform/dispatch.hpp"
#include "simulator/runtime/blocks.hpp"
#include "simulator/runtime/clock.hpp"
#include "simulator/runtime/objc.hpp"

struct dispatch_queue_s {};

namespace sim {
namespace {

// Blocks by the moment they are due; a multimap keeps those of one moment in the order they were added.
std::multimap<std::int64_t, BlockRef>& waiting() {
  static std::multimap<std::int64_t, BlockRef> blocks;
  return blocks;
}

void (*endOfTurn)() = [] {};
unsigned long done = 0;

}  // namespace

unsigned long dueWorkDone() { return done; }

std::optional<std::int64_t> nextDueTime() {
  return waiting().empty() ? std::nullopt : std::optional(waiting().begin()->first);
}

void atEndOfTurn(void (*work)()) { endOfTurn = work; }

void endTurn() { endOfTurn(); }

void runDueWork() {
  for (auto due = nextDueTime(); due && *due <= clock::passed(); due = nextDueTime()) {
    const AutoreleasePool pool;
    const BlockRef block = waiting().begin()->second;
    waiting().erase(waiting().begin());
    ++done;
    block();
  }
  endOfTurn();
}

void advanceClock(std::int64_t nanoseconds) {
  // Work may let time pass, too, while it waits for a program.
  const std::int64_t end = clock::passed() + nanoseconds;
  runDueWork();
  for (auto due = nextDueTime(); due && *due <= end; due = nextDueTime()) {
    clock::passUntil(*due);
    runDueWork();
  }
  clock::passUntil(end);
  runDueWork();
}

}  // namespace sim

extern "C" {
dispatch_queue_s _dispatch_main_q;  // NOLINT(bugprone-reserved-identifier)

std::uint64_t dispatch_time(std::uint64_t when, std::int64_t nanoseconds) {
  return (when == 0 ? static_cast<std::uint64_t>(sim::clock::passed()) : when) +
         static_cast<std::uint64_t>(nanoseconds);
}

void dispatch_after(std::uint64_t when, dispatch_queue_s* queue, const void* block) {
  if (queue != &_dispatch_main_q) std::abort();  // the home screen has no other queue here
  sim::waiting().emplace(static_cast<std::int64_t>(when), block);
}
}

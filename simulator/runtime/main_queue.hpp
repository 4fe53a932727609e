// The main queue, and the passing of time.
#pragma once

#include <cstdint>
#include <optional>

namespace sim {

/// Runs everything that is due now, on the main queue and the run loop, including what that work adds for now.
void runDueWork();
/// Lets the clock run on by that many nanoseconds. Work runs at its own moment, in order.
void advanceClock(std::int64_t nanoseconds);
/// When the next delayed work is due, in the clock's nanoseconds; none when nothing waits.
std::optional<std::int64_t> nextDueTime();

/// What is to be done whenever everything that was due has run, such as showing what came of it.
void atEndOfTurn(void (*work)());

}  // namespace sim

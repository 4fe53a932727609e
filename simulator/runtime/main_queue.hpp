// The main queue, and the passing of time.
#pragma once

#include <cstdint>
#include <optional>

namespace sim {

/// Runs everything that is due now, including what that work adds for now.
void runDueWork();
/// How many pieces of work have been done so far.
unsigned long dueWorkDone();
/// Lets that many nanoseconds pass. Work runs at its own moment, in order.
void advanceClock(std::int64_t nanoseconds);
/// The moment at which the next delayed work is due, as `clock::passed` counts; none when nothing waits.
std::optional<std::int64_t> nextDueTime();

/// What is to be done whenever everything that was due has run, such as showing what came of it.
void atEndOfTurn(void (*work)());
/// Does it now.
void endTurn();

}  // namespace sim

#pragma once

namespace sim {

/// Lets dictionaries and arrays read binary property lists from files too, and gives nil, silently, for
/// whatever holds none. Foundation here reads such files as text only.
void installPropertyListReading();

}  // namespace sim

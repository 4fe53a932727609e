#pragma once

namespace sim {

/// Lets dictionaries and arrays read from files every form of property list that a phone reads: binary, XML in UTF-8
/// or UTF-16, the old text form. Gives nil, silently, for whatever holds none. What is inside is immutable; the
/// outermost container is as mutable as the class that is asked to read.
void installPropertyListReading();

}  // namespace sim

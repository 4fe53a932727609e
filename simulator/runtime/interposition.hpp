// Standing between the platform's methods and whoever calls them, the add-on's hooks included: their calls are
// counted, and one can be made to go otherwise than it should.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>

namespace sim {

/// What becomes of an interposed method's calls.
enum class Interference {
  none,   ///< each runs
  raise,  ///< an exception is raised in its place
  nil,    ///< nothing happens, and it gives nil or zero; an initialiser lets go of its receiver
  other,  ///< an initialiser lets go of its receiver and gives another new object, initialised in the same way
  prior,  ///< something else happens first
  value,  ///< nothing happens, and it gives a number, in a whole register
};

struct Interposition {
  Interference what = Interference::none;
  long skip = 0;                ///< so many calls run before the one that is meant
  bool always = false;          ///< it goes for all further calls, not for one
  std::function<void()> first;  ///< what happens first
  std::uint64_t value = 0;      ///< the number that it gives
};

/// Stands before a method, given as "CLASS SELECTOR" or, for a class's own, as "+CLASS SELECTOR". To be called before
/// the add-on is mapped. Throws `std::invalid_argument` for a method that there is not.
void interpose(const std::string& method);
/// Says what becomes of the next call of an interposed method, whatever was said before. Throws
/// `std::invalid_argument` for one that is not interposed, or that cannot go so.
void interfere(const std::string& method, Interposition interposition);
/// How often each interposed method was called, by its name as it was given.
std::map<std::string, long> interposedCalls();

}  // namespace sim

// Application preferences, which a daemon outside the process keeps.
#pragma once

#include <string>
#include <vector>

#include "simulator/runtime/objc.hpp"

namespace sim {

/// To be called when a daemon runs already, which may hold what an earlier home screen changed: from now on it learns
/// from this process how late it is.
void resumePreferences();
/// The values of a domain, a dictionary, as a program gets them that asks for one. The daemon reads the domain's file
/// if it has not yet.
id readPreferences(const std::string& domain);
/// The values of a domain that the daemon holds, without it reading anything; nil while it does not hold the domain.
id heldPreferences(const std::string& domain);
/// Another program sets what the dictionary holds, and removes these keys.
void setPreferences(const std::string& domain, id values, const std::vector<std::string>& removed);
/// Lets the daemon write everything that has changed, at once.
void flushPreferences();

}  // namespace sim

#include "simulator/runtime/call_log.hpp"

#include <cstdio>
#include <string_view>

namespace sim {
namespace {
bool loggingMessages = false;
bool mappingLibrary = false;

// Foundation's messages say nothing about the home screen: texts, numbers, files.
bool isFoundation(std::string_view className) {
  return className.starts_with("NS") || className.starts_with("GS") || className.starts_with("__NS");
}
}  // namespace

std::vector<Call>& callLog() {
  static std::vector<Call> log;
  return log;
}

void logMessages(bool on) { loggingMessages = on; }
void setMappingLibrary(bool on) { mappingLibrary = on; }
bool isMappingLibrary() { return mappingLibrary; }

void logMethod(Call::Kind kind, Class cls, SEL selector, const char* encoding) {
  if (mappingLibrary)
    callLog().push_back({kind, class_getName(cls), sel_getName(selector), encoding != nullptr ? encoding : ""});
}

void logMissingMethod(Class cls, SEL selector) {
  const char* className = cls != nullptr ? class_getName(cls) : "nil";
  callLog().push_back({Call::Kind::missing, className, sel_getName(selector), ""});
  std::fprintf(stderr, "SpringBoard: nothing to hook: %s %s\n", className, sel_getName(selector));
}

}  // namespace sim

/// The lookup behind the message-send entry points. The receiver is never nil.
extern "C" IMP simLookUpMessage(id receiver, SEL selector) {
  if (sim::loggingMessages) {
    Class cls = receiver->isa;
    if (!sim::isFoundation(class_getName(cls)))
      sim::callLog().push_back(
          {sim::Call::Kind::send, class_getName(cls), sel_getName(selector), class_isMetaClass(cls) ? "+" : "-"});
  }
  return objc_msg_lookup(receiver, selector);
}

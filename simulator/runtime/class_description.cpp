#include "simulator/runtime/class_description.hpp"

#include <cstdlib>
#include <memory>

extern "C" {
Protocol** class_copyProtocolList(Class cls, unsigned* count);
Ivar* class_copyIvarList(Class cls, unsigned* count);
Method* class_copyMethodList(Class cls, unsigned* count);
const char* protocol_getName(Protocol* protocol);
const char* ivar_getName(Ivar ivar);
const char* ivar_getTypeEncoding(Ivar ivar);
SEL method_getName(Method method);
}

namespace sim {
namespace {

// Every element of a list that the runtime hands out, in its order.
template <class Result, class Element, class Convert>
std::vector<Result> converted(Element* (*copyList)(Class, unsigned*), Class cls, Convert convert) {
  unsigned count = 0;
  const std::unique_ptr<Element[], decltype(&std::free)> list(copyList(cls, &count), &std::free);
  std::vector<Result> results;
  for (unsigned i = 0; i < count; ++i) results.push_back(convert(list[i]));
  return results;
}

std::string textOrEmpty(const char* text) { return text != nullptr ? text : ""; }

std::vector<ClassDescription::Member> methodsOf(Class cls) {
  return converted<ClassDescription::Member>(class_copyMethodList, cls, [](Method method) {
    return ClassDescription::Member{sel_getName(method_getName(method)), textOrEmpty(method_getTypeEncoding(method))};
  });
}

}  // namespace

ClassDescription describe(Class cls) {
  Class superclass = class_getSuperclass(cls);
  return {superclass != nullptr ? class_getName(superclass) : "",
          converted<std::string>(class_copyProtocolList, cls, [](Protocol* each) { return protocol_getName(each); }),
          converted<ClassDescription::Member>(
              class_copyIvarList, cls,
              [](Ivar each) {
                return ClassDescription::Member{ivar_getName(each), textOrEmpty(ivar_getTypeEncoding(each))};
              }),
          methodsOf(cls), methodsOf(object_getClass(reinterpret_cast<id>(cls)))};
}

}  // namespace sim

// A blocks runtime with what the platform's does: a stack block is copied to the heap with its captures, a
// copied block is counted, a global block is never freed.
#include "simulator/runtime/blocks.hpp"

#include <cstdlib>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "simulator/runtime/class_builder.hpp"

namespace {
constexpr std::int32_t needsFree = 1 << 24;
constexpr int poison = 0xB5;
long living = 0;

using AnyHeader = block::Header<>;

// The count of a copied block lives in the low half of its flags; the blocks here are used on one thread.
constexpr std::int32_t countMask = 0xffff;
}  // namespace

extern "C" {
// Foundation has symbols of these names too; the process's own come first, for the add-on and Foundation alike.
void* _NSConcreteGlobalBlock[32];  // NOLINT(bugprone-reserved-identifier)
void* _NSConcreteStackBlock[32];   // NOLINT(bugprone-reserved-identifier)
void* _NSConcreteMallocBlock[32];  // NOLINT(bugprone-reserved-identifier)

void* _Block_copy(const void* source) {  // NOLINT(bugprone-reserved-identifier)
  auto* header = static_cast<AnyHeader*>(const_cast<void*>(source));
  if (header == nullptr || (header->flags & block::isGlobal) != 0) return header;
  if ((header->flags & needsFree) != 0) {
    ++header->flags;
    return header;
  }
  const auto size = header->descriptor->size;
  auto* copy = static_cast<AnyHeader*>(std::malloc(size));
  std::memcpy(copy, header, size);
  copy->isa = static_cast<void*>(_NSConcreteMallocBlock);
  copy->flags = (header->flags & ~countMask) | needsFree | 1;
  if ((header->flags & block::hasCopyDispose) != 0) header->descriptor->copy(copy, header);
  ++living;
  return copy;
}

void _Block_release(const void* target) {  // NOLINT(bugprone-reserved-identifier)
  auto* header = static_cast<AnyHeader*>(const_cast<void*>(target));
  if (header == nullptr || (header->flags & needsFree) == 0) return;
  if (((--header->flags) & countMask) != 0) return;
  if ((header->flags & block::hasCopyDispose) != 0) header->descriptor->dispose(header);
  // A block used after its release must fail at once, not by chance.
  std::memset(header, poison, header->descriptor->size);
  std::free(header);
  --living;
}
}

namespace sim {

BlockRef::BlockRef(const void* block) : block_(_Block_copy(block)) {}
BlockRef::BlockRef(const BlockRef& other) : BlockRef(other.block_) {}
BlockRef& BlockRef::operator=(BlockRef other) {
  std::swap(block_, other.block_);
  return *this;
}
BlockRef::~BlockRef() { _Block_release(block_); }

long liveBlocks() { return living; }

namespace {

// The messages that a block gets from collections and pools. Only a copied one is counted: others live where they were
// written, whoever wants to keep them.
id keep(id self, SEL) { return self; }
void letGo(id, SEL) {}
NSUInteger count(id, SEL) { return 1; }
id copy(id self, SEL) { return static_cast<id>(_Block_copy(self)); }
id copyInZone(id self, SEL, void*) { return static_cast<id>(_Block_copy(self)); }
void release(id self, SEL) { _Block_release(self); }
NSUInteger references(id self, SEL) {
  return static_cast<NSUInteger>(reinterpret_cast<AnyHeader*>(self)->flags & countMask);
}

struct Row {
  const char* selector;
  IMP implementation;
  std::string encoding;
};

template <class Function>
Row row(const char* selector, Function function, std::string encoding) {
  return {selector, reinterpret_cast<IMP>(function), std::move(encoding)};
}

Class makeClass(const char* superclass, const char* name, std::size_t extraBytes, const std::vector<Row>& rows) {
  Class cls = objc_allocateClassPair(objc_getClass(superclass), name, extraBytes);
  for (const auto& [selector, implementation, encoding] : rows)
    detail::addMethod(cls, selector, implementation, encoding);
  return cls;
}

// What every block begins with is the address of one of the platform's arrays: the class is built there, where the
// blocks that the compiler has laid out expect it.
void makeClassAt(void* (&place)[32], const char* name, const std::vector<Row>& rows = {}) {
  std::memcpy(place, makeClass("NSBlock", name, sizeof place, rows), sizeof place);
  objc_registerClassPair(reinterpret_cast<Class>(place));
}

}  // namespace

void defineBlockClasses() {
  objc_registerClassPair(makeClass(
      "NSObject", "NSBlock", 0,
      {row("retain", &keep, methodEncoding<id>()), row("release", &letGo, methodEncoding<void>()),
       row("autorelease", &keep, methodEncoding<id>()), row("retainCount", &count, methodEncoding<NSUInteger>()),
       row("copy", &copy, methodEncoding<id>()), row("copyWithZone:", &copyInZone, methodEncoding<id, void*>())}));
  makeClassAt(_NSConcreteGlobalBlock, "__NSGlobalBlock__");
  makeClassAt(_NSConcreteStackBlock, "__NSStackBlock__");
  IMP autorelease = method_getImplementation(class_getInstanceMethod("NSObject"_cls, "autorelease"_sel));
  makeClassAt(_NSConcreteMallocBlock, "__NSMallocBlock__",
              {row("retain", &copy, methodEncoding<id>()), row("release", &release, methodEncoding<void>()),
               row("autorelease", autorelease, methodEncoding<id>()),
               row("retainCount", &references, methodEncoding<NSUInteger>())});
}

}  // namespace sim

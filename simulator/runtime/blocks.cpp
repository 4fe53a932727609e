// A blocks runtime with what the platform's does: a stack block is copied to the heap with its captures, a
// copied block is counted, a global block is never freed.
#include "simulator/runtime/blocks.hpp"

#include <cstdlib>
#include <cstring>
#include <utility>

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

/// What a pool holds in a block's place: Foundation's pools send messages, which the runtime here cannot send to a
/// block.
struct BlockKeeper : Object {
  const void* block;
};

void letGo(BlockKeeper* self, SEL) {
  _Block_release(self->block);
  sendSuper(self, "NSObject"_cls, "dealloc"_sel);
}

bool isOf(id object, void* const* blocks) { return reinterpret_cast<void* const*>(object->isa) == blocks; }

}  // namespace

// No builder: the keepers are the pools' business and not among the simulated objects that are counted.
void defineBlockKeeper() {
  Class cls = detail::allocateClass("BlockKeeper", "NSObject", sizeof(BlockKeeper), sizeof(Object), {});
  detail::addMethod(cls, "dealloc", reinterpret_cast<IMP>(&letGo), methodEncoding<void>());
}

bool isBlock(id object) {
  return isCopiedBlock(object) || isOf(object, _NSConcreteStackBlock) || isOf(object, _NSConcreteGlobalBlock);
}

bool isCopiedBlock(id object) { return isOf(object, _NSConcreteMallocBlock); }

void autoreleaseBlock(id block) {
  auto* keeper = static_cast<BlockKeeper*>(NSAllocateObject("BlockKeeper"_cls, 0, nullptr));
  keeper->block = block;
  send<id>(keeper, "autorelease"_sel);
}

}  // namespace sim

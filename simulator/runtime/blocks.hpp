// Blocks on the simulator's side: keeping and calling what the add-on passes.
#pragma once

#include "platform/block.hpp"
#include "simulator/runtime/encoding.hpp"

extern "C" {
extern void* _NSConcreteMallocBlock[32];  // NOLINT(bugprone-reserved-identifier)
void _Block_release(const void* target);  // NOLINT(bugprone-reserved-identifier)
}

namespace sim {

/// Keeps a copy of a block, as the platform's methods do with the blocks they are given. May hold none.
class BlockRef {
 public:
  BlockRef() = default;
  BlockRef(const void* block);  // NOLINT(google-explicit-constructor)
  BlockRef(const BlockRef& other);
  BlockRef& operator=(BlockRef other);
  ~BlockRef();
  /// Calls the block with arguments of the block's own types; does nothing when there is none.
  template <class... Arguments>
  void operator()(Arguments... arguments) const {
    if (block_ != nullptr) block::call<void>(block_, arguments...);
  }
  const void* get() const { return block_; }
  explicit operator bool() const { return block_ != nullptr; }

 private:
  const void* block_ = nullptr;
};

/// How many copied blocks are alive in the process.
long liveBlocks();

/// Lets autorelease pools hold blocks. To be called once, before anything autoreleases one.
void defineBlockKeeper();
/// Whether the object, which is not nil, is a block, and whether it is one that was copied and is counted.
bool isBlock(id object);
bool isCopiedBlock(id object);
/// Releases a copied block when the surrounding pool drains.
void autoreleaseBlock(id block);

}  // namespace sim

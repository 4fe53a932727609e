// Blocks on the simulator's side: keeping and calling what the add-on passes.
#pragma once

#include "platform/block.hpp"
#include "simulator/runtime/encoding.hpp"

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

/// Makes blocks objects of the runtime, so that collections and pools can hold them. To be called once, before anything
/// sends one a message.
void defineBlockClasses();

}  // namespace sim

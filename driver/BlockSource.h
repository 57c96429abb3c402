#pragma once

#include "commands/Block.h"
#include "driver/Failure.h"
#include "text/BlockText.h"

/// Where the blocks of a conversion come from, one after the other.
class BlockSource {
public:
    BlockSource() noexcept = default;
    BlockSource(const BlockSource&) = delete;
    BlockSource& operator=(const BlockSource&) = delete;
    virtual ~BlockSource() = default;

    /// Begins the next block in `block`. False at the end of the program, and after a failure; the
    /// block is then the last one still. May throw std::bad_alloc.
    [[nodiscard]] virtual bool Next(Block& block) = 0;
    /// What the block given last says beside its words; null when the source does not read it.
    [[nodiscard]] virtual const BlockText* Text() const noexcept { return nullptr; }
    /// 0, or the return code of the failure that ended the program.
    [[nodiscard]] virtual int Code() const noexcept = 0;
    /// What more there is to say of that failure.
    [[nodiscard]] virtual Failure LastFailure() const noexcept = 0;
};

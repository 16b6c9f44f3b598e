// What happens to a page, as blocks (Blocks.h): replayed in order on any page they give the same page.
#pragma once

#include "ink/Blocks.h"
#include "ink/PageHistory.h"

namespace ink {

// Kinds of blocks; others may stand between them.
constexpr uint32_t kPageBlock = 1;  // a whole page, whatever there was before
constexpr uint32_t kStepBlock = 2;  // one step further

// Both add a block to `bytes`; false when memory is short.
bool AppendPage(BlockBytes& bytes, const InkPage& page);
// Tells a step that was just made on `page` or taken back there.
bool AppendStep(BlockBytes& bytes, const PageStep& step, StepWay way, const InkPage& page);

// Does to the page what a block of these kinds tells; its band height is the page's of the first block. False
// when the block does not fit the page; throws bad_alloc when memory is short. Either way the page is then
// between two steps.
bool Replay(uint32_t kind, const BlockBytes& content, InkPage& page);

}  // namespace ink

#pragma once

#include "ink/Color.h"

namespace manager {

// Pictures of the tree's strip that are not a node's kind (`store::NodeKind`).
constexpr int kComingDayImage = 7;  // calendar: notes on today or a later day; also a reminder's picture
constexpr int kPastDayImage = 8;
constexpr int kTodayImage = 9;
constexpr int kMemoOverlayImage = 12;
constexpr int kMemoMarkImage = 13;

constexpr int kStripImageSize = 16;                              // width and height in pixels
constexpr ink::ColorRef kStripMask = ink::MakeColor(0, 255, 0);  // shows what lies below

}  // namespace manager

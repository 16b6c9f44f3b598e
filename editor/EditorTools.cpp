#include "editor/EditorTools.h"

#include <algorithm>

#include "platform/Canvas.h"
#include "res/resource.h"

namespace editor {

namespace {

// Page pixels.
constexpr int kImageWidth = 12;
constexpr int kImageHeight = 14;
constexpr int kSwatchTop = 2;
constexpr int kFirstSwatch = 2;  // image of IDM_PEN

constexpr int kPenButtons[] = {IDM_PEN, IDM_PEN_COLOR_2, IDM_PEN_COLOR_3, IDM_PEN_COLOR_4};
constexpr int kToolGroup[] = {IDM_PEN,         IDM_PEN_COLOR_2, IDM_PEN_COLOR_3, IDM_PEN_COLOR_4,
                              IDM_PALETTE_PEN, IDM_SPACE_TOOL,  IDM_ERASER};

// Tool bars show this grey as their own face: a pen of just that colour is drawn a shade beside it.
constexpr uint32_t kFaceColor = 0xC0C0C0;

void FillSwatch(const platform::Image& images, int image, ink::ColorRef color) {
    const bool isFace = ink::PixelOf(color) == kFaceColor;
    const int left = image * kImageWidth;
    platform::Canvas(images).Fill({left, kSwatchTop, left + kImageWidth, kImageHeight},
                                  isFace ? ink::ColorOf(kFaceColor + 1) : color);
}

}  // namespace

const platform::ToolBarLayout& EditorToolBarLayout() {
    static const platform::ToolBarLayout layout{IDB_EDITOR_TOOLS,
                                                kImageWidth,
                                                kImageHeight,
                                                {{IDM_NEW_NOTE, L"New Note"},
                                                 {},
                                                 {IDM_BACKGROUND_COLOR, L"Page Color"},
                                                 {IDM_PEN, L"Pen"},
                                                 {IDM_PEN_COLOR_2, L"Recent Color 2"},
                                                 {IDM_PEN_COLOR_3, L"Recent Color 3"},
                                                 {IDM_PEN_COLOR_4, L"Recent Color 4"},
                                                 {IDM_PALETTE_PEN, L"More Colors"},
                                                 {},
                                                 {IDM_SPACE_TOOL, L"Space"},
                                                 {IDM_ERASER, L"Eraser"},
                                                 {IDM_FULL_ERASE, L"Full Erase"},
                                                 {},
                                                 {IDM_TOOLS, L"Tools"}}};
    return layout;
}

void ShowPenColors(platform::ToolBar& tools, const RecentColors& colors) {
    const platform::Image images = tools.Images();
    if (images.IsValid()) {
        for (int i = 0; i < 4; ++i) FillSwatch(images, kFirstSwatch + i, colors[static_cast<size_t>(i)]);
        tools.SetImages(images);
    }
    // A button repaints its image only when its state changes.
    for (const int button : kPenButtons) {
        tools.SetEnabled(button, false);
        tools.SetEnabled(button, true);
    }
}

void CheckTool(platform::ToolBar& tools, int command) {
    for (const int member : kToolGroup) tools.SetChecked(member, member == command);
}

void MoveToFront(RecentColors& colors, size_t position, ink::ColorRef color) {
    std::move_backward(colors.begin(), colors.begin() + static_cast<std::ptrdiff_t>(position),
                       colors.begin() + static_cast<std::ptrdiff_t>(position) + 1);
    colors[0] = color;
}

}  // namespace editor

#include "platform/resources/ResourceTables.h"

#include <cstdint>
#include <cstring>

#include "platform/Artwork.h"

namespace platform::resources {

namespace {

constexpr size_t kHeaders = 54;
constexpr size_t kDepthAt = 28;
constexpr size_t kSizeAt = 18;

template <typename Entry>
const Entry* FindIn(const std::vector<Entry>& entries, int id) {
    for (const Entry& entry : entries) {
        if (entry.id == id) return &entry;
    }
    return nullptr;
}

}  // namespace

bool DialogItem::Has(const wchar_t* style) const {
    return styles.find(L" " + std::wstring(style) + L" ") != std::wstring::npos;
}

const DialogTemplate* FindDialog(int id) { return FindIn(Dialogs(), id); }

ResourceFile FindIcon(int id) {
    const ResourceFile* icon = FindIn(Icons(), id);
    return icon != nullptr ? *icon : ResourceFile{};
}

Image ImageOfBitmap(int id, ink::Scale scale) {
    const ArtworkSize artwork = ArtworkFor(scale);
    const ResourceFile* file = FindIn(Bitmaps(), id + artwork.idOffset);
    if (file == nullptr || file->size < kHeaders || file->bytes[kDepthAt] != 24) return {};
    int32_t size[2];
    std::memcpy(size, file->bytes + kSizeAt, sizeof size);
    const ink::Point page = artwork.scale.ToView({size[0], size[1]});
    Image image = Image::Make(page.x, page.y, artwork.scale);
    const size_t stride = (static_cast<size_t>(size[0]) * 3 + 3) / 4 * 4;
    if (!image.IsValid() || file->size < kHeaders + stride * static_cast<size_t>(size[1])) return {};
    const ink::PixelSurface surface = image.Surface();
    if (surface.width != size[0] || surface.height != size[1]) return {};
    for (int y = 0; y < size[1]; ++y) {
        const unsigned char* row = file->bytes + kHeaders + stride * static_cast<size_t>(size[1] - 1 - y);
        for (int x = 0; x < size[0]; ++x) {
            uint32_t pixel = 0;
            std::memcpy(&pixel, row + x * 3, 3);
            surface.Row(y)[x] = pixel;
        }
    }
    return image;
}

}  // namespace platform::resources

#include <cstring>
#include <memory>
#include <new>

#include "ink/NoteFile.h"

namespace ink {
namespace {

constexpr uint32_t kFormatVersion = 5;

// Gathers small writes; what is large already goes straight through.
class BufferedSink {
  public:
    static constexpr size_t kSize = 64 * 1024;
    static constexpr size_t kDirect = 16 * 1024;

    explicit BufferedSink(ByteSink& sink) : sink_(sink), buffer_(new (std::nothrow) uint8_t[kSize]) {}

    bool Write(const void* data, size_t size) {
        // Without memory for a buffer the note is still saved, only slower.
        if (buffer_ == nullptr || size >= kDirect) return Flush() && sink_.Write(data, size);
        if (size > kSize - used_ && !Flush()) return false;
        std::memcpy(buffer_.get() + used_, data, size);
        used_ += size;
        return true;
    }

    bool Flush() {
        const bool written = used_ == 0 || sink_.Write(buffer_.get(), used_);
        used_ = 0;
        return written;
    }

  private:
    ByteSink& sink_;
    std::unique_ptr<uint8_t[]> buffer_;
    size_t used_ = 0;
};

// Records that were loaded together lie together in memory: each such run is one write.
bool WriteRecords(BufferedSink& sink, const StrokeBand& band) {
    const uint8_t* run = nullptr;
    size_t length = 0;
    for (size_t i = 0; i < band.Count(); ++i) {
        const StrokeRecord& record = band.At(i);
        const uint8_t* bytes = reinterpret_cast<const uint8_t*>(&record);
        if (run != nullptr && bytes == run + length) {
            length += record.Bytes();
            continue;
        }
        if (length != 0 && !sink.Write(run, length)) return false;
        run = bytes;
        length = record.Bytes();
    }
    return length == 0 || sink.Write(run, length);
}

}  // namespace

bool WriteNote(ByteSink& sink, const InkPage& page) {
    BufferedSink buffered(sink);
    const uint32_t header[4] = {kFormatVersion, page.background, static_cast<uint32_t>(page.SlotCount()),
                                static_cast<uint32_t>(page.bandHeight)};
    if (!buffered.Write(header, sizeof header)) return false;
    for (size_t slot = 0; slot < page.SlotCount(); ++slot) {
        const StrokeBand* band = page.Band(slot);
        const uint32_t count = band != nullptr ? static_cast<uint32_t>(band->Count()) : 0;
        if (!buffered.Write(&count, sizeof count)) return false;
        if (band != nullptr && !WriteRecords(buffered, *band)) return false;
    }
    return buffered.Flush();
}

}  // namespace ink

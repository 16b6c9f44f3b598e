#include "platform/NotificationEntry.h"

#include <cstring>

#include "platform/Utf16.h"

namespace platform {

namespace {

constexpr uint32_t kVersion = 2;
constexpr uint32_t kVersionWithoutScreen = 1;
constexpr uint32_t kFlashLed = 1;
constexpr uint32_t kShowDialog = 2;
constexpr uint32_t kLongestText = 32767;  // characters

class Writer {
  public:
    void Number(uint32_t number) {
        for (int shift = 0; shift < 32; shift += 8) bytes_.push_back(static_cast<uint8_t>(number >> shift));
    }
    void Moment(const DateTime& moment) {
        for (const int part : {moment.year, moment.month, moment.dayOfWeek, moment.day, moment.hour,
                               moment.minute, moment.second, moment.milliseconds}) {
            Number(static_cast<uint32_t>(part));
        }
    }
    void Text(const std::wstring& text) {
        const std::u16string units = ToUtf16(text);
        Number(static_cast<uint32_t>(units.size()));
        for (const char16_t unit : units) {
            bytes_.push_back(static_cast<uint8_t>(unit));
            bytes_.push_back(static_cast<uint8_t>(unit >> 8));
        }
    }
    std::vector<uint8_t> Take() { return std::move(bytes_); }

  private:
    std::vector<uint8_t> bytes_;
};

// Reads as long as there are bytes; afterwards everything is zero and IsWhole tells.
class Reader {
  public:
    explicit Reader(const std::vector<uint8_t>& bytes) : bytes_(bytes) {}

    uint32_t Number() {
        uint32_t number = 0;
        for (int shift = 0; shift < 32; shift += 8) number |= static_cast<uint32_t>(Byte()) << shift;
        return number;
    }
    DateTime Moment() {
        DateTime moment;
        for (int* part : {&moment.year, &moment.month, &moment.dayOfWeek, &moment.day, &moment.hour,
                          &moment.minute, &moment.second, &moment.milliseconds}) {
            *part = static_cast<int>(Number());
        }
        return moment;
    }
    std::wstring Text() {
        const uint32_t length = Number();
        if (length > kLongestText || length > (bytes_.size() - at_) / 2) failed_ = true;
        std::u16string units;
        for (uint32_t i = 0; i < length && !failed_; ++i) {
            const uint8_t low = Byte();
            units += static_cast<char16_t>(low | Byte() << 8);
        }
        return FromUtf16(units);
    }
    bool IsWhole() const { return !failed_ && at_ == bytes_.size(); }

  private:
    uint8_t Byte() {
        failed_ = failed_ || at_ >= bytes_.size();
        return failed_ ? uint8_t{0} : bytes_[at_++];
    }

    const std::vector<uint8_t>& bytes_;
    size_t at_ = 0;
    bool failed_ = false;
};

}  // namespace

std::vector<uint8_t> EncodeEntry(const NotificationEntry& entry) {
    Writer writer;
    writer.Number(kVersion);
    writer.Number((entry.notification.flashLed ? kFlashLed : 0) |
                  (entry.notification.showDialog ? kShowDialog : 0));
    writer.Moment(entry.trigger.start);
    writer.Moment(entry.trigger.end);
    for (const std::wstring* text :
         {&entry.trigger.application, &entry.trigger.arguments, &entry.notification.dialogTitle,
          &entry.notification.dialogText, &entry.device, &entry.screen}) {
        writer.Text(*text);
    }
    return writer.Take();
}

bool DecodeEntry(const std::vector<uint8_t>& bytes, NotificationEntry& entry) {
    Reader reader(bytes);
    const uint32_t version = reader.Number();
    if (version != kVersion && version != kVersionWithoutScreen) return false;
    const uint32_t flags = reader.Number();
    if ((flags & ~(kFlashLed | kShowDialog)) != 0) return false;
    entry.notification.flashLed = (flags & kFlashLed) != 0;
    entry.notification.showDialog = (flags & kShowDialog) != 0;
    entry.trigger.start = reader.Moment();
    entry.trigger.end = reader.Moment();
    for (std::wstring* text :
         {&entry.trigger.application, &entry.trigger.arguments, &entry.notification.dialogTitle,
          &entry.notification.dialogText, &entry.device}) {
        *text = reader.Text();
    }
    entry.screen = version == kVersion ? reader.Text() : std::wstring();
    return reader.IsWhole();
}

}  // namespace platform

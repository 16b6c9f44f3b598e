// Text on its way into a file.
#pragma once

#include <charconv>
#include <cstdint>
#include <string>

#include "ink/ByteStream.h"

namespace pictures {

// Collects text and writes it in large pieces. The sink must outlive it. Throws bad_alloc.
class TextOut {
  public:
    explicit TextOut(ink::ByteSink& sink) : sink_(sink) {}

    TextOut& operator<<(const char* text) { return Added(text_.append(text)); }
    TextOut& operator<<(const std::string& text) { return Added(text_.append(text)); }
    TextOut& operator<<(int64_t number) {
        char digits[24];
        const auto end = std::to_chars(digits, digits + sizeof digits, number).ptr;
        return Added(text_.append(digits, end));
    }

    // Bytes so far, whether or not they could be written.
    uint64_t Bytes() const { return written_ + text_.size(); }
    // Writes what is left. False once a write has failed.
    bool Flush() {
        isGood_ = isGood_ && sink_.Write(text_.data(), text_.size());
        written_ += text_.size();
        text_.clear();
        return isGood_;
    }

  private:
    static constexpr size_t kPiece = 64 * 1024;

    TextOut& Added(const std::string&) {
        if (text_.size() >= kPiece) Flush();
        return *this;
    }

    ink::ByteSink& sink_;
    std::string text_;
    uint64_t written_ = 0;
    bool isGood_ = true;
};

}  // namespace pictures

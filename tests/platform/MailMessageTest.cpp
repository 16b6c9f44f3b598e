#include <gmock/gmock.h>

#include "platform/mail/MailMessage.h"

namespace platform::windows {

namespace {

using testing::HasSubstr;

// The bytes of the text in base64 that stands between the last two empty lines' ends and the last boundary.
std::string Attached(const std::string& message) {
    const std::string digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string bytes;
    uint32_t group = 0;
    int bits = 0;
    const size_t end = message.rfind("--=_");
    for (size_t at = message.rfind("\r\n\r\n", end) + 4; at < end; ++at) {
        const size_t digit = digits.find(message[at]);
        if (digit == std::string::npos) continue;
        group = group << 6 | static_cast<uint32_t>(digit);
        if ((bits += 6) < 8) continue;
        bytes += static_cast<char>(group >> (bits -= 8));
    }
    return bytes;
}

TEST(MailMessage, CarriesAnyPictureUnderAnyName) {
    const struct {
        std::wstring name;
        size_t size;
        const char* subject;
        const char* file;
    } kCases[] = {
        {L"memo (1).bmp", 200, "Subject: memo (1)\r\n", "filename=\"memo (1).bmp\"\r\n"},
        {L"a\"b.bmp", 1, "Subject: =?UTF-8?B?YSJi?=\r\n", "filename*=UTF-8''a%22b.bmp\r\n"},
        {L"\u00DF\u6771\xD83D\xDD8B.BMP", 57,
         "=?UTF-8?B?w5/mnbHwn5aL?=", "filename*=UTF-8''%C3%9F%E6%9D%B1%F0%9F%96%8B.BMP"},
        {L"\xD83D.bmp", 58, "=?UTF-8?B?77+9?=", "%EF%BF%BD.bmp"},  // half a pair
        {std::wstring(70, L'\u6771') + L".bmp", 2, "?=\r\n =?UTF-8?B?", ";\r\n filename*1*=%E6"},
        {L"text", 0, "Subject: text\r\n", "Content-Type: application/octet-stream;\r\n name=\"text\""}};
    for (const auto& each : kCases) {
        std::string bytes;
        for (size_t i = 0; i < each.size; ++i) bytes += static_cast<char>(i * 7);
        std::string message;
        ASSERT_TRUE(BuildMailMessage({each.name, bytes}, {2007, 3, 4, 5, 20, 30, 5, 0}, message));
        EXPECT_EQ(message.rfind(kMailHead, 0), 0u);
        EXPECT_THAT(message, HasSubstr("Date: Mon, 05 Mar 2007 20:30:05 +0000\r\n"));
        EXPECT_THAT(message, HasSubstr(each.subject));
        EXPECT_THAT(message, HasSubstr(each.file));
        EXPECT_EQ(Attached(message), bytes);
        for (size_t at = 0, end = 0; (end = message.find("\r\n", at)) != std::string::npos; at = end + 2)
            EXPECT_LE(end - at, 76u) << message.substr(at, end - at);
    }
}

}  // namespace

}  // namespace platform::windows

#include <gmock/gmock.h>

#include "platform/mail/MailMessage.h"

namespace platform::windows {

namespace {

using testing::HasSubstr;

TEST(MailMessage, CarriesAnyPictureUnderAnyName) {
    const struct {
        std::wstring name;
        size_t size;
        const char* subject;
        const char* file;
        const char* end;
    } kCases[] = {
        {L"memo (1).bmp", 1, "Subject: memo (1)\r\n", "filename=\"memo (1).bmp\"\r\n", "\r\n\r\nAA==\r\n"},
        {L"a\"b.bmp", 2, "Subject: =?UTF-8?B?YSJi?=\r\n", "filename*=UTF-8''a%22b.bmp\r\n",
         "\r\n\r\nAAc=\r\n"},
        {L"\u6771\xD83D\xDD8B.BMP", 3, "=?UTF-8?B?5p2x8J+Wiw==?=", "8''%E6%9D%B1%F0%9F%96%8B.BMP",
         "AAcO\r\n"},
        {L"\xD83D.bmp", 58, "=?UTF-8?B?77+9?=", "%EF%BF%BD.bmp", "eoGI\r\njw==\r\n"},  // half a pair
        {std::wstring(70, L'\u6771') + L".bmp", 0, "?=\r\n =?UTF-8?B?", ";\r\n filename*1*=%E6", ""},
        {L"text", 0, "Subject: text\r\n", "Content-Type: application/octet-stream;\r\n name=\"text\"", ""}};
    for (const auto& each : kCases) {
        std::string bytes;
        for (size_t i = 0; i < each.size; ++i) bytes += static_cast<char>(i * 7);
        std::string message;
        ASSERT_TRUE(BuildMailMessage({each.name, bytes}, {2007, 3, 4, 5, 20, 30, 5, 0}, message));
        EXPECT_EQ(message.rfind(kMailHead, 0), 0u);
        EXPECT_THAT(message, HasSubstr("Date: Mon, 05 Mar 2007 20:30:05 +0000\r\n"));
        EXPECT_THAT(message, HasSubstr(each.subject));
        EXPECT_THAT(message, HasSubstr(each.file));
        EXPECT_THAT(message, HasSubstr(std::string(each.end) + "--=_"));
        for (size_t at = 0, end = 0; (end = message.find("\r\n", at)) != std::string::npos; at = end + 2)
            EXPECT_LE(end - at, 76u) << message.substr(at, end - at);
    }
}

}  // namespace

}  // namespace platform::windows

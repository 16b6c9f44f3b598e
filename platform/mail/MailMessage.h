#pragma once

#include <string>

#include "platform/DateTime.h"

// A new, unsent mail message as text (RFC 5322 and MIME). Nothing here asks the system for anything.
namespace platform::windows {

struct MailAttachment {
    std::wstring name;  // without folder; the part before its extension becomes the subject
    std::string bytes;
};

// What every message made here begins with: the mark that tells a mail program to open it for writing, and
// ours, by which we know our own files again.
constexpr char kMailHead[] = "X-Unsent: 1\r\nX-Mailer: Inkwright\r\n";

// Makes the whole message. `universal` is the moment it is made, in universal time. False when memory is
// short.
bool BuildMailMessage(const MailAttachment& attachment, const DateTime& universal, std::string& message);

}  // namespace platform::windows

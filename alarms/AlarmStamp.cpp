#include "alarms/AlarmStamp.h"

#include <cwchar>

namespace alarms {

namespace {

int NumberAt(const std::wstring& stamp, size_t first, size_t count) {
    return static_cast<int>(std::wcstol(stamp.substr(first, count).c_str(), nullptr, 10));
}

}  // namespace

std::wstring MakeAlarmStamp(const platform::DateTime& moment) {
    wchar_t stamp[64];
    std::swprintf(stamp, std::size(stamp), L"%04d%02d%1d%02d%02d%02d%02d", moment.year, moment.month,
                  moment.dayOfWeek + 1, moment.day, moment.hour, moment.minute, moment.second);
    return stamp;
}

bool ReadAlarmStamp(const std::wstring& stamp, platform::DateTime& moment) {
    if (stamp.size() != kAlarmStampLength) return false;
    moment = {};
    moment.year = NumberAt(stamp, 0, 4);
    moment.month = NumberAt(stamp, 4, 2);
    moment.dayOfWeek = NumberAt(stamp, 6, 1);
    moment.day = NumberAt(stamp, 7, 2);
    moment.hour = NumberAt(stamp, 9, 2);
    moment.minute = NumberAt(stamp, 11, 2);
    moment.second = NumberAt(stamp, 13, 2);
    return true;
}

}  // namespace alarms

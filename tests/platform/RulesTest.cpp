#include <gmock/gmock.h>

#include <fstream>

#include "ink/Geometry.h"
#include "platform/AlarmSchedule.h"
#include "platform/DarkBars.h"
#include "platform/NotificationEntry.h"
#include "platform/ScaleText.h"
#include "platform/WheelTurns.h"
#include "platform/WindowPlaces.h"
#include "platform/keeper/NoticePlace.h"
#include "platform/mail/MailMessage.h"
#include "platform/windows/FingerRules.h"
#include "platform/windows/PathTranslation.h"
#include "platform/windows/PenHistory.h"

namespace platform::windows {

namespace {

using ink::Rect;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(Rules, WhatIsDueIsFiredOnceAndTriedAgainInMinutes) {
    constexpr uint64_t kRetry = AlarmSchedule::kRetryMilliseconds;
    AlarmSchedule schedule;
    std::vector<ScheduledEntry> entries{{1, 90, {1}, false},
                                        {2, 100, {2}, false},
                                        {3, 130, {3}, false},
                                        {4, 120, {4}, false},
                                        {5, 80, {5}, true}};
    const AlarmSchedule::Plan plan = schedule.Make(entries, 100, 1000);
    EXPECT_THAT(plan.fire, ElementsAre(1, 2)) << "another process is at the last one";
    EXPECT_TRUE(plan.next == 3 && plan.lookAgain);
    entries[1].isBeingFired = true;
    EXPECT_THAT(schedule.Make(entries, 100, 1001).fire, IsEmpty());
    entries[1].isBeingFired = false;
    EXPECT_THAT(schedule.Make(entries, 100, 1000 + kRetry - 1).fire, IsEmpty());
    entries[0].bytes = {9};
    EXPECT_THAT(schedule.Make(entries, 100, 1000 + kRetry - 1).fire, ElementsAre(1)) << "it was rewritten";
    EXPECT_THAT(schedule.Make(entries, 100, 1000 + kRetry).fire, ElementsAre(2));
    entries[4].isBeingFired = false;
    EXPECT_THAT(schedule.Make(entries, 100, 1000 + kRetry).fire, ElementsAre(5)) << "that process is gone";
    const AlarmSchedule::Plan idle = schedule.Make({entries[2]}, 100, 1000);
    EXPECT_TRUE(!idle.lookAgain && idle.next == 0 && !schedule.Make({}, 100, 1000).next);
}

TEST(Rules, AnEntryKeepsWhatItWasSetUnder) {
    NotificationEntry entry;
    entry.trigger = {L"C:\\p.exe", L"\"\\a.ikw\" /alarm", {2099, 3, 4, 15, 20, 30, 5, 0}, {}};
    entry.notification = {true, false, L"title", L"text \u20AC\U0001F600"};
    entry.device = L"D:\\Device";
    entry.screen = L"240x320";
    NotificationEntry read;
    const std::vector<uint8_t> whole = EncodeEntry(entry);
    ASSERT_TRUE(DecodeEntry(whole, read));
    EXPECT_EQ(EncodeEntry(read), whole);
    // What earlier releases wrote ends before the screen.
    std::vector<uint8_t> early(whole.begin(), whole.end() - 4 - 2 * 7);
    EXPECT_FALSE(DecodeEntry(early, read));
    early[0] = 1;
    EXPECT_TRUE(DecodeEntry(early, read) && read.screen.empty());
}

TEST(Rules, TheWheelScrollsAsTheSystemSays) {
    const struct {
        uint32_t linesPerNotch;
        std::vector<int> turns;
        ScrollCode code;  // of the last turn
        int count;        // of all together
        int rest;
    } kCases[] = {
        {3, {-240}, ScrollCode::LineDown, -6, 0},
        {1, {50, 50, 50}, ScrollCode::LineUp, 1, 30},
        {1, {100, -110}, ScrollCode::LineDown, 0, -110},  // turned back: what was begun counts no more
        {kWheelTurnsPages, {-120}, ScrollCode::PageDown, -1, 0},
        {100000, {120}, ScrollCode::LineUp, 100, 0}};
    for (const auto& c : kCases) {
        int rest = 0;
        int count = 0;
        ScrollCode code = ScrollCode::Other;
        for (const int turn : c.turns) {
            const auto steps = StepsOfTurn(turn, c.linesPerNotch, rest);
            count += steps.count;
            code = steps.code;
        }
        EXPECT_TRUE(code == c.code && count == c.count && rest == c.rest) << c.linesPerNotch << " " << rest;
    }
}

// On two monitors, the smaller one to the left: what was kept of a window, and where it opens.
TEST(Rules, PicturesForDarkBarsAndAskedScales) {
    uint32_t pixels[] = {0x000000, 0x202060, 0xFFFFFF, 0xC02020, 0x123456, 0x9F9F9F, 0xA0A0A0};
    LightenPictures({pixels, 7, 1, 7}, 0x123456);
    EXPECT_THAT(pixels, ElementsAre(0xE0E0E0, 0xA0A0E0, 0xFFFFFF, 0xC02020, 0x123456, 0xE0E0E0, 0xA0A0A0));
    const std::pair<const wchar_t*, int> scales[] = {{L"1", 96},      {L"1.25", 120}, {L"3", 288},
                                                     {L"0.5", 0},     {L"3.01", 0},   {L"", 0},
                                                     {L"2 times", 0}, {L"nan", 0}};
    for (const auto& [text, dots] : scales) {
        const std::optional<ink::Scale> scale = ScaleOfText(text);
        EXPECT_EQ(scale ? scale->Dots() : 0, dots) << text;
    }
}

TEST(Rules, WindowsOpenWhereTheyWereWithinReach) {
    const std::vector<Rect> kMonitors{{0, 0, 1920, 1040}, {-800, 200, 0, 800}};
    std::wifstream cases(INKWRIGHT_PLACES);
    int tried = 0;
    for (std::wstring kept, wanted; std::getline(cases, kept, L'\t') && std::getline(cases, wanted);) {
        std::optional<WindowPlace> place = ReadWindowPlace(kept);
        if (place) place->frame = OntoMonitors(place->frame, kMonitors, {0, 0, 260, 330});
        ++tried;
        EXPECT_EQ(place ? TextOfPlace(*place) : L"none", wanted) << tried;
    }
    EXPECT_EQ(tried, 16);
}

TEST(Rules, NoticesStackAndThenStandBeside) {
    const Rect work{0, 0, 700, 500};
    std::vector<Rect> shown;
    const auto put = [&](int height) {
        const Point place = PlaceNotice(work, 300, height, shown);
        shown.push_back({place.x, place.y, place.x + 300, place.y + height});
        return place;
    };
    const Point kPlaces[] = {put(200), put(200), put(400), put(40), put(40)};
    EXPECT_THAT(kPlaces, ElementsAre(Point{386, 286}, Point{386, 72}, Point{72, 86}, Point{386, 18},
                                     Point{72, 32}));  // at last the highest free place of the next column
    EXPECT_NE(put(400), put(400)) << "one never hides another whole";
    EXPECT_GE(PlaceNotice(work, 300, 900, {}).y, 0);
}

struct Sample {
    int place;  // in both directions
    uint32_t time;
};

PointerTrail TrailOf(const std::vector<Sample>& newestFirst) {
    PointerTrail trail;
    for (const auto& [place, time] : newestFirst)
        trail.samples[static_cast<size_t>(trail.count++)] = {{place, place}, time};
    return trail;
}

// What a message brings after a press. The window's client area begins at the desktop's (-100, 10).
TEST(Rules, WhatIsNewOfThePenSinceTheMessageBefore) {
    const struct {
        std::vector<Sample> press;
        std::vector<Sample> move;
        std::vector<int> places;
        bool sentDirectly = false;
    } kCases[] = {
        {{{0, 10}}, {{9, 40}, {5, 30}, {2, 20}, {0, 10}, {7, 5}}, {2, 5}},   // merged moves, oldest first
        {{{0, 10}}, {{9, 10}, {5, 10}, {0, 10}, {4, 10}}, {5}},              // within one tick
        {{{0, 10}}, {{9, 40}, {9, 39}, {5, 30}, {0, 11}, {0, 10}}, {5}},     // repeated by the system
        {{{0, 10}}, {{0, 10}, {5, 10}}, {}},                                 // the last position once more
        {{{0, 10}}, {{9, 40}, {5, 30}, {3, 9}}, {5}},                        // the press has left the trail
        {{{0, ~15u}}, {{9, 20}, {5, 5}, {0, ~15u}, {1, 0xFFFFFF00u}}, {5}},  // times wrap
        {{{0, 10}}, {{9, 40}, {5, 30}}, {}, true},                           // sent straight to the window
        {{}, {{9, 40}, {5, 30}}, {}}};
    for (const auto& each : kCases) {
        PenHistory history;
        Point samples[64];
        std::vector<Point> expected;
        for (const int place : each.places) expected.push_back({place + 100, place - 10});
        history.Begin(TrailOf(each.press));
        history.Arrive(TrailOf(each.move), each.sentDirectly);
        const size_t count = history.Samples({-100, 10}, samples, 64);
        EXPECT_EQ(std::vector<Point>(samples, samples + count), expected);
        if (count > 1) {
            EXPECT_EQ(history.Samples({-100, 10}, samples, 1), 1u);
            EXPECT_EQ(samples[0], expected.back()) << "the newest";
        }
        history.Leave();
        EXPECT_EQ(history.Samples({-100, 10}, samples, 64), 0u) << "between messages there are none";
        history.Arrive(TrailOf(each.move), false);
        EXPECT_EQ(each.sentDirectly, history.Samples({-100, 10}, samples, 64) != 0) << "handled already";
    }
    // A message that the history knows by another pixel: what is newer or the same is none of its trail.
    const PointerTrail trail = TrailByTime({{9, 9}, 40}, TrailOf({{12, 50}, {10, 40}, {5, 30}, {10, 10}}));
    EXPECT_EQ(trail.count, 3);
    EXPECT_TRUE(trail.samples[0].place.x == 9 && trail.samples[1].time == 30 && trail.samples[2].time == 10);
}

TEST(Rules, FingersWriteOnlyWhereNothingElseDoes) {
    EXPECT_TRUE(FingersWrite(0x41, false, L"") && FingersWrite(0x45, true, L"write"));
    EXPECT_FALSE(FingersWrite(0x41, true, L"") || FingersWrite(0x45, false, L"") ||
                 FingersWrite(0x49, false, L""));
    EXPECT_TRUE(IsMadeOfTouch(0xFF515780) && !IsMadeOfTouch(0xFF515701) && !IsMadeOfTouch(0x80));
}

TEST(Rules, AMailCarriesAnyPictureUnderAnyName) {
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
        for (const std::string& part :
             {std::string("Date: Mon, 05 Mar 2007 20:30:05 +0000\r\n"), std::string(each.subject),
              std::string(each.file), each.end + std::string("--=_")})
            EXPECT_THAT(message, testing::HasSubstr(part));
        for (size_t at = 0, end = 0; (end = message.find("\r\n", at)) != std::string::npos; at = end + 2)
            EXPECT_LE(end - at, 76u) << message.substr(at, end - at);
    }
}

// A machine with one card drive, or a folder that stands for a device with one card.
HostPlaces Machine(bool isDevice) {
    HostPlaces places;
    places.isDevice = isDevice;
    places.root = isDevice ? L"D:\\Dev" : L"C:\\Data\\Device";
    places.documents = isDevice ? L"" : L"\\\\home\\me";
    places.card = [isDevice](const std::wstring& name) -> std::wstring {
        if (name != L"Storage Card2") return {};
        return isDevice ? L"D:\\Dev\\Storage Card2" : L"E:";
    };
    return places;
}

TEST(Rules, EachPathHasItsPlaceOrNone) {
    // Paths of the handheld, and what each is on a machine and on a device that is a folder.
    std::wifstream cases(INKWRIGHT_PATHS);
    int tried = 0;
    for (std::wstring path, places[2]; std::getline(cases, path, L'\t'); ++tried) {
        ASSERT_TRUE(std::getline(cases, places[0], L'\t') && std::getline(cases, places[1]));
        for (const bool isDevice : {false, true}) {
            PathFault fault = PathFault::None;
            std::wstring host = TranslateToHost(path, Machine(isDevice), fault);
            EXPECT_EQ(host.empty(), fault != PathFault::None);
            if (host.empty()) host = fault == PathFault::NoStorage ? L"no storage" : L"bad name";
            EXPECT_EQ(host, places[isDevice ? 1 : 0]);
        }
    }
    EXPECT_EQ(tried, 10);
    // Folders that can't be reached have no stand-in.
    HostPlaces away = Machine(false);
    away.documents = away.root = L"";
    for (const wchar_t* path : {L"\\My Documents\\a", L"\\a"}) {
        PathFault fault = PathFault::None;
        EXPECT_EQ(TranslateToHost(path, away, fault), L"");
        EXPECT_EQ(fault, PathFault::NoStorage);
    }
    EXPECT_EQ(TranslateToHandheld(L"C:\\a", away), L"\\C:\\a");
}

TEST(Rules, HostPathsComeBackUnderTheirNames) {
    const HostPlaces machine = Machine(false);
    EXPECT_EQ(TranslateToHandheld(L"\\\\HOME\\me\\Ink\\a.ikw", machine), L"\\My Documents\\Ink\\a.ikw");
    EXPECT_EQ(TranslateToHandheld(L"\\\\home\\meadow\\a.ikw", machine), L"\\\\home\\meadow\\a.ikw");
    EXPECT_EQ(TranslateToHandheld(L"c:\\data\\device", machine), L"\\");
    EXPECT_EQ(TranslateToHandheld(L"D:\\Dev\\Ink", Machine(true)), L"\\Ink");
    EXPECT_EQ(WithoutLongPrefix(L"\\\\?\\UNC\\server\\share\\a"), L"\\\\server\\share\\a");
    EXPECT_EQ(WithoutLongPrefix(L"\\\\?\\X:\\a"), L"X:\\a");
    // Nothing is searched in the current folder.
    EXPECT_THAT(AbsoluteFolders(L";.;bin;\\bin;C:bin;C:\\bin\\;\"D:\\My Tools\";\\\\server\\tools;"),
                ElementsAre(L"C:\\bin", L"D:\\My Tools", L"\\\\server\\tools"));
}

}  // namespace

}  // namespace platform::windows

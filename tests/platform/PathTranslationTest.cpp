#include <gmock/gmock.h>

#include "platform/windows/PathTranslation.h"

namespace platform::windows {

namespace {

using testing::ElementsAre;

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

TEST(PathTranslation, EachNameHasItsPlaceOrNone) {
    const std::wstring none = L"no storage", bad = L"bad name";
    const std::wstring root = L"\\\\?\\C:\\Data\\Device", dev = L"\\\\?\\D:\\Dev";
    const struct {
        const wchar_t* handheld;
        std::wstring machine, device;
    } kCases[] = {
        {L"\\", root, dev},
        {L"Notes\\.\\..\\a.", root + L"\\Notes\\a", dev + L"\\Notes\\a"},
        {L"\\my documents\\a", L"\\\\?\\UNC\\home\\me\\a", dev + L"\\my documents\\a"},
        {L"\\Storage Card2", L"\\\\?\\E:\\", dev + L"\\Storage Card2"},
        {L"\\STORAGE CARD12\\Ink", none, none},
        {L"\\x:", L"\\\\?\\x:\\", bad},
        {L"\\\\server\\share", L"\\\\?\\UNC\\server\\share\\", none},
        {L"\\\\server\\share\\a\\b", L"\\\\?\\UNC\\server\\share\\a\\b", none},
        {L"\\\\?\\C:\\a", bad, none},
        {L"\\a?b", bad, bad},
    };
    for (const auto& c : kCases) {
        for (const bool isDevice : {false, true}) {
            PathFault fault = PathFault::None;
            std::wstring host = TranslateToHost(c.handheld, Machine(isDevice), fault);
            EXPECT_EQ(host.empty(), fault != PathFault::None);
            if (host.empty()) host = fault == PathFault::NoStorage ? none : bad;
            EXPECT_EQ(host, isDevice ? c.device : c.machine);
        }
    }
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

TEST(PathTranslation, HostPathsComeBackUnderTheirNames) {
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

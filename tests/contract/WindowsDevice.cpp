// The device of a test is a folder of the host.
#include <thread>

#include "platform/windows/SystemTimes.h"
#include "platform/windows/WindowImpl.h"
#include "tests/contract/Device.h"
#include "tests/contract/WindowsHand.h"

namespace contract {

namespace {

constexpr DWORD kHoldFileMilliseconds = 100;

void DeleteKeys() {
    RegDeleteTreeW(HKEY_CURRENT_USER, kTestKey);
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, kTestKey);
}

void EraseTree(const std::wstring& folder) {
    const std::wstring list = folder + std::wstring(1, L'\0');  // of one name, ended by a second zero
    SHFILEOPSTRUCTW erase{};
    erase.wFunc = FO_DELETE;
    erase.pFrom = list.c_str();
    erase.fFlags = FOF_NO_UI;
    SHFileOperationW(&erase);
}

std::wstring DeviceFolder() {
    wchar_t temporary[MAX_PATH] = L"";
    GetTempPathW(MAX_PATH, temporary);
    return std::wstring(temporary) + L"contract " + std::to_wstring(GetCurrentProcessId());
}

HANDLE OpenAlone(const std::wstring& path, DWORD access) {
    return CreateFileW(path.c_str(), access, 0, nullptr, OPEN_EXISTING, 0, nullptr);
}

}  // namespace

struct Device::Impl {
    WindowsHand hand;
    std::thread holder;  // of a file, for a moment
};

Device::Device() : impl_(std::make_unique<Impl>()) {
    const std::wstring folder = impl_->hand.deviceFolder = DeviceFolder();
    DeleteKeys();
    EraseTree(folder);
    CreateDirectoryW(folder.c_str(), nullptr);
    InsertCard(L"My Documents");
    SetEnvironmentVariableW(L"INKWRIGHT_DEVICE", folder.c_str());
}

Device::~Device() {
    if (impl_->holder.joinable()) impl_->holder.join();
    EraseTree(impl_->hand.deviceFolder);
    DeleteKeys();
}

testing_support::Hand& Device::Hand() { return impl_->hand; }

void Device::InsertCard(const std::wstring& name) {
    CreateDirectoryW((impl_->hand.deviceFolder + L"\\" + name).c_str(), nullptr);
}

void Device::BecomeDevice(const std::wstring& ending) {
    std::wstring folder = impl_->hand.deviceFolder + ending;
    CharUpperBuffW(folder.data(), static_cast<DWORD>(folder.size()));
    SetEnvironmentVariableW(L"INKWRIGHT_DEVICE", folder.c_str());
}

void Device::HoldForAMoment(const std::wstring& path) {
    if (impl_->holder.joinable()) impl_->holder.join();
    const HANDLE file = OpenAlone(impl_->hand.deviceFolder + path, GENERIC_READ);
    impl_->holder = std::thread([file] {
        Sleep(kHoldFileMilliseconds);
        CloseHandle(file);
    });
}

void Device::SetLastWrite(const std::wstring& path, const platform::DateTime& universal) {
    const SYSTEMTIME moment = platform::windows::SystemTimeOf(universal);
    FILETIME written{};
    SystemTimeToFileTime(&moment, &written);
    const HANDLE file = OpenAlone(impl_->hand.deviceFolder + path, FILE_WRITE_ATTRIBUTES);
    SetFileTime(file, nullptr, nullptr, &written);
    CloseHandle(file);
}

int Device::SummerHours() const {
    TIME_ZONE_INFORMATION zone{};
    GetTimeZoneInformation(&zone);
    return zone.DaylightDate.wMonth == 0 ? 0 : (zone.StandardBias - zone.DaylightBias) / 60;
}

int Device::WheelLines() const {
    UINT lines = 0;
    SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
    return static_cast<int>(lines);
}

int Device::FirstDayShown(int item) {
    const HWND calendar = GetDlgItem(impl_->hand.Top()->Handle()->frame, item);
    return LOWORD(SendMessageW(calendar, MCM_GETFIRSTDAYOFWEEK, 0, 0));
}

void Device::SetMachineNumber(const std::wstring& path, const std::wstring& name, uint32_t value) {
    RegSetKeyValueW(HKEY_LOCAL_MACHINE, path.c_str(), name.c_str(), REG_DWORD, &value, sizeof value);
}

}  // namespace contract

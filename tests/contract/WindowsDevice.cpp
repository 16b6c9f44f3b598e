// The device of a test is a folder of the host.
#include <thread>

#include "platform/windows/SystemTimes.h"
#include "tests/contract/Device.h"
#include "tests/contract/WindowsHand.h"

namespace contract {

namespace {

constexpr DWORD kHoldFileMilliseconds = 100;

void EraseTree(const std::wstring& folder) {
    const std::wstring list = folder + std::wstring(1, L'\0');  // of one name, ended by a second zero
    SHFILEOPSTRUCTW erase{};
    erase.wFunc = FO_DELETE;
    erase.pFrom = list.c_str();
    erase.fFlags = FOF_NO_UI;
    SHFileOperationW(&erase);
}

HANDLE OpenAlone(const std::wstring& handheldPath, DWORD access) {
    const std::wstring path = platform::windows::ToHostPath(handheldPath);
    return CreateFileW(path.c_str(), access, 0, nullptr, OPEN_EXISTING, 0, nullptr);
}

}  // namespace

struct Device::Impl {
    std::wstring folder;
    WindowsHand hand;
    std::thread holder;  // of a file, for a moment
};

Device::Device() : impl_(std::make_unique<Impl>()) {
    wchar_t temporary[MAX_PATH] = L"";
    GetTempPathW(MAX_PATH, temporary);
    impl_->folder = temporary + (L"contract " + std::to_wstring(GetCurrentProcessId()));
    SetEnvironmentVariableW(L"INKWRIGHT_DEVICE", impl_->folder.c_str());
    CreateDirectoryW(impl_->folder.c_str(), nullptr);
    InsertCard(L"My Documents");
    RegDeleteTreeW(HKEY_CURRENT_USER, kTestKey);
    SystemParametersInfoW(SPI_SETWHEELSCROLLLINES, 1, nullptr, 0);  // as on the headless port
}

Device::~Device() {
    if (impl_->holder.joinable()) impl_->holder.join();
    EraseTree(impl_->folder);
}

testing_support::Hand& Device::Hand() { return impl_->hand; }

void Device::InsertCard(const std::wstring& name) {
    CreateDirectoryW((impl_->folder + L"\\" + name).c_str(), nullptr);
}

void Device::BecomeDevice(const std::wstring& ending) {
    std::wstring folder = impl_->folder + ending;
    CharUpperBuffW(folder.data(), static_cast<DWORD>(folder.size()));
    SetEnvironmentVariableW(L"INKWRIGHT_DEVICE", folder.c_str());
}

void Device::HoldForAMoment(const std::wstring& path) {
    if (impl_->holder.joinable()) impl_->holder.join();
    impl_->holder = std::thread([file = OpenAlone(path, GENERIC_READ)] {
        Sleep(kHoldFileMilliseconds);
        CloseHandle(file);
    });
}

void Device::SetLastWrite(const std::wstring& path, const platform::DateTime& universal) {
    const SYSTEMTIME moment = platform::windows::SystemTimeOf(universal);
    FILETIME written{};
    SystemTimeToFileTime(&moment, &written);
    const HANDLE file = OpenAlone(path, FILE_WRITE_ATTRIBUTES);
    SetFileTime(file, nullptr, nullptr, &written);
    CloseHandle(file);
}

int Device::SummerHours() const { return 1; }  // the tests run in Berlin's time

}  // namespace contract

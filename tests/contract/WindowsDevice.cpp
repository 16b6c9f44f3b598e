#include <filesystem>
#include <thread>

#include "platform/windows/HandheldPath.h"
#include "platform/windows/SystemTimes.h"
#include "tests/contract/Device.h"
#include "tests/contract/WindowsHand.h"

namespace contract {

namespace {

constexpr DWORD kHoldFileMilliseconds = 100;

HANDLE OpenAlone(const std::wstring& handheldPath, DWORD access) {
    const std::wstring path = platform::windows::ToHostPath(handheldPath);
    return CreateFileW(path.c_str(), access, 0, nullptr, OPEN_EXISTING, 0, nullptr);
}

}  // namespace

struct Device::Impl {
    std::filesystem::path folder;
    WindowsHand hand;
    std::thread holder;  // of a file, for a moment
};

Device::Device() : impl_(std::make_unique<Impl>()) {
    const std::string name = "contract " + std::to_string(GetCurrentProcessId());
    impl_->folder = std::filesystem::temp_directory_path() / name;
    SetEnvironmentVariableW(L"INKWRIGHT_DEVICE", impl_->folder.c_str());
    InsertCard(L"My Documents");
    RegDeleteTreeW(HKEY_CURRENT_USER, kTestKey);
    SystemParametersInfoW(SPI_SETWHEELSCROLLLINES, 1, nullptr, 0);  // as on the headless port
}

Device::~Device() {
    if (impl_->holder.joinable()) impl_->holder.join();
    std::filesystem::remove_all(impl_->folder);
}

testing_support::Hand& Device::Hand() { return impl_->hand; }

void Device::InsertCard(const std::wstring& name) {
    std::filesystem::create_directories(impl_->folder / name);
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

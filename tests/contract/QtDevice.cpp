#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <ctime>
#include <filesystem>
#include <thread>

#include "platform/qt/system/HandheldPath.h"
#include "platform/qt/system/KeeperControl.h"
#include "platform/qt/system/OwnedFd.h"
#include "tests/contract/Device.h"
#include "tests/contract/QtHand.h"

namespace contract {

namespace {

constexpr std::chrono::milliseconds kHoldFile{100};

std::string NewFolder() {
    std::string folder = (std::filesystem::temp_directory_path() / "contract-XXXXXX").string();
    return mkdtemp(folder.data());
}

}  // namespace

struct Device::Impl {
    std::filesystem::path folder = NewFolder();
    std::thread holder;  // of a file, for a moment
    std::shared_ptr<testing_support::Hand> hand = MakeHand ? MakeHand() : nullptr;
};

testing_support::Hand& Device::Hand() { return *impl_->hand; }

Device::Device() : impl_(std::make_unique<Impl>()) {
    const auto set = [this](const char* name, const char* sub) {
        setenv(name, (impl_->folder / sub).c_str(), 1);
    };
    set("HOME", "home");
    set("XDG_CONFIG_HOME", "config");
    set("XDG_DATA_HOME", "data");
    set("XDG_RUNTIME_DIR", "runtime");
    set("INKWRIGHT_DEVICE", "device");
    setenv("LC_ALL", "en_US.UTF-8", 1);
    setenv("TZ", "Europe/Berlin", 1);
    tzset();
    std::filesystem::create_directories(impl_->folder / "runtime");
    InsertCard(L"My Documents");
}

Device::~Device() {
    if (impl_->holder.joinable()) impl_->holder.join();
    platform::qt::StopKeeper();
    std::filesystem::remove_all(impl_->folder);
}

void Device::InsertCard(const std::wstring& name) {
    std::filesystem::create_directories(impl_->folder / "device" / name);
}

void Device::HoldForAMoment(const std::wstring& path) {
    if (impl_->holder.joinable()) impl_->holder.join();
    platform::qt::OwnedFd file(open(platform::qt::ToHostPath(path).c_str(), O_RDONLY | O_CLOEXEC));
    flock(file.Get(), LOCK_EX);
    impl_->holder = std::thread([held = std::move(file)] { std::this_thread::sleep_for(kHoldFile); });
}

void Device::SetLastWrite(const std::wstring& path, const platform::DateTime& universal) {
    tm parts{};
    parts.tm_year = universal.year - 1900;
    parts.tm_mon = universal.month - 1;
    parts.tm_mday = universal.day;
    parts.tm_hour = universal.hour;
    const timespec moment{timegm(&parts), 0};
    const timespec times[] = {moment, moment};
    utimensat(AT_FDCWD, platform::qt::ToHostPath(path).c_str(), times, 0);
}

int Device::SummerHours() const { return 1; }  // the tests run in Berlin's time

}  // namespace contract

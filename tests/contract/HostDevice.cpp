#include "platform/host/HostDevice.h"

#include "tests/contract/Device.h"
#include "tests/support/DeskHand.h"

namespace contract {

struct Device::Impl {
    platform::host::HostDevice device;
    testing_support::DeskHand hand{device};
};

Device::Device() : impl_(std::make_unique<Impl>()) {}
Device::~Device() = default;

testing_support::Hand& Device::Hand() { return impl_->hand; }
void Device::InsertCard(const std::wstring& name) { impl_->device.files.PutFolder(L"\\" + name); }
void Device::BecomeDevice(const std::wstring& ending) {
    impl_->device.folder = ending == L"\\" ? L"" : ending;
}
void Device::HoldForAMoment(const std::wstring&) {}

void Device::SetLastWrite(const std::wstring& path, const platform::DateTime& universal) {
    impl_->device.files.Find(path)->lastWrite = universal;
}

int Device::SummerHours() const { return 0; }
int Device::WheelLines() const { return 1; }
int Device::FirstDayShown(int) { return -1; }

void Device::SetMachineNumber(const std::wstring& path, const std::wstring& name, uint32_t value) {
    const std::string data(reinterpret_cast<const char*>(&value), sizeof value);
    impl_->device.registry[L"HKLM\\" + path][name] = {platform::RegistryType::Number, data};
}

}  // namespace contract

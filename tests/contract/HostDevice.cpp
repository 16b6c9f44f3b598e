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
void Device::HoldForAMoment(const std::wstring&) {}
void Device::SetLastWrite(const std::wstring& path, const platform::DateTime& universal) {
    impl_->device.files.Find(path)->lastWrite = universal;
}
int Device::SummerHours() const { return 0; }

}  // namespace contract

// The host of a device in memory has its files too.
#include "platform/File.h"
#include "platform/FileSystem.h"
#include "platform/OutputFile.h"
#include "platform/SaveChooser.h"
#include "platform/host/HostDevice.h"

namespace platform {

using host::HostDesk;
using host::HostDevice;

namespace {

class HostOutput : public OutputFile {
  public:
    explicit HostOutput(const std::wstring& path) : path_(path), file_(File::Create(Beside())) {}
    HostOutput(const HostOutput&) = delete;
    HostOutput& operator=(const HostOutput&) = delete;
    ~HostOutput() override {
        file_.Close();
        if (!isInPlace_) EraseFile(Beside());
    }

    bool IsOpen() const { return file_.IsOpen(); }
    bool Write(const void* data, size_t size) override {
        isGood_ = isGood_ && file_.Write(data, size);
        return isGood_;
    }
    bool Flush() override {
        isGood_ = isGood_ && file_.Flush();
        return isGood_;
    }
    bool PutInPlace(OutputFault& fault) override {
        file_.Close();
        isInPlace_ = isGood_ && platform::PutInPlace(Beside(), path_);
        if (!isInPlace_) fault.text = "it can't be written";
        return isInPlace_;
    }

  private:
    std::wstring Beside() const { return path_ + L".tmp"; }

    std::wstring path_;
    File file_;
    bool isGood_ = true;
    bool isInPlace_ = false;
};

}  // namespace

// Paths that tests name are plain ones.
std::unique_ptr<OutputFile> OutputFile::Create(const std::string& hostPath, bool replaces,
                                               OutputFault& fault) {
    const std::wstring path(hostPath.begin(), hostPath.end());
    fault.isThere = !replaces && Exists(path);
    if (fault.isThere) return nullptr;
    auto file = std::make_unique<HostOutput>(path);
    if (!file->IsOpen()) return nullptr;
    return file;
}

bool ChooseSavePlace(Window&, const SaveQuestion& question, SavePlace& place) {
    HostDesk& desk = HostDevice::Current().desk;
    desk.saveQuestions.push_back(question);
    place.shown = desk.chosenPlace;
    if (place.shown.empty()) return false;
    TellKind(question, desk.chosenKind, place);
    for (const wchar_t unit : place.shown) place.path += static_cast<char>(unit);
    place.folder = place.shown.substr(0, place.shown.rfind(L'\\'));
    return true;
}

}  // namespace platform

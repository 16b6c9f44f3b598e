#include "platform/qt/system/Copies.h"

#include <dirent.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <sys/un.h>

#include <cstring>
#include <sstream>
#include <system_error>
#include <vector>

#include "platform/Shell.h"
#include "platform/qt/system/Processes.h"
#include "platform/qt/system/UserFolders.h"

namespace platform {

namespace qt {

namespace {

constexpr char kPrefix[] = "copy-";
constexpr time_t kPatienceSeconds = 1;
constexpr int kWaiting = 16;  // who may wait to be answered
constexpr size_t kLongestRequest = 100;
constexpr char kList[] = "list\n";
constexpr int kWindowBits = 32;  // of a reference; the process is above them

bool AddressOf(const std::string& path, sockaddr_un& address) {
    address = {};
    address.sun_family = AF_UNIX;
    if (path.empty() || path.size() >= sizeof address.sun_path) return false;
    std::memcpy(address.sun_path, path.c_str(), path.size());
    return true;
}

OwnedFd NewSocket() {
    OwnedFd made(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    const timeval patience{kPatienceSeconds, 0};
    setsockopt(made.Get(), SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
    setsockopt(made.Get(), SOL_SOCKET, SO_SNDTIMEO, &patience, sizeof patience);
    return made;
}

bool Send(int peer, const std::string& text) {
    return send(peer, text.data(), text.size(), MSG_NOSIGNAL) == static_cast<ssize_t>(text.size());
}

std::string ReceiveLine(int peer) {
    std::string line;
    char c = 0;
    while (line.size() < kLongestRequest && recv(peer, &c, 1, 0) == 1 && c != '\n') line += c;
    return line;
}

std::string ReceiveAll(int peer) {
    std::string text;
    char piece[512];
    for (ssize_t got = 0; (got = recv(peer, piece, sizeof piece, 0)) > 0;)
        text.append(piece, static_cast<size_t>(got));
    return text;
}

// Empty where there is no folder for it.
std::string SocketOf(pid_t process) {
    const std::string folder = RuntimeFolder();
    return folder.empty() ? folder : folder + "/" + kPrefix + std::to_string(process);
}

// Empty when nobody listens there any more; the name of one that is dead goes.
OwnedFd ConnectTo(const std::string& path) {
    OwnedFd peer = NewSocket();
    sockaddr_un address{};
    if (!AddressOf(path, address)) return OwnedFd();
    if (connect(peer.Get(), reinterpret_cast<sockaddr*>(&address), sizeof address) == 0) return peer;
    if (errno == ECONNREFUSED) unlink(path.c_str());
    return OwnedFd();
}

pid_t ProcessAt(int peer) {
    ucred who{};
    socklen_t size = sizeof who;
    const bool isKnown = getsockopt(peer, SOL_SOCKET, SO_PEERCRED, &who, &size) == 0;
    return isKnown && who.uid == getuid() ? who.pid : 0;
}

// Every other process that runs the program and listens.
struct Copy {
    pid_t process = 0;
    OwnedFd peer;
};

std::vector<Copy> CopiesOf(const std::string& programFile) {
    std::vector<Copy> copies;
    const std::string folder = RuntimeFolder();
    std::vector<std::string> names;
    DIR* const open = folder.empty() ? nullptr : opendir(folder.c_str());
    while (const dirent* const entry = open ? readdir(open) : nullptr) names.emplace_back(entry->d_name);
    if (open) closedir(open);
    for (const std::string& name : names) {
        if (name.compare(0, sizeof kPrefix - 1, kPrefix) != 0) continue;
        OwnedFd peer = ConnectTo(PathIn(folder, name));
        const pid_t process = peer ? ProcessAt(peer.Get()) : 0;
        if (process != 0 && process != getpid() && FileOfProcess(process) == programFile)
            copies.push_back({process, std::move(peer)});
    }
    return copies;
}

std::string PostText(const PostedMessage& message) {
    return "post " + std::to_string(static_cast<int>(message.kind)) + " " + std::to_string(message.window) +
           " " + std::to_string(message.code) + "\n";
}

bool ReadPost(const std::string& line, PostedMessage& message) {
    std::istringstream words(line);
    std::string verb;
    int kind = 0;
    words >> verb >> kind >> message.window >> message.code;
    message.kind = static_cast<PostedMessage::Kind>(kind);
    return words && verb == "post" && kind >= 0 && kind <= static_cast<int>(PostedMessage::Kind::Show);
}

void PostTo(const OtherWindow& window, PostedMessage::Kind kind, uint32_t code) {
    const auto process = static_cast<pid_t>(window.reference >> kWindowBits);
    const OwnedFd peer = ConnectTo(SocketOf(process));
    if (peer) Send(peer.Get(), PostText({kind, static_cast<uint32_t>(window.reference), code}));
}

}  // namespace

Copies::Copies(Handler handler)
    : handler_(std::move(handler)),
      path_(SocketOf(getpid())),
      socket_(NewSocket()),
      ending_(eventfd(0, EFD_CLOEXEC)) {
    sockaddr_un address{};
    if (!AddressOf(path_, address)) return;
    unlink(path_.c_str());  // of one that had this number and was killed
    if (bind(socket_.Get(), reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 ||
        listen(socket_.Get(), kWaiting) != 0)
        return;
    try {
        thread_ = std::thread([this] { Serve(); });
    } catch (const std::system_error&) {
        unlink(path_.c_str());  // then others do not find it
    }
}

Copies::~Copies() {
    const uint64_t one = 1;
    if (!thread_.joinable()) return;
    unlink(path_.c_str());
    if (write(ending_.Get(), &one, sizeof one) == sizeof one) thread_.join();
}

void Copies::SetWindow(uint32_t window, bool enabled, bool foreground) {
    const std::lock_guard<std::mutex> guard(lock_);
    windows_[window] = {enabled, foreground};
}

void Copies::RemoveWindow(uint32_t window) {
    const std::lock_guard<std::mutex> guard(lock_);
    windows_.erase(window);
}

void Copies::Serve() {
    pollfd events[] = {{socket_.Get(), POLLIN, 0}, {ending_.Get(), POLLIN, 0}};
    for (;;) {
        if (poll(events, 2, -1) < 0 && errno != EINTR) return;
        if (events[1].revents != 0) return;
        const OwnedFd peer(accept4(socket_.Get(), nullptr, nullptr, SOCK_CLOEXEC));
        const timeval patience{kPatienceSeconds, 0};
        setsockopt(peer.Get(), SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
        if (peer && ProcessAt(peer.Get()) != 0) Answer(peer.Get());
    }
}

void Copies::Answer(int peer) {
    const std::string line = ReceiveLine(peer);
    PostedMessage message;
    if (line + "\n" == kList) {
        Send(peer, List());
    } else if (ReadPost(line, message)) {
        handler_(message);
    }
}

std::string Copies::List() {
    const std::lock_guard<std::mutex> guard(lock_);
    std::ostringstream text;
    for (const auto& [window, state] : windows_)
        text << window << ' ' << state.enabled << ' ' << state.foreground << '\n';
    return text.str();
}

bool ShowCopiesOf(const std::string& programFile) {
    const std::vector<Copy> copies = CopiesOf(programFile);
    for (const Copy& copy : copies) Send(copy.peer.Get(), PostText({PostedMessage::Kind::Show, 0, 0}));
    return !copies.empty();
}

}  // namespace qt

std::vector<OtherWindow> WindowsOfOtherCopies() {
    std::vector<OtherWindow> found;
    for (const qt::Copy& copy : qt::CopiesOf(qt::ProgramFile())) {
        if (!qt::Send(copy.peer.Get(), qt::kList)) continue;
        std::istringstream lines(qt::ReceiveAll(copy.peer.Get()));
        uint32_t window = 0;
        OtherWindow other;
        while (lines >> window >> other.enabled >> other.foreground) {
            other.reference = uintptr_t{static_cast<uint32_t>(copy.process)} << qt::kWindowBits | window;
            found.push_back(other);
        }
    }
    return found;
}

void PostCommandTo(const OtherWindow& window, int id) {
    qt::PostTo(window, qt::PostedMessage::Kind::Command, static_cast<uint32_t>(id) & 0xFFFF);
}

void PostPrivateMessageTo(const OtherWindow& window, uint32_t code) {
    qt::PostTo(window, qt::PostedMessage::Kind::Private, code);
}

}  // namespace platform

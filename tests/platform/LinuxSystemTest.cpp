// What the native Linux port promises beyond the contract: names of this system, several processes, places.
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <csignal>
#include <filesystem>
#include <fstream>

#include "platform/Clock.h"
#include "platform/File.h"
#include "platform/FileSystem.h"
#include "platform/LogFile.h"
#include "platform/Notifications.h"
#include "platform/Shell.h"
#include "platform/qt/system/Cards.h"
#include "platform/qt/system/CommandText.h"
#include "platform/qt/system/Copies.h"
#include "platform/qt/system/HandheldPath.h"
#include "platform/qt/system/KeeperControl.h"
#include "platform/qt/system/Mail.h"
#include "platform/qt/system/NotificationStore.h"
#include "platform/qt/system/Processes.h"
#include "platform/qt/system/UserFolders.h"
#include "tests/contract/OnDevice.h"

namespace platform::qt {

namespace {

namespace fs = std::filesystem;
using testing::UnorderedElementsAre;

class Linux : public contract::DeviceContract {
  protected:
    fs::path Root() const { return DeviceFolder(); }
    void Put(const fs::path& path, const std::string& bytes = "") { std::ofstream(path) << bytes; }
    std::string Read(const fs::path& path) {
        std::string text;
        std::getline(std::ifstream(path), text, '\0');
        return text;
    }
    std::vector<std::wstring> Names(const std::wstring& folder) {
        std::vector<FolderEntry> entries(1);  // which goes
        std::vector<std::wstring> names;
        EXPECT_TRUE(ListFolder(folder, L"*.*", entries));
        for (const FolderEntry& entry : entries) names.push_back(entry.name);
        return names;
    }
};

// Another process, which runs `work` and ends when the test says so, or with the test.
class OtherProcess {
  public:
    template <typename Work>
    explicit OtherProcess(Work work) {
        int ready[2];
        int end[2];
        if (pipe2(ready, O_CLOEXEC) != 0 || pipe2(end, O_CLOEXEC) != 0) std::abort();
        id_ = fork();
        if (id_ == 0) {
            close(end[1]);
            work([&](const std::string& told) { EXPECT_GT(write(ready[1], told.data(), told.size()), 0); });
            char c = 0;
            _exit(static_cast<int>(read(end[0], &c, 1)));
        }
        close(ready[1]);
        close(end[0]);
        told_ = OwnedFd(ready[0]);
        end_ = OwnedFd(end[1]);
    }
    ~OtherProcess() { End(0); }
    void End(int signal) {
        if (id_ == 0) return;
        if (signal != 0) kill(id_, signal);
        end_.Close();
        waitpid(std::exchange(id_, 0), nullptr, 0);
    }
    std::string Hear() {
        char text[100];
        const ssize_t got = read(told_.Get(), text, sizeof text);
        return std::string(text, static_cast<size_t>(std::max<ssize_t>(0, got)));
    }
    pid_t Id() const { return id_; }

  private:
    pid_t id_ = 0;
    OwnedFd told_;
    OwnedFd end_;
};

TEST_F(Linux, NamesAreFoundInWhateverLettersAndExactOnesFirst) {
    fs::create_directories(Root() / "Notes" / "Inner");
    Put(Root() / "Notes" / "Inner" / "\u00C9t\u00E9.ikw", "one");
    EXPECT_EQ(ToHostPath(L"\\NOTES\\inner\\\u00E9T\u00C9.IKW"),
              Root() / "Notes" / "Inner" / "\u00C9t\u00E9.ikw");
    EXPECT_EQ(ToHostPath(L"\\notes\\New\\Name.ikw"), Root() / "Notes" / "New" / "Name.ikw") << "as typed";
    for (const char* twin : {"twin.ikw", "TWIN.ikw", "Twin.ikw"}) Put(Root() / "Notes" / twin, twin);
    for (const wchar_t* twin : {L"twin.ikw", L"TWIN.ikw", L"Twin.ikw"})
        EXPECT_EQ(ToHostPath(L"\\notes\\" + std::wstring(twin)), Root() / "Notes" / twin);
    EXPECT_FALSE(MoveEntry(L"\\Notes\\twin.ikw", L"\\Notes\\TWIN.ikw")) << "that is another file";
}

TEST_F(Linux, AFolderThatOthersChangeIsReadAgain) {
    for (const char* folder : {"still", "busy"}) fs::create_directories(Root() / folder);
    Put(Root() / "still" / "Note.ikw");
    const auto find = [](const wchar_t* name) { return Exists(L"\\still\\" + std::wstring(name)); };
    Pause(2000);  // until the folder counts as settled
    for (int i = 0; i < 3; ++i) EXPECT_TRUE(find(L"NOTE.ikw") && !find(L"OTHER.ikw")) << i;
    fs::rename(Root() / "still" / "Note.ikw", Root() / "still" / "Other.ikw");
    for (int i = 0; i < 3; ++i) EXPECT_TRUE(!find(L"NOTE.ikw") && find(L"OTHER.ikw")) << i;
    fs::rename(Root() / "still", Root() / "gone");
    fs::rename(Root() / "busy", Root() / "still");
    EXPECT_FALSE(find(L"NOTE.ikw") || find(L"OTHER.ikw"));
}

// Other programs of this system name their files as they like.
TEST_F(Linux, NamesThatTheHandheldCannotHoldAreListedAndOpened) {
    const std::vector<std::string> names{"10:30.ikw", "a\\b.ikw", "\xFFz.ikw", "dot.", "con.ikw"};
    for (const std::string& name : names) Put(Root() / name, name);
    std::vector<std::string> read;
    for (const std::wstring& name : Names(L"\\")) {
        File file = File::OpenForReading(L"\\" + name);
        char bytes[20];
        size_t got = 0;
        if (file.IsOpen() && file.Read(bytes, sizeof bytes, got)) read.emplace_back(bytes, got);
    }
    EXPECT_THAT(read, testing::UnorderedElementsAreArray(names));
    EXPECT_THAT(Names(L"\\"), testing::IsSupersetOf({L"\xF0FFz.ikw",
                                                     L"a\xF05C"
                                                     L"b.ikw",
                                                     L"dot\xF02E"}));
    EXPECT_TRUE(MoveEntry(L"\\CON.ikw", L"\\fine.ikw") && EraseFile(L"\\10\xF03A"
                                                                    L"30.ikw"));
    for (const wchar_t* name :
         {L"\\con.ikw", L"\\Lpt9", L"\\nul.tar.gz", L"\\half\xD800.ikw", L"\\half\xDFFF.ikw"}) {
        EXPECT_FALSE(File::Create(name).IsOpen() || MakeFolder(name) || LogFile::Create(name).IsOpen());
        EXPECT_FALSE(MoveEntry(L"\\fine.ikw", name) || CopyFileTo(L"\\fine.ikw", name)) << name;
    }
    EXPECT_TRUE(MakeFolder(L"\\com10") && MakeFolder(L"\\\U0001F600"));
}

TEST_F(Linux, AFileIsItsHoldersInEveryProcessUntilThatEnds) {
    Put(Root() / "a.ikw", "a");
    OtherProcess other([](const auto& tell) {
        static File held = File::OpenForReading(L"\\a.ikw", File::Share::Read);
        static LogFile log = LogFile::Create(L"\\a.log");
        tell(held.IsOpen() && log.IsOpen() ? "open" : "failed");
    });
    ASSERT_EQ(other.Hear(), "open");
    uint64_t size = 0;
    EXPECT_TRUE(File::OpenForReading(L"\\a.ikw", File::Share::Read).IsOpen());
    EXPECT_FALSE(File::OpenForReading(L"\\a.ikw").IsOpen() || EraseFile(L"\\a.ikw") ||
                 CanWriteTo(L"\\a.ikw", size));
    EXPECT_FALSE(MoveEntry(L"\\a.ikw", L"\\b.ikw") || File::OpenForReading(L"\\a.log").IsOpen());
    other.End(SIGKILL);
    EXPECT_TRUE(File::OpenForReading(L"\\a.log").IsOpen());
    EXPECT_TRUE(EraseFile(L"\\a.log") && CanWriteTo(L"\\a.ikw", size));
}

TEST_F(Linux, AWriteThatFailsTellsWhyAndTheNextOneCounts) {
    rlimit limit{};
    ASSERT_TRUE(getrlimit(RLIMIT_FSIZE, &limit) == 0 && std::signal(SIGXFSZ, SIG_IGN) != SIG_ERR);
    const rlimit small{4, limit.rlim_max};
    File file = File::Create(L"\\a.ikw");
    setrlimit(RLIMIT_FSIZE, &small);
    EXPECT_FALSE(file.Write("abcde", 5));
    EXPECT_EQ(file.Error(), FileError::Other);
    setrlimit(RLIMIT_FSIZE, &limit);
    EXPECT_TRUE(file.Write("e", 1) && file.Error() == FileError::None && Read(Root() / "a.ikw") == "abcde");
}

TEST_F(Linux, PermissionsAreKeptAndReadOnlyFilesStay) {
    const auto modeOf = [this](const char* name) {
        struct stat found {};
        stat((Root() / name).c_str(), &found);
        return found.st_mode & 0777;
    };
    for (const char* name : {"note.ikw", "new.ik~", "locked.ikw"}) Put(Root() / name, name);
    chmod((Root() / "note.ikw").c_str(), 0642);
    chmod((Root() / "locked.ikw").c_str(), 0444);
    EXPECT_TRUE(CopyFileTo(L"\\locked.ikw", L"\\copy.ikw") && modeOf("copy.ikw") == 0444);
    EXPECT_FALSE(PutInPlace(L"\\new.ik~", L"\\locked.ikw") || EraseFile(L"\\locked.ikw") ||
                 CopyFileTo(L"\\note.ikw", L"\\locked.ikw"));
    EXPECT_EQ(File::Create(L"\\LOCKED.ikw").Error(), FileError::AccessDenied);
    EXPECT_TRUE(PutInPlace(L"\\new.ik~", L"\\note.ikw") && modeOf("note.ikw") == 0642);
    EXPECT_THAT(Names(L"\\"), UnorderedElementsAre(L"My Documents", L"note.ikw", L"locked.ikw", L"copy.ikw"));
}

TEST_F(Linux, BetweenFileSystemsFilesAreCopiedAndFoldersStay) {
    std::string other = "/dev/shm/inkwright-XXXXXX";
    ASSERT_NE(mkdtemp(other.data()), nullptr);
    fs::create_symlink(other, Root() / "Storage Card");
    Put(Root() / "a.ikw", "bytes");
    device_.SetLastWrite(L"\\a.ikw", {2007, 7, 0, 15, 12, 0, 0, 0});
    ASSERT_TRUE(MakeFolder(L"\\F"));
    EXPECT_TRUE(MoveEntry(L"\\a.ikw", L"\\storage card\\b.ikw") && !Exists(L"\\a.ikw"));
    DateTime moment;
    EXPECT_TRUE(LastWriteTime(L"\\Storage Card\\b.ikw", moment) && moment.year == 2007 && moment.hour == 14);
    Put(Root() / "c.ikw", "more");
    EXPECT_FALSE(MoveEntry(L"\\c.ikw", L"\\Storage Card\\B.ikw") || MoveEntry(L"\\F", L"\\Storage Card\\F"));
    EXPECT_EQ(Read(other + "/b.ikw") + Read(Root() / "c.ikw"), "bytesmore");
    EXPECT_THAT(Names(L"\\Storage Card"), testing::ElementsAre(L"b.ikw")) << "nothing half done is left";
    // A note that its owner keeps elsewhere and has linked stays there.
    fs::create_symlink(other + "/b.ikw", Root() / "link.ikw");
    {
        File file = File::Create(L"\\link.ik~");
        EXPECT_TRUE(file.Write("new", 3) && file.FlushBytes() && !file.MoveInPlace(L"\\link.ikw"));
    }
    EXPECT_TRUE(PutInPlace(L"\\link.ik~", L"\\link.ikw") && !Exists(L"\\link.ik~"));
    EXPECT_EQ(Read(other + "/b.ikw"), "new");
    EXPECT_TRUE(CopyFileTo(L"\\c.ikw", L"\\link.ikw") && fs::is_symlink(Root() / "link.ikw"));
    EXPECT_EQ(Read(other + "/b.ikw"), "more");
    fs::remove_all(other);
    EXPECT_TRUE(CopyFileTo(L"\\c.ikw", L"\\link.ikw")) << "it leads nowhere now";
    EXPECT_EQ(Read(Root() / "link.ikw"), "more");
}

TEST_F(Linux, PlacesOfTheUserHaveNamesBothWays) {
    unsetenv("INKWRIGHT_DEVICE");
    const std::string home = Environment("HOME");
    fs::create_directories(home + "/Papers");
    fs::create_directories(ConfigHome());
    std::ofstream(ConfigHome() + "/user-dirs.dirs") << "XDG_DOCUMENTS_DIR=\"$HOME/Papers\"\n";
    fs::create_symlink(home + "/Papers", home + "/link");
    const struct {
        std::string host;
        std::wstring handheld;
    } kCases[] = {{home + "/Papers/Ink/a b.ikw", L"\\My Documents\\Ink\\a b.ikw"},
                  {home + "/Papers/", L"\\My Documents\\"},
                  {home + "/link/./x/../a.ikw", L"\\My Documents\\a.ikw"},
                  {DataFolder() + "/device/Notes", L"\\Notes"},
                  {"/usr/share", L"\\File System\\usr\\share"},
                  {"/", L"\\File System"}};
    for (const auto& each : kCases) EXPECT_EQ(ToHandheldPath(each.host), each.handheld) << each.host;
    EXPECT_EQ(ToHostPath(L"\\my documents\\a.ikw"), home + "/Papers/a.ikw");
    EXPECT_EQ(ToHostPath(L"\\file system\\USR\\share"), "/usr/share");
    EXPECT_EQ(ToHostPath(L"\\Other\\..\\a.ikw"), DataFolder() + "/device/Other/a.ikw");
    for (const wchar_t* nowhere : {L"\\X:\\a.ikw", L"\\Storage Card\\a.ikw", L"\\\\server\\share\\a.ikw"})
        EXPECT_TRUE(ToHostPath(nowhere).empty() && !IsGone(nowhere)) << nowhere;
    EXPECT_TRUE(IsGone(L"\\File System\\usr\\none.ikw") && !IsGone(L"\\File System\\none\\none.ikw"));
    EXPECT_FALSE(MoveEntry(L"\\My Documents", L"\\my documents")) << "the name is not this folder's own";
    EXPECT_THAT(Names(L"\\"), testing::Contains(L"My Documents"));
}

TEST_F(Linux, ACardKeepsItsNameWhileOthersComeAndGo) {
    const std::string info =
        "36 35 8:17 / /media/me/B\\040x rw,noatime - vfat /dev/sdb1 rw\n"
        "37 35 8:18 / /run/media/me/A rw - vfat /dev/sdc1 rw\n"
        "38 35 8:19 / /media/me/A/inner rw - ext4 /dev/sdd1 rw\n39 35 8:2 / /media/you/C rw - vfat /dev/sde "
        "rw\n";
    EXPECT_THAT(RemovableMounts(info, "me"), testing::ElementsAre("/media/me/B x", "/run/media/me/A"));
    CardTable cards;
    cards.Update({"/media/me/one"});
    cards.Update({"/media/me/another"});
    EXPECT_EQ(cards.Folder(0) + cards.Folder(1), "/media/me/another");
    cards.Update({"/media/me/another", "/media/me/one"});
    EXPECT_EQ(cards.Folder(0), "/media/me/one");
}

TEST_F(Linux, ArgumentsBecomeTheProgramsTextAndBack) {
    Put(Root() / "a b.ikw");
    const std::string file = (Root() / "a b.ikw").string();
    const struct {
        std::vector<std::string> arguments;
        std::wstring text;
    } kCases[] = {{{file}, L"\"\\a b.ikw\""},
                  {{"file://" + (Root() / "a%20b.ikw").string()}, L"\"\\a b.ikw\""},
                  {{"\\Ink\\a b.ikw", "/alarm"}, L"\"\\Ink\\a b.ikw\" /alarm"},
                  {{"/newnotes", "Work"}, L"/newnotes Work"},
                  {{}, L""}};
    for (const auto& each : kCases) {
        EXPECT_EQ(CommandTextOf(each.arguments), each.text);
        EXPECT_EQ(CommandTextOf(SplitCommandText(each.text)), each.text);
    }
    EXPECT_THAT(SplitCommandText(L" a  \"b c\"d \"\" "), testing::ElementsAre("a", "b cd", ""));
}

TEST_F(Linux, MailGoesToTheDesktopsTool) {
    const std::string before = Environment("PATH");
    const fs::path tool = Root() / "xdg-email";
    setenv("PATH", (":relative:" + Root().string()).c_str(), 1);
    EXPECT_FALSE(OpenMailMessage("/a.bmp")) << "there is none";
    for (const int code : {0, 3}) {
        Put(tool,
            "#!/bin/sh\nexec >" + (Root() / "said").string() + "\necho \"$@\"\nexit " + std::to_string(code));
        fs::permissions(tool, fs::perms::owner_all);
        EXPECT_EQ(OpenMailMessage("/$HOME/a 'b'.bmp"), code == 0);
        EXPECT_EQ(Read(Root() / "said"), "--attach /$HOME/a 'b'.bmp\n");
    }
    setenv("PATH", before.c_str(), 1);
}

TEST_F(Linux, CopiesSeeAndReachEachOther) {
    const std::string dead = RuntimeFolder() + "/copy-99999999";
    OtherProcess other([](const auto& tell) {
        static Copies copies([tell](const PostedMessage& message) {
            tell(std::to_string(static_cast<int>(message.kind)) + " " + std::to_string(message.window) + " " +
                 std::to_string(message.code));
        });
        copies.SetWindow(7, true, true);
        copies.SetWindow(9, true, false);
        copies.SetWindow(8, false, false);
        copies.RemoveWindow(9);
        tell("ready");
    });
    ASSERT_EQ(other.Hear(), "ready");
    const Copies own([](const PostedMessage&) {});
    const std::vector<OtherWindow> windows = WindowsOfOtherCopies();
    ASSERT_EQ(windows.size(), 2u);
    EXPECT_TRUE(windows[0].enabled && windows[0].foreground && !windows[1].enabled && !windows[1].foreground);
    PostCommandTo(windows[0], 1);
    EXPECT_EQ(other.Hear(), "0 7 1");
    PostPrivateMessageTo(windows[1], 0x80000005);
    EXPECT_EQ(other.Hear(), "1 8 2147483653");
    EXPECT_TRUE(ShowCopiesOf(ProgramFile()) && !ShowCopiesOf("/bin/sh"));
    EXPECT_EQ(other.Hear(), "2 0 0");
    const std::string socket = RuntimeFolder() + "/copy-" + std::to_string(other.Id());
    other.End(SIGKILL);
    ASSERT_TRUE(fs::exists(socket));
    EXPECT_TRUE(WindowsOfOtherCopies().empty() && !fs::exists(socket)) << "what is left of the dead goes";
}

// Of the keeper's own, by another run of it, with what the entry was set under and nothing else.
TEST_F(Linux, AnAlarmStartsItsProgramAndLeavesTheDatabase) {
    const std::string pipe = (Root() / "pipe").string();
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const OwnedFd listener(open(pipe.c_str(), O_RDWR | O_CLOEXEC));
    const auto hear = [&] {
        char text[300];
        const ssize_t got = read(listener.Get(), text, sizeof text);
        return std::string(text, static_cast<size_t>(std::max<ssize_t>(0, got)));
    };
    const std::string script =
        "-c \"echo $1 $INKWRIGHT_SCREEN $INKWRIGHT_DEVICE $TZ $(sed -n s/SigBlk:.//p /proc/self/status) >" +
        pipe + "\" sh ";
    setenv("INKWRIGHT_SCREEN", "240x320", 1);
    const auto set = [&](const wchar_t* word, int seconds) {
        NotificationTrigger trigger{L"/bin/sh",
                                    std::wstring(script.begin(), script.end()) + word,
                                    AddSeconds(LocalNow(), seconds),
                                    {}};
        return SetNotification(0, trigger, {});
    };
    const FiringClaim claim(77);
    EXPECT_TRUE(FiringClaim::IsTaken(77) && !FiringClaim(77).IsHeld());
    EXPECT_FALSE(FiringClaim::IsTaken(76) || FiringClaim::IsTaken(78)) << "each by itself";
    const NotificationHandle later = set(L"later", 3600);
    EXPECT_NE(set(L"overdue", -3600), 0u);
    const std::string surroundings =
        " 240x320 " + DeviceFolder() + " Europe/Berlin 0000000000000000\n";  // no signal blocked
    EXPECT_EQ(hear(), "overdue" + surroundings);
    EXPECT_NE(set(L"soon", 1), 0u);
    EXPECT_EQ(hear(), "soon" + surroundings);
    unsetenv("INKWRIGHT_SCREEN");
    // An entry goes after its program was started: a third one sees both gone.
    std::vector<NotificationHandle> left;
    const uint32_t start = TickMilliseconds();
    while (ListNotifications(left) && left.size() > 1 && TickMilliseconds() - start < 5000) Pause(5);
    EXPECT_THAT(left, testing::ElementsAre(later));
    const std::string autostart = ConfigHome() + "/autostart/inkalarms.desktop";
    EXPECT_NE(Read(autostart).find("inkalarms\" --session"), std::string::npos);
    // A session that begins keeps the keeper for what is still to come, and none for nothing.
    const std::string keeper = PathBesideProgram("inkalarms");
    EXPECT_EQ(std::system((keeper + " --stop").c_str()), 0);
    EXPECT_NE(Read(autostart).find("Hidden=true"), std::string::npos);
    EXPECT_TRUE(ClearNotification(later));
    EXPECT_EQ(std::system((keeper + " --session").c_str()), 0) << "nothing is set: it ends";
}

}  // namespace

}  // namespace platform::qt

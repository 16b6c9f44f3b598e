// A device and the person at it, from one start of the program to its end and on to the next.
#pragma once

#include <random>
#include <set>

#include "tests/support/DeskTest.h"

namespace testing_support {

const std::wstring kStore = L"\\My Documents\\Inkwright\\";

// What goes wrong from, or at, the n-th call of a day.
enum class Trouble {
    Kill,       // what was written stays
    PowerCut,   // what was flushed stays; whoever writes has waited a second
    Scattered,  // and of the rest any parts in any order
    OneCall,    // that call fails
    AllCalls,   // all calls from that one on fail, until the person goes home
    NoRoom      // not a call: so many more bytes, and the storage is full until the person goes home
};

class Life : public Steps {
  public:
    explicit Life(Trouble trouble = Trouble::Kill);
    // The same device at the next start.
    explicit Life(Life& before);

    // Runs the program; whoever is still in front of a window after the script closes it.
    void Live(const std::wstring& commandLine, const Script& script);
    void MeetTrouble(int nth);

    // Stroke number k; from its lift on it is to stay. Further strokes lie elsewhere.
    Step Stroke(int k);
    // Over stroke number k, which is erased, with the tool.
    Step Wipe(int k);
    Step Shortcut(wchar_t letter);
    Step Wait();
    // Of a day's script: "write 3", "move Work\a Home", see tests/app/days.
    Script Lines(const std::string& day);

    // What is on the device now: each stroke of the store's notes, and its memos. Every file is what it is by
    // its name, memos have notes, and so have alarms.
    void TakeStock(std::multiset<int>& strokes, std::set<std::string>& memos);

    platform::host::HostDevice device;
    DeskHand hand;
    bool hasEnded = false;
    int calls = 0;
    std::set<int> kept;           // strokes
    std::set<std::string> memos;  // texts

  private:
    Script LineOf(const std::string& verb, const std::vector<std::wstring>& words);
    Step InEditor(const Step& step);
    Step Changes(const Step& step, const std::set<int>& added, const std::set<int>& removed);
    Step TakesBack(const Step& step, bool backwards);
    void Give(const std::set<int>& strokes);
    void FullErase();
    void Delete(const std::wstring& path);
    void EditMemo(const std::wstring& text);
    Step At(const std::wstring& path, const Step& step);
    Step Hold(const std::wstring& path, const Texts& entries);
    platform::TreeItem Reach(const std::wstring& path);
    Step Home();
    void GoHome();

    const Trouble trouble_;
    std::set<int> added_, removed_;  // by the last step of the page
    std::string erasedMemo_;
    int day_ = 0;
    int tries_ = 0;
};

// A note that holds stroke number k.
std::string NoteWith(int k);

}  // namespace testing_support

#pragma once

#include <atomic>
#include <functional>
#include <string>

#include "platform/Dialog.h"
#include "platform/Worker.h"
#include "search/TreeWalk.h"

namespace search {

// Where to search: the manager's tree and what only the manager knows about it.
struct SearchGround {
    std::wstring rootPrefix;  // of the store, ends in "\"
    platform::TreeView& tree;
    platform::TreeItem firstItem;
    // As TreeWalk::Servant::RelativePath; called in the thread that has the tree.
    std::function<bool(platform::TreeItem, std::wstring&)> relativePath;
};

// The find dialog. It shows what it finds by selecting it in the tree. The walk runs in a worker, which reads
// the tree only by asking it and has everything else done here by private messages.
class FindDialog : public platform::Dialog, private TreeWalk::Servant {
  public:
    explicit FindDialog(SearchGround ground);

    bool OnCreate() override;
    void OnDestroy() override;
    void OnCommand(int id) override;
    // Even while it searches: closing waits for the worker.
    void OnTakeOver() override { OnCommand(platform::kIdOk); }
    void OnPrivateMessage(uint32_t code, intptr_t payload) override;

  private:
    void ShowOptions(uint32_t options);
    uint8_t ReadOptions();
    void EnableControls(bool enabled);
    void FindFirst();
    void FindNext();
    void Start(platform::TreeItem item);
    void ShowNotice(const wchar_t* text);
    void WalkIsDone();
    void AnswerPath();

    // In the worker.
    void Walk();
    void Tell(WalkCode code, platform::TreeItem item) override;
    bool RelativePath(platform::TreeItem item, std::wstring& path) override;

    SearchGround ground_;
    TreeWalk::Request request_;           // the worker's while it runs
    std::atomic<bool> cancelled_{true};   // asks the worker to stop
    std::atomic<bool> walkEnded_{false};  // the worker has posted its last message
    // The note whose path the worker waits for, and the answer. Whoever does not wait changes them.
    platform::TreeItem pathItem_ = 0;
    std::wstring path_;
    platform::Worker worker_;
};

}  // namespace search

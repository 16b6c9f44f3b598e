#pragma once

#include <string>

#include "platform/Dialog.h"

namespace editor {

// Asks for the name of a new note.
class SaveAsDialog : public platform::Dialog {
  public:
    explicit SaveAsDialog(const std::wstring& proposedName);

    // The typed name without blanks at its ends, after RunModal returned kIdOk. May be empty.
    const std::wstring& Name() const { return name_; }

    bool OnCreate() override;
    void OnCommand(int id) override;
    // The note gets the name that stands there: without one it would not be saved.
    void OnTakeOver() override { OnCommand(platform::kIdOk); }

  private:
    void ProposeName();

    std::wstring proposedName_;
    std::wstring name_;
};

}  // namespace editor

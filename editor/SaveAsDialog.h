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

  private:
    void ProposeName();

    std::wstring proposedName_;
    std::wstring name_;
};

}  // namespace editor

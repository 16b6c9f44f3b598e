#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/DateTime.h"
#include "platform/Window.h"

namespace platform {

// What can be done to the text of an edit that MakeTextEdit made.
enum class EditAction { Undo, Cut, Copy, Paste, Delete, SelectAll };

// A modal dialog made from a dialog template of the program's resources. Closing it, and Esc, is
// OnCommand(kIdCancel); a pressed button is OnCommand(its id); by default both Ok and Cancel end the dialog.
class Dialog : public Window {
  public:
    explicit Dialog(int templateId);
    ~Dialog() override;

    // Creates the dialog, runs it until EndModal and destroys it. `owner` (may be null) can't be used
    // meanwhile. Returns EndModal's result, -1 when the window could not be made, which the user was told.
    int RunModal(Window* owner);

    // Controls by id; an id that the template lacks does nothing and reads as empty.
    std::wstring ItemText(int id) const;
    void SetItemText(int id, const std::wstring& text);
    void EnableItem(int id, bool enabled);
    // What a control is, for screen readers: where neither its own text nor a label before it says so.
    void NameItem(int id, const std::wstring& name);
    void NameDialog(const std::wstring& name);  // the same for one without a caption
    void FocusItem(int id);
    void SelectItemText(int id);  // all of an edit's text
    // Free page pixels left and right of an edit's text.
    void SetItemMargins(int id, int pixels);

    // Characters that the user can type into an edit.
    void LimitItemText(int id, int characters);

    // Edits of many lines, made at run time. `place` is in client pixels. One with this id already is
    // replaced: its text is carried over, what it could undo is not. The caret stands at the start, any
    // length of text is taken, Enter begins a line. False: nothing has changed.
    bool MakeTextEdit(int id, const Rect& place, bool wordWrap);
    // Whether the action would do anything now.
    bool CanEdit(int id, EditAction action) const;
    void Edit(int id, EditAction action);

    // Check boxes. One that the user checks or clears is OnCommand(its id).
    bool IsItemChecked(int id) const;
    void CheckItem(int id, bool checked);

    // Drop-down lists. Choice is -1 when nothing is chosen; choosing an index that the list lacks does that.
    void SetChoices(int id, const std::vector<std::wstring>& texts);
    int Choice(int id) const;
    void Choose(int id, int index);

    // Spin buttons beside the edit that shows their number. A position outside the range becomes the nearer
    // end. Spin gives the position in its low 16 bits, and high bits other than 0 while the edit's text is
    // no number of the range.
    void SetSpinRange(int id, int16_t minimum, int16_t maximum);
    void SetSpin(int id, int16_t position);
    uint32_t Spin(int id) const;

    // Date and time pickers; each exchanges only its own half of the moment. A month calendar is a date
    // picker too; a double tap on one of its days is OnCommand(kIdOk).
    DateTime PickedDate(int id) const;
    DateTime PickedTime(int id) const;
    void SetPicked(int id, const DateTime& moment);
    // Of a month calendar; 0 = Monday to 6 = Sunday, other numbers are ignored.
    void SetFirstDayOfWeek(int id, int day);

    // Rectangles in pixels of the handheld's screen.
    Rect WindowRect() const;
    Rect OwnerRect() const;  // of the window that the dialog was opened over
    Rect ItemRect(int id) const;
    void Place(const Rect& windowRect);
    void PlaceItem(int id, const Rect& client);  // in client pixels

    void OnCommand(int id) override;
    void OnTakeOver() override;  // as Cancel
    // The pen is held still on an edit that MakeTextEdit made, or its menu is asked for with the right button
    // or by key, at `place` (handheld screen pixels).
    virtual void OnEditHold(int /*id*/, Point /*place*/) {}

    // For the ports.
    int TemplateId() const { return templateId_; }

  private:
    int templateId_;
};

}  // namespace platform

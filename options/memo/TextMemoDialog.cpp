#include "options/memo/TextMemoDialog.h"

#include "app/store/Settings.h"
#include "ink/Color.h"
#include "platform/Canvas.h"
#include "platform/MessageBox.h"
#include "platform/PopupMenu.h"
#include "platform/Screen.h"
#include "platform/Shell.h"
#include "res/resource.h"

namespace options {

namespace {

using platform::EditAction;
using platform::Rect;
using platform::SystemColor;

constexpr int kWidth = 210;
constexpr int kHeight = 170;
constexpr int kTop = 2 * platform::kBarHeight;
constexpr Rect kEditPlace{6, 26, 204, 141};
// The dialog has this size whatever the system's font is.
struct ItemPlace {
    int id = 0;
    Rect place;
};
constexpr ItemPlace kItemPlaces[] = {{IDC_WORD_WRAP, {6, 147, 98, 163}},
                                     {IDC_MEMO_SAVE, {100, 145, 150, 165}},
                                     {IDC_MEMO_CANCEL, {154, 145, 204, 165}}};

// The strip at the top, in client pixels: the drag area left of the delete square.
constexpr int kStripHeight = 20;
constexpr int kDragRight = 189;
constexpr int kSquareLeft = 190;
constexpr int kSquareRight = 210;

constexpr platform::Font kStripFont{85, true};
constexpr float kStripShade = -0.12f;
constexpr ink::ColorRef kDeleteColor = ink::MakeColor(176, 24, 24);
constexpr ink::ColorRef kBinRibColor = ink::MakeColor(240, 208, 208);

// What is typed is noted down at least so often.
constexpr int kNoteTimer = 1;
constexpr uint32_t kNoteMilliseconds = 1000;

struct MenuEntry {
    const wchar_t* text;
    int command;  // 0 = separator
    EditAction action;
};
constexpr MenuEntry kSeparator{nullptr, 0, EditAction::Undo};
constexpr MenuEntry kMenu[] = {{L"Undo", 100, EditAction::Undo},
                               kSeparator,
                               {L"Cut", 110, EditAction::Cut},
                               {L"Copy", 120, EditAction::Copy},
                               {L"Paste", 130, EditAction::Paste},
                               {L"Delete", 140, EditAction::Delete},
                               kSeparator,
                               {L"Select All", 150, EditAction::SelectAll}};

// A waste bin in the middle of the delete square: a cross there would look like the mark that closes windows.
void DrawDeleteMark(platform::Canvas& canvas) {
    constexpr int kLeft = (kSquareLeft + kSquareRight - 11) / 2;
    constexpr int kBinTop = 4;
    constexpr Rect kParts[] = {{4, 0, 7, 1}, {0, 1, 11, 3}, {1, 4, 10, 12}};  // handle, lid, body
    for (const Rect& part : kParts) canvas.Fill(Offset(part, kLeft, kBinTop), kDeleteColor);
    for (const int x : {3, 5, 7})
        canvas.Fill({kLeft + x, kBinTop + 5, kLeft + x + 1, kBinTop + 11}, kBinRibColor);
}

}  // namespace

TextMemoDialog::TextMemoDialog(Mode mode, const std::wstring& memo, store::NoteJournal& journal)
    : Dialog(IDD_TEXT_MEMO),
      mode_(mode),
      memo_(memo),
      file_(mode == Mode::File ? memo : L""),
      journal_(journal) {}

bool TextMemoDialog::Edit(platform::Window& owner) {
    caption_ = owner.Title();
    journal_.MemoOpened(mode_ == Mode::File ? memo_ : L"");
    return RunModal(&owner) == platform::kIdOk;
}

bool TextMemoDialog::OnCreate() {
    SetTitle(caption_);
    const int left = (platform::HandheldScreen(*this).width - kWidth) / 2;
    Place({left, kTop, left + kWidth, kTop + kHeight});
    for (const ItemPlace& item : kItemPlaces) PlaceItem(item.id, item.place);
    DrawPicture();
    const bool wordWrap = store::Settings::Number(store::SettingId::TextMemoWordWrap) != 0;
    CheckItem(IDC_WORD_WRAP, wordWrap);
    if (!MakeEdit(wordWrap)) {
        platform::ShowOutOfMemory(this);
        EndModal(platform::kIdCancel);
        return false;
    }
    Fill();
    read_ = noted_ = ItemText(IDC_MEMO_TEXT);
    StartTimer(kNoteTimer, kNoteMilliseconds);
    FocusItem(IDC_MEMO_TEXT);
    platform::ShowInputPanel(true);
    return true;
}

bool TextMemoDialog::MakeEdit(bool wordWrap) {
    const bool isMade = MakeTextEdit(IDC_MEMO_TEXT, kEditPlace, wordWrap);
    NameItem(IDC_MEMO_TEXT, L"Text Memo");
    return isMade;
}

// A control that can't take all of the text shows none of it: saving a part would lose the rest.
void TextMemoDialog::Fill() {
    const std::wstring text = mode_ == Mode::File ? file_.Read(this) : memo_;
    SetItemText(IDC_MEMO_TEXT, text);
    if (ItemText(IDC_MEMO_TEXT).size() == text.size()) return;
    SetItemText(IDC_MEMO_TEXT, L"");
    platform::ShowOutOfMemory(this);
    EndModal(platform::kIdCancel);
}

void TextMemoDialog::OnTimer(int) {
    std::wstring text = ItemText(IDC_MEMO_TEXT);
    if (text == noted_) return;
    journal_.MemoTyped(text);
    noted_.swap(text);
}

void TextMemoDialog::OnDestroy() { platform::ShowInputPanel(false); }

// It may have come to a monitor of another scale.
void TextMemoDialog::OnPaint() {
    if (picture_.PageScale() != PageScale()) DrawPicture();
    ShowAt(picture_, {0, 0});
}

void TextMemoDialog::DrawPicture() {
    picture_ = platform::Image::Make(kWidth, kHeight, PageScale());
    if (!picture_.IsValid()) return;
    platform::Canvas canvas(picture_);
    const ink::ColorRef frame = ColorOf(SystemColor::WindowFrame);
    const ink::ColorRef face = ColorOf(SystemColor::ButtonFace);
    canvas.Fill({0, 0, kWidth, kHeight}, frame);
    canvas.Fill({1, 1, kWidth - 1, kHeight - 1}, face);
    canvas.Fill({1, 1, kWidth - 1, kStripHeight}, ink::Shade(face, kStripShade));
    canvas.Fill({1, kStripHeight, kWidth - 1, kStripHeight + 1}, frame);
    canvas.Fill({kDragRight, 1, kDragRight + 1, kStripHeight}, frame);
    const Rect text = platform::Canvas::TextSize(L"Text Memo", kStripFont, PageScale());
    canvas.Text(L"Text Memo", {kEditPlace.left, (kStripHeight - text.bottom) / 2}, kStripFont,
                ColorOf(SystemColor::ButtonText), {1, 1, kDragRight, kStripHeight});
    DrawDeleteMark(canvas);
}

void TextMemoDialog::OnCommand(int id) {
    if (id == IDC_WORD_WRAP) ToggleWordWrap();
    if (id == IDC_MEMO_SAVE || id == platform::kIdOk) Save();
    if (id == IDC_MEMO_CANCEL || id == platform::kIdCancel) EndModal(platform::kIdCancel);
}

void TextMemoDialog::ToggleWordWrap() {
    const platform::WaitCursor wait;
    const bool wordWrap = IsItemChecked(IDC_WORD_WRAP);
    if (!MakeEdit(wordWrap)) {
        CheckItem(IDC_WORD_WRAP, !wordWrap);
        platform::ShowOutOfMemory(this);
        return;
    }
    store::Settings().Write(store::SettingId::TextMemoWordWrap, wordWrap ? 1 : 0);
    FocusItem(IDC_MEMO_TEXT);
}

void TextMemoDialog::Save() {
    const std::wstring text = ItemText(IDC_MEMO_TEXT);
    if (mode_ == Mode::Text) {
        memo_ = text;
        return EndModal(platform::kIdOk);
    }
    bool unseen = false;
    if (!file_.MayReplace(this, text, unseen)) return;
    if (unseen && !MayLoseContents(L"Confirm Text Memo Save")) return;
    journal_.MemoTyped(text);
    if (text.empty() ? file_.Erase(this) : file_.Write(this, text)) EndModal(platform::kIdOk);
}

// An emptied text may have been meant to be filled again.
void TextMemoDialog::OnSessionEnd() {
    const std::wstring text = ItemText(IDC_MEMO_TEXT);
    if (mode_ == Mode::Text) memo_ = text;
    if (mode_ == Mode::File && !text.empty() && text != read_ && !file_.WriteQuietly(text)) {
        journal_.MemoTyped(text);
        journal_.Leave();
    }
    EndModal(platform::kIdOk);
}

bool TextMemoDialog::MayLoseContents(const wchar_t* caption) {
    return platform::ShowMessage(this, L"Contents will permanently be lost! Continue?", caption,
                                 platform::MessageButtons::YesNo, platform::MessageIcon::Question,
                                 platform::DefaultButton::Second) == platform::MessageAnswer::Yes;
}

void TextMemoDialog::DeleteMemo() {
    if (!MayLoseContents(L"Confirm Text Memo Delete")) return;
    if (mode_ == Mode::File && !file_.Erase(this)) return;
    SetItemText(IDC_MEMO_TEXT, L"");
}

// The clipboard menu.
void TextMemoDialog::OnEditHold(int id, platform::Point place) {
    platform::PopupMenu menu;
    for (const MenuEntry& entry : kMenu) {
        if (entry.command == 0) {
            menu.AddSeparator();
        } else {
            menu.Add(entry.command, entry.text, CanEdit(id, entry.action));
        }
    }
    const int chosen = menu.Choose(*this, place);
    for (const MenuEntry& entry : kMenu) {
        if (chosen != 0 && entry.command == chosen) Dialog::Edit(id, entry.action);
    }
}

// Dragging. The pen stays on the point of the strip that it took, so the strip can't leave the screen.

platform::Point TextMemoDialog::ToScreen(platform::Point client) const {
    const Rect window = WindowRect();
    return {window.left + client.x, window.top + client.y};
}

void TextMemoDialog::OnPenDown(platform::Point place) {
    dragging_ = place.x <= kDragRight && place.y <= kStripHeight;
    if (!dragging_) return;
    lastPlace_ = ToScreen(place);
    CapturePen();
}

void TextMemoDialog::OnPenMove(platform::Point place) {
    if (!dragging_) return;
    const platform::Point now = ToScreen(place);
    Place(Offset(WindowRect(), now.x - lastPlace_.x, now.y - lastPlace_.y));
    lastPlace_ = now;
}

void TextMemoDialog::OnPenUp(platform::Point place) {
    const bool wasDragging = dragging_;
    ReleasePen();  // ends the dragging
    const bool isInSquare =
        place.x > kSquareLeft && place.x < kSquareRight && place.y > 0 && place.y < kStripHeight;
    if (!wasDragging && isInSquare) DeleteMemo();
}

}  // namespace options

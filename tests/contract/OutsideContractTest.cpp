// Files for others, outside the handheld's own file system.
#include "platform/File.h"
#include "platform/FileSystem.h"
#include "platform/OutputFile.h"
#include "platform/SaveChooser.h"
#include "tests/contract/Recording.h"

using namespace contract;
using namespace platform;

namespace {

constexpr wchar_t kPlan[] = L"\\My Documents\\Plan 5.3.pdf";

class OutsideContract : public Contract {
  protected:
    SavePlace Choose(const std::wstring& wanted, bool isThere = false) {
        SavePlace place;
        hand_.ChoosePlace(wanted);
        if (isThere) hand_.Answer(MessageAnswer::Yes);  // it may be replaced
        RunCommand([&] {
            const SaveQuestion question{
                L"Save", L"Plan 5.3", L"", {{L"Document", L".pdf"}, {L"Picture", L".png"}}};
            EXPECT_EQ(ChooseSavePlace(screen_, question, place), !wanted.empty());
        });
        return place;
    }
    bool Save(const SavePlace& place, const std::string& text, bool isPut = true) {
        OutputFault fault;
        const std::unique_ptr<OutputFile> file = OutputFile::Create(place.path, place.replaces, fault);
        isThere_ = fault.isThere;
        if (!file || !file->Write(text.data(), text.size()) || !file->Flush()) return false;
        return !isPut || file->PutInPlace(fault);
    }
    std::string Saved() {
        char text[20];
        size_t got = 0;
        File file = File::OpenForReading(kPlan);
        return file.Read(text, sizeof text, got) ? std::string(text, got) : std::string();
    }

    bool isThere_ = false;
};

TEST_F(OutsideContract, APlaceIsChosenAndTakesAWholeFile) {
    Choose(L"");
    SavePlace place = Choose(kPlan);
    EXPECT_EQ(FromHostPath(place.shown), kPlan);
    EXPECT_EQ(FromHostPath(place.folder).substr(0, 13), L"\\My Documents");
    EXPECT_EQ(place.kind, 0u);
    EXPECT_TRUE(Save(place, "half", false));
    EXPECT_FALSE(Exists(kPlan));
    EXPECT_TRUE(Save(place, "first"));
    place = Choose(kPlan, true);
    EXPECT_TRUE(place.replaces && Save(place, "half", false));
    EXPECT_EQ(Saved(), "first");
    EXPECT_TRUE(Save(place, "second"));
    place.replaces = false;
    EXPECT_FALSE(Save(place, "third"));
    EXPECT_TRUE(isThere_);
    EXPECT_EQ(Saved(), "second");
    std::vector<FolderEntry> entries;
    EXPECT_TRUE(ListFolder(L"\\My Documents", L"*.*", entries));
    EXPECT_EQ(entries.size(), 1u) << "nothing is left beside it";
}

TEST(SaveKinds, TheEndingTellsTheKind) {
    const SaveQuestion question{L"", L"", L"", {{L"", L".png"}, {L"", L".svg"}}};
    const struct {
        std::wstring typed;
        size_t chosen;
        std::wstring shown;
        size_t kind;
        bool replaces;
    } kCases[] = {{L"a.png", 1, L"a.png", 0, true},
                  {L"a.SVG", 0, L"a.SVG", 1, true},
                  {L"a", 1, L"a.svg", 1, false},
                  {L"a.png.txt", 9, L"a.png.txt.png", 0, false},
                  {L"apng", 0, L"apng.png", 0, false}};
    for (const auto& row : kCases) {
        SavePlace place;
        place.shown = row.typed;
        TellKind(question, row.chosen, place);
        EXPECT_EQ(place.shown, row.shown);
        EXPECT_EQ(place.kind, row.kind) << row.shown;
        EXPECT_EQ(place.replaces, row.replaces);
    }
}

}  // namespace

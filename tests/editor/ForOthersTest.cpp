// Copies of a page and its printed sheets.
#include "editor/NoteWatch.h"
#include "platform/FileSystem.h"
#include "tests/editor/EditorRig.h"

namespace {

using namespace testing_support;
using platform::host::PrintedPaper;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

constexpr wchar_t kOut[] = L"\\Out";
constexpr wchar_t kPlan[] = L"\\Out\\Plan.png";

class ForOthers : public EditorTest {
  protected:
    ForOthers() { device.files.PutFolder(kOut); }

    Step SaveCopy(const std::wstring& place, size_t kind = 0) {
        return [=] {
            Desk().chosenPlace = place;
            Desk().chosenKind = kind;
            Desk().PressShortcut(L's');
        };
    }
    Step Print(const platform::host::PrinterChoice& choice) {
        return [=] {
            Desk().chosenPrinter = choice;
            Desk().PressShortcut(L'P');
        };
    }
    Step ExpectFile(const std::wstring& path, const std::string& beginning) {
        return [=] {
            EXPECT_THAT(device.files.Get(path), StartsWith(beginning));
            EXPECT_EQ(device.files.NamesIn(kOut), Texts{path.substr(5)}) << "and nothing else";
            device.files.Put(path, "old");
        };
    }
    Step ExpectFailure(const std::wstring& text) { return ExpectBox(text, L" Error"); }
    // The rows of the strokes on each sheet.
    std::vector<std::vector<int>> PrintedRows() {
        std::vector<std::vector<int>> rows;
        for (const auto& sheet : Desk().printed.back().sheets) {
            rows.emplace_back();
            for (const auto& line : sheet.lines) rows.back().push_back(line.points.front().y);
        }
        return rows;
    }
};

TEST_F(ForOthers, ACopyIsOfTheKindThatItsNameTells) {
    const struct {
        std::wstring typed;
        size_t chosen;
        std::wstring path;
        std::string beginning;
    } kCases[] = {{kPlan, 2, kPlan, "\x89PNG"},
                  {L"\\Out\\Plan.SVG", 0, L"\\Out\\Plan.SVG", "<?xml"},
                  {L"\\Out\\Plan", 2, L"\\Out\\Plan.pdf", "%PDF-1.4"},
                  {L"\\Out\\Plan 5.3.", 3, L"\\Out\\Plan 5.3..ikw", Words({5, 0xFFFFFF})}};
    for (const auto& row : kCases) {
        const std::string note = device.files.Get(kNote);
        Edited({Write({{30, 100}}), SaveCopy(row.typed, row.chosen), ExpectFile(row.path, row.beginning),
                ExpectTitle(L"a - Inkwright"), Shortcut(L'Z'),
                [&] { EXPECT_EQ(device.files.Get(kNote), note) << "not even saved"; }});
        platform::EraseFile(row.path);
    }
    EXPECT_EQ(Desk().saveQuestions[0].name, L"a");
    EXPECT_EQ(Desk().saveQuestions[0].folder, L"");
    EXPECT_EQ(Desk().saveQuestions[1].folder, kOut) << "where the last one went";
    Run(kNewNotes, {Write({{30, 100}}), SaveCopy(L""), TakeOver(), Ok()});
    EXPECT_EQ(Desk().saveQuestions.back().name, L"New Notes 2007-03-05");
}

// What is on the screen, with the pen that wrote it.
TEST_F(ForOthers, ACopyShowsThePageAsItIs) {
    UsePenOf(ink::PenStyle::Smooth, 25);
    PutNote({60, 900});
    Desk().scale = ink::Scale(192);
    Edited({Write({{30, 100}, {40, 130}}), SaveCopy(L"\\Out\\a.svg"), SaveCopy(L"\\Out\\a.ikw"),
            SaveCopy(kPlan)});
    const std::string drawing = device.files.Get(L"\\Out\\a.svg");
    for (const char* part : {"M100 60l0 0", "M30 100l10 30", "stroke-width=\"2.5\"", "viewBox=\"0 0 240 "})
        EXPECT_THAT(drawing, HasSubstr(part));
    EXPECT_THAT(RowsAt(L"\\Out\\a.ikw"), testing::UnorderedElementsAre(60, 900, 100));
    EXPECT_EQ(device.files.Get(kPlan).substr(16, 4), std::string("\0\0\1\xE0", 4))
        << "480 screen pixels wide";
    device.usesLetterPaper = true;
    Edited({SaveCopy(L"\\Out\\a.pdf")});
    for (const char* part : {"/MediaBox[0 0 612 792]", "/Count 1/"})
        EXPECT_THAT(device.files.Get(L"\\Out\\a.pdf"), HasSubstr(part));
}

TEST_F(ForOthers, WhatCannotBeCopiedLeavesWhatWasThere) {
    const std::wstring failed = L"Saving '" + std::wstring(kPlan) + L"' failed!";
    PutNote({60});
    device.files.Put(kPlan, "old");
    for (const FileCall call : {FileCall::Create, FileCall::Write, FileCall::Flush, FileCall::Replace})
        Edited({ExpectFailure(failed), Fail({call}, 1, kOut), SaveCopy(kPlan), Fail({}),
                ExpectFile(kPlan, "old")});
    // Nobody was asked whether what has this name may go.
    Edited({ExpectFailure(failed + L"\n\nThere is such a file already."), SaveCopy(L"\\Out\\Plan"),
            ExpectFile(kPlan, "old")});
    Edited({ExpectFailure(L"'\\Ink\\A.ikw' is this note itself, which is saved when it is closed."),
            Write({{30, 100}}), SaveCopy(L"\\Ink\\A.ikw"),
            [&] { EXPECT_EQ(RowsAt(kNote), std::vector{60}); }});
    device.files.Put(kNote, Words({5, 0xFFFFFF, 1, kViewHeight, 1, 1, 0, 0, 0, 60, 60, 3000000, 60}));
    Edited({ExpectFailure(failed +
                          L"\n\nThe note can't be shown: its ink reaches over 3000015 columns and 75 rows; "
                          L"a picture has at most 1000000."),
            SaveCopy(kPlan), ExpectFile(kPlan, "old"), SaveCopy(L"")});
}

TEST_F(ForOthers, WithoutInkThereIsNothingToCopyOrPrint) {
    const std::wstring copy = L"Save a Copy As\u2026\tCtrl+Shift+S";
    const std::wstring print = L"Print\u2026\tCtrl+P";
    Edited({ExpectFrameMenu({L"(" + copy + L")", L"(" + print + L")"}),
            ExpectFailure(L"There is no ink to save a copy of!"), SaveCopy(kPlan),
            ExpectFailure(L"There is no ink to print!"), Print({}), Write({{30, 100}}),
            ExpectFrameMenu({L"(Redo\tCtrl+Y)", copy, print})});
    EXPECT_TRUE(Desk().saveQuestions.empty());
    EXPECT_TRUE(Desk().printed.empty());
}

// A page pixel is three quarters of a point, unless the ink is too wide for that.
TEST_F(ForOthers, SheetsAreAsTheDocuments) {
    PutNote({60, 1100, 2100});
    UsePenOf(ink::PenStyle::Smooth, 25);
    Edited(
        {Write({{30, 120}}), Print({{595, 842, 0}}), Print({{595, 400, 60}, 2, 3}), Print({{120, 842, 0}})});
    const std::vector<PrintedPaper>& printed = Desk().printed;
    ASSERT_EQ(printed.size(), 3u);
    for (const PrintedPaper& paper : printed) EXPECT_TRUE(paper.isFinished && paper.name == L"a");
    const auto& first = printed[0].sheets[0];
    EXPECT_EQ(printed[0].sheets.size(), 3u);
    EXPECT_EQ(first.view.unit, 0.75);
    EXPECT_EQ(first.view.left, 42.52);
    EXPECT_EQ(first.fills.size(), 3u) << "the head";
    EXPECT_EQ(printed[0].sheets[1].fills.size(), 0u);
    EXPECT_EQ(first.lines.back().width, 2.5);
    EXPECT_EQ(first.paper, 0xFFFFFFu);
    EXPECT_EQ(printed[1].sheets[0].view.left, 60);
    EXPECT_EQ(printed[1].sheets.size(), 2u);
    EXPECT_NEAR(printed[2].sheets[0].view.unit, (120 - 2 * 42.52) / 240, 1e-9);
}

TEST_F(ForOthers, LongPrintsCanBeStopped) {
    PutNote({60, 1100, 2200, 3300, 4400});
    Edited({Print({}), ExpectTitle(L" Printing"), ExpectItem(IDC_PROGRESS, L"Sheet 1 of 5"), Wait(10),
            ExpectItem(IDC_PROGRESS, L"Sheet 2 of 5"), Press(platform::kIdCancel),
            // The file changes meanwhile: the sheets are those of the page that was there.
            Wait(editor::NoteWatch::kPeriod - 35), Print({}), [this] { PutNote({70}); }, Wait(30),
            ExpectItem(IDC_PROGRESS, L"Sheet 4 of 5"), Wait(20), Wait(editor::NoteWatch::kPeriod)});
    EXPECT_FALSE(Desk().printed[0].isFinished);
    EXPECT_TRUE(Desk().printed[1].isFinished);
    EXPECT_THAT(PrintedRows(), ElementsAre(ElementsAre(60), ElementsAre(1100), ElementsAre(2200),
                                           ElementsAre(3300), ElementsAre(4400)));
}

TEST_F(ForOthers, WhatCannotBePrintedIsTold) {
    PutNote({60, 1100});
    Edited({ExpectFailure(L"Printing 'a' failed!"), Print({{595, 842, 0}, 1, 9, 1}),
            ExpectFailure(L"The note has no such page. It takes 2 of this paper."),
            Print({{595, 842, 0}, 3, 9}), [this] { Desk().chosenPrinter.reset(); }, Shortcut(L'P')});
    EXPECT_EQ(Desk().printed.size(), 1u);
    EXPECT_FALSE(Desk().printed[0].isFinished);
}

}  // namespace

// Times the note manager on the real tree view and the real file system, beside the bare calls it cannot do
// without. Run under Windows or Wine; prints a table of ratios.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>

#include "app/store/FileStreams.h"
#include "app/store/PenSettings.h"
#include "bench/Scene.h"
#include "ink/InkPainter.h"
#include "ink/NoteFile.h"
#include "manager/FolderTree.h"
#include "manager/NoteHead.h"
#include "manager/PreviewStrip.h"
#include "platform/FileSystem.h"
#include "platform/Screen.h"

namespace {

constexpr wchar_t kRoot[] = L"\\Bench\\Inkwright\\";
constexpr int kRounds = 7;
constexpr int kShortRounds = 100;  // of what takes a millisecond

double BestMilliseconds(const std::function<void()>& work, int rounds = kRounds) {
    double best = 1e9;
    for (int i = 0; i < rounds; ++i) {
        const auto start = std::chrono::steady_clock::now();
        work();
        const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
        best = std::min(best, taken.count());
    }
    return best;
}

void PutNote(const std::wstring& path, const ink::InkPage& page) {
    platform::File file = platform::File::Create(path);
    store::FileSink sink(file);
    ink::WriteNote(sink, page);
}

// 200 folders; "Few" holds 500 notes and "Many" 5,000.
void MakeStore() {
    ink::InkPage empty;
    platform::MakeFolder(L"\\Bench");
    platform::MakeFolder(L"\\Bench\\Inkwright");
    for (int i = 0; i < 198; ++i) platform::MakeFolder(kRoot + (L"Folder " + std::to_wstring(i)));
    for (const auto& [name, count] : {std::pair{L"Few", 500}, std::pair{L"Many", 5000}}) {
        platform::MakeFolder(std::wstring(kRoot) + name);
        for (int i = 0; i < count; ++i) {
            PutNote(std::wstring(kRoot) + name + L"\\Note " + std::to_wstring(i * 7919 % 100000) + L".ikw",
                    empty);
        }
    }
}

void PaintHead(ink::ByteSource& source, const platform::Image& raster, const store::PenSettings& pen) {
    manager::NoteHead head(source);
    if (head.ReadHeader()) head.Paint(raster, pen);
}

// `wanted` 0: a figure to know, without a target.
void Print(const char* what, double ours, double theirs, double wanted) {
    const double ratio = ours / theirs;
    const char* met = wanted == 0 ? " - " : ratio <= wanted ? "yes" : "NO ";
    std::printf("| %-60s | %6.2f | <= %5.2f | %s | %.2f ms against %.2f ms |\n", what, ratio, wanted, met,
                ours, theirs);
}

class BenchScreen : public platform::Screen, private platform::TreeView::Events {
  public:
    BenchScreen() : Screen(ScrollBar::None), folders_(tree_) {}

    bool OnCreate() override {
        const platform::TreeView::Images images{163, 16, ink::MakeColor(0, 255, 0), 12};
        if (tree_.Create(*this, 1010, {0, 0, ClientWidth(), ClientHeight()}, images, *this)) Measure();
        EndModal(0);
        return false;
    }

  private:
    void OnTreeItemDeleted(platform::TreeItem, intptr_t data) override { folders_.ItemDeleted(data); }

    void Measure() {
        const double few = Compare(L"Few", "opening a folder of 500 notes, beside list and insert");
        const double many = Compare(L"Many", "opening a folder of 5,000 notes, beside list and insert");
        Print("opening ten times the notes", many, few, 11.0);
        MeasurePreview();
    }

    // Gives our time.
    double Compare(const std::wstring& name, const char* what) {
        folders_.SetRootPrefix(kRoot);
        folders_.Rebuild(L"");
        folders_.Fill(folders_.NotesTop(), L"");
        platform::TreeItem item = tree_.FirstChild(folders_.NotesTop());
        while (item != 0 && folders_.FolderName(item) != name) item = tree_.NextSibling(item);
        const double ours = BestMilliseconds([&] { folders_.Fill(item, L""); });
        tree_.CollapseAndDrop(item);
        const double bare = BestMilliseconds([&] { InsertBareItems(kRoot + name); });
        Print(what, ours, bare, 2.0);
        return ours;
    }

    void InsertBareItems(const std::wstring& folder) {
        tree_.Freeze(true);
        const platform::TreeItem parent = tree_.Insert(0, platform::TreeView::Where::Last, L"Bare", 1, 1);
        std::vector<platform::FolderEntry> entries;
        platform::ListFolder(folder, L"*.*", entries);
        for (const platform::FolderEntry& entry : entries) {
            tree_.Insert(parent, platform::TreeView::Where::Last, entry.name, 3, 1);
        }
        tree_.Expand(parent);
        tree_.Remove(parent);
        tree_.Freeze(false);
    }

    void MeasurePreview() {
        ink::InkPage page;
        bench::FillPage(page, bench::MakeStrokes(20000));
        const std::wstring path = std::wstring(kRoot) + L"Large.ikw";
        PutNote(path, page);
        const store::PenSettings pen = store::LoadPenSettings();
        const platform::ImageList images =
            platform::ImageList::FromResource(163, 16, ink::MakeColor(0, 255, 0));
        manager::PreviewStrip strip(pen, images);
        const double wholeStrip =
            BestMilliseconds([&] { strip.Update(path, ClientWidth(), PageScale(), false); }, kShortRounds);
        const platform::Image raster = platform::Image::Make(ClientWidth(), manager::PreviewStrip::kHeight);
        const double read = BestMilliseconds(
            [&] {
                platform::File file = platform::File::OpenForReading(path);
                store::FileSource source(file);
                PaintHead(source, raster, pen);
            },
            kShortRounds);
        const double bare = BestMilliseconds(
            [&] {
                ink::InkPainter painter;
                painter.SetPen(pen.penStyle, pen.penSize * 0.1);
                page.VisitStrokes(0, 44, [&](const ink::StrokeRecord& record) {
                    ink::PixelSurface surface = raster.Surface();
                    painter.PaintStroke(surface, record, 0, surface.Bounds());
                });
            },
            kShortRounds);
        const double whole = BestMilliseconds(
            [&] {
                platform::File file = platform::File::OpenForReading(path);
                std::vector<char> piece(1 << 16);
                for (size_t got = piece.size(); got == piece.size();)
                    file.Read(piece.data(), piece.size(), got);
            },
            kShortRounds);
        Print("ink of a preview of 20,000 strokes, beside reading and painting", read, whole + bare, 1.2);
        Print("the whole preview, beside the same", wholeStrip, whole + bare, 0);
    }

    platform::TreeView tree_;
    manager::FolderTree folders_;
};

}  // namespace

int main() {
    MakeStore();
    BenchScreen().RunModal(nullptr);
    return 0;
}

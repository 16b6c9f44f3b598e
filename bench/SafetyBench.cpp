// Times what being safe costs: the journal while the pen writes, and saving in one step beside writing and
// flushing the same bytes by bare calls. Runs on real files; prints tables.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "app/store/FileStreams.h"
#include "app/store/NoteJournal.h"
#include "app/store/SafeFile.h"
#include "bench/Scene.h"
#include "editor/InkPen.h"
#include "ink/NoteFile.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "platform/ProgramEntry.h"
#include "platform/Screen.h"

namespace {

constexpr int kPages = 40;  // written full, each by both sides
constexpr int kSaves = 41;
constexpr int kGo = 1;
constexpr wchar_t kNote[] = L"\\Bench\\safe.ikw";
constexpr wchar_t kBare[] = L"\\Bench\\bare.ikw";
constexpr uint32_t kFlushed = 1000;  // milliseconds: by then the journal is on the disk

using Samples = std::vector<double>;  // microseconds

template <typename Work>
double Microseconds(Work&& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start).count();
}

double Part(Samples samples, double share) {
    const auto place = static_cast<std::ptrdiff_t>(share * static_cast<double>(samples.size() - 1));
    std::nth_element(samples.begin(), samples.begin() + place, samples.end());
    return samples[static_cast<size_t>(place)];
}

double Median(const Samples& samples) { return Part(samples, 0.5); }

// Of each stroke: all its moves, the lift until the finished stroke is painted, and what follows.
struct PenTimes {
    Samples moves, lift, rest;
};

void Compare(const char* what, const Samples& ours, const Samples& theirs) {
    std::printf("| %-52s | %6.3f | %9.1f us against %9.1f us |\n", what, Median(ours) / Median(theirs),
                Median(ours), Median(theirs));
}

class Desk {
  public:
    explicit Desk(platform::Window& window) : view_(window, page_), pen_(window, page_, history_, view_) {
        page_.canvasWidth = bench::kViewWidth;
        page_.canvasHeight = page_.bandHeight = bench::kViewHeight;
        page_.penStyle = ink::PenStyle::Smooth;
        page_.notePath = kNote;
        if (!view_.Create()) std::abort();
        view_.Redraw();
    }

    ~Desk() { journal_.Remove(); }

    void KeepJournal() {
        journal_.Begin(page_, page_.notePath);
        history_.SetListener(&journal_);
    }

    void Write(const bench::Stroke& stroke, PenTimes& times) {
        const std::vector<ink::Point>& points = stroke.points;
        pen_.Begin(points.front());
        times.moves.push_back(Microseconds([&] {
            for (size_t i = 1; i < points.size(); ++i) pen_.Move(&points[i], 1);
        }));
        times.lift.push_back(Microseconds([&] { pen_.Lift(points.back()); }));
        times.rest.push_back(Microseconds([&] { history_.EndStep(); }));
    }

    ink::InkPage& Page() { return page_; }
    store::NoteJournal& Journal() { return journal_; }

  private:
    ink::InkPage page_;
    ink::PageHistory history_{page_};
    store::NoteJournal journal_;
    editor::PageView view_;
    editor::InkPen pen_;
};

void WriteBare(const std::wstring& path, const std::vector<uint8_t>& bytes) {
    platform::File file = platform::File::Create(path);
    if (!file.Write(bytes.data(), bytes.size()) || !file.Flush()) std::abort();
}

void Save(const ink::InkPage& page, store::NoteJournal& journal) {
    store::SafeFile file = store::SafeFile::At(kNote);
    if (!ink::WriteNote(file, page)) std::abort();
    journal.Saving(kNote);
    if (!file.Commit()) std::abort();
}

class BenchScreen : public platform::Screen {
  public:
    BenchScreen() : Screen(ScrollBar::None) {}

    bool OnCreate() override {
        PostCommand(kGo);
        return true;
    }

    void OnCommand(int) override {
        MeasurePen();
        for (const size_t strokes : {size_t{200}, size_t{2000}, size_t{20000}}) MeasureSaving(strokes);
        EndModal(0);
    }

  private:
    void MeasurePen() {
        const std::vector<bench::Stroke> strokes = bench::MakeStrokes(bench::kStrokesPerView);
        PenTimes with;
        PenTimes without;
        for (int round = 0; round < kPages; ++round) {
            Desk kept(*this);
            Desk plain(*this);
            kept.KeepJournal();
            // Who is first changes, so that neither always finds the caches as the other left them.
            for (size_t i = 0; i < strokes.size(); ++i) {
                if (i % 2 == 0) kept.Write(strokes[i], with);
                plain.Write(strokes[i], without);
                if (i % 2 != 0) kept.Write(strokes[i], with);
            }
        }
        Compare("pen: the moves of a stroke, with journal", with.moves, without.moves);
        Compare("pen: the lift until it is painted, with journal", with.lift, without.lift);
        Compare("pen: what follows before the next event, with journal", with.rest, without.rest);
        std::printf("what follows: 99 of 100 within %.1f us, 999 of 1000 within %.1f us, longest %.1f us\n",
                    Part(with.rest, 0.99), Part(with.rest, 0.999), Part(with.rest, 1));
    }

    // A note that was opened, and got a stroke. The journal is on the disk when the note is saved, as it is
    // after a second's rest; or has just got a stroke, which is then flushed as well.
    void MeasureSaving(size_t count) {
        Desk desk(*this);
        ink::InkPage written;
        written.bandHeight = desk.Page().bandHeight;
        bench::FillPage(written, bench::MakeStrokes(count));
        ink::MemorySink sink;
        ink::WriteNote(sink, written);
        ink::MemorySource source(sink.Bytes().data(), sink.Bytes().size());
        ink::NoteFileHeader header;
        if (!ink::ReadNoteHeader(source, header)) std::abort();
        ink::ReadNoteBody(source, header, desk.Page());
        desk.KeepJournal();
        const std::vector<bench::Stroke> dot = bench::MakeStrokes(1);
        PenTimes ignored;
        desk.Write(dot.front(), ignored);
        platform::Pause(kFlushed);
        Samples rested, straight, bare;
        for (int i = 0; i < kSaves; ++i) {
            bare.push_back(Microseconds([&] { WriteBare(kBare, sink.Bytes()); }));
            const auto save = [&] { Save(desk.Page(), desk.Journal()); };
            rested.push_back(Microseconds(save));
            desk.Write(dot.front(), ignored);
            straight.push_back(Microseconds(save));
        }
        const std::string label = "save " + std::to_string(count) + " strokes, ";
        Compare((label + "the pen at rest").c_str(), rested, bare);
        Compare((label + "straight after a stroke").c_str(), straight, bare);
    }
};

}  // namespace

int platform::RunProgram(const std::wstring&) {
    MakeFolder(L"\\Bench");
    BenchScreen().RunModal(nullptr);
    return 0;
}

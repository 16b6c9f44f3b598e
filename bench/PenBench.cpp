// Times the way of a pen's packet through the real editor: from the translator of pointer packets to the
// pixels in the window, with a note of 20,000 strokes open. Run under Windows or Wine, at each scale
// (INKWRIGHT_SCALE); prints rows of a table: median, 99 and 999 of 1000, longest.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "app/store/FileStreams.h"
#include "app/store/PenSettings.h"
#include "bench/Scene.h"
#include "editor/InkCanvas.h"
#include "ink/NoteFile.h"
#include "platform/FileSystem.h"
#include "platform/windows/WindowImpl.h"

namespace {

constexpr int kGo = 4000;
constexpr int kStrokes = 400;
constexpr uint32_t kPacketMilliseconds = 4;  // 240 packets a second
constexpr wchar_t kNote[] = L"\\Bench\\pen.ikw";

double Part(std::vector<double>& samples, double share) {
    const auto place = static_cast<std::ptrdiff_t>(share * static_cast<double>(samples.size() - 1));
    std::nth_element(samples.begin(), samples.begin() + place, samples.end());
    return samples[static_cast<size_t>(place)];
}

template <typename Work>
double Microseconds(Work&& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start).count();
}

class Measured : public editor::InkCanvas {
  public:
    using InkCanvas::InkCanvas;

    bool OnCreate() override {
        PostCommand(kGo);
        return InkCanvas::OnCreate();
    }

    void OnCommand(int id) override {
        if (id != kGo) return InkCanvas::OnCommand(id);
        Measure();
        EndModal(0);  // nothing is saved
    }

  private:
    void Measure() {
        platform::PenTranslator pens(*Handle()->pointers);
        std::vector<double> moves;
        std::vector<double> lifts;
        uint32_t now = 0;
        for (const bench::Stroke& stroke : bench::MakeStrokes(kStrokes)) {
            for (size_t i = 0; i <= stroke.points.size(); ++i) {
                platform::PointerPacket packet;
                packet.place = stroke.points[std::min(i, stroke.points.size() - 1)];
                packet.place.y %= ClientHeight() - 60;  // no move of the page
                packet.time = now += kPacketMilliseconds;
                packet.isDown = i < stroke.points.size();
                const double taken = Microseconds([&] { pens.Take(&packet, 1); });
                if (i > 0) (packet.isDown ? moves : lifts).push_back(taken);
            }
        }
        Print("a segment", moves);
        Print("the lift, and the stroke's filing", lifts);
    }

    void Print(const char* what, std::vector<double>& times) {
        std::printf("| %s | %.2f | %.1f us | %.1f us | %.1f us | %.1f us |\n", what,
                    PageScale().Dots() / 96.0, Part(times, 0.5), Part(times, 0.99), Part(times, 0.999),
                    Part(times, 1));
    }
};

void PutNote() {
    ink::InkPage page;
    page.bandHeight = bench::kViewHeight;
    bench::FillPage(page, bench::MakeStrokes(20000));
    platform::MakeFolder(L"\\Bench");
    platform::File file = platform::File::Create(kNote);
    store::FileSink sink(file);
    if (!ink::WriteNote(sink, page)) std::abort();
}

}  // namespace

int main() {
    PutNote();
    store::PenSettings pen;
    pen.penStyle = ink::PenStyle::Smooth;
    pen.penSize = 25;
    editor::InkCanvas::Opening opening;
    opening.notePath = kNote;
    Measured(pen, opening).RunModal(nullptr);
    return 0;
}

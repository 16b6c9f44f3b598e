// What is kept of a damaged note is a note like any other, and as large as its bytes at most.
#include "fuzz/Target.h"
#include "ink/NoteSalvage.h"

void fuzz::TrySalvage(const Bytes& bytes, Care care) {
    ink::MemorySource source(bytes.data(), bytes.size());
    ink::InkPage page, whole;
    const bool isKept = ink::SalvageNote(source, page);
    RequireModest(page, bytes.size());
    if (!isKept) return Require(page.SlotCount() == 0, "nothing on the page");
    whole.bandHeight = page.bandHeight;
    if (Load(bytes, whole) == ink::LoadResult::Loaded)
        Require(Save(whole) == Save(page), "of a whole note everything is kept");
    RequireWhole(page);
    PaintViews(page, care);
}

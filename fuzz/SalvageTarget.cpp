// What is kept of a damaged note is a note like any other, and of a whole note everything is kept.
#include "fuzz/Target.h"
#include "ink/NoteSalvage.h"

void fuzz::TrySalvage(const Bytes& bytes, Care care) {
    ink::MemorySource source(bytes.data(), bytes.size());
    ink::InkPage page, whole;
    if (!ink::SalvageNote(source, page)) return Require(page.SlotCount() == 0, "nothing on the page");
    RequireWhole(page, bytes.size(), care);
    whole.bandHeight = page.bandHeight;
    const bool isWhole = Load(bytes, whole) == ink::LoadResult::Loaded;
    Require(!isWhole || Save(whole) == Save(page), "of a whole note everything is kept");
}

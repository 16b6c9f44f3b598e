#include "editor/NoteSheets.h"

#include <new>

#include "ink/InkPainter.h"
#include "platform/Locale.h"

namespace editor {

pictures::PictureOptions PenOptions(const ink::InkPage& page) {
    pictures::PictureOptions options;
    options.style = page.penStyle;
    options.size = page.PenWidth();
    if (platform::UsesLetterPaper()) options.paper = pictures::kLetter;
    return options;
}

bool NoteInk::Measure(const ink::InkPage& page) {
    ink::InkPainter pen;
    if (!found_.Find(page) || !pen.SetPen(page.penStyle, page.PenWidth())) throw std::bad_alloc();
    const bool isFine = pictures::MeasureNote(found_.Page(), pen.Reach(), size_, problem_);
    if (!isFine) problem_ = "The note can't be shown: " + problem_ + ".";
    return isFine;
}

}  // namespace editor

#include "platform/SaveChooser.h"

#include "platform/TextEncoding.h"

namespace platform {

namespace {

bool EndsSo(const std::wstring& path, const std::wstring& ending) {
    return path.size() > ending.size() && EqualNoCase(path.substr(path.size() - ending.size()), ending);
}

}  // namespace

void TellKind(const SaveQuestion& question, size_t chosen, SavePlace& place) {
    place.replaces = true;
    for (place.kind = 0; place.kind < question.kinds.size(); ++place.kind) {
        if (EndsSo(place.shown, question.kinds[place.kind].ending)) return;
    }
    // Nobody was asked about what may be there under the longer name.
    place.replaces = false;
    place.kind = chosen < question.kinds.size() ? chosen : 0;
    place.shown += question.kinds[place.kind].ending;
}

}  // namespace platform

#include "session/key_list.h"

#include <string>

namespace zv {

void ShowKeyList(const Session& session, const std::vector<KeyLine>& lines) {
    std::string text = session.LoadText(resources::KeyText::Heading) + "\r\n";
    for (const KeyLine& line : lines) {
        std::string names;
        for (const forms::KeyChord& chord : line.chords) {
            if (!names.empty()) names += ", ";
            names += NameOf(chord);
        }
        text += "\r\n" + names + ":  " + session.LoadText(line.act);
    }
    session.windows.ShowMessage(text, forms::box::kInformation);
}

}  // namespace zv

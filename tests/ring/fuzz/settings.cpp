#include "settings.h"

#include <fstream>
#include <map>

#include "base/text.h"
#include "pieces.h"
#include "target.h"
#include "temporary_folder.h"

namespace zv::fuzz {
namespace {

using resources::kApplication;
using resources::kSuiteSection;
using resources::kTaskSection;

constexpr std::string_view kNone = "there is none";

std::string_view SectionOf(std::size_t turn) {
    return turn % 2 == 0 ? kTaskSection : kSuiteSection;
}

}  // namespace

void PlaySettings(std::string_view input, const SettingsMaker& make) {
    static const test::TemporaryFolder folder;
    const std::filesystem::path file = folder / "settings.ini";
    const auto pieces = PiecesOf(input);
    std::ofstream(file, std::ios::binary | std::ios::trunc) << pieces.front();

    // By section and key in lower case. What the file holds for the keys is asked for first.
    std::map<std::pair<std::string_view, std::string>, std::string> expected;
    const auto get = [&](std::string_view section, const std::string& key) {
        return make(file)->Get(kApplication, section, key, kNone);
    };
    for (const std::string_view piece : pieces) {
        for (const std::string_view section : {kTaskSection, kSuiteSection}) {
            expected[{section, text::ToLower(piece)}] = get(section, text::ToLower(piece));
        }
    }
    for (std::size_t i = 1; i + 1 < pieces.size(); i += 2) {
        const std::string_view section = SectionOf(i / 2);
        make(file)->Save(kApplication, section, pieces[i], pieces[i + 1]);
        expected[{section, text::ToLower(pieces[i])}] = pieces[i + 1];
        for (const auto& [place, text] : expected) {
            const std::string found = get(place.first, place.second);
            if (found == text) continue;
            throw Finding("\"" + place.second + "\" holds \"" + found + "\" instead of \"" + text +
                          "\"");
        }
    }
}

std::vector<std::string> SettingsSeeds() {
    return {
        "[Tarnell\\zvTask]\nLeft=120\nTitle=a\\nb\n[Tarnell\\zv2000]\nLanguage=1\n\xFFLeft\xFF"
        "7",
        "[tarnell\\ZVTASK]\nLEFT=1\nleft=2\nno text\n\xFFleft\xFF\\\xFF=\xFF[x]\xFF[a]\xFFx\r\n",
        "\xFFkey\\\xFFvalue\\e\xFFKEY\\\xFF\xFF\xFF=", "[Tarnell\\zvTask\n]=[\nx=\\"};
}

}  // namespace zv::fuzz

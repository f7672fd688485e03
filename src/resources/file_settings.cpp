#include "resources/file_settings.h"

#include <fstream>
#include <sstream>
#include <vector>

#include "base/errors.h"
#include "base/path.h"
#include "base/text.h"

namespace zv::resources {
namespace {

struct Entry {
    std::string key;
    std::string text;
};
struct Section {
    std::string name;  // escaped "application\section"
    std::vector<Entry> entries;
};

std::string Escape(std::string_view text) {
    std::string result;
    for (const char c : text) {
        switch (c) {
            case '\\':
                result += "\\\\";
                break;
            case '\n':
                result += "\\n";
                break;
            case '\r':
                result += "\\r";
                break;
            default:
                result += c;
        }
    }
    return result;
}

std::string EscapeName(std::string_view name) {
    return text::Replace(text::Replace(Escape(name), "=", "\\e"), "[", "\\b");
}

std::string Unescape(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); i++) {
        if (text[i] != '\\' || i + 1 == text.size()) {
            result += text[i];
            continue;
        }
        switch (text[++i]) {
            case 'n':
                result += '\n';
                break;
            case 'r':
                result += '\r';
                break;
            case 'e':
                result += '=';
                break;
            case 'b':
                result += '[';
                break;
            default:
                result += text[i];
        }
    }
    return result;
}

[[noreturn]] void Refuse(const std::filesystem::path& file) {
    throw RuntimeError(ErrorNumber::PathFileAccess, Utf8Of(file));
}

std::vector<Section> Read(const std::filesystem::path& file) {
    std::vector<Section> sections;
    std::error_code failure;
    if (!std::filesystem::exists(file, failure) && !failure) return sections;
    std::ifstream stream(file, std::ios::binary);
    if (!stream) Refuse(file);
    std::string line;
    while (std::getline(stream, line)) {
        if (line.size() >= 2 && line.front() == '[' && line.back() == ']') {
            sections.push_back({line.substr(1, line.size() - 2), {}});
            continue;
        }
        const std::size_t equals = line.find('=');
        if (equals == std::string::npos || sections.empty()) continue;
        sections.back().entries.push_back(
            {Unescape(line.substr(0, equals)), Unescape(line.substr(equals + 1))});
    }
    if (stream.bad()) Refuse(file);
    return sections;
}

void Write(const std::filesystem::path& file, const std::vector<Section>& sections) {
    std::filesystem::path part = file;
    part += ".part";
    {
        std::ofstream stream(part, std::ios::binary | std::ios::trunc);
        for (const Section& section : sections) {
            stream << '[' << section.name << "]\n";
            for (const Entry& entry : section.entries) {
                stream << EscapeName(entry.key) << '=' << Escape(entry.text) << '\n';
            }
        }
        stream.flush();
        if (!stream) Refuse(file);
    }
    std::error_code failure;
    std::filesystem::rename(part, file, failure);
    if (failure) Refuse(file);
}

std::string SectionName(std::string_view application, std::string_view section) {
    return EscapeName(application) + '\\' + EscapeName(section);
}

template <typename Sections>
auto* FindSection(Sections& sections, std::string_view name) {
    for (auto& section : sections) {
        if (text::EqualsIgnoreCase(section.name, name)) return &section;
    }
    return static_cast<decltype(&sections.front())>(nullptr);
}

template <typename SectionType>
auto* FindEntry(SectionType& section, std::string_view key) {
    for (auto& entry : section.entries) {
        if (text::EqualsIgnoreCase(entry.key, key)) return &entry;
    }
    return static_cast<decltype(&section.entries.front())>(nullptr);
}

}  // namespace

std::string FileSettings::Get(std::string_view application, std::string_view section,
                              std::string_view key, std::string_view fallback) const {
    const std::vector<Section> sections = Read(file_);
    const Section* found = FindSection(sections, SectionName(application, section));
    const Entry* entry = found ? FindEntry(*found, key) : nullptr;
    return entry ? entry->text : std::string(fallback);
}

void FileSettings::Save(std::string_view application, std::string_view section,
                        std::string_view key, std::string_view text) {
    std::vector<Section> sections = Read(file_);
    const std::string name = SectionName(application, section);
    Section* found = FindSection(sections, name);
    if (!found) {
        sections.push_back({name, {}});
        found = &sections.back();
    }
    if (Entry* entry = FindEntry(*found, key)) {
        entry->text = std::string(text);
    } else {
        found->entries.push_back({std::string(key), std::string(text)});
    }
    Write(file_, sections);
}

}  // namespace zv::resources

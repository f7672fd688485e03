#include "report/parameters.h"

namespace zv::report {

Heading ReadHeading(std::string_view entry) {
    Heading heading;
    std::string_view caption = entry;
    if (const std::size_t tab = entry.rfind('\t'); tab != std::string_view::npos) {
        caption = entry.substr(0, tab);
        heading.key = entry.substr(tab + 1);
    }
    if (caption.size() >= 2 && caption.front() == '(' && caption.back() == ')') {
        caption = caption.substr(1, caption.size() - 2);
    }
    heading.caption = caption;
    return heading;
}

std::vector<Field> ReadFields(const std::vector<std::string>& entries) {
    std::vector<Field> fields;
    for (std::size_t i = 0; i < entries.size(); i += 2) {
        Heading heading = ReadHeading(entries[i]);
        fields.push_back({std::move(heading.key), std::move(heading.caption),
                          i + 1 < entries.size() ? entries[i + 1] : std::string()});
    }
    return fields;
}

}  // namespace zv::report

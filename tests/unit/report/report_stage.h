// What the tests of reports share.
#pragma once

#include <string>
#include <vector>

#include "report/document.h"
#include "report/font_set.h"
#include "report/layout.h"

namespace zv::report {

/// A font that holds both scripts.
inline const FontSet& TestFonts() {
    static const FontSet fonts(
        {{"/usr/share/fonts/truetype/wqy/wqy-microhei.ttc", 0, "WenQuanYi Micro Hei"}});
    return fonts;
}

inline Document ListOf(int rows) {
    Document document;
    document.company = "塔尔内尔贸易有限公司";
    document.title = "任务列表";
    document.subtitle = "2003-03-01 -- 2003-03-31";
    document.user = "张三";
    document.printed = DateTime(2003, 3, 7);
    document.table.columns = {{"编号"}, {"主题"}, {"日期"}, {"执行人"}};
    for (int i = 1; i <= rows; i++) {
        document.table.rows.push_back(
            {std::to_string(i), "拜访客户 Nr. " + std::to_string(i), "2003-03-07", "李四"});
    }
    return document;
}

inline Document ItemOf(std::vector<Field> fields) {
    Document document;
    document.kind = DocumentKind::Item;
    document.title = "Customer Report";
    document.printed = DateTime(2003, 3, 7);
    document.fields = std::move(fields);
    return document;
}

/// The texts of a page in the order in which they are drawn, a line each.
inline std::string TextOf(const Page& page) {
    std::string text;
    for (const TextRun& run : page.texts) text += run.text + "\n";
    return text;
}

inline int CountOf(const std::string& text, const std::string& part) {
    int count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
        count++;
    }
    return count;
}

}  // namespace zv::report

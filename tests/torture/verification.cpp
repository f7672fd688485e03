#include "verification.h"

#include <map>
#include <set>

#include "journal.h"

namespace zv::torture {
namespace {

struct Row {
    std::string content;
    bool done = false;
    int times = 0;
};

/// What a row may be after the steps so far. A step without acknowledgement adds to it, one with
/// acknowledgement leaves only itself.
struct Expected {
    bool mayBeAbsent = true;
    bool mayBePresent = false;
    bool mayBeOpen = true;
    bool mayBeDone = false;
    std::set<std::string> contents;
};

std::map<std::string, Row> ReadRows(const Target& target) {
    std::map<std::string, Row> rows;
    const auto connection = target.Open();
    const auto all =
        connection->Open("select taskTitle,fContent,tDone from tTaskList where TaskID=0",
                         store::CursorType::Static, store::LockType::ReadOnly);
    for (; !all->Eof(); all->MoveNext()) {
        Row& row = rows[all->Field(0).ToText()];
        row.content = all->Field(1).ToText();
        row.done = all->Field(2).ToInt16() == 1;
        row.times++;
    }
    return rows;
}

void Apply(const Step& step, Expected& item) {
    switch (step.act) {
        case Act::Add:
            item.mayBePresent = true;
            if (step.acknowledged) item.mayBeAbsent = false;
            item.contents.insert(step.content);
            break;
        case Act::Change:
            if (step.acknowledged) item.contents.clear();
            item.contents.insert(step.content);
            break;
        case Act::Complete:
            item.mayBeDone = true;
            if (step.acknowledged) item.mayBeOpen = false;
            break;
        case Act::Remove:
            item.mayBeAbsent = true;
            if (step.acknowledged) item.mayBePresent = false;
            break;
        case Act::ChangeShared:
        case Act::Generate:
            break;
    }
}

void Compare(const std::string& title, const Expected& item, const Row* row, Findings& findings) {
    const auto wrong = [&](const std::string& what) {
        findings.wrong.push_back(title + ": " + what);
    };
    if (!row) {
        if (!item.mayBeAbsent) wrong("was added and is missing");
        return;
    }
    if (!item.mayBePresent) wrong("was deleted and is there");
    if (row->times > 1) wrong("is there " + std::to_string(row->times) + " times");
    if (!item.contents.contains(row->content)) wrong("lost a change: holds " + row->content);
    if (row->done && !item.mayBeDone) wrong("is done, which nobody did");
    if (!row->done && !item.mayBeOpen) wrong("was marked done and is not");
}

}  // namespace

Findings Verify(const Target& target, const std::vector<std::string>& journals) {
    Findings findings;
    std::map<std::string, Expected> items;
    std::map<std::string, std::set<std::string>> shared;
    for (int number = 0; number < kSharedItems; number++) {
        shared[SharedTitle(number)].insert("untouched");
    }
    std::set<std::string> touched;
    for (const std::string& journal : journals) {
        for (const Step& step : Journal::Read(journal)) {
            findings.steps++;
            if (step.acknowledged) findings.acknowledged++;
            if (step.act == Act::ChangeShared) {
                shared[step.title].insert(step.content);
                if (step.acknowledged) touched.insert(step.title);
            } else if (step.act != Act::Generate) {
                Apply(step, items[step.title]);
            }
        }
    }
    std::map<std::string, Row> rows = ReadRows(target);
    for (const auto& [title, item] : items) {
        const auto row = rows.find(title);
        Compare(title, item, row == rows.end() ? nullptr : &row->second, findings);
        if (row != rows.end()) rows.erase(row);
    }
    for (const auto& [title, contents] : shared) {
        const auto row = rows.find(title);
        if (row == rows.end() || row->second.times != 1) {
            findings.wrong.push_back(title + ": is not there once");
            continue;
        }
        if (!contents.contains(row->second.content)) {
            findings.wrong.push_back(title + ": holds what nobody wrote: " + row->second.content);
        }
        if (touched.contains(title) && row->second.content == "untouched") {
            findings.wrong.push_back(title + ": lost every change");
        }
        rows.erase(row);
    }
    for (const auto& [title, row] : rows) findings.wrong.push_back(title + ": nobody added it");
    return findings;
}

}  // namespace zv::torture

#include "kit/report/ComparisonText.h"

#include "kit/report/ReportText.h"
#include "kit/support/JsonWriter.h"
#include "kit/support/Text.h"

namespace tessivo {
namespace {

using Lines = std::vector<std::string>;

void addSide(Lines& lines, const char* name, const std::vector<std::string>& words) {
    const std::string first = std::string("   ") + name + ": ";
    if (words.empty()) lines.push_back(first + ComparisonText::notTold);
    for (std::size_t i = 0; i < words.size(); ++i)
        lines.push_back((i == 0 ? first : "      ") + Text::singleLine(words[i]));
}

void addItem(Lines& lines, const ComparedItem& item) {
    const bool isShort = item.change == Change::unchanged && item.before == item.after;
    if (isShort && item.before.size() == 1) {
        lines.push_back(item.name + ": " + Text::singleLine(item.before.front()));
        return;
    }
    lines.push_back(item.remark ? item.name + " (" + *item.remark + ")" : item.name);
    addSide(lines, "Before", item.before);
    addSide(lines, "After", item.after);
}

void addHeading(Lines& lines, std::string_view heading) {
    lines.push_back("");
    lines.push_back(Text::uppercased(heading));
}

void addUnchanged(Lines& lines, const ReportComparison& comparison) {
    if (comparison.unchanged.empty()) return;
    addHeading(lines, ComparisonText::heading(Change::unchanged));
    Lines folded;
    for (const ComparedItem& item : comparison.unchanged) {
        if (item.folded)
            folded.push_back(item.name);
        else
            addItem(lines, item);
    }
    if (!folded.empty())
        lines.push_back(ComparisonText::foldedTitle(std::int64_t(folded.size())) + ": " +
                        Text::joined(folded, ", "));
}

} // namespace

const char* const ComparisonText::notTold = "not in this report";
const char* const ComparisonText::disclaimer =
    "A report file can be edited too; this compares words with words.";

std::string ComparisonText::text(const ReportComparison& comparison, const std::string& timeZone) {
    const auto side = [&](const char* name, const ReportComparison::Side& side) {
        return std::string(name) + ": " + Text::singleLine(side.name) + ", " +
               ReportText::dateText(side.created, timeZone);
    };
    Lines lines{"TWO REPORTS COMPARED", side("Before", comparison.before), side("After", comparison.after),
                "", comparison.verdictText};
    if (!comparison.readAlike.empty()) lines.push_back(caution(comparison));
    lines.push_back(std::string("Same Mac: ") + word(comparison.sameMac));
    lines.push_back(std::string("Tested since: ") + (comparison.testedSince ? "yes" : "no"));
    if (!comparison.identity.empty()) addHeading(lines, "Identity");
    for (const ComparedItem& item : comparison.identity)
        addItem(lines, item);
    std::optional<Change> last;
    for (const ComparedItem& item : comparison.items) {
        if (last != item.change) addHeading(lines, heading(item.change));
        last = item.change;
        addItem(lines, item);
    }
    addUnchanged(lines, comparison);
    lines.push_back("");
    lines.push_back(disclaimer);
    return Text::joined(lines, "\n");
}

std::string ComparisonText::json(const ReportComparison& comparison) {
    return Json::write(comparison, Json::Layout::prettySorted, Json::DateForm::iso8601);
}

const char* ComparisonText::heading(Change change) {
    switch (change) {
    case Change::worse:
        return "Worse";
    case Change::notConfirmed:
        return "Not confirmed";
    case Change::changed:
        return "Changed";
    case Change::better:
        return "Better";
    case Change::unchanged:
        return "Unchanged";
    }
    return "";
}

const char* ComparisonText::word(SameMac sameMac) {
    switch (sameMac) {
    case SameMac::yes:
        return "yes";
    case SameMac::no:
        return "no";
    case SameMac::contradicting:
        return "the reports contradict each other";
    case SameMac::cantTell:
        return "can't tell";
    }
    return "";
}

std::string ComparisonText::caution(const ReportComparison& comparison) {
    const std::size_t count = comparison.readAlike.size();
    if (count == 0) return {};
    return "Reports don't tell when a test was run: " + std::to_string(count) +
           (count == 1 ? " test that works in both reads" : " tests that work in both read") +
           " the same to the last detail, and may not have been run again.";
}

std::string ComparisonText::foldedTitle(std::int64_t count) {
    return std::to_string(count) + (count == 1 ? " test unchanged" : " tests unchanged");
}

} // namespace tessivo

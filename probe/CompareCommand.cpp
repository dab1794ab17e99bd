#include "probe/CompareCommand.h"

#include "kit/report/ComparisonText.h"
#include "kit/report/HistoryStore.h"
#include "kit/support/Json.h"
#include "probe/Arguments.h"
#include "probe/ProbeInput.h"
#include "probe/ProbeOutput.h"

namespace tessivo::CompareCommand {

namespace {

ConditionReport readReport(const std::string& file) {
    return ProbeInput::decoded(file, &HistoryStore::decode, HistoryStore::largestFile);
}

} // namespace

int run(const std::vector<std::string>& words) {
    const Arguments arguments(words, {"--as"}, {});
    const std::vector<std::string>& files = arguments.words(2);
    const std::string form = arguments.value("--as").value_or("text");
    if (form != "text" && form != "json") throw UsageError("unknown form " + form);
    const ConditionReport before = readReport(files[0]);
    const ConditionReport after = readReport(files[1]);
    const auto comparison = ReportComparison::make(before, after);
    ProbeOutput::write(form == "json" ? ComparisonText::json(comparison)
                                      : ComparisonText::text(comparison, {}),
                       ProbeOutput::Content::text, std::nullopt);
    return comparison.isPass() ? 0 : notConfirmed;
}

} // namespace tessivo::CompareCommand

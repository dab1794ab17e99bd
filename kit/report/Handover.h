#pragma once

#include "kit/hardware/MachineInfo.h"
#include "kit/session/HandoverChecklist.h"

#include <vector>

namespace tessivo {

enum class EraseMethod { eraseAssistant, recovery, either };

/// A page of the maker's support site; `url` is the full link.
struct HelpLink {
    std::string title;
    std::string url;

    bool operator==(const HelpLink&) const = default;
};

/// One step with its tick as it goes into a report.
struct HandoverLine {
    HandoverStep step{};
    bool ticked = false;

    bool operator==(const HandoverLine&) const = default;
};
BOOST_DESCRIBE_STRUCT(HandoverLine, (), (step, ticked))

const char* title(HandoverStep step);
const char* symbol(HandoverStep step);

/// The content of the handover checklist for one model. Pure, any thread.
namespace Handover {

std::vector<HandoverStep> steps(const MachineInfo& machine);
EraseMethod eraseMethod(const MachineInfo& machine);
std::string text(HandoverStep step, const MachineInfo& machine);
std::vector<HelpLink> links(HandoverStep step, const MachineInfo& machine);
const HelpLink& guide();
/// The lines of a report, of the steps before it; absent when nothing is ticked.
std::optional<std::vector<HandoverLine>> lines(const std::optional<HandoverChecklist>& checklist,
                                               const MachineInfo& machine);
/// Whether the step is done once the report is saved: nothing on this Mac is left to tick then.
bool comesAfterReport(HandoverStep step);
/// The last thing the seller does, by the model: "Last, after this report: the seller erases the Mac (...)."
std::string closingLine(const MachineInfo& machine);
/// What the buyer asks for: as a line of the report, "Buyer: before the erase, ...", and on its own.
std::string buyerNote();
std::string buyerAdvice();

extern const char* const reportHeading;
extern const char* const reportNote;
const char* mark(bool ticked);
const char* word(bool ticked);

} // namespace Handover
} // namespace tessivo

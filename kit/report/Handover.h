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
/// The lines of a report; absent when nothing is ticked. `erase` and `nvram` never stand in them.
std::optional<std::vector<HandoverLine>> lines(const std::optional<HandoverChecklist>& checklist,
                                               const MachineInfo& machine);
std::string closingLine(const MachineInfo& machine);

extern const char* const reportHeading;
extern const char* const reportNote;
extern const char* const buyerNote;
const char* mark(bool ticked);
const char* word(bool ticked);

} // namespace Handover
} // namespace tessivo

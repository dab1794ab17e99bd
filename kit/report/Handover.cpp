#include "kit/report/Handover.h"

namespace tessivo {
namespace {

struct StepContent {
    const char* title;
    const char* symbol;
};

/// In the order of the steps.
constexpr StepContent contents[] = {
    {"Back up your files", "externaldrive.badge.timemachine"},
    {"Deauthorize this Mac for your purchases", "music.note"},
    {"Turn off Find My Mac", "location.slash"},
    {"Sign out of your Apple Account (iCloud)", "person.crop.circle.badge.minus"},
    {"Unpair Bluetooth accessories you're keeping", "dot.radiowaves.left.and.right"},
    {"Erase the Mac", "trash"},
    {"Reset NVRAM (Intel Macs)", "memorychip"},
};
static_assert(std::size(contents) == allCases<HandoverStep>().size());

const char* eraseText(EraseMethod method) {
    switch (method) {
    case EraseMethod::eraseAssistant:
        return "System Settings › General › Transfer or Reset › Erase All Content and Settings. It asks for "
               "this Mac's login password and your Apple Account password, then erases everything and "
               "restarts to the setup assistant. Leave it there for the buyer: hold the power button to "
               "turn it off.";
    case EraseMethod::recovery:
        return "This model doesn't have Erase All Content and Settings. Start up from macOS Recovery, erase "
               "the drive with Disk Utility, then reinstall macOS. When the setup assistant appears, press "
               "Command-Q to shut down instead of setting it up.";
    case EraseMethod::either:
        return "If System Settings › General › Transfer or Reset has Erase All Content and Settings, use it. "
               "If not, start up from macOS Recovery, erase the drive with Disk Utility and reinstall macOS. "
               "Leave the Mac at the setup assistant for the buyer.";
    }
    return "";
}

const char* eraseWords(EraseMethod method) {
    switch (method) {
    case EraseMethod::eraseAssistant:
        return "Erase All Content and Settings";
    case EraseMethod::recovery:
        return "macOS Recovery and Disk Utility";
    case EraseMethod::either:
        return "Erase All Content and Settings, or macOS Recovery";
    }
    return "";
}

/// What follows "before", which begins in two ways.
constexpr const char* buyerAsks =
    " the erase, ask the seller to show Activation Lock Status: Disabled in System Information (Hardware), "
    "then to erase the Mac in front of you. Setup should not ask for the seller's Apple Account.";

HelpLink link(const char* title, const char* path) {
    return {title, std::string(TESSIVO_SUPPORT_HOST) + path};
}

std::vector<HelpLink> eraseLinks(EraseMethod method) {
    std::vector<HelpLink> links;
    if (method != EraseMethod::recovery)
        links.push_back(link("Erase All Content and Settings", "/en-us/102664"));
    if (method != EraseMethod::eraseAssistant) {
        links.push_back(link("Start up from macOS Recovery", "/en-us/102518"));
        links.push_back(link("Erase with Disk Utility", "/en-us/102639"));
        links.push_back(link("Reinstall macOS", "/en-us/102655"));
    }
    return links;
}

} // namespace

const char* title(HandoverStep step) {
    return contents[std::size_t(step)].title;
}

const char* symbol(HandoverStep step) {
    return contents[std::size_t(step)].symbol;
}

std::vector<HandoverStep> Handover::steps(const MachineInfo& machine) {
    std::vector<HandoverStep> steps;
    // A Mac whose processor is unknown may be an Intel one, so it lists the step too.
    const bool mayBeIntel = machine.processor() != Processor::appleSilicon;
    for (const HandoverStep step : allCases<HandoverStep>())
        if (step != HandoverStep::nvram || mayBeIntel) steps.push_back(step);
    return steps;
}

EraseMethod Handover::eraseMethod(const MachineInfo& machine) {
    const auto processor = machine.processor();
    if (!processor) return EraseMethod::either;
    return *processor == Processor::intel ? EraseMethod::recovery : EraseMethod::eraseAssistant;
}

std::string Handover::text(HandoverStep step, const MachineInfo& machine) {
    switch (step) {
    case HandoverStep::backup:
        return "Everything on this Mac is erased at the end. Back it up with Time Machine or copy your files "
               "to another drive first.";
    case HandoverStep::music:
        return "Open the Music app (or the TV app) and choose Account › Deauthorize This Computer, then sign "
               "in and click Deauthorize. An Apple Account can authorize five computers at a time.";
    case HandoverStep::findMy:
        return "Choose Apple menu › System Settings, click your name, then iCloud, and turn off Find My Mac "
               "(it may be under Show All). This is what turns off Activation Lock, so the buyer can set the "
               "Mac up as their own.";
    case HandoverStep::appleAccount:
        return "In System Settings, click your name, then Sign Out. It also signs you out of iCloud, the App "
               "Store, iMessage and FaceTime. Keeping a copy of your iCloud data is faster, since the Mac is "
               "erased next.";
    case HandoverStep::bluetooth:
        return "If a keyboard, mouse or other accessory you're keeping stays near this Mac, open System "
               "Settings › Bluetooth, Control-click it and choose Forget. Don't unpair your only keyboard or "
               "mouse until you have a USB one to finish with.";
    case HandoverStep::erase:
        return eraseText(eraseMethod(machine));
    case HandoverStep::nvram:
        return "Apple recommends it as the last step on an Intel Mac. Shut down, then turn the Mac on and at "
               "once hold Option, Command, P and R for about 20 seconds. When the setup assistant appears, "
               "press Command-Q to shut down.";
    }
    return "";
}

std::vector<HelpLink> Handover::links(HandoverStep step, const MachineInfo& machine) {
    switch (step) {
    case HandoverStep::backup:
        return {link("How to back up your Mac", "/en-us/102307")};
    case HandoverStep::music:
        return {link("Authorize or deauthorize your computer", "/en-us/118292")};
    case HandoverStep::findMy:
    case HandoverStep::appleAccount:
        return {link("Sign out of your Apple Account and iCloud", "/en-us/104958")};
    case HandoverStep::bluetooth:
        return {guide()};
    case HandoverStep::erase:
        return eraseLinks(eraseMethod(machine));
    case HandoverStep::nvram:
        return {link("Reset NVRAM on your Mac", "/en-us/102539")};
    }
    return {};
}

const HelpLink& Handover::guide() {
    static const HelpLink guide = link("Apple: What to do before you sell your Mac", "/en-us/102773");
    return guide;
}

std::optional<std::vector<HandoverLine>> Handover::lines(const std::optional<HandoverChecklist>& checklist,
                                                         const MachineInfo& machine) {
    if (!checklist || checklist->ticked.empty()) return std::nullopt;
    std::vector<HandoverLine> lines;
    for (const HandoverStep step : steps(machine)) {
        if (!comesAfterReport(step)) lines.push_back({step, checklist->ticked.contains(step)});
    }
    return lines;
}

bool Handover::comesAfterReport(HandoverStep step) {
    return step == HandoverStep::erase || step == HandoverStep::nvram;
}

std::string Handover::closingLine(const MachineInfo& machine) {
    std::string line = "Last, after this report: the seller erases the Mac (";
    line += eraseWords(eraseMethod(machine));
    line += ")";
    // Only a Mac known to be an Intel one: fewer than those that list the step.
    if (machine.isIntel()) line += " and resets NVRAM";
    return line + ".";
}

std::string Handover::buyerNote() {
    return std::string("Buyer: before") + buyerAsks;
}

std::string Handover::buyerAdvice() {
    return std::string("Before") + buyerAsks;
}

const char* const Handover::reportHeading = "Before handover (ticked by the seller)";
const char* const Handover::reportNote =
    "Ticked by the seller on this Mac. Tessivo can't see iCloud, Find My, Music or Bluetooth, so it doesn't "
    "check these.";

const char* Handover::mark(bool ticked) {
    return ticked ? "[x]" : "[ ]";
}

const char* Handover::word(bool ticked) {
    return ticked ? "ticked by seller" : "not ticked";
}

} // namespace tessivo

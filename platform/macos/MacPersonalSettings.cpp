#include "platform/macos/MacPersonalSettings.h"

#include "platform/macos/CFRef.h"
#include "platform/macos/PropertyValue.h"

#include <climits>

namespace tessivo {

std::string MacPersonalSettings::language() const {
    const void* const spoken[] = {CFSTR("en"), CFSTR("es")};
    const CFRef<CFArrayRef> ours(CFArrayCreate(kCFAllocatorDefault, const_cast<const void**>(spoken),
                                               std::ssize(spoken), &kCFTypeArrayCallBacks));
    if (!ours) return "en";
    const CFRef<CFArrayRef> best(CFBundleCopyLocalizationsForPreferences(ours.get(), nullptr));
    if (!best || CFArrayGetCount(best.get()) == 0) return "en";
    const auto first = PropertyValue::value(CFArrayGetValueAtIndex(best.get(), 0));
    const auto* name = first ? std::get_if<std::string>(&first->value) : nullptr;
    return name && (*name == "es" || name->starts_with("es-")) ? "es" : "en";
}

std::string MacPersonalSettings::region() const {
    const CFRef<CFLocaleRef> locale(CFLocaleCopyCurrent());
    CFStringRef identifier = locale ? CFLocaleGetIdentifier(locale.get()) : nullptr;
    return identifier ? PropertyValue::text(identifier) : std::string();
}

std::optional<std::filesystem::path> MacPersonalSettings::resources() const {
    CFBundleRef program = CFBundleGetMainBundle();
    if (!program) return std::nullopt;
    const CFRef<CFURLRef> kit(
        CFBundleCopyResourceURL(program, CFSTR("TessivoKit_TessivoKit"), CFSTR("bundle"), nullptr));
    UInt8 path[PATH_MAX];
    if (!kit || !CFURLGetFileSystemRepresentation(kit.get(), true, path, sizeof path)) return std::nullopt;
    return std::filesystem::path(reinterpret_cast<const char*>(path)).parent_path();
}

std::unique_ptr<PersonalSettings> makePersonalSettings() {
    return std::make_unique<MacPersonalSettings>();
}

} // namespace tessivo

#include "tests/macos/system/StandIn.h"

#include <ApplicationServices/ApplicationServices.h>
#include <QString>
#include <algorithm>
#include <cstring>

using namespace tessivo;
using Object = StandIn::Object;
using Kind = Object::Kind;

namespace {

StandIn& mac() {
    return StandIn::shared();
}

std::string text(const void* string, const char* call) {
    const Object* found = mac().alive(string, call);
    if (found->kind != Kind::string) StandIn::fail(std::string(call) + " was given " + found->made);
    return QString::fromStdU16String(found->text).toStdString();
}

} // namespace

CFArrayRef CFArrayCreate(CFAllocatorRef, const void** values, CFIndex count, const CFArrayCallBacks*) {
    if (!mac().enters("CFArrayCreate")) return nullptr;
    Object* made = mac().make(Kind::array, "the list of CFArrayCreate");
    for (CFIndex i = 0; i < count; ++i) {
        made->elements.push_back(mac().alive(values[i], "CFArrayCreate"));
        ++made->elements.back()->kept;
    }
    return reinterpret_cast<CFArrayRef>(mac().own(made));
}

CFArrayRef CFBundleCopyLocalizationsForPreferences(CFArrayRef offered, CFArrayRef) {
    const Object* ours = mac().alive(offered, "CFBundleCopyLocalizationsForPreferences");
    if (!mac().enters("CFBundleCopyLocalizationsForPreferences")) return nullptr;
    Object* made = mac().make(Kind::array, "the list of CFBundleCopyLocalizationsForPreferences");
    for (const std::string& language : mac().languages)
        for (Object* each : ours->elements)
            if (made->elements.empty() && language.starts_with(text(each, "CFBundle")))
                made->elements.push_back(each);
    if (made->elements.empty() && !ours->elements.empty()) made->elements.push_back(ours->elements.front());
    for (Object* each : made->elements)
        ++each->kept;
    return reinterpret_cast<CFArrayRef>(mac().own(made));
}

CFLocaleRef CFLocaleCopyCurrent() {
    if (!mac().enters("CFLocaleCopyCurrent") || !mac().locale) return nullptr;
    Object* made = mac().make(Kind::locale, "the locale of CFLocaleCopyCurrent");
    made->elements = {mac().keep(*mac().locale)};
    return reinterpret_cast<CFLocaleRef>(mac().own(made));
}

CFStringRef CFLocaleGetIdentifier(CFLocaleRef locale) {
    return reinterpret_cast<CFStringRef>(mac().alive(locale, "CFLocaleGetIdentifier")->elements.front());
}

CFBundleRef CFBundleGetMainBundle() {
    if (!mac().enters("CFBundleGetMainBundle")) return nullptr;
    Object* bundle = mac().make(Kind::bundle, "the bundle of CFBundleGetMainBundle");
    ++bundle->kept;
    return reinterpret_cast<CFBundleRef>(bundle);
}

CFURLRef CFBundleCopyResourceURL(CFBundleRef bundle, CFStringRef name, CFStringRef type, CFStringRef) {
    mac().alive(bundle, "CFBundleCopyResourceURL");
    const std::string file =
        text(name, "CFBundleCopyResourceURL") + "." + text(type, "CFBundleCopyResourceURL");
    const auto found = mac().resources.find(file);
    if (!mac().enters("CFBundleCopyResourceURL") || found == mac().resources.end()) return nullptr;
    Object* made = mac().make(Kind::url, "the address of CFBundleCopyResourceURL");
    made->text = QString::fromStdString(found->second).toStdU16String();
    return reinterpret_cast<CFURLRef>(mac().own(made));
}

Boolean CFURLGetFileSystemRepresentation(CFURLRef url, Boolean, UInt8* buffer, CFIndex room) {
    const Object* found = mac().alive(url, "CFURLGetFileSystemRepresentation");
    const std::string path = QString::fromStdU16String(found->text).toStdString();
    if (!mac().enters("CFURLGetFileSystemRepresentation") || CFIndex(path.size()) >= room) return false;
    std::memcpy(buffer, path.c_str(), path.size() + 1);
    return true;
}

OSStatus PMCreateSession(PMPrintSession* session) {
    if (!mac().enters("PMCreateSession")) return -1;
    *session = reinterpret_cast<PMPrintSession>(mac().own(mac().make(Kind::null, "the print session")));
    return noErr;
}

OSStatus PMCreatePageFormat(PMPageFormat* format) {
    if (!mac().enters("PMCreatePageFormat")) return -1;
    *format = reinterpret_cast<PMPageFormat>(mac().own(mac().make(Kind::null, "the page format")));
    return noErr;
}

OSStatus PMSessionDefaultPageFormat(PMPrintSession session, PMPageFormat format) {
    mac().alive(session, "PMSessionDefaultPageFormat");
    mac().alive(format, "PMSessionDefaultPageFormat");
    return mac().enters("PMSessionDefaultPageFormat") && mac().paper ? noErr : -1;
}

OSStatus PMGetUnadjustedPaperRect(PMPageFormat format, PMRect* sheet) {
    mac().alive(format, "PMGetUnadjustedPaperRect");
    if (!mac().enters("PMGetUnadjustedPaperRect") || !mac().paper) return -1;
    // The sheet's own corner lies outside what can be printed on.
    *sheet = {.top = -18, .left = -18, .bottom = mac().paper->second - 18, .right = mac().paper->first - 18};
    return noErr;
}

OSStatus PMRelease(void* object) {
    CFRelease(object);
    return noErr;
}

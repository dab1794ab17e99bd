#include "tests/macos/system/Cocoa.h"

#include "platform/macos/MacPrivacy.h"

namespace tessivo {

StandInCocoa& StandInCocoa::shared() {
    static StandInCocoa cocoa;
    return cocoa;
}

std::int64_t MacPrivacy::authorizationStatus(MediaType type) {
    return StandInCocoa::shared().access[type];
}

void MacPrivacy::requestAccess(MediaType, std::function<void(bool)> answer) {
    StandInCocoa::shared().questions.push_back(std::move(answer));
}

} // namespace tessivo

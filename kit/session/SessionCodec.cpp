#include "kit/session/SessionState.h"
#include "kit/support/JsonReader.h"
#include "kit/support/JsonWriter.h"

namespace tessivo {

std::string SessionState::encode() const {
    return Json::write(*this, Json::Layout::compact, Json::DateForm::number);
}

SessionState SessionState::decode(std::string_view json) {
    return Json::read<SessionState>(json, Json::DateForm::number);
}

} // namespace tessivo

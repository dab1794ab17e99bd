#include "kit/session/SessionShelf.h"

#include "kit/support/JsonReader.h"
#include "kit/support/JsonWriter.h"

namespace tessivo {

namespace {

template <class T>
std::string encoded(const T& record) {
    return Json::write(record, Json::Layout::compact, Json::DateForm::number);
}

template <class T>
std::optional<T> decoded(std::string_view json) {
    try {
        return Json::read<T>(json, Json::DateForm::number);
    } catch (const DecodingError&) {
        return std::nullopt;
    }
}

} // namespace

void SessionShelf::put(ShelvedSession session) {
    sessions.push_back(std::move(session));
    std::size_t first = sessions.size(), bytes = 0;
    while (first > 0 && sessions.size() - first < mostSessions) {
        bytes += sessions[first - 1].session.size() + sessions[first - 1].notes.size();
        if (bytes > mostBytes && first < sessions.size()) break;
        --first;
    }
    sessions.erase(sessions.begin(), sessions.begin() + std::ptrdiff_t(first));
}

std::optional<SessionShelf::Found> SessionShelf::find(const MacIdentity& current) const {
    std::optional<Found> best;
    for (std::size_t index = 0; index < sessions.size(); ++index) {
        const ShelvedSession& shelved = sessions[index];
        const MacMatch match = compare({shelved.serial, shelved.modelID, shelved.keys}, current);
        if (match >= MacMatch::sameModel && (!best || match >= best->match)) best = Found{index, match};
    }
    return best;
}

std::string SessionShelf::encode() const {
    return encoded(*this);
}

std::optional<SessionShelf> SessionShelf::decode(std::string_view json) {
    return decoded<SessionShelf>(json);
}

std::string encode(const HardwareKeys& keys) {
    return encoded(keys);
}

HardwareKeys decodeHardwareKeys(std::string_view json) {
    return decoded<HardwareKeys>(json).value_or(HardwareKeys{});
}

} // namespace tessivo

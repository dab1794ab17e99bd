#include "app/model/SaveFault.h"

#include <cerrno>

namespace tessivo {

SaveFault saveFault(const std::error_code& error) {
    using std::errc;
    // A quota and a limit of the process count as the disk's own end.
    if (error == errc::no_space_on_device || error == errc::file_too_large || error.value() == EDQUOT)
        return SaveFault::noRoom;
    if (error == errc::permission_denied || error == errc::operation_not_permitted ||
        error == errc::read_only_file_system)
        return SaveFault::notAllowed;
    return SaveFault::other;
}

SaveFault saveFault(const std::exception& error) {
    const auto* system = dynamic_cast<const std::system_error*>(&error);
    return system ? saveFault(system->code()) : SaveFault::other;
}

const char* cause(SaveFault fault) {
    switch (fault) {
    case SaveFault::noRoom:
        return "there is no room on the disk";
    case SaveFault::notAllowed:
        return "Tessivo may not write there";
    case SaveFault::noFont:
        return "there is no font to set the report in";
    case SaveFault::other:
        break;
    }
    return "the file could not be written";
}

} // namespace tessivo

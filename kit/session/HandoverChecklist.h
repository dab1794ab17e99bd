#pragma once

#include "kit/session/HandoverStep.h"

#include <set>

namespace tessivo {

/// What the seller ticked.
struct HandoverChecklist {
    std::set<HandoverStep> ticked;

    bool operator==(const HandoverChecklist&) const = default;
};
BOOST_DESCRIBE_STRUCT(HandoverChecklist, (), (ticked))

} // namespace tessivo

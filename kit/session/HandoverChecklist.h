#pragma once

#include "kit/support/Describe.h"

#include <set>

namespace tessivo {

enum class HandoverStep { backup, music, findMy, appleAccount, bluetooth, erase, nvram };
BOOST_DESCRIBE_ENUM(HandoverStep, backup, music, findMy, appleAccount, bluetooth, erase, nvram)

/// What the seller ticked.
struct HandoverChecklist {
    std::set<HandoverStep> ticked;

    bool operator==(const HandoverChecklist&) const = default;
};
BOOST_DESCRIBE_STRUCT(HandoverChecklist, (), (ticked))

} // namespace tessivo

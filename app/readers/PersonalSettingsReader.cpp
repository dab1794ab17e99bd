#include "app/readers/PersonalSettingsReader.h"

#include "kit/listing/Lang.h"
#include "kit/listing/Strings.h"
#include "kit/support/UserRegion.h"

namespace tessivo {

void usePersonalSettings(const PersonalSettings& settings) {
    Lang::setSystem(settings.language());
    UserRegion::set(settings.region());
    if (auto folder = settings.resources()) Strings::setResources(*std::move(folder));
}

} // namespace tessivo

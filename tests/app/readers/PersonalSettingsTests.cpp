#include "app/readers/PersonalSettingsReader.h"
#include "kit/listing/Lang.h"
#include "kit/listing/Strings.h"
#include "kit/support/UserRegion.h"
#include "platform/simulated/ManualScheduler.h"
#include "platform/simulated/SimulatedControls.h"

#include <gtest/gtest.h>

namespace tessivo {
namespace {

TEST(PersonalSettings, decideTheLanguageAndTheRegionOfTexts) {
    ManualScheduler clock;
    SimulatedPlatform mac({}, clock);
    SimulatedControls controls(mac);
    controls.setLanguage("es");
    controls.setRegion("es_ES");
    usePersonalSettings(mac.personalSettings());
    EXPECT_TRUE(Lang::isSpanish());
    EXPECT_EQ(UserRegion::identifier(), "es_ES");
    EXPECT_NE(Strings::tr("Copied. Read it once more before you post."),
              "Copied. Read it once more before you post.")
        << "the table of the sources, where no folder was named";

    usePersonalSettings(SimulatedPlatform({}, clock).personalSettings());
    EXPECT_EQ(Lang::system(), "en");
    EXPECT_EQ(UserRegion::identifier(), "");
}

} // namespace
} // namespace tessivo

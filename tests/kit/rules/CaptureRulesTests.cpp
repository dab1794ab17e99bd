#include "kit/rules/Rules.h"
#include "tests/kit/rules/Printed.h"

#include <gtest/gtest.h>

namespace tessivo {
namespace {

using enum ManualAnswer;

TEST(MicrophoneRule, passesOnTheLevelHeard) {
    const MicReading quiet = {"1", "Quiet", -35.1, false};
    const MicReading just = {"2", "Just", -35.0, false};
    const MicReading loud = {"3", "Loud", -23.5, false};
    const MicReading fresh = {"4", "Fresh", {}, false};
    const MicReading broken = {"5", "Broken", -10.0, true};
    struct Row {
        std::vector<MicReading> readings;
        const char* expected;
    };
    const std::vector<Row> rows = {
        {{fresh}, "notRun: Not run | Fresh: not listened yet"},
        {{quiet}, "unfinished: Speak or clap near the Mac | Quiet: loudest -35 dB"},
        {{just}, "works: Picked up sound | Just: loudest -35 dB"},
        {{just, loud},
         "works: All 2 microphones picked up sound | Just: loudest -35 dB | Loud: loudest -24 dB"},
        {{loud, fresh},
         "unfinished: Speak or clap near the Mac | Loud: loudest -24 dB | Fresh: not listened yet"},
        {{loud, broken, broken},
         "problem: Couldn't open: Broken, Broken | Loud: loudest -24 dB | "
         "Broken: couldn't open | Broken: couldn't open"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(printed(Rules::microphones(row.readings, true, false, MacKind::laptop)), row.expected);
    EXPECT_EQ(printed(Rules::microphones({loud}, false, false, MacKind::laptop)), "notRun: Not run");
    EXPECT_EQ(
        printed(Rules::microphones({loud}, true, true, MacKind::laptop)),
        "checkByHand: Microphone access is off | Turn on Tessivo in System Settings › Privacy & Security › "
        "Microphone, then test again.");
}

TEST(CameraRule, needsBothAPictureAndAnAnswer) {
    const CameraReading fresh = {"1", "Fresh", false, false, unanswered};
    const CameraReading seen = {"2", "Seen", true, false, unanswered};
    const CameraReading good = {"3", "Good", true, false, works};
    const CameraReading blind = {"4", "Blind", false, false, works};
    const CameraReading bad = {"5", "Bad", true, false, problem};
    const CameraReading broken = {"6", "Broken", true, true, works};
    const CameraReading absent = {"7", "Absent", true, false, notPresent};
    struct Row {
        std::vector<CameraReading> readings;
        const char* expected;
    };
    const std::vector<Row> rows = {
        {{fresh}, "notRun: Not run | Fresh: not opened yet"},
        {{blind}, "notRun: Not run | Blind: picture looked right"},
        {{good, blind},
         "unfinished: Say how the picture looked | Good: picture looked right | Blind: picture looked right"},
        {{seen, fresh},
         "unfinished: Say how the picture looked | Seen: sent a picture | Fresh: not opened yet"},
        {{absent}, "unfinished: Say how the picture looked | Absent: sent a picture"},
        {{good}, "works: Picture looked right | Good: picture looked right"},
        {{good, good},
         "works: All 2 cameras looked right | Good: picture looked right | Good: picture looked right"},
        {{bad, good, broken},
         "problem: Problem: Bad, Broken | Bad: picture had a problem | "
         "Good: picture looked right | Broken: couldn't open"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(printed(Rules::cameras(row.readings, true, false, MacKind::laptop)), row.expected);
    EXPECT_EQ(printed(Rules::cameras({good}, false, false, MacKind::laptop)), "notRun: Not run");
    EXPECT_EQ(printed(Rules::cameras({good}, false, true, MacKind::desktop)),
              "checkByHand: Camera access is off | Turn on Tessivo in System Settings › Privacy & Security › "
              "Camera, then test again.");
}

TEST(CaptureRules, aMissingDeviceIsJudgedByTheKindOfMac) {
    struct Row {
        std::optional<MacKind> kind;
        const char* microphone;
        const char* camera;
    };
    const char* const none = "notIncluded: None built in (Mac mini, Mac Studio and Mac Pro have none)";
    for (const Row& row :
         {Row{std::nullopt, "checkByHand: No microphone found. Check whether this model has one.",
              "checkByHand: No camera found. Check whether this model has one."},
          Row{MacKind::laptop, "problem: No microphone found", "problem: No camera found"},
          Row{MacKind::allInOne, "problem: No microphone found", "problem: No camera found"},
          Row{MacKind::desktop, none, none}}) {
        EXPECT_EQ(printed(Rules::microphones({}, true, false, row.kind)), row.microphone);
        EXPECT_EQ(printed(Rules::cameras({}, true, false, row.kind)), row.camera);
    }
}

} // namespace
} // namespace tessivo
